// The arrows between the folders of the house, checked as an ordinary test.
#include "layout/house.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

constexpr int kLongestFile = 400;
constexpr int kLongestTestFile = 600;
constexpr int kLongestFunction = 60;

struct Body {
    int firstLine;
    int lines; ///< between the braces; the rows of a table are data and do not count
};

// Every function's braces stand in the first column: the formatter sees to it.
QVector<Body> functionBodies(const QString& text)
{
    static const QRegularExpression tableStart(QStringLiteral("^( +).*= \\{+$"));
    QVector<Body> bodies;
    QString tableEnd;
    int line = 0, first = 0, rows = 0;
    for (const QString& written : text.split(QLatin1Char('\n'))) {
        ++line;
        const QRegularExpressionMatch start = tableStart.match(written);
        if (written == QLatin1String("{")) {
            first = line;
            rows = 0;
        } else if (written.startsWith(QLatin1Char('}')) && first > 0) {
            bodies << Body{first, line - first - 1 - rows};
            first = 0;
        } else if (!tableEnd.isEmpty()) {
            ++rows;
            if (written.startsWith(tableEnd))
                tableEnd.clear();
        } else if (start.hasMatch()) {
            tableEnd = start.captured(1) + QLatin1Char('}');
        }
    }
    return bodies;
}

const Folder* folderByTarget(const QVector<Folder>& folders, const QString& target)
{
    for (const Folder& folder : folders) {
        if (folder.target == target)
            return &folder;
    }
    return nullptr;
}

// All targets that a folder reaches along links.
void collectReachable(const QVector<Folder>& folders, const Folder& from, QSet<QString>& reached)
{
    for (const QString& link : from.links) {
        if (reached.contains(link))
            continue;
        reached.insert(link);
        if (const Folder* next = folderByTarget(folders, link))
            collectReachable(folders, *next, reached);
    }
}

QString belowSrc(const QString& path) { return path.mid(int(qstrlen("src/"))); }

bool isWidgetsHeader(const QString& include)
{
    static const QSet<QString> widgets = {
        "QWidget",       "QDialog",     "QMessageBox",    "QFileDialog",  "QInputDialog",    "QComboBox",
        "QLabel",        "QLineEdit",   "QTableWidget",   "QTableView",   "QPushButton",     "QCheckBox",
        "QRadioButton",  "QSpinBox",    "QDoubleSpinBox", "QVBoxLayout",  "QHBoxLayout",     "QGridLayout",
        "QFormLayout",   "QTabWidget",  "QTextEdit",      "QProgressBar", "QProgressDialog", "QApplication",
        "QListWidget",   "QTreeView",   "QTreeWidget",    "QMenu",        "QAction",         "QStyledItemDelegate",
        "QItemDelegate", "QMainWindow", "QDockWidget",    "QGroupBox",    "QSlider"};
    return widgets.contains(include) || include.startsWith(QLatin1String("QtWidgets"));
}

bool mayNameWidgets(const QString& path)
{
    return path.contains(QLatin1String("/forms/")) || path.startsWith(QLatin1String("src/formkit/"))
        || path.startsWith(QLatin1String("src/entry/"));
}

} // namespace

TEST(Layout, EveryFolderLinksOnlyLowerLevelsOrAnArrowOfItsOwn)
{
    const QVector<Folder> folders = foldersOfHouse();
    ASSERT_GE(folders.size(), 20);
    for (const Folder& folder : folders) {
        for (const QString& link : folder.links) {
            const Folder* linked = folderByTarget(folders, link);
            EXPECT_TRUE(!linked || linked->level <= folder.level)
                << folder.path.toStdString() << " links " << link.toStdString();
        }
    }
}

TEST(Layout, IncludesFollowTheArrowsThatTheBuildFilesName)
{
    const QVector<Folder> folders = foldersOfHouse();
    int checked = 0;
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        const Folder* own = folderOf(folders, belowSrc(file.path));
        if (!own)
            continue;
        QSet<QString> reached;
        collectReachable(folders, *own, reached);
        for (const QString& include : file.included) {
            const Folder* other = folderOf(folders, include);
            if (!other || other == own)
                continue;
            ++checked;
            EXPECT_TRUE(reached.contains(other->target))
                << file.path.toStdString() << " includes " << include.toStdString();
        }
    }
    EXPECT_GT(checked, 50);
}

