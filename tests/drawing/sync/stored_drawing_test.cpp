// Storing the drawing itself: the position's own document and another one.
#include "drawing/sync/stored_drawing.h"

#include "drawing/sync/database_to_drawing.h"
#include "drawing/sync/sync_questions.h"
#include "session/drawing_lock.h"
#include "session/working_drawing.h"
#include "support/statement_relay.h"
#include "sync_fixture.h"

#include <drawing/application.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

const QString question = "Активный документ не совпадает с документом позиции\n  Выполнить его замену в базе данных";

class StoredDrawing : public ::testing::Test {
protected:
    StoredDrawing()
    {
        session().tempDir = folder.path();
        session().currentFileId = -1;
    }
    ~StoredDrawing() override
    {
        closeAllDocuments();
        unlockDrawing(path());
        session().tempDir.clear();
        session().currentFileId = -1;
    }
    static QString path() { return session().drawingPath(PositionSession::position); }
    // A document with one line of this length, saved under the path.
    static NcApDocument* document(const QString& path, double length)
    {
        ncDocManagerPtr()->appContextNewDocument(QString());
        addLine(length);
        NcApDocument* made = ncDocManagerPtr()->curDocument();
        if (!path.isEmpty())
            ncDocManagerPtr()->saveDocumentAs(made, path);
        return made;
    }
    static void addLine(double length)
    {
        appendToModelSpace(std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(length, 0, 0)));
    }
    void store()
    {
        host.console.clear();
        storeActiveDrawing({{}, [this](const QString& text) {
                                asked.append(text);
                                return yes;
                            }});
    }
    QByteArray stored()
    {
        return QByteArray::fromHex(
            database->value("select encode(content, 'hex') from positions_files where position_id = 7").toLatin1());
    }
    static QByteArray bytes(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
        return file.readAll();
    }
    QStringList copies() const { return QDir(folder.path()).entryList({"positionID7.dwg.*"}); }
    // The lengths of the lines of a drawing.
    static QStringList lines(const QByteArray& drawing)
    {
        QTemporaryDir place;
        QFile file(place.filePath("drawing.dwg"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(drawing);
        file.close();
        NcDbDatabase side(false);
        EXPECT_TRUE(isOk(side.readDwgFile(file.fileName())));
        QStringList lengths;
        auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(side).modelSpace);
        for (const NcDbObjectId& id : HostAccess::entities(*space)) {
            if (const auto* line = HostAccess::objectAs<NcDbLine>(id))
                lengths << QString::number(line->endPoint().x);
        }
        return lengths;
    }

    PositionSession database;
    ScriptedPrompts host;
    QTemporaryDir folder;
    QStringList asked;
    bool yes = false;
};

} // namespace

TEST_F(StoredDrawing, SavesStoresAndKeepsThePositionsOwnDocument)
{
    document(path(), 5);
    addLine(6);
    store();
    EXPECT_EQ(host.console, "Обновление чертежа в БД.\n");
    EXPECT_EQ(asked, QStringList());
    EXPECT_EQ(lines(stored()), (QStringList{"5", "6"})) << "what was not saved yet is stored too";
    EXPECT_EQ(stored(), bytes(path()));
    ASSERT_EQ(copies().size(), 1);
    EXPECT_EQ(bytes(folder.filePath(copies()[0])), stored());
    bool isBase31 = false;
    const qint64 stamp = copies()[0].mid(QString("positionID7.dwg.").size()).toLongLong(&isBase31, 31);
    EXPECT_TRUE(isBase31);
    EXPECT_NEAR(double(stamp), double(secondsNow()), 60.0);
    EXPECT_EQ(QString::number(session().currentFileId), database->value("select file_id from positions_files"));

    addLine(7);
    store();
    EXPECT_EQ(lines(stored()), (QStringList{"5", "6", "7"}));
    EXPECT_EQ(database->value("select count(*) from positions_files"), "1");
}

TEST_F(StoredDrawing, WritesWhetherTheRowCameOrWentMeanwhile)
{
    document(path(), 5);
    database->exec("insert into positions_files (file_id, position_id) values (40, 7)");
    store();
    EXPECT_EQ(lines(stored()), QStringList("5"));
    session().currentFileId = 40;
    database->exec("delete from positions_files");
    store();
    EXPECT_EQ(lines(stored()), QStringList("5"));
    EXPECT_EQ(QString::number(session().currentFileId), database->value("select file_id from positions_files"));
}

