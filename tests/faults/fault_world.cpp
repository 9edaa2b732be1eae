#include "fault_world.h"

#include "base/placeholders.h"
#include "drawing/inspector/forms/object_inspector.h"
#include "entry/module.h"
#include "entry/palette_sets.h"
#include "session/project_session.h"
#include "support/session_wiring.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <drawing/host_access.h>
#include <script/script_runner.h>
#include <ui/russian_texts.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QRegularExpression>
#include <QTextEdit>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

constexpr int looksForABox = 30; // that may not come any more

// Of a table, or of a tree as deep as ours are.
void addCells(const QAbstractItemModel& model, const QModelIndex& parent, int levels, QString& text)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column)
            text += model.index(row, column, parent).data().toString() + '|';
        text += '\n';
        if (levels > 1)
            addCells(model, model.index(row, 0, parent), levels - 1, text);
    }
}

// What a user reads in a window.
QString textsOf(const QWidget& window)
{
    constexpr int treeLevels = 4;
    QString text;
    if (qobject_cast<const QFileDialog*>(&window))
        return text;
    for (const QLabel* label : window.findChildren<QLabel*>())
        text += label->text() + '\n';
    for (const QAbstractItemView* view : window.findChildren<QAbstractItemView*>()) {
        if (view->model())
            addCells(*view->model(), {}, qobject_cast<const QTreeView*>(view) ? treeLevels : 1, text);
    }
    for (const QTextEdit* field : window.findChildren<QTextEdit*>())
        text += field->toPlainText() + '\n';
    return text;
}

QString textsOfPalettes()
{
    QString text;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && !qobject_cast<const QDialog*>(window))
            text += textsOf(*window);
    }
    return text;
}

// Hears what dialogs show while a script is played.
class Listener : public QObject {
public:
    Listener() { qApp->installEventFilter(this); }
    QString heard;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
            return false;
        if (const auto* window = qobject_cast<QDialog*>(watched))
            heard += textsOf(*window);
        return false;
    }
};

QStringList drawingBlocks()
{
    NcDbDatabase* drawing = ncdbHostApplicationServices()->workingDatabase();
    QStringList lines;
    if (!drawing)
        return lines;
    NcDbBlockTableRecord* space = HostAccess::objectAs<NcDbBlockTableRecord>(
        HostAccess::recordId(*drawing, drawing->blockTableId(), "*Model_Space"));
    for (const NcDbObjectId& id : HostAccess::entities(*space)) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (!entity || !HostAccess::isLiving(id))
            continue;
        QString line = QString::fromLatin1(entity->isA()->name());
        if (const auto* block = HostAccess::objectAs<NcDbBlockReference>(id)) {
            for (const NcDbObjectId& attribute : HostAccess::attributes(*block)) {
                const auto* text = HostAccess::objectAs<NcDbAttribute>(attribute);
                line += text ? ' ' + text->tag() + '=' + text->textString() : QString();
            }
        }
        lines << withoutKeys(line);
    }
    lines.sort();
    return lines;
}

void forgetSession()
{
    ProjectSession& now = session();
    disconnectSession();
    now.connected = false;
    now.projectId = now.currentPositionId = now.baseCycleId = now.currentCycleId = -1;
    now.projectFile = now.projectName = QString();
}

} // namespace

FaultWorld::FaultWorld(const QString& scenario) : scenario_(scenario)
{
    const QString common = scenarioFolder("common");
    variables_ = {
        {"HOST", StatementRelay::host()},
        {"PORT", relay_.port()},
        {"USER", TestServer::user()},
        {"PASSWORD", TestServer::password()},
        {"PASSWORD64", QString::fromLatin1(TestServer::password().toUtf8().toBase64())},
        {"DATABASE", database_.name()},
        {"FOLDER", folder_.path()},
        {"PROJECT", folder_.path() + "/project.terva"},
        {"SCENARIO", scenarioFolder(scenario)},
        {"COMMON", common},
        {"PROGRAM", QCoreApplication::applicationDirPath()},
    };
    database_.exec(readText(common + "/base.sql", {}));
    const QString before = readStatements(scenarioFolder(scenario) + "/before.sql", variables_);
    if (!before.isEmpty())
        database_.exec(before);
    tables_ = std::make_unique<KeptTables>(database_);
    installRussianTexts();
    registerHostCommands();
    addTemplateFolder(QCoreApplication::applicationDirPath());
    forgetSession();
    initialiseModule(nullptr);
    found_ = tables_->beginning();
}

FaultWorld::~FaultWorld()
{
    relay_.refuse(-1);
    unloadModule();
    closeAllDocuments();
    forgetSession();
}

void FaultWorld::reset()
{
    relay_.refuse(-1);
    destroyPaletteSets();
    removeObjectInspector();
    closeAllDocuments();
    tables_->layBack(found_);
    // The session holds the lock beside its drawing.
    for (const QString& file : filesMade(true))
        QFile::remove(folder_.path() + file);
    EXPECT_TRUE(layFiles(scenario_, folder_.path(), variables_));
}

QStringList FaultWorld::filesMade(bool withDrawings) const
{
    QStringList found;
    QDirIterator files(folder_.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (withDrawings ? !path.endsWith(".lock") : !path.contains("/temp/"))
            found << path.mid(folder_.path().size());
    }
    found.sort();
    return found;
}

void FaultWorld::arm(Fault fault)
{
    if (fault.kind == Fault::Cut)
        relay_.cutAfter(fault.statement);
    else
        relay_.refuse(fault.statement);
}

Outcome FaultWorld::play(const QString& script, Fault fault)
{
    reset();
    ScriptRunner loading;
    for (auto variable = variables_.begin(); variable != variables_.end(); ++variable)
        loading.setVariable(variable.key(), variable.value());
    openStartDocument();
    EXPECT_TRUE(loading.playFile(variables_["COMMON"] + "/load.script"))
        << (loading.failure() ? loading.failure()->toString() : QString());
    Listener listener;
    ScriptRunner runner;
    runner.setStepTimeout(30.0);
    if (fault.kind != Fault::None)
        runner.setPatience(looksForABox);
    for (auto variable = variables_.begin(); variable != variables_.end(); ++variable)
        runner.setVariable(variable.key(), variable.value());
    arm(fault);
    Outcome outcome;
    if (!runner.playText(script, "script"))
        outcome.stopped = runner.failure()->toString();
    outcome.statements = relay_.texts();
    outcome.met = relay_.hasRefused() || relay_.hasCut();
    relay_.refuse(-1);
    outcome.said = withoutKeys(runner.console().text() + listener.heard + textsOfPalettes() + outcome.stopped);
    outcome.blocks = drawingBlocks();
    outcome.files = filesMade(false);
    found_ = tables_->rows();
    outcome.rows = found_;
    return outcome;
}
