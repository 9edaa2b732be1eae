// A square of wells for the forms of maps: its border, a stored contour, and
// the answers to what the commands ask.
#pragma once

#include "analysis/maps/map_fixture.h"
#include "support/form_texts.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>
#include <functional>

// Gives the border when the command asks for it, or leaves the prompt.
class BorderAnswer final : public PromptBackend {
public:
    explicit BorderAnswer(NcDbObjectId border) : border_(border), before_(setPromptBackend(this)) { }
    ~BorderAnswer() override { setPromptBackend(before_); }
    PromptReply ask(const PromptRequest& request) override
    {
        prompts << request.prompt;
        PromptReply reply;
        if (!border_.isNull()) {
            reply.status = kPromptNormal;
            reply.entity = border_;
        }
        return reply;
    }
    void print(const QString& text) override { printed += text; }
    QStringList prompts;
    QString printed;

private:
    NcDbObjectId border_;
    PromptBackend* before_;
};

class MapFormFixture : public MapFixture {
protected:
    // Texts of a row's cells; the row is found by its first one.
    static QStringList row(const QTableWidget& table, const QString& name)
    {
        QStringList texts;
        for (int line = 0; line < table.rowCount(); ++line) {
            for (int column = 0; table.item(line, 0)->text() == name && column < table.columnCount(); ++column)
                texts << table.item(line, column)->text();
        }
        return texts;
    }
    static QTableWidgetItem* use(const QTableWidget& table, const QString& name)
    {
        for (int line = 0; line < table.rowCount(); ++line) {
            if (table.item(line, 0)->text() == name)
                return table.item(line, table.columnCount() - 1);
        }
        return nullptr;
    }
    static QStringList redRows(const QTableWidget& table)
    {
        QStringList names;
        for (int line = 0; line < table.rowCount(); ++line) {
            if (table.item(line, 0)->foreground().color() == QColor(255, 0, 0))
                names << table.item(line, 0)->text();
        }
        names.sort();
        return names;
    }
    // What the labels of the drawing say, each with its place and vertical mode.
    static QStringList labels()
    {
        QStringList texts;
        for (const NcDbObjectId id : entities<NcDbText>()) {
            const Opened<NcDbText> text(id, kForRead);
            const NcGePoint3d place = text->alignmentPoint();
            texts << QStringLiteral("%1 @%2,%3,%4 v%5")
                         .arg(text->textString())
                         .arg(place.x)
                         .arg(place.y)
                         .arg(place.z)
                         .arg(text->verticalMode());
        }
        return texts;
    }
    NcDbObjectId squareBorder() { return addBorder({{-10, -10}, {110, -10}, {110, 110}, {-10, 110}}); }
    void storeContour()
    {
        database.exec("insert into contours (contour_id, position_id, contour_name) overriding system value "
                      "values (1, 1, 'Контур 1');"
                      "insert into contours_points (contour_id, x, y, param, dist) values "
                      "(1, -10, -10, 0, 0), (1, 110, -10, 1, 120), (1, 110, 110, 2, 240), (1, -10, 110, 3, 360)");
    }
    static const QTableWidget& points(const QWidget& form) { return *child<QTableWidget>(form, "PointData"); }
    static const QTableWidget& values(const QWidget& form) { return *child<QTableWidget>(form, "ValuesData"); }
    static QString status(const QWidget& form) { return child<QLabel>(form, "StatusLabel")->text(); }

    // What all maps between two cycles say, and what one says beside it.
    static void expectCaptions(const QWidget& form, const char* name, const QString& title, const QStringList& own)
    {
        EXPECT_EQ(form.objectName(), QString::fromUtf8(name));
        EXPECT_EQ(form.windowTitle(), title);
        const QStringList texts = textsOf(form);
        for (const QString& text : QStringList{"По позиции", "Контуры позиции", "По всей базе", "Слой", "Не загружена",
                                               "Исходный цикл измерений", "Текущий цикл измерений", "Состояния:",
                                               "Фильтр", "Выводить значения", "Экспорт в .csv", "Экспорт в буфер"}
                 + own)
            EXPECT_TRUE(texts.contains(text)) << text.toStdString();
        EXPECT_EQ(tabsOf(form), (QStringList{"Точки", "Значения"}));
        EXPECT_EQ(child<QComboBox>(form, "BaseCycleCombo")->currentData().toInt(), 1) << "the session's base cycle";
        EXPECT_EQ(child<QComboBox>(form, "MeasData")->currentData().toInt(), 2) << "the session's current cycle";
        EXPECT_TRUE(child<QRadioButton>(form, "ByPosition")->isChecked());
    }

    // The command inside the square, with the colours of deformations in the layer "MAP" and with labels;
    // `before` changes the form that the title names.
    using Change = std::function<void(QWidget&)>;
    void drawWithLabels(const QString& title, void (*command)(), const Change& before = {})
    {
        driver.expect(title)
            .call([before](QWidget* window) -> QString {
                if (before)
                    before(*window);
                return {};
            })
            .set(QStringLiteral("LabelsOutEnabled"), QStringLiteral("on"))
            .press(QStringLiteral("okButton"));
        driver.expect(QStringLiteral("Построение изоконтуров"))
            .check(QStringLiteral("LevelMapType"), QStringLiteral("Карта деформаций"))
            .set(QStringLiteral("HatchOutLayer"), QStringLiteral("MAP"))
            .press(QStringLiteral("okButton"));
        const NcDbObjectId border = squareBorder();
        BorderAnswer answer(border);
        command();
        ASSERT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(answer.prompts, QStringList{QStringLiteral("Укажите линию границы (ESC список в позиции)")});
    }
    ModalDriver driver;
};

class TemperatureMap : public MapFormFixture {
protected:
    void SetUp() override
    {
        MapFixture::SetUp();
        addSquare();
    }
};
