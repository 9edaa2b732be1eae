// Choosing the position: its drawing, its names, its numbering.
#include "session_fixture.h"

#include "session/drawing_lock.h"
#include "session/numbering.h"
#include "session/saved_copy.h"
#include "session/working_drawing.h"

#include <drawing/application.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

namespace {

class ChoosingAPosition : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        closeAllDocuments();
        NcDbDatabase().saveAs(folder_.filePath("Default.dwt"));
        QDir::setCurrent(folder_.path()); // where the template is looked for first
        session_.tempDir = folder_.path();
        makeHierarchy();
        ASSERT_TRUE(session_.connect());
    }
    void TearDown() override
    {
        closeAllDocuments();
        unlockDrawing(session_.currentDrawingPath);
        QDir::setCurrent(before_);
    }

    static NcApDocument* openDrawing(const QString& path) { return ncDocManagerPtr()->findByFileName(path); }

    static QString property(NcApDocument* document, const QString& key)
    {
        NcDbDatabaseSummaryInfo info;
        QString value;
        if (!document || !isOk(ncdbGetSummaryInfo(document->database(), info))
            || !isOk(info.getCustomSummaryInfo(key, value)))
            return "(absent)";
        return value;
    }

    /// Stores a drawing that holds the mark "stored" for the position.
    void storeDrawing(int positionId, int fileId, const QString& mark = "stored")
    {
        NcDbDatabase drawing;
        NcDbDatabaseSummaryInfo info;
        info.addCustomSummaryInfo("mark", mark);
        info.addCustomSummaryInfo("project", "прежнее имя");
        ncdbPutSummaryInfo(&drawing, info);
        const QString path = folder_.filePath("source.dwg");
        ASSERT_TRUE(isOk(drawing.saveAs(path)));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        stored_ = file.readAll();
        ASSERT_TRUE(database_.connection()
                        .run("insert into positions_files (file_id, position_id, content) "
                             "values ($3::integer, $1::integer, $2::bytea)",
                             {sql::text(positionId), sql::binary(stored_), sql::text(fileId)})
                        .isCommand());
    }

    /// Another drawing in the file, as the host saves it; gives its bytes.
    static QByteArray save(const QString& path, const QString& mark)
    {
        NcDbDatabase drawing;
        NcDbDatabaseSummaryInfo info;
        info.addCustomSummaryInfo("mark", mark);
        ncdbPutSummaryInfo(&drawing, info);
        EXPECT_TRUE(isOk(drawing.saveAs(path)));
        return content(path);
    }

    static QByteArray content(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
        return file.readAll();
    }

    /// Copies of the position's drawing under dated names.
    QStringList keptCopies(int positionId) const
    {
        const QRegularExpression dated("^positionID" + QString::number(positionId)
                                       + "_\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d(_\\d+)?\\.dwg$");
        QStringList found;
        for (const QString& name : QDir(folder_.path()).entryList(QDir::Files))
            if (dated.match(name).hasMatch())
                found << folder_.filePath(name);
        return found;
    }

    QByteArray stored_;
    const QString before_ = QDir::currentPath();
};

TEST_F(ChoosingAPosition, PathIsBuiltFromTheTemporaryFolder)
{
    session_.tempDir = "/a b";
    EXPECT_EQ(session_.drawingPath(17), QString("/a b/positionID17.dwg"));
}

TEST_F(ChoosingAPosition, WithoutAStoredDrawingMakesANewOne)
{
    session_.currentFileId = 99;
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(session_.currentPositionId, 1);
    EXPECT_EQ(session_.currentFileId, -1);
    EXPECT_EQ(session_.currentDrawingPath, folder_.path() + "/positionID1.dwg");
    NcApDocument* document = openDrawing(session_.currentDrawingPath);
    ASSERT_TRUE(document);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), document);
    EXPECT_EQ(property(document, "project"), QString("Город"));
    EXPECT_EQ(property(document, "position_id"), QString("1"));
    EXPECT_TRUE(QFileInfo::exists(session_.currentDrawingPath));
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(ChoosingAPosition, ReadsTheNamesUpToTheProject)
{
    session_.projectName = "из файла";
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.projectName, QString("Город"));
    EXPECT_EQ(session_.currentObjectId, 3);
    EXPECT_EQ(session_.currentObjectName, QString("Объект"));
    EXPECT_EQ(session_.currentSubobjectId, 4);
    EXPECT_EQ(session_.currentSubobjectName, QString("Подобъект"));
    EXPECT_EQ(session_.currentPositionName, QString("Позиция 2"));
}

