// Keeps what this program and its libraries write to the debug log meanwhile.
#pragma once

#include <QStringList>
#include <QtGlobal>

class MessageCount {
public:
    MessageCount()
    {
        texts().clear();
        before_ = qInstallMessageHandler(&MessageCount::keep);
    }
    ~MessageCount() { qInstallMessageHandler(before_); }
    MessageCount(const MessageCount&) = delete;
    MessageCount& operator=(const MessageCount&) = delete;

    static QStringList& texts()
    {
        static QStringList kept;
        return kept;
    }

private:
    static void keep(QtMsgType, const QMessageLogContext&, const QString& text) { texts().append(text); }
    QtMessageHandler before_;
};
