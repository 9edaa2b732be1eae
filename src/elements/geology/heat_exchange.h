#pragma once
// How a thermostabiliser's condenser gives its heat to the wind: pairs of a wind
// speed and a coefficient, in the catalogue one text "0:5.1|2:9.4".

#include <QStringList>
#include <QVector>

/// Numbers as they were typed.
struct HeatExchangePair {
    QString speed;       ///< of the wind, m/s
    QString coefficient; ///< of the condenser
};
using HeatExchange = QVector<HeatExchangePair>;

/// Pieces without ":" are passed over.
HeatExchange parseHeatExchange(const QString& text);
QString heatExchangeText(const HeatExchange& pairs);

/// What is wrong with the pairs; empty when nothing is.
QString heatExchangeFault(const HeatExchange& pairs);

/// Titles of both numbers, as files have them; the blank belongs to the second.
QString speedTitle();
QString coefficientTitle();

/// A header and a line a pair.
QString heatExchangeCsv(const HeatExchange& pairs);
/// The pairs of a file's lines; lines that are no two numbers are passed over.
HeatExchange readHeatExchangeCsv(const QStringList& lines);

/// The name that a file of the entry's pairs gets unless the user says another.
QString heatExchangeFileName(const QString& entryName);