TEST_F(ChoosingAPosition, ANewDrawingIsWrittenWithTheProjectsName)
{
    ASSERT_TRUE(session_.setCurrentPosition(1));
    NcDbDatabase file(false);
    ASSERT_TRUE(isOk(file.readDwgFile(session_.currentDrawingPath)));
    NcDbDatabaseSummaryInfo info;
    ASSERT_TRUE(isOk(ncdbGetSummaryInfo(&file, info)));
    QString value;
    EXPECT_TRUE(isOk(info.getCustomSummaryInfo("project", value)));
    EXPECT_EQ(value, QString("Город"));
    EXPECT_FALSE(isOk(info.getCustomSummaryInfo("position_id", value))) << "written after the saving";
}

TEST_F(ChoosingAPosition, WithoutAProjectANewDrawingHasNoProperty)
{
    database_.exec("alter table projects drop column project_id cascade");
    session_.projectId = -1;
    session_.setCurrentPosition(1);
    EXPECT_EQ(property(openDrawing(session_.drawingPath(1)), "project"), QString("(absent)"));
}

// --- what was saved in a working copy and nowhere else --------------------------------

TEST_F(ChoosingAPosition, ACopySavedSinceIsKeptUnderADatedName)
{
    storeDrawing(2, 31);
    ASSERT_TRUE(session_.setCurrentPosition(2));
    const QByteArray saved = save(session_.drawingPath(2), "работа");
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(content(session_.drawingPath(2)), stored_);
    const QStringList kept = keptCopies(2);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(content(kept.first()), saved);
    EXPECT_EQ(console_.take(),
              "\nРабочая копия чертежа сохранялась после записи в базу данных. Прежняя копия: " + kept.first() + "\n");
    EXPECT_EQ(property(openDrawing(session_.drawingPath(2)), "mark"), QString("stored"));

    save(session_.drawingPath(2), "ещё работа");
    QFile file(session_.drawingPath(2));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QFileInfo(kept.first()).lastModified(), QFileDevice::FileModificationTime));
    file.close();
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(keptCopies(2).size(), 2) << "two of one second have names of their own";
}

