// Descriptions of templates: what is read, listed and kept.
#include "docx_maker.h"

#include "reports/templates/export_template_class.h"
#include "reports/templates/template_description.h"
#include "session/project_session.h"
#include "support/console_capture.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

class TemplatesTest : public ::testing::Test {
protected:
    TemplatesTest() : before_(session().templateDir) { session().templateDir = folder / ""; }
    ~TemplatesTest() override { session().templateDir = before_; }

    QString write(const QString& name, const QByteArray& bytes)
    {
        QFile file(folder / name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    QString describe(const QString& name, const QString& key, const QString& docx,
                     const QVector<Substitution>& substitutions = {})
    {
        EXPECT_TRUE(writeDescription(folder / name, {key, "Имя " + name, name, docx, substitutions}));
        return folder / name;
    }
    QString twoTags(const QString& name)
    {
        return DocxMaker(paragraph(textControl("first", "1") + textControl("second", "2"))).write(folder / name);
    }

    Folder folder;
    ConsoleCapture console;

private:
    QString before_;
};

QString filledText(ExportTemplateClass& kind, const QString& path)
{
    EXPECT_EQ(int(kind.exportFile(path)), int(ReportOutcome::Made));
    QDomDocument document;
    EXPECT_TRUE(document.setContent(documentPart(path)));
    return textOf(document.documentElement());
}

} // namespace

TEST_F(TemplatesTest, ADescriptionIsWrittenWithAnIndentOfOne)
{
    const QString path = describe("a.xml", "common", "a.docx", {{"t&1", "00_project_name", ""}, {"x", "", "текст"}});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const QStringList lines = text.split('\n');
    EXPECT_EQ(lines.value(1), "<template>");
    EXPECT_EQ(lines.value(2), " <meta>");
    EXPECT_EQ(lines.value(3), "  <template_type value=\"common\"/>");
    EXPECT_EQ(lines.value(5), "  <template_path value=\"a.xml\"/>");
    EXPECT_TRUE(text.contains("tag=\"t&amp;1\""));
    const auto read = readDescription(path);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->name, "Имя a.xml");
    EXPECT_EQ(read->docxPath, "a.docx");
    ASSERT_EQ(read->substitutions.size(), 2);
    EXPECT_EQ(read->substitutions[0].tag, "t&1");
    EXPECT_EQ(read->substitutions[1].text, "текст");
}

TEST_F(TemplatesTest, OnlyTheDescriptionsOfTheKindAreListed)
{
    describe("b.xml", "common", "b.docx");
    describe("a.XML", "common", "a.docx");
    describe("c.xml", "lists", "c.docx");
    write("d.xml", "<template><meta>");
    write("e.txt", "<template/>");
    ExportTemplateClass common;
    common.loadTemplateList();
    EXPECT_EQ(common.templateNames().values(), (QStringList{"Имя b.xml", "Имя a.XML"}));
    EXPECT_EQ(common.templateNames().keys(), (QList<int>{0, 1}));
    EXPECT_EQ(console.text(), "");
}

TEST_F(TemplatesTest, WithoutTheFolderNothingIsListedAndNothingSaid)
{
    session().templateDir = folder / "gone";
    ExportTemplateClass common;
    common.loadTemplateList();
    EXPECT_TRUE(common.templateNames().isEmpty());
    EXPECT_EQ(console.text(), "");
}

TEST_F(TemplatesTest, WhatCannotBeLoadedIsTold)
{
    ExportTemplateClass common;
    EXPECT_FALSE(common.loadTemplate(folder / "no.xml"));
    EXPECT_EQ(console.take(), "\nОшибка загрузки файла " + folder / "no.xml");
    EXPECT_FALSE(common.loadTemplate(write("bad.xml", "<template")));
    EXPECT_EQ(console.take(), "\nОшибка разбора файла " + folder / "bad.xml");
    twoTags("a.docx");
    EXPECT_FALSE(common.loadTemplate(describe("other.xml", "lists", "a.docx")));
    EXPECT_EQ(console.take(), "");
    EXPECT_FALSE(common.loadTemplate(write("none.xml", "<template/>")));
    EXPECT_EQ(console.take(), "");
    EXPECT_FALSE(common.loadTemplate(describe("gone.xml", "common", "gone.docx")));
    EXPECT_EQ(console.take(), "\nОшибка файла шаблона gone.docx");
    write("broken.docx", "no zip");
    EXPECT_FALSE(common.loadTemplate(describe("broken.xml", "common", "broken.docx")));
    EXPECT_EQ(console.take(), "\nОшибка файла шаблона " + folder / "broken.docx");
}

TEST_F(TemplatesTest, TagsThatAreGoneAreForgottenNewOnesAreEmpty)
{
    twoTags("a.docx");
    ExportTemplateClass common;
    ASSERT_TRUE(common.loadTemplate(
        describe("a.xml", "common", "a.docx", {{"first", "00_project_name", ""}, {"gone", "01_project_code", ""}})));
    EXPECT_EQ(common.substitutions, (QMap<QString, QString>{{"first", "00_project_name"}, {"second", ""}}));
    EXPECT_EQ(common.substitutionTexts, (QMap<QString, QString>{{"first", ""}, {"second", ""}}));
    EXPECT_EQ(common.docxPath, folder / "a.docx");
    EXPECT_EQ(common.templateName, "Имя a.xml");
}

