#include "analysis/grading/stored_grades.h"

#include "base/text.h"
#include "base/xml_text.h"
#include "session/project_session.h"
#include "session/server_problem.h"

#include <QXmlStreamWriter>
#include <cmath>

namespace {

QString numberText(double number) { return std::isfinite(number) ? general(number, 10) : QStringLiteral("inf"); }

void writeOne(QXmlStreamWriter& xml, const char* element, const char* attribute, const QString& value)
{
    xml.writeEmptyElement(QString::fromLatin1(element));
    xml.writeAttribute(QString::fromLatin1(attribute), value);
}

void writeAttributes(QXmlStreamWriter& xml, const PositionAttributes& attributes)
{
    xml.writeStartElement(QStringLiteral("Attribute"));
    xml.writeAttribute(QStringLiteral("Exist"), attributes.exist ? QStringLiteral("1") : QStringLiteral("0"));
    if (attributes.exist) {
        const std::pair<const char*, QString> values[] = {
            {"PositionID", QString::number(attributes.positionId)},
            {"AttributeID", QString::number(attributes.id)},
            {"TemperatureDeepMin", numberText(attributes.deepMin)},
            {"TemperatureDeepMax", numberText(attributes.deepMax)},
            {"Temperature", numberText(attributes.temperatureH)}, // the same as TemperatureH: readers know both
            {"AverageDiff", numberText(attributes.averageDiff)},
            {"Roll", numberText(attributes.roll)},
            {"ConstructionHeigth", numberText(attributes.height)},
            {"NormativeID", QString::number(attributes.normId)},
            {"TemperatureH", numberText(attributes.temperatureH)},
            {"TemperatureBF", numberText(attributes.temperatureBf)},
            {"BaseDepth", numberText(attributes.baseDepth)},
        };
        for (const auto& [name, value] : values)
            writeOne(xml, name, "Value", value);
    }
    xml.writeEndElement();
}

void writeElements(QXmlStreamWriter& xml, const ElementCounts& counts)
{
    xml.writeStartElement(QStringLiteral("Elements"));
    const std::pair<const char*, int> families[] = {{"DMElements", counts.dm},   {"GGSElements", counts.ggs},
                                                    {"RPElements", counts.rp},   {"TSElements", counts.ts},
                                                    {"TSGElements", counts.tsg}, {"TSSElements", counts.tss}};
    for (const auto& [name, count] : families)
        writeOne(xml, name, "Count", QString::number(count));
    xml.writeEndElement();
}

void writeSide(QXmlStreamWriter& xml, const char* name, const char* element, const GradedSide& side)
{
    static const std::pair<const char*, Grade> states[] = {{"NoMeasures", Grade::NoMeasures},
                                                           {"Normal", Grade::Normal},
                                                           {"Limited", Grade::Limited},
                                                           {"LimitedII", Grade::LimitedII},
                                                           {"Fail", Grade::Fail}};
    xml.writeStartElement(QString::fromLatin1(name));
    xml.writeAttribute(QStringLiteral("PositionState"), QString::number(int(side.grade)));
    for (const auto& [state, grade] : states) {
        xml.writeStartElement(QString::fromLatin1(state));
        xml.writeAttribute(QStringLiteral("Count"), QString::number(side.counts[size_t(grade)]));
        for (const GradedElement& graded : side.elements) {
            if (graded.grade != grade)
                continue;
            xml.writeEmptyElement(QString::fromLatin1(element));
            xml.writeAttribute(QStringLiteral("ID"), QString::number(graded.id));
            xml.writeAttribute(QStringLiteral("Name"), storableInXml(graded.name));
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

} // namespace

QString gradesXml(const PositionGrades& grades)
{
    QByteArray bytes; // written as bytes, the text says its encoding
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("Position"));
    xml.writeAttribute(QStringLiteral("ID"), QString::number(grades.positionId));
    writeAttributes(xml, grades.attributes);
    writeElements(xml, grades.elements);
    xml.writeStartElement(QStringLiteral("Cycles"));
    writeOne(xml, "BaseCycle", "ID", QString::number(grades.baseCycle));
    writeOne(xml, "CurrentCycle", "ID", QString::number(grades.currentCycle));
    xml.writeEndElement();
    writeSide(xml, "ThermalStates", "TSElement", grades.thermal);
    writeSide(xml, "DeformationStates", "DMElement", grades.settlement);
    writeSide(xml, "RelativeDeformationStates", "DeformationProfile", grades.relative);
    xml.writeEndElement();
    xml.writeEndDocument();
    return QString::fromUtf8(bytes);
}

bool canStoreGrades() { return session().run("select * from pg_tables where tablename='positions_stat'").hasRow(); }

bool storeGrades(const PositionGrades& grades, QString* problem)
{
    const QString content = gradesXml(grades);
    const sql::Result found = session().run(
        compose("select stat_id from positions_stat where position_id=%1 and base_cycle_id=%2 and current_cycle_id=%3 ",
                grades.positionId, grades.baseCycle, grades.currentCycle));
    if (!orProblem(found, found.isTuples(), problem))
        return false;
    const sql::Result stored = session().run(
        found.hasRow() ? compose("update positions_stat set (position_id,base_cycle_id,current_cycle_id, "
                                 "created_at,content) = (%1,%2,%3,NOW(),'%4') where stat_id=%5",
                                 grades.positionId, grades.baseCycle, grades.currentCycle, content, found.toInt(0, 0))
                       : compose("insert into positions_stat (position_id,base_cycle_id,current_cycle_id,content) "
                                 "values (%1,%2,%3,'%4')",
                                 grades.positionId, grades.baseCycle, grades.currentCycle, content));
    return orProblem(stored, stored.isCommand(), problem);
}