TEST(Layout, TheModuleSeesNothingOfTheHostButItsInterface)
{
    static const QRegularExpression hostFolder(QStringLiteral("^(drawing|dxf|render|script|ui|workbench)/"));
    const QVector<Folder> folders = foldersOfHouse();
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        for (const QString& include : file.included) {
            const bool ownFolder = folderOf(folders, include) != nullptr;
            EXPECT_FALSE(!ownFolder && hostFolder.match(include).hasMatch())
                << file.path.toStdString() << " includes " << include.toStdString();
        }
    }
}

// The compiler holds the seam then: neither the host's other headers nor widgets are on the path.
TEST(Layout, BelowTheFormsAFolderLinksTheInterfaceWithoutWidgets)
{
    int linked = 0;
    for (const Folder& folder : foldersOfHouse()) {
        linked += folder.links.contains(QStringLiteral("nrx"));
        EXPECT_FALSE(folder.links.contains(QStringLiteral("terva_host"))) << folder.path.toStdString();
        if (folder.level >= 6)
            continue;
        for (const char* target : {"nrx_ui", "Qt5::Widgets"})
            EXPECT_FALSE(folder.links.contains(QLatin1String(target))) << folder.path.toStdString();
    }
    EXPECT_GE(linked, 1);
}

TEST(Layout, TheHostSeesNothingOfTheModule)
{
    const QVector<Folder> folders = foldersOfHouse();
    for (const SourceFile& file : sourcesBelow(QStringLiteral("host"))) {
        for (const QString& include : file.included) {
            const Folder* other = folderOf(folders, include);
            if (other && !QFile::exists(QStringLiteral(TERVA_SOURCE_DIR "/host/") + include))
                ADD_FAILURE() << file.path.toStdString() << " includes " << include.toStdString();
        }
    }
}

TEST(Layout, OnlyTheSqlFolderIncludesTheDatabaseLibrary)
{
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        const bool mayInclude = file.path.startsWith(QLatin1String("src/database/sql/"));
        EXPECT_TRUE(mayInclude || !file.included.contains(QStringLiteral("libpq-fe.h"))) << file.path.toStdString();
    }
}

TEST(Layout, WidgetsAreNamedOnlyInFormsTheirKitAndTheEntry)
{
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        for (const QString& include : file.included) {
            EXPECT_FALSE(isWidgetsHeader(include) && !mayNameWidgets(file.path))
                << file.path.toStdString() << " includes " << include.toStdString();
        }
    }
}

// A widget gets its name where it is made, a box looks and speaks as all others.
TEST(Layout, FormsAreMadeOfTheirKit)
{
    int forms = 0;
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        if (!file.path.contains(QLatin1String("/forms/")) && !file.path.startsWith(QLatin1String("src/entry/")))
            continue;
        ++forms;
        for (const char* bare : {"setObjectName(", "QMessageBox", "QDialogButtonBox", "QProgressDialog", "QFileDialog"})
            EXPECT_FALSE(file.text.contains(QLatin1String(bare))) << file.path.toStdString() << " names " << bare;
    }
    EXPECT_GT(forms, 50);
}

TEST(Layout, GeometryAndTheContourEngineAreStandardCppOnly)
{
    for (const QString& folder : {QStringLiteral("src/geometry"), QStringLiteral("src/analysis/contour")}) {
        for (const SourceFile& file : sourcesBelow(folder)) {
            for (const QString& include : file.included) {
                EXPECT_FALSE(include.startsWith(QLatin1Char('Q')) || include.startsWith(QLatin1String("nrx/")))
                    << file.path.toStdString() << " includes " << include.toStdString();
            }
        }
    }
}

