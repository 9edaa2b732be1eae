// What the generator and the editor of templates say and offer.
#include "docx_maker.h"

#include "formkit/choices.h"
#include "reports/forms/condition_widgets.h"
#include "reports/forms/report_generator_form.h"
#include "reports/forms/template_editor_dialog.h"
#include "support/form_texts.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTreeWidget>

namespace {

class ReportForms : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        database.exec("insert into ts_elements (element_id, element_name, position_id, x, y, z) overriding system "
                      "value values (7, 'ТС-7', 1, 11, 22, 100), (8, 'ТС-8', 2, 1, 2, 50);");
        session().templateDir = folder / "";
        session().exportPath = folder / "";
        session().projectName = "Город";
        session().baseCycleId = 1;
    }

    void addTemplate(const QString& key, const QString& name)
    {
        DocxMaker(paragraph(textControl("first", "1") + textControl("second", "2"))).write(folder / "a.docx");
        ASSERT_TRUE(writeDescription(folder / (key + ".xml"),
                                     {key, name, key + ".xml", "a.docx", {{"first", "00_project_name", "текст"}}}));
    }

    Folder folder;
};

QStringList texts(const QListWidget& list)
{
    QStringList lines;
    for (int i = 0; i < list.count(); ++i)
        lines << list.item(i)->text();
    return lines;
}

// Captions of groups, labels and buttons, as they stand in the form.
QStringList captions(const QWidget& form)
{
    QStringList lines;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            lines << group->title();
        else if (const auto* label = qobject_cast<const QLabel*>(widget))
            lines << label->text();
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            lines << button->text();
    }
    lines.removeAll(QString());
    lines.sort();
    return lines;
}

QStringList headers(const QTableWidget& table)
{
    QStringList lines;
    for (int i = 0; i < table.columnCount(); ++i)
        lines << table.horizontalHeaderItem(i)->text();
    return lines;
}

} // namespace

TEST_F(ReportForms, TheGeneratorListsTheKindsOfDocument)
{
    addTemplate("common", "Титул");
    ReportGeneratorForm form;
    EXPECT_EQ(form.windowTitle(), "Генератор отчетов");
    EXPECT_EQ(texts(*child<QListWidget>(form, "DocumentList")),
              (QStringList{"Основной шаблон", "Пасспорт термоскважины", "Табл.верт.перемещений",
                           "Ведомость измерения т-р", "Ведомость разницы т-р", "Ведомость обследования ГМН",
                           "Ведомость элементов ГМН", "Тех. состояние сооружения.", "ГТС сводная."}));
    EXPECT_EQ(captions(form),
              (QStringList{" Отчет", "+", "D", "E", "Документ", "Отмена", "Параметры  генерации  докумета", "Шаблон"}));
    EXPECT_EQ(child<QListWidget>(form, "ConditionsList")->styleSheet(), "*:hover { background-color: transparent; }");
    child<QListWidget>(form, "DocumentList")->setCurrentRow(0);
    EXPECT_EQ(texts(*child<QListWidget>(form, "TemplateList")), (QStringList{"Титул"}));
    child<QListWidget>(form, "DocumentList")->setCurrentRow(1);
    EXPECT_TRUE(texts(*child<QListWidget>(form, "TemplateList")).isEmpty());
}

TEST_F(ReportForms, EachKindAsksForItsParametersInOneOrder)
{
    ReportGeneratorForm form;
    const auto bits = [&form](int row) {
        child<QListWidget>(form, "DocumentList")->setCurrentRow(row);
        const auto& list = *child<QListWidget>(form, "ConditionsList");
        QList<quint32> found;
        for (int i = 0; i < list.count(); ++i)
            found << list.item(i)->data(Qt::UserRole).toUInt();
        return found;
    };
    const QList<QList<quint32>> expected = {{},   {4, 1, 2},   {4, 64, 16}, {64, 128, 8}, {4, 64, 32}, {64, 128, 512},
                                            {64}, {4, 256, 2}, {4}};
    for (int row = 0; row < expected.size(); ++row)
        EXPECT_EQ(bits(row), expected[row]) << row;
}

TEST_F(ReportForms, CaptionsOfTheParameters)
{
    QStringList lines;
    for (const Condition& condition : makeConditions(1 | 2 | 4 | 64 | 128 | 256 | 512)) {
        const std::unique_ptr<ConditionWidget> widget(condition.widget);
        lines << QString("%1: %2").arg(condition.bit).arg(captions(*widget).join(", "));
    }
    EXPECT_EQ(
        lines,
        (QStringList{"4: ..., Исходный цикл, Текущий цикл", "64: Часть проекта", "1: Все, Инв., Снять, Часть проекта",
                     "256: Все, Выбор позиции, Инв., Снять", "128: ..., Цикл измерений",
                     "2: Выбрать, Объединять файлы, Папка экспорта, "
                     "Перезаписывать файлы",
                     "512: Выводить только дефектные элементы"}));
}

