#include "elements/measures/family_measures.h"

#include "database/sql/result.h"

DMMeasure::DMMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Dm), lists) { }

RPMeasure::RPMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Rp), lists) { }

GGSMeasure::GGSMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Ggs), lists) { }

TSGMeasure::TSGMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Tsg), lists) { }

TSSMeasure::TSSMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Tss), lists) { }

TSMeasure::TSMeasure(const MeasureLists& lists) : BaseMeasure(*measureFamily(FamilyKey::Ts), lists) { }

int TSMeasure::load(int id) { return id == -1 ? int(measureNotFound) : BaseMeasure::load(id); }

QVector<Statement> TSMeasure::valueTexts() const
{
    return {compose("%1", Numeral(values[0], family().columns[0].decimals)), compose("'%1'", profileText(profile))};
}

void TSMeasure::readValues(const sql::Result& rows, int row, int column)
{
    values[0] = numberAt(rows, row, column);
    profile.clear();
    profileRead = parseProfile(rows.getvalue(row, column + 1), profile);
}

namespace {

struct MeasureMaker {
    FamilyKey family;
    std::unique_ptr<BaseMeasure> (*make)(const MeasureLists& lists);
};

template <class Measure>
std::unique_ptr<BaseMeasure> make(const MeasureLists& lists)
{
    return std::make_unique<Measure>(lists);
}

} // namespace

std::unique_ptr<BaseMeasure> makeMeasure(FamilyKey family, const MeasureLists& lists)
{
    static const FamilyTable<MeasureMaker, measuredFamilyCount> makers = {
        {FamilyKey::Dm, make<DMMeasure>},   {FamilyKey::Ts, make<TSMeasure>},   {FamilyKey::Rp, make<RPMeasure>},
        {FamilyKey::Ggs, make<GGSMeasure>}, {FamilyKey::Tss, make<TSSMeasure>}, {FamilyKey::Tsg, make<TSGMeasure>},
    };
    const MeasureMaker* maker = makers.find(family);
    return maker ? maker->make(lists) : nullptr;
}