TEST_F(StoredDrawing, IsWrittenAndReadByTheseStatements)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    const QString copy = "select content from positions_files  where position_id=$1::integer";
    document(path(), 5);
    relay.cutAfter(-1);
    store();
    store();
    EXPECT_EQ(relay.texts(),
              (QStringList{copy,
                           "insert into positions_files (position_id, content) values "
                           "($1::integer,$2::bytea) returning file_id",
                           copy, copy,
                           "update positions_files set content = $2::bytea  where "
                           "position_id=$1::integer",
                           copy}));
    session().connection.finish();
}

// --- two writers ----------------------------------------------------------------------

TEST_F(StoredDrawing, AsksBeforeItOverwritesWhatSomebodyElseHasStoredSince)
{
    document(path(), 5);
    store();
    const QByteArray mine = stored();
    // A colleague's drawing, made and stored elsewhere.
    QByteArray theirs;
    {
        QTemporaryDir elsewhere;
        NcDbDatabase drawing;
        ASSERT_TRUE(isOk(drawing.saveAs(elsewhere.filePath("a.dwg"))));
        theirs = bytes(elsewhere.filePath("a.dwg"));
    }
    ASSERT_NE(mine, theirs);
    const auto storeTheirs = [&] {
        ASSERT_TRUE(database->connection()
                        .run("update positions_files set content = $1::bytea", {sql::binary(theirs)})
                        .isCommand());
    };
    storeTheirs();
    addLine(6);
    store();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0].contains("записан другим пользователем")) << asked[0];
    EXPECT_EQ(stored(), theirs) << "No leaves it";
    EXPECT_EQ(copies().size(), 1);

    yes = true;
    store();
    EXPECT_EQ(asked.size(), 2);
    EXPECT_EQ(lines(stored()), (QStringList{"5", "6"}));
    const auto isKept = [this](const QByteArray& drawing) {
        for (const QString& copy : copies())
            if (bytes(folder.filePath(copy)) == drawing)
                return true;
        return false;
    };
    EXPECT_TRUE(isKept(theirs)) << "what was overwritten is kept";
    EXPECT_TRUE(isKept(mine));
    EXPECT_TRUE(isKept(stored()));

    addLine(7);
    store();
    EXPECT_EQ(asked.size(), 2) << "one's own is no question";
    EXPECT_EQ(copies().size(), 4) << "what is kept already is not kept twice";
}

TEST_F(StoredDrawing, AsksWhenSomebodyElseStoredTheFirstOne)
{
    document(path(), 5);
    database->exec("insert into positions_files (position_id, content) values (7, 'their drawing')");
    store();
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(stored(), QByteArray("their drawing"));
    document(folder.filePath("other.dwg"), 8);
    store();
    EXPECT_EQ(asked.size(), 2) << "to replace it";
    EXPECT_EQ(stored(), QByteArray("their drawing"));
}

TEST_F(StoredDrawing, IsNotOverwrittenByAnEmptyFileOrWithoutHavingBeenRead)
{
    database->exec("insert into positions_files (position_id, content) values (7, 'their drawing')");
    QFile empty(path());
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    yes = true;
    document(folder.filePath("other.dwg"), 8);
    store();
    EXPECT_EQ(lines(stored()), QStringList("8"));
    EXPECT_FALSE(copies().isEmpty());
    EXPECT_EQ(bytes(folder.filePath(copies()[0])), QByteArray("their drawing"));

    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    const QByteArray before = stored();
    addLine(9);
    relay.refuse(1);
    store();
    ASSERT_TRUE(relay.hasRefused());
    EXPECT_TRUE(host.console.endsWith("\nОшибка: чертеж " + path() + " не записан в базу данных\n")) << host.console;
    EXPECT_EQ(stored(), before);
    session().connection.finish();
}

