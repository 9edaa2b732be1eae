// Forecasts on the server: the marks they are made of, and those that are stored.
#pragma once

#include "analysis/forecast/mark_forecast.h"

#include <functional>

/// Which marks are taken: those of the narrowest id that is told, else all.
struct ForecastScope {
    int project = -1;
    int object = -1;
    int subobject = -1;
    int position = -1;
};

/// Told after every mark; false stops.
using ForecastProgress = std::function<bool(int done, int total)>;

/// The marks by name with all their measures: a statement a mark. False, and no
/// mark, when the server refuses or the progress stops it.
bool loadMarks(const ForecastScope& scope, QVector<MarkMeasures>& marks, const ForecastProgress& progress = {});

struct PredictedMark {
    int element = -1;
    QString value; ///< metres, as shown
};

struct NewPrediction {
    QString name;
    QDate day;
    int beginCycle = -1;
    int endCycle = -1;
    QVector<PredictedMark> marks;
};

/// Stores the forecast. When the server refuses, `problem` is its message; what
/// is refused after the forecast itself leaves it without marks.
bool storePrediction(const NewPrediction& prediction, QString* problem);

struct StoredPrediction {
    int id = -1;
    QString day, name;
    int beginCycle = -1, endCycle = -1;
    int marks = 0;
};

bool loadPredictions(QVector<StoredPrediction>& predictions, QString* problem);
bool deletePredictions(const QVector<int>& ids, QString* problem);
