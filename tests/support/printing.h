#pragma once
// How values of Qt are shown when a test fails. Every test source includes this
// file first (see CMakeLists.txt), so that all of them show the same.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <ostream>

QT_BEGIN_NAMESPACE

inline void PrintTo(const QString& text, std::ostream* stream)
{
    if (text.isNull())
        *stream << "(null)";
    else
        *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* stream)
{
    *stream << bytes.size() << " bytes " << bytes.left(64).toHex(' ').toStdString();
}

inline void PrintTo(const QStringList& texts, std::ostream* stream)
{
    *stream << "[\"" << texts.join("\", \"").toStdString() << "\"]";
}

inline std::ostream& operator<<(std::ostream& stream, const QString& text) { return stream << text.toStdString(); }

QT_END_NAMESPACE