TEST_F(ReportForms, CyclesGiveTheirRange)
{
    ReportCyclesSelectionWidget widget;
    ReportParameters given;
    widget.give(given);
    EXPECT_EQ(given.baseCycleId, 1);
    EXPECT_EQ(given.currentCycleId, 2);
    EXPECT_EQ(given.cycles, (QVector<int>{1, 2}));
    EXPECT_EQ(child<QComboBox>(widget, "BaseCycleCombo")->currentText(), "1 | 01.12.22 | 31.12.22 | Зима");
    ReportSingleCycleSelectionWidget single;
    single.give(given);
    EXPECT_EQ(given.cycleId, 2);
}

TEST_F(ReportForms, APartIsALevelAndAnId)
{
    ReportTreeProjectPartWidget widget;
    auto& box = *child<QComboBox>(widget, "PartSelector");
    QStringList names, parts;
    for (int i = 0; i < box.count(); ++i) {
        box.setCurrentIndex(i);
        ReportParameters given;
        widget.give(given);
        names << box.itemText(i).replace(QChar::Nbsp, '.');
        parts << QString("%1:%2").arg(given.part.level).arg(given.part.id);
    }
    EXPECT_EQ(
        names,
        (QStringList{"Город", "....Объект", "........Подобъект", "............Позиция 1", "............Позиция 2"}));
    EXPECT_EQ(parts, (QStringList{"projects:1", "objects:1", "subobjects:1", "positions:1", "positions:2"}));
}

TEST_F(ReportForms, ElementsOfThePartAreTicked)
{
    ReportTreeFilterElementsWidget widget(FamilyKey::Ts);
    auto& table = *child<QTableWidget>(widget, "OutputResult");
    EXPECT_EQ(headers(table), (QStringList{" ", "Имя", "Х", "Y", "Абс.Отм."}));
    const auto given = [&widget] {
        ReportParameters parameters;
        widget.give(parameters);
        std::sort(parameters.elements.begin(), parameters.elements.end());
        return parameters.elements;
    };
    EXPECT_EQ(given(), (QVector<int>{7, 8}));
    child<QAbstractButton>(widget, "UnselectBTN")->click();
    EXPECT_EQ(given(), QVector<int>());
    child<QAbstractButton>(widget, "InvertBTN")->click();
    EXPECT_EQ(given(), (QVector<int>{7, 8}));
    child<QComboBox>(widget, "PartSelector")->setCurrentIndex(4);
    EXPECT_EQ(given(), (QVector<int>{8}));
}

TEST_F(ReportForms, PositionsAreTicked)
{
    ReportPositionSelectorWidget widget;
    ReportParameters given;
    widget.give(given);
    EXPECT_EQ(given.positions, (QVector<int>{1, 2}));
    child<QAbstractButton>(widget, "UnselectBTN")->click();
    widget.give(given);
    EXPECT_TRUE(given.positions.isEmpty());
}

TEST_F(ReportForms, TheFolderIsAbsolute)
{
    ReportFolderSelectionWidget widget;
    ReportParameters given;
    widget.give(given);
    EXPECT_EQ(given.folder, folder / "");
    EXPECT_FALSE(given.overwrite);
    EXPECT_FALSE(given.merge);
    child<QLineEdit>(widget, "ExportPath")->clear();
    widget.give(given);
    EXPECT_TRUE(given.folder.isEmpty());
}

TEST_F(ReportForms, TheEditorShowsTagsWithWhatTheyReceive)
{
    addTemplate("common", "Титул");
    ExportTemplateClass document;
    document.loadTemplateList();
    ASSERT_TRUE(document.selectTemplate(0));
    TemplateEditorDialog form(document, TemplateBindings(document));
    EXPECT_EQ(form.windowTitle(), "Редактор сопоставления переменных");
    EXPECT_EQ(captions(form),
              (QStringList{"Выбрать", "Копировать файл шаблона в папку ", "Наименование шаблона", "Основной шаблон",
                           "Отмена", "Сохранить", "Тип документа", "Файл шаблона (.docx)"}));
    auto& table = *child<QTableWidget>(form, "SubstsView");
    EXPECT_EQ(headers(table), (QStringList{"Тэг", "Значение", "Текст подстановки"}));
    QStringList rows;
    for (int row = 0; row < table.rowCount(); ++row)
        rows << table.item(row, 0)->text() + "|" + table.item(row, 1)->text() + "|" + table.item(row, 2)->text();
    EXPECT_EQ(rows, (QStringList{"first|Наименование проекта|текст", "second|Не выбрано|"}));
    EXPECT_TRUE(takePicture(form, "template_editor_dialog"));
    form.accept();
    EXPECT_EQ(form.descriptionPath(), folder / "common.xml");
}