TEST_F(ChoosingAPosition, ACopyThatNobodySavedIsReplacedInSilence)
{
    storeDrawing(2, 31);
    ASSERT_TRUE(session_.setCurrentPosition(2));
    ASSERT_TRUE(session_.setCurrentPosition(2));
    database_.exec("delete from positions_files");
    storeDrawing(2, 31, "a colleague's");
    ASSERT_TRUE(session_.setCurrentPosition(2)) << "what is stored is newer";
    EXPECT_EQ(content(session_.drawingPath(2)), stored_);
    EXPECT_EQ(keptCopies(2), QStringList());
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(ChoosingAPosition, ACopyThatWasStoredMeanwhileIsReplacedInSilence)
{
    storeDrawing(2, 31);
    ASSERT_TRUE(session_.setCurrentPosition(2));
    save(session_.drawingPath(2), "работа");
    ASSERT_TRUE(
        database_.connection()
            .run("update positions_files set content = $1::bytea", {sql::binary(content(session_.drawingPath(2)))})
            .isCommand());
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(keptCopies(2), QStringList());
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(ChoosingAPosition, ACopyIsKeptBeforeANewDrawingToo)
{
    ASSERT_TRUE(session_.setCurrentPosition(1));
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(keptCopies(1), QStringList()) << "an untouched new drawing holds no work";
    const QByteArray saved = save(session_.drawingPath(1), "работа");
    ASSERT_TRUE(session_.setCurrentPosition(1));
    ASSERT_EQ(keptCopies(1).size(), 1);
    EXPECT_EQ(content(keptCopies(1).first()), saved);
    EXPECT_TRUE(openDrawing(session_.drawingPath(1)));
    EXPECT_TRUE(console_.text().contains(keptCopies(1).first()));
}

TEST_F(ChoosingAPosition, ADrawingSavedAndNotStoredIsToldWhenItsPositionIsLeft)
{
    storeDrawing(2, 31);
    ASSERT_TRUE(session_.setCurrentPosition(2));
    const QString path = session_.drawingPath(2);
    const QString told = "\nЧертеж позиции 2 сохранен, но не записан в базу данных: " + path + "\n";
    EXPECT_FALSE(wasSavedSince(path));
    save(path, "работа");
    EXPECT_TRUE(wasSavedSince(path));
    ASSERT_TRUE(session_.setCurrentPosition(-1)) << "its drawing stays open";
    EXPECT_EQ(console_.take(), told);
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(console_.take(), QString()) << "told once";

    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_TRUE(console_.take().contains("Прежняя копия: "));
    const QByteArray more = save(path, "ещё работа");
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(console_.take(), told) << "it is closed";
    EXPECT_EQ(content(path), more) << "and still lies there";
}

TEST_F(ChoosingAPosition, ADrawingThatWasStoredIsLeftInSilence)
{
    storeDrawing(2, 31);
    ASSERT_TRUE(session_.setCurrentPosition(2));
    rememberStored(session_.drawingPath(2), save(session_.drawingPath(2), "работа"));
    ASSERT_TRUE(session_.setCurrentPosition(1));
    save(session_.drawingPath(1), "работа");
    closeDrawing(session_.drawingPath(1));
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(console_.text(), QString()) << "the user has closed that one";
    EXPECT_FALSE(wasSavedSince(folder_.filePath("source.dwg"))) << "no working copy";
}

TEST_F(ChoosingAPosition, ChosenAgainAfterLeavingItTheDocumentIsTheStoredOne)
{
    storeDrawing(1, 5);
    ASSERT_TRUE(session_.setCurrentPosition(1));
    ASSERT_TRUE(session_.setCurrentPosition(-1));
    ASSERT_TRUE(openDrawing(session_.drawingPath(1)));
    database_.exec("delete from positions_files");
    storeDrawing(1, 5, "newer");
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
    EXPECT_EQ(property(openDrawing(session_.drawingPath(1)), "mark"), QString("newer"));

    database_.exec("delete from positions_files");
    ASSERT_TRUE(session_.setCurrentPosition(-1));
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
    NcApDocument* fresh = openDrawing(session_.drawingPath(1));
    ASSERT_TRUE(fresh) << "no untitled one";
    EXPECT_EQ(property(fresh, "mark"), QString("(absent)"));
}

TEST_F(ChoosingAPosition, OpensTheStoredDrawingOverAnEarlierCopy)
{
    storeDrawing(2, 31);
    QFile earlier(session_.drawingPath(2));
    ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
    earlier.write("earlier");
    earlier.close();

    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(session_.currentFileId, 31);
    QFile copy(session_.currentDrawingPath);
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), stored_) << "byte for byte";
    NcApDocument* document = openDrawing(session_.currentDrawingPath);
    ASSERT_TRUE(document);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), document);
    EXPECT_EQ(property(document, "mark"), QString("stored"));
    EXPECT_EQ(property(document, "project"), QString("Город")) << "replaced";
    EXPECT_EQ(property(document, "position_id"), QString("2")) << "added";
}

TEST_F(ChoosingAPosition, ClosesTheDrawingOfThePositionBefore)
{
    ASSERT_TRUE(session_.setCurrentPosition(1));
    ncDocManagerPtr()->appContextNewDocument("Default.dwt");
    const int before = ncDocManagerPtr()->documentCount();
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(openDrawing(session_.drawingPath(1)), nullptr);
    EXPECT_TRUE(openDrawing(session_.drawingPath(2)));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), before) << "other documents stay";
}

TEST_F(ChoosingAPosition, ChoosingItAgainOpensItAnew)
{
    storeDrawing(1, 5);
    ASSERT_TRUE(session_.setCurrentPosition(1));
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
    EXPECT_EQ(property(openDrawing(session_.drawingPath(1)), "mark"), QString("stored"));
}

TEST_F(ChoosingAPosition, AnUnknownPositionLeavesTheOldOne)
{
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_FALSE(session_.setCurrentPosition(1000));
    EXPECT_EQ(session_.currentPositionId, 1);
    EXPECT_EQ(session_.currentPositionName, QString("Позиция 1"));
    EXPECT_EQ(openDrawing(session_.drawingPath(1)), nullptr) << "its drawing was closed before the question";
}

