#pragma once
// What the user is working on: the database, its project, the current
// position, the chosen cycles, the project's folders and the lists that forms
// read without asking the server. Every area reads and writes the fields
// directly; nothing else caches these facts.
//
// Identifiers are 32-bit signed and -1 means none; a state is named by a text.
// Everything here runs on the host's main thread.

#include "database/sql/connection.h"
#include "session/enumerator.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <array>

class QStandardItem;

/// One line of a combo box: what it shows and what it stands for.
struct ComboEntry {
    QString text;
    QVariant data;
};

class ProjectSession {
public:
    ProjectSession();
    ~ProjectSession(); ///< finishes the connection
    ProjectSession(const ProjectSession&) = delete;
    ProjectSession& operator=(const ProjectSession&) = delete;

    // --- what a family starts with -------------------------------------------
    Enumerator dmDefault{QStringLiteral("ДМ"), 1, 1};
    Enumerator tsDefault{QStringLiteral("ТС"), 1, 1};
    Enumerator rpDefault{QStringLiteral("RP"), 1, 1};
    Enumerator tssDefault{QStringLiteral("ТСС"), 1, 1};
    Enumerator ggsDefault{QStringLiteral(" ГГС"), 1, 1}; ///< the leading blank belongs to the prefix
    Enumerator tsgDefault{QStringLiteral("ТСГ"), 1, 1};
    Enumerator igsDefault{QStringLiteral("СКВ"), 1, 1};
    QString defaultState = QStringLiteral("exist"); ///< the state of an element without an inspection
    QString defaultHost = QStringLiteral("127.0.0.1");
    QString defaultPort = QStringLiteral("5432");
    QString defaultUser = QStringLiteral("postgres");
    int defaultPositionId = -1;
    int defaultFileId = -1;
    int defaultBaseCycleId = -1;
    int defaultCurrentCycleId = -1;
    /// What decimal fields accept. It has no end anchor: a validator anchors by itself.
    QRegularExpression numberPattern{QStringLiteral("^[+-]?\\d*(\\.\\d*)?")};
    int defaultTypeId = 1; ///< preselected where a form offers a list of types

    // --- the project ------------------------------------------------------------
    int projectId = -1;
    QString projectCode;
    QString projectName;
    QString projectOwner;
    QString projectLocation;
    QString workDir;
    QString tempDir; ///< holds the working copies of the positions' drawings

    // --- the connection -----------------------------------------------------------
    sql::Connection connection;
    int sqlType = 0; ///< 0 is PostgreSQL; the other kinds cannot connect
    QString sqlHost; ///< a numeric address
    QString sqlPort;
    QString sqlDatabase;
    QString sqlUser;
    QString sqlPass;

    // --- settings that live as long as the session ------------------------------
    QStandardItem* currentPositionItem = nullptr; ///< the underlined item of the project tree; not owned
    QString moduleDir;                            ///< folder of the module, with the system's separator at its end
    double placementScale = 1.0;                  ///< of inserted blocks; 1.0 suits 1:1000
    /// The columns last chosen in the element import.
    std::array<int, 12> importColumns{{0, 2, 1, -1, -1, -1, -1, -1, -1, 0, 1, 2}};

    // --- the numbering in use -----------------------------------------------------
    Enumerator dmEnumerator = dmDefault;
    Enumerator tsEnumerator = tsDefault;
    Enumerator rpEnumerator = rpDefault;
    Enumerator tssEnumerator = tssDefault;
    Enumerator ggsEnumerator = ggsDefault;
    Enumerator tsgEnumerator = tsgDefault;
    Enumerator igsEnumerator = igsDefault;

    // --- the current position -------------------------------------------------------
    QString currentDrawingPath;
    int currentFileId = -1; ///< of the stored drawing, -1 if none is stored
    int currentPositionId = -1;
    QString currentPositionName;
    int currentSubobjectId = -1;
    QString currentSubobjectName;
    int currentObjectId = -1;
    QString currentObjectName;

    // --- what the user has chosen -----------------------------------------------------
    bool connected = false; ///< the last known state; guards ask checkConnection()
    bool inspectorOn = false;
    int baseCycleId = -1;
    int currentCycleId = -1;
    QString templateDir;
    QString projectFile;
    QString exportPath; ///< last folder of report export
    int deformationColormapId = -2;
    int temperatureColormapId = -3;
    int dynamicTemperatureColormapId = -3;
    QString proj4Text; ///< the project's coordinate system as a PROJ definition

