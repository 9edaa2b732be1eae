// The pages "Проект" and "Пути" of the project settings.
#include "session/forms/project_path_form.h"
#include "session/forms/project_props_form.h"

#include "session/session_fixture.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

class ProjectPages : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        ProjectSession& now = session();
        now.projectName = "Город";
        now.projectCode = "Ш-1";
        now.projectOwner = "Владелец";
        now.projectLocation = "Место";
        now.projectFile = folder.filePath("p.terva");
        now.workDir = folder.filePath("work");
        now.templateDir = folder.filePath("templates");
        now.tempDir = folder.filePath("temp");
    }
    void TearDown() override
    {
        EXPECT_TRUE(driver.done()) << driver.report();
        ProjectSession& now = session();
        for (QString* text : {&now.projectName, &now.projectCode, &now.projectOwner, &now.projectLocation,
                              &now.projectFile, &now.workDir, &now.templateDir, &now.tempDir})
            text->clear();
        SessionDatabase::TearDown();
    }
    QString savedFile() const
    {
        QFile file(folder.filePath("p.terva"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    static QStringList captions(const QWidget& page)
    {
        QStringList found;
        const auto* form = page.findChild<QFormLayout*>();
        for (int row = 0; row < form->rowCount(); ++row)
            found << qobject_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget())->text();
        return found << page.findChild<QPushButton*>("btnApply")->text();
    }
    static QString shown(const QWidget& page, const char* name) { return page.findChild<QLineEdit*>(name)->text(); }

    QTemporaryDir folder;
    ModalDriver driver;
};

TEST_F(ProjectPages, TheProjectIsShownAndStored)
{
    ProjectPropsForm page;
    EXPECT_EQ(captions(page),
              (QStringList{"Наименование проекта", "Шифр проекта", "Организация", "Описание", "Применить"}));
    EXPECT_EQ(shown(page, "ProjectName"), QString("Город"));
    EXPECT_EQ(shown(page, "ProjectOrganization"), QString("Владелец"));
    session().projectCode = "Ш-2";
    page.refresh();
    EXPECT_EQ(shown(page, "ProjectCode"), QString("Ш-2"));
    page.findChild<QLineEdit*>("ProjectDescriprion")->setText("Новое место");
    EXPECT_EQ(session().projectLocation, QString("Место")) << "until it is applied";
    page.resize(270, 260);
    EXPECT_TRUE(takePicture(page, "ProjectPropsForm"));
    page.findChild<QPushButton*>("btnApply")->click();
    EXPECT_EQ(database.rows("select name, owner, location, code from projects"),
              (QVector<QStringList>{{"Город", "Владелец", "Новое место", "Ш-2"}}));
    EXPECT_TRUE(savedFile().contains("<ProjectLocation Value=\"Новое место\"/>"));
}

TEST_F(ProjectPages, ALostServerLeavesTheRowAndSavesTheFile)
{
    ProjectPropsForm page;
    page.findChild<QLineEdit*>("ProjectName")->setText("Посёлок");
    loseServer();
    page.findChild<QPushButton*>("btnApply")->click();
    EXPECT_EQ(session().projectName, QString("Посёлок"));
    EXPECT_TRUE(savedFile().contains("<ProjectName Value=\"Посёлок\"/>"));
    EXPECT_EQ(database.value("select name from projects"), QString("Город"));
}

TEST_F(ProjectPages, ThePathsAreShownAndStored)
{
    ProjectPathForm page;
    EXPECT_EQ(captions(page), (QStringList{"Рабочая папка проекта", "Папка шаблонов", "Временные файлы", "Применить"}));
    EXPECT_EQ(page.findChild<QLabel*>("FileName")->text(), session().projectFile);
    EXPECT_EQ(shown(page, "WorkingDir"), session().workDir);
    page.findChild<QLineEdit*>("WorkingDir")->setText(folder.path());
    page.findChild<QLineEdit*>("TempDir")->clear();
    page.findChild<QPushButton*>("btnApply")->click();
    EXPECT_EQ(session().workDir, folder.path());
    EXPECT_EQ(session().tempDir, folder.filePath("temp")) << "an empty field changes nothing";
    EXPECT_TRUE(savedFile().contains("<WorkDir Value=\"" + folder.path() + "\"/>"));
    page.resize(270, 260);
    EXPECT_TRUE(takePicture(page, "ProjectPathForm"));
}

TEST_F(ProjectPages, AChosenFileIsOnlyShown)
{
    QFile file(folder.filePath("other.terva"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    ProjectPathForm page;
    driver.expect("Файл проекта").files({file.fileName()});
    page.findChild<QPushButton*>("btn_OpenProject")->click();
    EXPECT_EQ(page.findChild<QLabel*>("FileName")->text(), file.fileName());
    EXPECT_EQ(session().projectFile, folder.filePath("p.terva"));
    session().projectFile.clear();
    page.refresh();
    EXPECT_EQ(page.findChild<QLabel*>("FileName")->text(), QString("нет файла"));
}

TEST_F(ProjectPages, FoldersAreChosen)
{
    ProjectPathForm page;
    session().workDir.clear();
    page.refresh();
    QDir(folder.path()).mkdir("chosen");
    const QVector<QStringList> rows = {{"btn_selectWorkPath", "Рабочая папка проекта", "WorkingDir"},
                                       {"btn_SelectTemplatePath", "Папка шаблонов проекта", "TemplateDir"},
                                       {"btn_SelectTempPath", "Временные файлы проекта", "TempDir"}};
    for (const QStringList& row : rows) {
        driver.expect(row[1]).files({folder.filePath("chosen")});
        page.findChild<QPushButton*>(row[0])->click();
        EXPECT_EQ(shown(page, row[2].toLatin1()), folder.filePath("chosen"));
    }
}

} // namespace