namespace {

// Where a text asks which family it has; a row of a table only says it.
QString familyAskedByName(const QString& text)
{
    static const QRegularExpression asked(
        QStringLiteral("([=!]=\\s*FamilyKey::\\w+|FamilyKey::\\w+\\s*[=!]=|case\\s+FamilyKey::\\w+)"));
    return asked.match(text).captured(1);
}

} // namespace

TEST(Layout, WhatAFamilyHasIsAColumnAndNoQuestionForItsName)
{
    for (const char* question : {"if (key == FamilyKey::Ts)", "FamilyKey::Igs != key", "case FamilyKey::Dm: break;"})
        EXPECT_NE(familyAskedByName(question), QString()) << question;
    EXPECT_EQ(familyAskedByName("{FamilyKey::Dm, 1}, family(FamilyKey::Ts)"), QString());
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        const bool mayAsk = file.path.startsWith(QLatin1String("src/elements/"));
        EXPECT_TRUE(mayAsk || familyAskedByName(file.text).isEmpty())
            << file.path.toStdString() << ": " << familyAskedByName(file.text).toStdString();
    }
}

// Forms keep what they show by other means.
TEST(Layout, ColumnsOfWideStatementsAreReadByName)
{
    static const QRegularExpression byNumber(
        QStringLiteral("\\.(getvalue|toInt|toDouble|isNull|bytes|unescapedBytes)\\(\\w+, ([3-9]|\\d\\d)[,)]"));
    EXPECT_TRUE(byNumber.match(QStringLiteral("row.toInt(0, 12)")).hasMatch());
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        const QString read = byNumber.match(file.text).captured();
        EXPECT_TRUE(read.isEmpty() || file.path.contains(QLatin1String("/forms/")))
            << file.path.toStdString() << ": " << read.toStdString();
    }
}

TEST(Layout, ModuleCodeIsPortable)
{
    static const QSet<QString> system = {"unistd.h",   "dlfcn.h",     "windows.h", "pthread.h",
                                         "sys/stat.h", "sys/types.h", "fcntl.h",   "pwd.h"};
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        for (const QString& include : file.included)
            EXPECT_FALSE(system.contains(include)) << file.path.toStdString() << " includes " << include.toStdString();
    }
}

// The toolkit's own class takes a file for written when the disk was full.
TEST(Layout, FilesAreWrittenByTheOneHelper)
{
    static const QRegularExpression bare(
        QStringLiteral("\\b(QSaveFile|QTemporaryFile|ofstream|fopen|QFile::copy)\\b|grab\\(\\)\\.save\\((?!&)"));
    // A plain file may be opened to be read alone.
    static const QRegularExpression plainWrite(
        QStringLiteral("QFile\\s+(\\w+)\\([^)]*\\);(?s:.{0,400}?)\\b\\1\\.open\\("
                       "[^)]*(WriteOnly|ReadWrite|Append)"));
    for (const QString& folder : {QStringLiteral("src"), QStringLiteral("host")}) {
        for (const SourceFile& file : sourcesBelow(folder)) {
            const QString text = sourceText(file.path);
            EXPECT_FALSE(bare.match(text).hasMatch()) << file.path.toStdString();
            EXPECT_FALSE(plainWrite.match(text).hasMatch()) << file.path.toStdString();
        }
    }
}

// A statement is made by compose(): a text that nobody checked is none.
TEST(Layout, StatementsAreMadeByTheOneHelper)
{
    static const QRegularExpression unchecked(QStringLiteral("Statement::whole"));
    static const QRegularExpression script(QStringLiteral("\\brunScript\\("));
    // What a user typed is no constant of the module's, whatever type it is given.
    static const QRegularExpression disguised(QStringLiteral(
        "(compose|run|Statement|joined)\\([^;]*(qPrintable|qUtf8Printable|constData\\(\\)|c_str\\(\\))"));
    for (const SourceFile& file : sourcesBelow(QStringLiteral("src"))) {
        const bool ofTheConnection = file.path.startsWith(QLatin1String("src/database/sql/"));
        const bool ofStatements = file.path.startsWith(QLatin1String("src/base/statement"));
        const bool laysSchemas = file.path.startsWith(QLatin1String("src/database/provisioning/"));
        const QString text = sourceText(file.path);
        EXPECT_TRUE(ofTheConnection || ofStatements || !unchecked.match(text).hasMatch()) << file.path.toStdString();
        EXPECT_TRUE(ofTheConnection || laysSchemas || !script.match(text).hasMatch()) << file.path.toStdString();
        EXPECT_TRUE(ofTheConnection || !disguised.match(text).hasMatch()) << file.path.toStdString();
    }
}