TEST_F(TemplatesTest, AFailedChoiceGoesBackToTheOneBefore)
{
    twoTags("a.docx");
    describe("a.xml", "common", "a.docx", {{"first", "00_project_name", ""}});
    describe("b.xml", "common", "gone.docx");
    ExportTemplateClass common;
    common.loadTemplateList();
    EXPECT_TRUE(common.selectTemplate(0));
    EXPECT_FALSE(common.selectTemplate(1));
    EXPECT_EQ(common.templateIndex, 0);
    EXPECT_EQ(common.templateName, "Имя a.xml");
    EXPECT_FALSE(common.selectTemplate(7));
    EXPECT_EQ(common.templateIndex, 0);
    common.addTemplate(folder / "a.xml", true);
    EXPECT_EQ(common.templateIndex, 2);
}

TEST_F(TemplatesTest, AVariableWinsOverATextAndWithoutBothTheTagStays)
{
    DocxMaker(paragraph(textControl("both", "[b]") + textControl("text", "[t]") + textControl("none", "[n]")
                        + textControl("unknown", "[u]") + textControl("picture", "[p]")))
        .write(folder / "a.docx");
    describe("a.xml", "common", "a.docx",
             {{"both", "00_project_name", "fixed"},
              {"text", "", "fixed"},
              {"none", "", ""},
              {"unknown", "99_nothing", "fixed"},
              {"picture", "01_project_code", ""}});
    ExportTemplateClass common;
    ASSERT_TRUE(common.loadTemplate(folder / "a.xml"));
    session().projectName = "Город";
    session().projectCode.clear();
    EXPECT_EQ(filledText(common, folder / "out.docx"), "Городfixed[n][u]");
}

TEST_F(TemplatesTest, TheCommonVariablesComeFromTheSession)
{
    QByteArray controls;
    QVector<Substitution> rows;
    for (const ReportVariable& variable : commonVariables()) {
        controls += textControl(variable.name.toUtf8(), "?") + run("/");
        rows.append({variable.name, variable.name, ""});
    }
    DocxMaker(paragraph(controls)).write(folder / "a.docx");
    describe("a.xml", "common", "a.docx", rows);
    ExportTemplateClass common;
    ASSERT_TRUE(common.loadTemplate(folder / "a.xml"));
    ProjectSession& now = session();
    now.projectName = "Н";
    now.projectCode = "Ш";
    now.projectOwner = "В";
    now.projectLocation = "М";
    now.currentObjectName = "О";
    now.currentSubobjectName = "ПО";
    now.currentPositionName = "П";
    now.currentPositionId = 3;
    EXPECT_EQ(filledText(common, folder / "out.docx"), "Н/Ш/В/М/О/ПО/П/");
    now.currentPositionId = -1;
    EXPECT_EQ(filledText(common, folder / "out.docx"), "Н/Ш/В/М////");
}

TEST_F(TemplatesTest, AFolderThatTakesNoFileIsToldAndNothingIsWritten)
{
    twoTags("a.docx");
    describe("a.xml", "common", "a.docx");
    ExportTemplateClass common;
    ASSERT_TRUE(common.loadTemplate(folder / "a.xml"));
    const QStringList before = folder.files();
    EXPECT_EQ(int(common.exportFile(folder / "gone/out.docx")), int(ReportOutcome::NotWritten));
    EXPECT_EQ(console.take(), "\nНе удалось записать файл '" + folder / "gone/out.docx" + "'");
    EXPECT_EQ(folder.files(), before);
    // The Word file goes after the template was chosen: nothing is said.
    ASSERT_TRUE(QFile::remove(folder / "a.docx"));
    EXPECT_EQ(int(common.exportFile(folder / "out.docx")), int(ReportOutcome::NotOpened));
    EXPECT_EQ(console.take(), "");
}

TEST(ExportTemplate, ValuesAreTakenByVariablesOfTheirType)
{
    ExportTemplateClass kind(reportKind(ReportKey::WellPassport));
    EXPECT_TRUE(kind.setVariable("10_ts_name", "ТС-1"));
    EXPECT_FALSE(kind.setVariable("17_ts_temp_diagramm", "x"));
    EXPECT_FALSE(kind.setVariable("22_ts_htbl_meas", "x"));
    EXPECT_FALSE(kind.setVariable("16_separator", "x"));
    EXPECT_FALSE(kind.setVariable("no", "x"));
    EXPECT_TRUE(kind.setPicture("17_ts_temp_diagramm", QPixmap(2, 2)));
    EXPECT_EQ(kind.variableValues.value("17_ts_temp_diagramm"), "image");
    EXPECT_FALSE(kind.setPicture("10_ts_name", QPixmap(2, 2)));
    kind.registerVariable("10_ts_name", "другое", "другое", ReportVariable::Table);
    EXPECT_EQ(kind.variableCaptions.value("10_ts_name"), "Имя термоскважины");
    EXPECT_EQ(kind.variables().first(), "00_project_name");
}
