// The independent audit of files that we wrote.
#pragma once

#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>

// Runs the audit once for all files; a missing interpreter or library fails.
inline void expectSound(const QStringList& files)
{
    QProcess audit;
    audit.setProcessChannelMode(QProcess::MergedChannels);
    audit.start(QStringLiteral("/usr/bin/python3"),
                QStringList{QStringLiteral(TERVA_SOURCE_DIR "/tests/host/dxf/audit.py")} + files);
    ASSERT_TRUE(audit.waitForStarted()) << "no python3";
    ASSERT_TRUE(audit.waitForFinished(300000));
    const QString said = QString::fromUtf8(audit.readAll());
    EXPECT_EQ(audit.exitCode(), 0) << said.toStdString();
    EXPECT_TRUE(said.contains(QStringLiteral("audited %1").arg(files.size()))) << said.toStdString();
}