TEST_F(StoredDrawing, RowsGoIntoAnotherDocumentOnlyWhenTheUserSaysSo)
{
    QStringList warned;
    bool goesOn = false;
    const SyncQuestions questions{[&](const QString& text) {
                                      warned.append(text);
                                      return goesOn;
                                  },
                                  {}};
    EXPECT_TRUE(documentIsAccepted(questions)) << "without a document there is none to be harmed";
    NcApDocument* own = document(path(), 5);
    writeDrawingProperty(own, {"position_id", "7"});
    EXPECT_TRUE(documentIsAccepted(questions));
    EXPECT_EQ(warned, QStringList());
    NcApDocument* other = document(folder.filePath("other.dwg"), 8);
    EXPECT_FALSE(documentIsAccepted(questions));
    writeDrawingProperty(other, {"position_id", "8"});
    EXPECT_FALSE(documentIsAccepted(questions));
    goesOn = true;
    EXPECT_TRUE(documentIsAccepted(questions));
    ASSERT_EQ(warned.size(), 3);
    EXPECT_TRUE(warned[0].contains(" не задано ")) << warned[0];
    EXPECT_TRUE(warned[1].contains("«8» не совпадают")) << warned[1];
}

TEST_F(StoredDrawing, LeavesAllAsItIsWhenAnotherDocumentIsNotToReplaceIt)
{
    document(path(), 5);
    document(folder.filePath("other.dwg"), 8);
    store();
    EXPECT_EQ(asked, QStringList(question));
    EXPECT_EQ(stored(), QByteArray());
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 2);
}

TEST_F(StoredDrawing, PutsAnotherDocumentInThePositionsPlaceAndKeepsTheOldOne)
{
    document(path(), 5);
    addLine(6);
    const QString other = folder.filePath("other.dwg");
    document(other, 8);
    addLine(9);
    yes = true;
    store();
    EXPECT_EQ(host.console, "Обновление чертежа в БД.\n");
    ASSERT_EQ(copies().size(), 1);
    EXPECT_EQ(lines(bytes(folder.filePath(copies()[0]))), (QStringList{"5", "6"}));
    EXPECT_EQ(lines(stored()), (QStringList{"8", "9"}));
    EXPECT_EQ(bytes(other), stored());
    EXPECT_EQ(bytes(path()), stored());
    EXPECT_EQ(ncDocManagerPtr()->curDocument()->fileName(), QDir::cleanPath(path()));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 2) << "the other document stays open";
}

TEST_F(StoredDrawing, TakesADocumentThatWasNeverSaved)
{
    document(QString(), 8);
    const QString name = ncDocManagerPtr()->curDocument()->fileName();
    ASSERT_FALSE(QDir::isAbsolutePath(name));
    yes = true;
    store();
    EXPECT_EQ(host.console, "Обновление чертежа в БД.\n\n Не удается прочитать файл " + path());
    EXPECT_EQ(lines(stored()), QStringList("8"));
    EXPECT_TRUE(QFile::exists(folder.filePath(name)));
    EXPECT_FALSE(QFile::exists(name)) << "nothing is written to wherever the program was started";
    EXPECT_EQ(ncDocManagerPtr()->curDocument()->fileName(), QDir::cleanPath(path()));
}

TEST_F(StoredDrawing, EndsWhenTheDrawingCannotBeSaved)
{
    document(path(), 5);
    store();
    const QByteArray before = stored();
    addLine(6);
    ASSERT_TRUE(QFile::rename(folder.path(), folder.path() + ".away"));
    store();
    EXPECT_EQ(host.console, "Обновление чертежа в БД.\n\n Не удается создать файл " + QDir::cleanPath(path()));
    EXPECT_EQ(stored(), before);
    ASSERT_TRUE(QFile::rename(folder.path() + ".away", folder.path()));
    store();
    EXPECT_EQ(lines(stored()), (QStringList{"5", "6"}));
}

TEST_F(StoredDrawing, EndsWhenTheServerRefusesSoThatNothingIsReplacedUnkept)
{
    document(path(), 5);
    store();
    const QByteArray before = stored();
    addLine(6);
    document(folder.filePath("other.dwg"), 8);
    yes = true;
    database->exec("alter table positions_files rename to hidden");
    store();
    database->exec("alter table hidden rename to positions_files");
    EXPECT_TRUE(host.console.endsWith("\nОшибка: чертеж " + path() + " не записан в базу данных\n")) << host.console;
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(lines(bytes(path())), (QStringList{"5", "6"}));

    store();
    EXPECT_EQ(lines(stored()), QStringList("8")) << "the next run does it";
}

