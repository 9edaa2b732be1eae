// The measures of the six families. What differs is data; the thermal wells
// alone store a profile instead of a number.
#pragma once

#include "elements/measures/base_measure.h"
#include "elements/measures/temperature_log.h"

#include <QMetaType>
#include <memory>

/// Deformation mark: the absolute mark, m.
class DMMeasure : public BaseMeasure {
public:
    explicit DMMeasure(const MeasureLists& lists = {});
    double& meas() { return values[0]; }

    int validity = 0; ///< code of the import's check, 0 unknown
};

/// Benchmark: the absolute mark and its precision.
class RPMeasure : public BaseMeasure {
public:
    explicit RPMeasure(const MeasureLists& lists = {});
    double& meas() { return values[0]; }
    double& precis() { return values[1]; }
};

/// Hydrogeological well: the level of ground water.
class GGSMeasure : public BaseMeasure {
public:
    explicit GGSMeasure(const MeasureLists& lists = {});
    double& meas() { return values[0]; }
};

/// Thermostabiliser: temperatures of the air and of the condenser.
class TSGMeasure : public BaseMeasure {
public:
    explicit TSGMeasure(const MeasureLists& lists = {});
    double& envTemp() { return values[0]; }
    double& exchangerTemp() { return values[1]; }
};

/// Snow survey point: density and height.
class TSSMeasure : public BaseMeasure {
public:
    explicit TSSMeasure(const MeasureLists& lists = {});
    double& measDensity() { return values[0]; }
    double& measHeigth() { return values[1]; } // the column's spelling
};

/// Thermal well: the temperature of the air and the profile. What the import's
/// check finds is kept with the measure.
class TSMeasure : public BaseMeasure {
public:
    explicit TSMeasure(const MeasureLists& lists = {});
    double& tVozd() { return values[0]; }

    TemperatureProfile profile;
    bool profileRead = true; ///< whether the whole stored text could be read
    quint32 validity = 0;    ///< bits of the check
    double mean = noValue;
    double previousMean = noValue;
    bool validated = false;
    TemperatureLog outliers;
    TemperatureLog gradients;                      ///< where the temperature changes too fast
    double depthFrom = noValue, depthTo = noValue; ///< of the criterion

    /// At once measureNotFound for -1.
    int load(int id) override;

protected:
    QVector<Statement> valueTexts() const override;
    void readValues(const sql::Result& rows, int row, int column) override;
};
Q_DECLARE_METATYPE(TSMeasure*)

/// A measure of the family; null for engineering-geological wells.
std::unique_ptr<BaseMeasure> makeMeasure(FamilyKey family, const MeasureLists& lists = {});
