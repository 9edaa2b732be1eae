#pragma once
// Programs that stand in for a dump utility, in a folder of their own.

#include "base/placeholders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class StandIns : public ::testing::Test {
protected:
    /// A shell script by this name; returns its path.
    QString standIn(const QString& name, const QString& body)
    {
        const QString path = folder_.filePath(name);
        write(path, "#!/bin/sh\n" + body.toUtf8() + "\n");
        makeExecutable(path);
        return path;
    }
    static void makeExecutable(const QString& path)
    {
        EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    /// The path of a file of this folder, for a script.
    QString quoted(const QString& name) const { return '\'' + folder_.filePath(name) + '\''; }
    /// Whether the process that a script wrote down is there.
    bool isRunning(const QString& name) const
    {
        return QDir("/proc/" + read(folder_.filePath(name)).trimmed()).exists();
    }

    QString target() const { return folder_.filePath("Копия базы.sql"); }
    QByteArray written() const { return read(target()); }

    QTemporaryDir folder_;
};