// Every user of a machine reads the command lines of all.
TEST(Layout, NoScriptHandsAPasswordOverOnACommandLine)
{
    static const QRegularExpression handed(QStringLiteral("--var\\s+\\S*PASS|--password[= ]\\S"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QDir tools(QStringLiteral(TERVA_SOURCE_DIR "/tools"));
    QStringList scripts = {QStringLiteral("run"), QStringLiteral("test"), QStringLiteral("docs/guide/make-pictures")};
    for (const QString& tool : tools.entryList(QDir::Files))
        scripts << QStringLiteral("tools/") + tool;
    for (const QString& script : scripts) {
        const QString text = sourceText(script);
        EXPECT_FALSE(text.isEmpty()) << script.toStdString();
        EXPECT_FALSE(handed.match(text).hasMatch()) << script.toStdString();
    }
}

// Two types of one name in one program: the linker keeps one's constructors for both.
TEST(Layout, ATypeIsNamedOnce)
{
    static const QRegularExpression type(
        QStringLiteral("^(?:struct|class)(?: NRX_API)? (\\w+)(?: final)?(?: :[^;{]*)?\\s*\\{"),
        QRegularExpression::MultilineOption);
    QMap<QString, QStringList> places;
    for (const char* folder : {"src", "host", "common"}) {
        for (const SourceFile& file : sourcesBelow(folder)) {
            if (!file.path.endsWith(QLatin1String(".h")))
                continue;
            auto found = type.globalMatch(file.text);
            while (found.hasNext())
                places[found.next().captured(1)] << file.path;
        }
    }
    ASSERT_GT(places.size(), 200);
    for (auto place = places.begin(); place != places.end(); ++place)
        EXPECT_EQ(place->size(), 1) << place.key().toStdString() << ": " << place->join(", ").toStdString();
}

TEST(Layout, TestsThatReliabilityNamesAreThere)
{
    QString tests;
    for (const SourceFile& file : sourcesBelow(QStringLiteral("tests")))
        tests += sourceText(file.path);
    static const QRegularExpression named(QStringLiteral("`([A-Z]\\w+)\\.(\\w+)`"));
    auto match = named.globalMatch(sourceText(QStringLiteral("docs/reliability.md")));
    int seen = 0;
    while (match.hasNext()) {
        const QRegularExpressionMatch name = match.next();
        ++seen;
        EXPECT_TRUE(tests.contains('(' + name.captured(1) + ", " + name.captured(2) + ')'))
            << name.captured(0).toStdString();
    }
    EXPECT_GT(seen, 100);
}

TEST(Layout, NoFileIsAHall)
{
    for (const QString& folder : {QStringLiteral("src"), QStringLiteral("host"), QStringLiteral("tests")}) {
        const int most = folder == QLatin1String("tests") ? kLongestTestFile : kLongestFile;
        for (const SourceFile& file : sourcesBelow(folder))
            EXPECT_LE(file.lines, most) << file.path.toStdString();
    }
}

TEST(Layout, NoFunctionIsLongerThanAPage)
{
    int seen = 0;
    for (const QString& folder : {QStringLiteral("src"), QStringLiteral("host")}) {
        for (const SourceFile& file : sourcesBelow(folder)) {
            for (const Body& body : functionBodies(file.text)) {
                ++seen;
                EXPECT_LE(body.lines, kLongestFunction) << file.path.toStdString() << ':' << body.firstLine;
            }
        }
    }
    EXPECT_GT(seen, 1000);
}
