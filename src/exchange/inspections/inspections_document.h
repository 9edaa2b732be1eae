// The document that a field tool gets: the tree of the project with its
// elements and what was found at them in one cycle.
#pragma once

#include "database/sql/result.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <functional>

struct ExchangedFamily;

struct InspectionsTask {
    int projectId = -1;
    int cycleId = -1;
    bool analyticOnly = false; ///< positions of type 1 alone
};

/// Told what is done of `total`; false gives the work up.
using ExchangeProgress = std::function<bool(int done, int total)>;

class InspectionsDocument {
public:
    enum class State {
        Built,
        GivenUp,
        Failed, ///< problem() says why
    };

    InspectionsDocument(const InspectionsTask& task, const ExchangeProgress& progress);

    /// What the coordinate system of the project does not allow to compute is
    /// left out and remarked on; any other refused statement fails the document.
    State build();

    const QJsonObject& root() const { return root_; }
    const QString& problem() const { return problem_; }
    const QStringList& remarks() const { return remarks_; }

private:
    using ByElement = QHash<QString, QJsonArray>; ///< by the id's text

    bool addLists();
    bool readContours();
    bool readFamily(const ExchangedFamily& family, int step);
    bool readInspections(const ExchangedFamily& family, int step, ByElement& inspections);
    QJsonArray filesOf(const ExchangedFamily& family, int elementId);
    bool readElements(const ExchangedFamily& family, const ByElement& inspections);
    bool buildProject();
    void addMeanPosition(QJsonObject& project);
    bool objectsOf(QJsonArray& objects);
    bool subobjectsOf(const QString& object, QJsonArray& subobjects);
    bool positionsOf(const QString& subobject, QJsonArray& positions);
    bool isGood(const sql::Result& rows);
    bool isUsable(const sql::Result& rows, const char* what);
    bool goOn(int step, int row, int rows);

    InspectionsTask task_;
    const ExchangeProgress& progress_;
    State state_ = State::Built;
    QJsonObject root_;
    QString problem_;
    QStringList remarks_;
    qint64 photoBytes_ = 0;
    QHash<QString, QJsonArray> contours_;                 ///< by position
    QHash<QString, QHash<QString, QJsonArray>> elements_; ///< by position and family
};
