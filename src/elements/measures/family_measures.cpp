#include "elements/measures/family_measures.h"

#include "base/text.h"
#include "database/sql/result.h"

DMMeasure::DMMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Dm), lists) { }

RPMeasure::RPMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Rp), lists) { }

GGSMeasure::GGSMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Ggs), lists) { }

TSGMeasure::TSGMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Tsg), lists) { }

TSSMeasure::TSSMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Tss), lists) { }

TSMeasure::TSMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Ts), lists) { }

int TSMeasure::load(int id) { return id == -1 ? int(measureNotFound) : BaseMeasure::load(id); }

QStringList TSMeasure::valueTexts() const
{
    return {fixed(values[0], family().columns[0].decimals),
            QLatin1Char('\'') + profileText(profile) + QLatin1Char('\'')};
}

void TSMeasure::readValues(const sql::Result& row, int column)
{
    values[0] = numberAt(row, column);
    profile.clear();
    profileRead = parseProfile(row.getvalue(0, column + 1), profile);
}

std::unique_ptr<BaseMeasure> makeMeasure(FamilyKey family, const MeasureLists& lists)
{
    switch (family) {
    case FamilyKey::Dm: return std::make_unique<DMMeasure>(lists);
    case FamilyKey::Ts: return std::make_unique<TSMeasure>(lists);
    case FamilyKey::Rp: return std::make_unique<RPMeasure>(lists);
    case FamilyKey::Ggs: return std::make_unique<GGSMeasure>(lists);
    case FamilyKey::Tss: return std::make_unique<TSSMeasure>(lists);
    case FamilyKey::Tsg: return std::make_unique<TSGMeasure>(lists);
    case FamilyKey::Igs: break;
    }
    return nullptr;
}