TEST_F(ChoosingAPosition, TwoStoredDrawingsRefuseThePosition)
{
    database_.exec("alter table positions_files drop constraint positions_files_position_id_key;"
                   "insert into positions_files (position_id) values (1), (1)");
    EXPECT_FALSE(session_.setCurrentPosition(1));
    EXPECT_EQ(session_.currentPositionId, -1);
}

TEST_F(ChoosingAPosition, AFolderThatIsGoneIsTold)
{
    storeDrawing(1, 5);
    session_.tempDir = folder_.path() + "/gone";
    EXPECT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(console_.take(), "\n Не удается создать файл " + folder_.path() + "/gone/positionID1.dwg");
    EXPECT_EQ(session_.currentFileId, 5);
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
}

TEST_F(ChoosingAPosition, AnAbsentContentNeverShowsAStaleCopy)
{
    storeDrawing(1, 5);
    ASSERT_TRUE(session_.setCurrentPosition(1));
    database_.exec("update positions_files set content = null");
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(openDrawing(session_.drawingPath(1)), nullptr);
    EXPECT_EQ(console_.take(), QString("\nВ базе данных записан пустой чертеж позиции 1\n"));
}

TEST_F(ChoosingAPosition, ADamagedCutOrEmptyStoredDrawingIsToldAndThePositionChosenWithoutOne)
{
    storeDrawing(2, 31);
    const QByteArray sound = stored_;
    ASSERT_TRUE(isOk(ncDocManagerPtr()->appContextNewDocument("Default.dwt")));
    NcApDocument* other = ncDocManagerPtr()->curDocument();
    const QString damaged = "\nЧертеж " + session_.drawingPath(2) + " поврежден и не открыт\n";
    const QString empty = "\nВ базе данных записан пустой чертеж позиции 2\n";
    const std::pair<QByteArray, QString> contents[] = {
        {"no drawing at all", damaged}, {sound.left(sound.size() / 2), damaged}, {QByteArray(""), empty}};
    for (const auto& [bytes, told] : contents) {
        ASSERT_TRUE(database_.connection()
                        .run("update positions_files set content = $1::bytea", {sql::binary(bytes)})
                        .isCommand());
        EXPECT_TRUE(session_.setCurrentPosition(2));
        EXPECT_EQ(console_.take(), told);
        EXPECT_EQ(session_.currentPositionName, QString("Позиция 2"));
        EXPECT_EQ(session_.currentFileId, 31);
        EXPECT_EQ(openDrawing(session_.drawingPath(2)), nullptr);
        EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
        EXPECT_EQ(property(other, "position_id"), QString("(absent)"));
        EXPECT_FALSE(QFileInfo::exists(drawingLockPath(session_.drawingPath(2)))) << "nothing is open";
    }
}

TEST_F(ChoosingAPosition, AStoredDrawingThatIsNotFetchedIsTold)
{
    PlainRole role(database_);
    database_.exec("grant select on all tables in schema public to " + role.name()
                   + ";"
                     "revoke select on positions_files from "
                   + role.name()
                   + ";"
                     "grant select (file_id, position_id) on positions_files to "
                   + role.name());
    storeDrawing(2, 31);
    session_.sqlUser = role.name();
    session_.sqlPass = "plain";
    ASSERT_TRUE(session_.connect());
    console_.take();
    EXPECT_TRUE(session_.setCurrentPosition(2));
    const QString told = console_.take();
    EXPECT_TRUE(told.startsWith("\nЧертеж позиции 2 не получен из базы данных: ")) << told;
    EXPECT_TRUE(told.contains("positions_files")) << "the server's own reason";
    EXPECT_EQ(session_.currentPositionName, QString("Позиция 2"));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
}

// --- another program has it open --------------------------------------------------------