// The command checks the connection before it comes to the file.
TEST_F(StoredDrawing, EndsTheSameWhereverTheConnectionWasCut)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    const auto storeAfterCheck = [this] {
        ASSERT_TRUE(session().checkConnection());
        store();
    };
    yes = true;
    int cuts = 0;
    for (const bool own : {true, false}) {
        for (int statement = 1; statement < 10; ++statement) {
            database->exec("delete from positions_files");
            session().currentFileId = -1;
            ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
            const QString other = folder.filePath("other.dwg");
            document(path(), 5);
            if (!own)
                document(other, 8);
            relay.cutAfter(statement);
            storeAfterCheck();
            const bool wasCut = relay.hasCut();
            relay.cutAfter(-1);
            if (wasCut)
                storeAfterCheck();
            cuts += wasCut ? 1 : 0;
            EXPECT_EQ(lines(stored()), QStringList(own ? "5" : "8")) << own << statement;
            EXPECT_EQ(bytes(path()), stored()) << own << statement;
            EXPECT_EQ(ncDocManagerPtr()->curDocument()->fileName(), QDir::cleanPath(path())) << own << statement;
            while (ncDocManagerPtr()->documentCount() > 0)
                ncDocManagerPtr()->closeDocument(ncDocManagerPtr()->document(0));
            QFile::remove(path());
            QFile::remove(other);
        }
    }
    EXPECT_GE(cuts, 3 + 5) << "check, store, copy; check, store, copy, replace, fetch";
}

TEST_F(StoredDrawing, TellsAFileThatEndsEarly)
{
    // The system's own files say nothing of their size beforehand.
    ASSERT_TRUE(QFile::link("/proc/self/status", path()));
    document(folder.filePath("other.dwg"), 8);
    yes = true;
    store();
    EXPECT_EQ(host.console, "Обновление чертежа в БД.\n\n Ошибка чтения  " + path());
    EXPECT_EQ(stored(), QByteArray());
}

TEST_F(StoredDrawing, ComparesCleanedAbsolutePaths)
{
    const QString one = folder.filePath("a.dwg");
    EXPECT_TRUE(isSameFile(one, one));
    EXPECT_TRUE(isSameFile(folder.path() + "/./sub/../a.dwg", one)) << "also while there is no such file";
    EXPECT_FALSE(isSameFile(one, folder.filePath("b.dwg"))) << "neither of two missing files is the other";
    EXPECT_TRUE(isSameFile(QDir::current().relativeFilePath(one), one));
}

TEST_F(StoredDrawing, TheTreeOpensADrawingWhenThereIsNone)
{
    addTemplateFolder(QCoreApplication::applicationDirPath());
    database->exec("insert into ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z) values "
                   "(5, 'ts', 'Т', 'exist', 8, 1, 2, 3)");
    syncNodeToDrawing(1, SyncLevel::Object, 1);
    ASSERT_EQ(ncDocManagerPtr()->documentCount(), 1);
    EXPECT_FALSE(host.console.contains("Error set layer"));
    // Markers of several actions add up.
    ensureErrorLayer();
    addErrorCircle({1, 1, 0}, 3);
    syncNodeToDrawing(1, SyncLevel::Object, 2);
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
    NcSelectionSet set;
    ASSERT_EQ(ncedSSGet("X", {{8, errorLayerName()}}, set), kPromptNormal);
    EXPECT_EQ(set.ids.size(), 2u);
    EXPECT_FALSE(findBlockReference("ts_def", "element_id", "5").isNull());
}

TEST_F(StoredDrawing, TheTreesNewDrawingBearsItsProjectsName)
{
    session().projectName = "Проект";
    for (const int project : {1, -1}) {
        addTemplateFolder(QCoreApplication::applicationDirPath()); // closing all forgets it
        session().projectId = project;
        syncNodeToDrawing(1, SyncLevel::Object, 1);
        ASSERT_EQ(ncDocManagerPtr()->documentCount(), 1);
        NcDbDatabaseSummaryInfo info;
        ncdbGetSummaryInfo(workingDatabase(), info);
        QString name;
        EXPECT_EQ(isOk(info.getCustomSummaryInfo("project", name)), project == 1) << project;
        EXPECT_EQ(name, project == 1 ? "Проект" : QString());
        closeAllDocuments();
    }
    session().projectName.clear();
}
