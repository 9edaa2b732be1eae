// Every page of every passport with real measurements, as pictures.
#include "charts/real_series.h"
#include "elements/passports/forms/element_passport.h"
#include "elements/passports/passport_elements.h"
#include "support/form_texts.h"
#include "support/pictures.h"

#include <QBuffer>
#include <QPainter>
#include <QTest>

namespace {

// The files that real_series.h reads lie below TERVA_SOURCE_DIR.

class PassportPictures : public PassportElements {
protected:
    // What other tests of the program do not clear.
    ~PassportPictures() override
    {
        database->exec(
            "delete from igs_geology_layers; delete from ts_geology_layers; delete from geology_ege_catalog");
    }
    static QString isoDay(const QDateTime& when) { return when.date().toString("yyyy-MM-dd"); }

    // A cycle a measure, numbered from 1.
    void fillCycles(const QVector<QDateTime>& days)
    {
        database->exec("delete from ts_meas; delete from dm_meas; delete from dm_inspection; delete from ts_inspection;"
                       "delete from cycles");
        QStringList rows;
        for (int i = 0; i < days.size(); ++i)
            rows << QString("(%1, %1, '%2', '%2')").arg(i + 1).arg(isoDay(days[i]));
        database->exec("insert into cycles (cycle_id, number, date_start, date_end) overriding system value values "
                       + rows.join(","));
        session().reloadCycles();
    }
    void fillWell(const QVector<WellReading>& readings)
    {
        QVector<QDateTime> days;
        for (const WellReading& reading : readings)
            days.append(reading.date);
        fillCycles(days);
        QStringList rows;
        for (int i = 0; i < readings.size(); ++i) {
            QStringList pairs;
            for (const auto& [depth, temperature] : readings[i].profile)
                pairs << QString::number(depth, 'f', 2) + ":" + QString::number(temperature, 'f', 2);
            rows << QString("(1, %1, 1, '%2', %3, '%4', 2)")
                        .arg(i + 1)
                        .arg(isoDay(readings[i].date))
                        .arg(readings[i].air)
                        .arg(pairs.join("|"));
        }
        database->exec("insert into ts_meas (element_id, cycle_id, device_id, date, t_vozd, meas, performer_id) values "
                       + rows.join(","));
    }
    void fillGround(const char* table)
    {
        database->exec(
            "delete from igs_geology_layers; delete from ts_geology_layers; delete from geology_ege_catalog;"
            "insert into geology_ege_catalog (ege_id, project_id, code, name, hatch_pattern_name, color_hex) "
            "overriding system value values (1, 1, '1', 'Насыпной грунт', 'FILL', '#E8D8B0'), "
            "(2, 1, '2а', 'Суглинок мерзлый', 'CLAY', '#D9C7A0'), (3, 1, '3', 'Песок мерзлый', 'SAND', "
            "'#FFF2B0')");
        database->exec(fill("insert into %1 (element_id, ege_id, depth_from, depth_to, description) values "
                            "(1, 1, 0, 1.2, 'Насыпной грунт, песок с гравием'), (1, 2, 1.2, 4.5, 'Суглинок "
                            "пластичномерзлый, слабольдистый'), (1, 3, 4.5, 12, 'Песок мелкий твердомерзлый')",
                            table));
    }
    void fillPictures(const Family& tables)
    {
        QPixmap drawn(600, 420);
        drawn.fill(QColor(205, 222, 235));
        QPainter painter(&drawn);
        painter.setPen(QPen(Qt::darkBlue, 4));
        painter.drawRect(60, 60, 480, 300);
        painter.drawLine(60, 360, 300, 120);
        painter.end();
        QByteArray png;
        QBuffer buffer(&png);
        drawn.save(&buffer, "PNG");
        for (const char* type : {"photo", "abris"})
            database->exec(fill("insert into %1 (element_id, file_type, content) values (1, '%2', '\\x%3')",
                                tables.files, type, QString::fromLatin1(png.toHex())));
    }
    // Each page, named after the passport and the page's number.
    static void takePages(ElementPassport& form, const QString& name)
    {
        auto* tabs = child<QTabWidget>(form, "Tabs");
        form.show();
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
            EXPECT_TRUE(takePicture(form, QString("passport-%1-%2").arg(name).arg(page + 1)));
        }
    }
};

} // namespace

TEST_F(PassportPictures, OfAThermalWell)
{
    fillElements(FamilyKey::Ts);
    session().moduleDir = TERVA_SOURCE_DIR "/share/";
    fillGround("ts_geology_layers");
    fillPictures(family(FamilyKey::Ts));
    fillWell(readingsOf("corvatsch/terva.csv", "5", 40));
    fillInspections(FamilyKey::Ts);
    database->exec("insert into positions_attributes (position_id, temperature_h, temperature_bf, base_depth, "
                   "temperature_deep_min, temperature_deep_max) values (7, -3, -0.5, 4, 2, 10)");
    ElementPassport form(FamilyKey::Ts, 1);
    child<QAbstractButton>(form, "GeologyCheck")->setChecked(true);
    takePages(form, "ts");
    session().moduleDir.clear();
}

TEST_F(PassportPictures, OfAWellWithALogger)
{
    fillElements(FamilyKey::Ts);
    fillWell(readingsOf("jarvis-logger/terva.csv", "JA", 376));
    ElementPassport form(FamilyKey::Ts, 1);
    takePages(form, "ts-logger");
}

TEST_F(PassportPictures, OfAMark)
{
    fillElements(FamilyKey::Dm);
    const TimeSeries marks = settlement("gnss-vertical.csv", "G001");
    fillPictures(family(FamilyKey::Dm));
    if (!marks.isEmpty()) {
        fillCycles(marks.keys().toVector());
        int cycle = 0;
        for (auto mark = marks.begin(); mark != marks.end(); ++mark)
            database->exec(
                fill("insert into dm_meas (element_id, cycle_id, device_id, date, meas, performer_id) values "
                     "(1, %1, 1, '%2', %3, 2)",
                     ++cycle, isoDay(mark.key()), QString::number(12.5 + mark.value(), 'f', 4)));
        fillInspections(FamilyKey::Dm);
    }
    ElementPassport form(FamilyKey::Dm, 1);
    takePages(form, "dm");
}

TEST_F(PassportPictures, OfAGeologicalWell)
{
    fillElements(FamilyKey::Igs);
    session().moduleDir = TERVA_SOURCE_DIR "/share/";
    fillGround("igs_geology_layers");
    database->exec(
        "insert into igs_geology_elements (element_id, description, drilling_date, ground_water_level) values "
        "(1, 'Колонковое бурение, керн сохранён', '2020-08-14', 3.4)");
    ElementPassport form(FamilyKey::Igs, 1);
    takePages(form, "igs");
    session().moduleDir.clear();
}

TEST_F(PassportPictures, OfTheOtherFamilies)
{
    for (const FamilyKey key : {FamilyKey::Rp, FamilyKey::Ggs, FamilyKey::Tss, FamilyKey::Tsg}) {
        fillElements(key);
        fillPictures(family(key));
        ElementPassport form(key, 2);
        takePages(form, family(key).shortKey.toLower());
    }
}