TEST_F(ChoosingAPosition, ADrawingThatAnotherProgramHoldsIsLeftAloneAndItsHolderNamed)
{
    storeDrawing(2, 31);
    const QByteArray theirs = save(session_.drawingPath(2), "чужая работа");
    QLockFile held(drawingLockPath(session_.drawingPath(2)));
    ASSERT_TRUE(held.tryLock(0));
    for (const bool stored : {true, false}) {
        if (!stored)
            database_.exec("delete from positions_files");
        EXPECT_TRUE(session_.setCurrentPosition(2)) << "the position is chosen without a drawing";
        const QString told = console_.take();
        EXPECT_TRUE(told.startsWith("\nЧертеж " + session_.drawingPath(2) + " открыт в другой программе (")) << told;
        EXPECT_TRUE(told.contains("процесс " + QString::number(QCoreApplication::applicationPid()))) << told;
        EXPECT_TRUE(told.contains(QFileInfo(folder_.path()).owner())) << told;
        EXPECT_EQ(session_.currentPositionName, QString("Позиция 2"));
        EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
        EXPECT_EQ(content(session_.drawingPath(2)), theirs);
    }
    held.unlock();
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_TRUE(openDrawing(session_.drawingPath(2)));
}

TEST_F(ChoosingAPosition, ADrawingIsHeldWhileItIsOpen)
{
    storeDrawing(1, 5);
    QLockFile other(drawingLockPath(session_.drawingPath(1)));
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_FALSE(other.tryLock(0));
    ASSERT_TRUE(session_.setCurrentPosition(1)) << "one's own lock is no hindrance";
    EXPECT_TRUE(openDrawing(session_.drawingPath(1)));
    EXPECT_FALSE(other.tryLock(0));
    ASSERT_TRUE(session_.setCurrentPosition(2));
    EXPECT_TRUE(other.tryLock(0)) << "closed with the position";
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(ChoosingAPosition, ALockOfAProgramThatHasEndedIsTaken)
{
    storeDrawing(1, 5);
    QFile left(drawingLockPath(session_.drawingPath(1)));
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    // No process bears the greatest number.
    left.write("4194304\nterva\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    left.close();
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_TRUE(openDrawing(session_.drawingPath(1)));
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(ChoosingAPosition, ABrokenTemplateTouchesNoDocument)
{
    ASSERT_TRUE(isOk(ncDocManagerPtr()->appContextNewDocument("Default.dwt")));
    NcApDocument* other = ncDocManagerPtr()->curDocument();
    QFile broken(folder_.filePath("Default.dwt"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no drawing");
    broken.close();
    EXPECT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
    EXPECT_EQ(property(other, "project"), QString("(absent)"));
    EXPECT_EQ(property(other, "position_id"), QString("(absent)"));
    EXPECT_EQ(session_.currentPositionName, QString("Позиция 1"));
}

TEST_F(ChoosingAPosition, WithoutAConnectionOnlyTheNumberIsTaken)
{
    session_.sqlPass = "wrong";
    endConnections(database_);
    EXPECT_TRUE(session_.setCurrentPosition(2));
    EXPECT_EQ(session_.currentPositionId, 2);
    EXPECT_EQ(session_.currentDrawingPath, session_.drawingPath(2));
    EXPECT_EQ(session_.currentPositionName, QString());
}

TEST_F(ChoosingAPosition, AFailedQueryIsPassedOver)
{
    database_.exec("alter table positions_files rename to away");
    EXPECT_TRUE(session_.setCurrentPosition(1000));
    EXPECT_EQ(session_.currentPositionId, 1000);
    EXPECT_EQ(session_.currentPositionName, QString());
    EXPECT_EQ(session_.dmEnumerator, session_.dmDefault) << "nothing is renumbered";
}

TEST_F(ChoosingAPosition, FindsTheProjectWhenNoneIsKnown)
{
    session_.projectId = -1;
    EXPECT_FALSE(session_.setCurrentPosition(1000));
    EXPECT_EQ(session_.projectId, 7);
}

TEST_F(ChoosingAPosition, MinusOneLeavesThePositionAndReadsTheProject)
{
    ASSERT_TRUE(session_.setCurrentPosition(1));
    const QString path = session_.currentDrawingPath;
    session_.projectId = 55;
    session_.projectName = "другой";
    EXPECT_TRUE(session_.setCurrentPosition(-1));
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.projectName, QString("Город"));
    EXPECT_EQ(session_.currentPositionId, -1);
    EXPECT_EQ(session_.currentFileId, -1);
    EXPECT_EQ(session_.currentObjectId, -1);
    EXPECT_EQ(session_.currentSubobjectId, -1);
    EXPECT_EQ(session_.currentPositionName + session_.currentObjectName + session_.currentSubobjectName, QString());
    EXPECT_EQ(session_.currentDrawingPath, path) << "the drawing stays";
    EXPECT_TRUE(openDrawing(path));
}

TEST_F(ChoosingAPosition, MinusOneTakesTheSessionsDefaults)
{
    session_.defaultPositionId = 70;
    session_.defaultFileId = 71;
    session_.setCurrentPosition(-1);
    EXPECT_EQ(session_.currentPositionId, 70);
    EXPECT_EQ(session_.currentFileId, 71);
}

TEST_F(ChoosingAPosition, MinusOneWithoutAProjectIsFalse)
{
    database_.exec("truncate projects cascade");
    session_.projectName = "имя";
    EXPECT_FALSE(session_.setCurrentPosition(-1));
    EXPECT_EQ(session_.projectId, -1);
    EXPECT_EQ(session_.projectName, QString());
}

TEST_F(ChoosingAPosition, MinusOneWithARefusedQueryLeavesTheProject)
{
    database_.exec("alter table projects rename name to title");
    session_.projectName = "имя";
    EXPECT_TRUE(session_.setCurrentPosition(-1));
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.projectName, QString("имя"));
}

TEST_F(ChoosingAPosition, MinusOneWithoutAConnectionIsFalse)
{
    session_.sqlPass = "wrong";
    endConnections(database_);
    EXPECT_FALSE(session_.setCurrentPosition(-1));
    EXPECT_EQ(session_.projectId, 7) << "kept";
}

TEST_F(ChoosingAPosition, ContinuesTheNumberingOfSixFamilies)
{
    database_.exec("insert into dm_elements (type_id, element_name, position_id) values "
                   "('dm', 'ДМ.041', 1), ('dm', 'ДМ.7', 1), ('dm', 'ДМ.500', 2);"
                   "insert into ts_elements (type_id, element_name, position_id) values ('ts', 'скважина', 1);"
                   "insert into rp_elements (type_id, element_name, position_id) values ('rp_gl', 'RP3-900', 1);"
                   "insert into igs_elements (type_id, element_name, position_id) values ('skv', 'С-8', 1);");
    session_.igsEnumerator = {"своя", 3, 2};
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(session_.dmEnumerator, (Enumerator{"ДМ.", 42, 3}));
    EXPECT_EQ(session_.tsEnumerator, (Enumerator{"ТС.", 100, 3})) << "no name holds a digit";
    EXPECT_EQ(session_.tssEnumerator, (Enumerator{QString("Т") + "C" + "С.", 100, 3})) << "with a Latin C";
    EXPECT_EQ(session_.rpEnumerator, (Enumerator{"RP.", 4, 3})) << "the first run of digits counts";
    EXPECT_EQ(session_.ggsEnumerator, (Enumerator{"ГГС.", 100, 3}));
    EXPECT_EQ(session_.tsgEnumerator, (Enumerator{"ТСГ.", 100, 3}));
    EXPECT_EQ(session_.igsEnumerator, (Enumerator{"своя", 3, 2}));
}

TEST_F(ChoosingAPosition, AFamilyThatCannotBeReadKeepsItsNumbering)
{
    database_.exec("alter table ts_elements rename to ts_away");
    ASSERT_TRUE(session_.setCurrentPosition(1));
    EXPECT_EQ(session_.tsEnumerator, session_.tsDefault);
    EXPECT_EQ(session_.tssEnumerator.counter, 100) << "the families behind it go on";
}

TEST(NextNumber, ComesAfterTheGreatestFirstRun)
{
    EXPECT_EQ(nextNumber({}), 100);
    EXPECT_EQ(nextNumber({"без числа", ""}), 100);
    EXPECT_EQ(nextNumber({"0"}), 1);
    EXPECT_EQ(nextNumber({"a2b99", "3"}), 4);
    EXPECT_EQ(nextNumber({"12345678901"}), 1) << "beyond 32 bits reads as 0";
    EXPECT_EQ(nextNumber({QString::fromUtf8("٣٤")}), 100) << "only ASCII digits";
    EXPECT_EQ(nextNumber({"2147483647"}), 2147483647);
}

} // namespace
