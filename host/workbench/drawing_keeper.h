// What keeps drawings from being lost: copies of what was changed and not saved,
// which are found again after a crash, and locks that tell a second user.
#pragma once

#include <drawing/application.h>

#include <QDateTime>
#include <QLockFile>
#include <map>
#include <memory>

// A copy that a program which ended without a word has left.
struct LeftCopy {
    QString copy;     // the file
    QString original; // the drawing's name
    bool untitled = false;
    QDateTime saved;
};

class DrawingKeeper {
public:
    // Copies lie in this folder.
    explicit DrawingKeeper(const QString& folder);
    ~DrawingKeeper(); // this program's own copies go: it ended as it should

    // Writes a copy of each open drawing that was changed since the last one.
    // The number of copies; `problem` gets why one was not written.
    int keep(QString* problem = nullptr);
    // The drawing was saved or closed: its copy goes.
    void forget(const Document& document);

    // Writes what a drawing that a command closes holds unsaved into a dated file.
    // Its path; empty with the reason in `problem`.
    QString keepClosed(const Document& document, QString* problem = nullptr);

    // Of programs that run no more, the newest first.
    std::vector<LeftCopy> left() const;
    static void remove(const LeftCopy& copy);

    // Takes the file for this program. Else who has it: user, machine, process.
    // A folder that takes no lock is no hindrance.
    QString lock(const QString& path);
    void unlock(const QString& path);
    bool holds(const QString& path) const;

private:
    struct Kept {
        QString file;
        quint64 change = 0;
    };
    QString freeName();

    QString folder_;
    QLockFile running_;
    std::map<const Document*, Kept> kept_;
    std::map<QString, std::unique_ptr<QLockFile>> locks_;
    int count_ = 0;
};
