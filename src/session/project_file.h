#pragma once
// The project file ".terva": how to find the database and what the user had
// chosen. XML in UTF-8 without a declaration; every value is an attribute.

#include "session/connection_parameters.h"
#include "session/enumerator.h"

#include <QMap>
#include <array>
#include <optional>

class QIODevice;
class ProjectSession;

constexpr int enumeratorCount = 7;
/// The numberings in the order in which loading puts them into the session:
/// DM, TS, RP, TSS, GGS, TSG, IGS.
extern Enumerator ProjectSession::*const enumeratorsInUse[enumeratorCount];

/// What a project file holds. The name of the file itself is written for the
/// reader's eye and never read, so that a copied file keeps working.
struct ProjectFile {
    QString projectName;
    QString projectCode;
    QString projectOwner;
    QString projectLocation;
    QString workDir;
    QString tempDir;
    QString templateDir;
    int sqlType = 0;
    ConnectionParameters database;
    int positionId = -1;
    int baseCycleId = -1;
    int currentCycleId = -1;
    int temperatureColormapId = -3;
    int dynamicTemperatureColormapId = -3;
    int deformationColormapId = -2;
    QString exportPath;
    std::array<Enumerator, enumeratorCount> enumerators; ///< in the order of enumeratorsInUse
    QMap<QString, QString> stateFilter;
};

/// Reads the file's values; what is missing or unreadable takes the session's
/// defaults. Nothing when the text is no XML.
std::optional<ProjectFile> readProjectFile(QIODevice& device, const ProjectSession& defaults);

/// A project file's name as typed, with the suffix that all of them have.
QString withProjectSuffix(const QString& path);

/// The file's text for the session as it stands.
QByteArray projectFileText(const ProjectSession& session);
