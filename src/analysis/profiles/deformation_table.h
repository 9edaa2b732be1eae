// The table of a deformation profile as texts, for whichever form shows it.
#pragma once

#include "analysis/profiles/deformation_profile.h"

#include <QStringList>

/// The titles of the columns. The captions say what both sides are: "Цикл 3",
/// or of a forecast "Прогноз \n 01.01.24".
QStringList deformationTitles(const QString& base, const QString& current);

struct DeformationTableRow {
    QStringList cells;
    bool overLimit = false;
};
/// A row a mark: difference, distance and relative difference are those to the
/// mark before it. What is missing is "--". The limit is metres.
std::vector<DeformationTableRow> deformationRows(const DeformationProfileClass& profile, double limit);

/// "Максимальная  осадка,мм" and "Средняя  осадка, мм" with their figures.
QString largestText(const DeformationProfileClass& profile);
QString meanText(const DeformationProfileClass& profile);

/// Whether a movement is beyond what the position's norms allow.
bool isOverLimit(const DeformationProfilePoint& point, double limit);
/// The position's mean settlement in metres; infinite without norms.
double settlementLimit(int positionId);

QString millimetres(double metres);