TEST_F(ReportForms, ANewTemplateIsNamedAfterItsWordFile)
{
    DocxMaker(paragraph(textControl("first", "1"))).write(folder / "new.docx");
    const ExportTemplateClass document(reportKind(ReportKey::WellPassport));
    TemplateEditorDialog form(document, TemplateBindings(document.kind()));
    EXPECT_EQ(child<QLineEdit>(form, "TemplateName")->text(), "Без имени");
    form.takeDocx(folder / "new.docx");
    auto& table = *child<QTableWidget>(form, "SubstsView");
    // The combo of a cell: all variables, separators as lines that nobody can choose.
    table.editItem(table.item(0, 1));
    auto& box = *table.viewport()->findChild<QComboBox*>();
    EXPECT_EQ(box.itemText(0), "Не выбрано");
    EXPECT_EQ(box.itemText(8), "Имя термоскважины");
    EXPECT_EQ(box.itemText(18), "----");
    EXPECT_FALSE(box.model()->flags(box.model()->index(18, 0)) & Qt::ItemIsEnabled);
    EXPECT_EQ(box.count(), 1 + 7 + 19);
    box.setCurrentIndex(8);
    form.accept();
    const auto written = readDescription(folder / "new.xml");
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(written->documentKey, "ts_passport");
    EXPECT_EQ(written->docxPath, "new.docx");
    ASSERT_EQ(written->substitutions.size(), 1);
    EXPECT_EQ(written->substitutions[0].variable, "10_ts_name");
}

TEST_F(ReportForms, TagsOfHeadersAndFootersAreNamedAndNotFilled)
{
    const QByteArray start = "<w:hdr xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">";
    DocxMaker(paragraph(textControl("first", "1")))
        .relationship("rId8", "header", "header1.xml")
        .entry("word/header1.xml", start + paragraph(textControl("head", "h") + textControl("first", "f")) + "</w:hdr>")
        .relationship("rId9", "footer", "footer2.xml")
        .entry("word/footer2.xml", start + paragraph(textControl("foot", "f")) + "</w:hdr>")
        .write(folder / "new.docx");
    ExportTemplateClass document;
    TemplateEditorDialog form(document, TemplateBindings(document.kind()));
    const auto& told = *child<QLabel>(form, "OutsideTags");
    EXPECT_EQ(told.text(), "");
    form.takeDocx(folder / "new.docx");
    EXPECT_EQ(child<QTableWidget>(form, "SubstsView")->rowCount(), 1) << "the document's own tag alone";
    EXPECT_EQ(told.text(), "Тэги колонтитулов не заполняются: head, first, foot");
    child<QTableWidget>(form, "SubstsView")->item(0, 2)->setText("новый");
    form.accept();
    ASSERT_TRUE(document.loadTemplate(form.descriptionPath()));
    ASSERT_EQ(int(document.exportFile(folder / "out.docx")), int(ReportOutcome::Made));
    const QMap<QString, QByteArray> before = unpacked(folder / "new.docx");
    const QMap<QString, QByteArray> after = unpacked(folder / "out.docx");
    EXPECT_TRUE(after["word/document.xml"].contains("новый"));
    for (const char* part : {"word/header1.xml", "word/footer2.xml"})
        EXPECT_EQ(after[part], before[part]) << part;
    // A Word file without such tags says nothing.
    DocxMaker(paragraph(textControl("first", "1"))).write(folder / "plain.docx");
    form.takeDocx(folder / "plain.docx");
    EXPECT_EQ(told.text(), "");
}

TEST_F(ReportForms, Pictures)
{
    for (const ReportKind& kind : reportKinds())
        addTemplate(kind.documentKey, "Шаблон заказчика");
    ReportGeneratorForm form;
    for (const int row : {1, 2, 7}) {
        child<QListWidget>(form, "DocumentList")->setCurrentRow(row);
        EXPECT_TRUE(takePicture(form, QString("report_generator_%1").arg(row)));
    }
}