    // --- reference lists ----------------------------------------------------------------
    QMap<int, QString> levelMaps;       ///< names of colour maps; -3, -2, -1 are built in
    QMap<int, QStringList> cycles;      ///< number, start, end (dd.mm.yy), description
    QVector<int> cycleOrder;            ///< by starting date
    QMap<int, QStringList> predictions; ///< date, name, first cycle, last cycle, number of elements
    QVector<int> predictionOrder;       ///< by date
    QMap<QString, QString> states;      ///< state_id to note
    QMap<QString, int> stateColors;     ///< state_id to colour index
    QMap<QString, QString> stateFilter; ///< the states shown: state_id to description
    bool auditEnabled = true;           ///< the database's audit switch
    bool superuser = false;             ///< whether the connected role is one

    // --- connection ---------------------------------------------------------------------
    /// Runs one statement on the session's connection; with no connection the
    /// result is a failed one.
    sql::Result run(const Statement& statement) const;
    sql::Result run(const Statement& statement, const QVector<sql::Parameter>& parameters,
                    sql::Format answer = sql::Format::Text) const;

    QString buildConnInfo() const;
    /// Opens the connection with the string. Where that leads from one database
    /// to another, what the session knew of the first is forgotten: it never
    /// holds a handle of one database and the ids of another.
    bool openConnection(const QString& conninfo);
    /// Position, cycles, reference lists and the project's id: what has a
    /// meaning in the database alone. The project's name and folders stay.
    void forgetDatabase();
    /// Opens the connection and reads what is known only then: the project's
    /// row (unless a project is known), the audit switch, whether the role is a
    /// superuser; then probes the rights. Says nothing but the probe's message.
    bool connect();
    /// The live check of guards and forms: asks the server and reconnects when
    /// it does not answer, to the database that the connection was opened with,
    /// although the parameters may name another that was merely tested.
    bool checkConnection();
    /// Whether all tables can be read; prints the first that cannot.
    bool probeRights(const QStringList& tables) const;
    /// Flips the audit switch of the database and reconnects, since it holds
    /// for new connections only.
    bool setAudit();
    /// The guard of commands that need a connection and a position; prints
    /// what is missing.
    bool requirePosition();

    // --- project file ---------------------------------------------------------------------
    /// Asks for a file when none is known. False when nothing was written, which
    /// is told where a file was lost on the way.
    bool saveProject();
    void saveProjectAs();        ///< asks for a new name
    void chooseAndLoadProject(); ///< asks for a file
    /// Reports on the command line. Until everything needed is there the
    /// session's fields stay as they were.
    void loadProject(const QString& path);
    void saveProjectRow(); ///< inserts or updates the only row of `projects`

    // --- position ---------------------------------------------------------------------------
    /// Makes the position current, brings its drawing into the host and
    /// continues the numbering of its elements. -1 leaves the position.
    bool setCurrentPosition(int positionId);
    /// Where the working copy of a position's drawing lies.
    QString drawingPath(int positionId) const;

    // --- reference lists ----------------------------------------------------------------
    void reloadLevelMaps();
    bool reloadCycles();
    void reloadPredictions();
    bool reloadStates();
    /// The cycles between two, both included, in the order of their dates.
    QVector<int> cycleRange(int first, int last) const;
    QVector<ComboEntry> cycleEntries(const QString& separator) const;
    QVector<ComboEntry> predictionEntries(const QString& separator) const;
    QVector<ComboEntry> stateEntries() const;
    /// The positions of a project (scope 0), object (1) or subobject (2); for a
    /// position (3) itself.
    QVector<int> positionsOf(int scope, int id) const;

    // --- projection ---------------------------------------------------------------------------
    /// Writes proj4Text to the row 9999 of spatial_ref_sys and opens the
    /// connection anew, with what it was opened with.
    bool saveProjection();
    /// Recomputes the geometry of elements, contours and profiles. False when
    /// one of the statements failed; the others have run all the same.
    bool updateGeometry();

private:
    QString reconnectionInfo() const;
    bool connectWith(const QString& conninfo);
    void leavePositionFields();
    void readProjectRow();
    void readAuditSwitch();
    void readSuperuser();
    bool leavePosition();
    bool bringPosition(int positionId);
    void readPositionNames(int positionId);
};

/// The module's one session.
ProjectSession& session();
