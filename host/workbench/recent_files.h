// Files that were opened, the newest first, and the folders where files of each
// kind were last looked for: kept between runs.
#pragma once

#include <QSettings>
#include <QStringList>

class RecentFiles {
public:
    // `kind` names the list in the settings: "recent", "recentProjects".
    RecentFiles(QSettings& settings, const QString& kind) : settings_(settings), kind_(kind) { }

    QStringList paths() const;
    void note(const QString& path);

private:
    QSettings& settings_;
    QString kind_;
};

QString rememberedFolder(QSettings& settings, const QString& kind);
void rememberFolder(QSettings& settings, const QString& kind, const QString& file);
