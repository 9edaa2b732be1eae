// A program that runs with one of our libraries loaded before its own.
#pragma once

#include <QCoreApplication>
#include <QProcess>

/// The surroundings of this program, and the library beside it that is loaded first.
inline QProcessEnvironment preloading(const QString& library)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QCoreApplication::applicationDirPath() + '/' + library);
    // A program under the address sanitizer refuses to start where its runtime is not the first; ours passes calls on
    // to it.
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       environment.value(QStringLiteral("ASAN_OPTIONS")) + QStringLiteral(":verify_asan_link_order=0"));
    return environment;
}
