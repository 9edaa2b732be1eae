#include "reports/templates/inspection_table.h"

#include "base/text.h"
#include "elements/families/families.h"
#include "hostkit/console.h"
#include "reports/templates/scoped_elements.h"
#include "reports/templates/table_rows.h"
#include "session/project_session.h"

namespace {

constexpr int numberDecimals = 2;
constexpr QSize photoBox(200, 150); // pixels of 1/96 inch
constexpr int photoSharpness = 3;   // pixels kept for one of the box

enum class Finding { Check, Verdict, YesNo, Number, Note, State };

struct InspectionSource {
    FamilyKey family;
    const char* find; ///< id of the inspection of element %1 in cycle %2
    const char* select;
    std::vector<Finding> findings; ///< of the columns behind cycle_id
};

// Columns that all the statements begin with.
enum Column { InspectId, ElementId, CycleId, FirstFinding };

constexpr auto Check = Finding::Check;

// The three families that have a table in the report.
const FamilyTable<InspectionSource, 3>& sources()
{
    static const FamilyTable<InspectionSource, 3> table = {
        {FamilyKey::Rp,
         "select inspect_id from rp_inspection where element_id = %1 and cycle_id = %2",
         "select inspect_id,element_id,cycle_id,fence,protectpit,protectpitcover,protectpipe,mark,inspectresult,note, "
         "state_id,sealing from rp_inspection where inspect_id = %1",
         {Check, Check, Check, Check, Check, Finding::Verdict, Finding::Note, Finding::State, Finding::YesNo}},
        {FamilyKey::Ts,
         "select inspect_id from ts_inspection where element_id = %1 and cycle_id = %2",
         "select inspect_id,element_id,cycle_id,namemarked,protectcase,casecover,ttcover,insulation,iceinpipe,"
         "waterinpipe,inspectresult,note, state_id, depth, h from ts_inspection where inspect_id = %1",
         {Check, Check, Check, Check, Check, Check, Check, Finding::Verdict, Finding::Note, Finding::State,
          Finding::Number, Finding::Number}},
        {FamilyKey::Dm,
         "select inspect_id from dm_inspection where element_id = %1 and cycle_id = %2",
         "select inspect_id,element_id,cycle_id,marknumber,markmark,constructintegrity,railset,inspectresult,note,"
         "state_id,h_railset from dm_inspection where inspect_id = %1",
         {Check, Check, Check, Check, Finding::Verdict, Finding::Note, Finding::State, Finding::YesNo}},
    };
    return table;
}

QString findingText(Finding kind, const sql::Result& row, int column)
{
    const bool yes = row.toDouble(0, column) != 0.0;
    switch (kind) {
    case Finding::Check: return yes ? QStringLiteral("+") : QStringLiteral("-");
    case Finding::Verdict: return yes ? QStringLiteral("удовл.") : QStringLiteral("неудовл.");
    case Finding::YesNo: return yes ? QStringLiteral("да") : QStringLiteral("нет");
    case Finding::Number:
        return row.isNull(0, column) ? QStringLiteral("--") : fixed(row.toDouble(0, column), numberDecimals);
    case Finding::Note: return row.getvalue(0, column);
    case Finding::State: return session().states.value(row.getvalue(0, column), row.getvalue(0, column));
    }
    return {};
}

QPixmap photoOf(const QString& table, int inspectId)
{
    const sql::Result row =
        session().run(compose("select photos from %1 where inspect_id=$1::integer", Identifier(table)),
                      {sql::text(inspectId)}, sql::Format::Binary);
    QPixmap photo;
    if (row.hasRow())
        photo.loadFromData(row.bytes(0, 0), "PNG");
    const QSize most = photoBox * photoSharpness;
    if (photo.width() > most.width() || photo.height() > most.height())
        return photo.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return photo;
}

InspectionRow inspectionOf(const InspectionSource& source, int elementId, int cycleId)
{
    InspectionRow inspection;
    for (size_t i = 0; i < source.findings.size(); ++i)
        inspection.findings << QStringLiteral("--");
    const sql::Result found = session().run(compose(source.find, elementId, cycleId));
    if (!found.hasRow())
        return inspection;
    const int id = found.toInt(0, 0);
    const sql::Result row = session().run(compose(source.select, id));
    if (!row.hasRow())
        return inspection;
    for (size_t i = 0; i < source.findings.size(); ++i)
        inspection.findings[int(i)] = findingText(source.findings[i], row, FirstFinding + int(i));
    inspection.photo = photoOf(family(source.family).inspections, id);
    return inspection;
}

} // namespace

bool loadInspections(FamilyKey key, const ReportParameters& parameters, QVector<InspectionRow>& into)
{
    into.clear();
    const InspectionSource* source = sources().find(key);
    if (!source)
        return true;
    const Family& tables = family(key);
    const sql::Result elements =
        session().run(parameters.defectsOnly
                          ? defectiveStatement(parameters.part, tables.elements, tables.inspections, parameters.cycleId)
                          : elementStatement(ElementQuery::States, parameters.part, tables.elements));
    for (int i = 0; i < elements.ntuples(); ++i) {
        say(QString::asprintf("\n Обработка измерений: элемент %d из %d", i + 1, elements.ntuples()));
        if (!parameters.goOn(i + 1, elements.ntuples()))
            return false;
        InspectionRow row = inspectionOf(*source, elements.toInt(i, ScopedId), parameters.cycleId);
        row.name = elements.getvalue(i, ScopedName);
        row.position = elements.getvalue(i, ScopedPosition);
        into.append(row);
    }
    say(QStringLiteral("\nОбработка элементов  завершена"));
    return true;
}

void fillInspectionTable(DocxTable& table, DocxTemplate& document, const QVector<InspectionRow>& inspections)
{
    TableRows rows(table);
    int number = 0;
    for (const InspectionRow& inspection : inspections) {
        rows.sectionOf(inspection.position);
        const QStringList texts = QStringList{QString::number(++number), inspection.name} + inspection.findings;
        const QDomElement row = rows.add(texts);
        if (inspection.photo.isNull())
            continue;
        QDomElement cell = row.firstChildElement(QStringLiteral("w:tc"));
        for (int i = 0; i < texts.size(); ++i)
            cell = cell.nextSiblingElement(QStringLiteral("w:tc"));
        if (!cell.isNull())
            table.setCellImage(cell, document.addImage(inspection.photo),
                               inspection.photo.size().scaled(photoBox, Qt::KeepAspectRatio));
    }
    rows.finish();
}
