// The workbench's window: drawings in tabs, the command line, layers, menus.
#pragma once

#include "desk_prompts.h"
#include "desk_state.h"

#include <QMainWindow>
#include <QSettings>
#include <QTimer>
#include <memory>

class CommandMenus;
class DrawingKeeper;
class LayersPage;
class ManualWindow;
class PropertiesPanel;
class QLabel;
class StartPage;
class QTabWidget;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // `profile`: file of the settings; empty for the user's own.
    explicit MainWindow(const QString& profile);
    ~MainWindow() override;

    // A command with the words behind it, or the answer to the prompt that waits.
    void runLine(const QString& line);
    // Ends what is going on and runs the command.
    void runCommandByName(const QString& name);
    bool openDrawing(const QString& path);
    void openProject(const QString& path);
    // A drawing, a project or a script, by its suffix.
    void openFile(const QString& path);
    void showStartPage();
    // Opens the palettes that were open when the program was closed.
    void restorePalettes();
    // Asks whether what a crashed program left is to be opened.
    void offerRecovery();
    // Writes the copies of what is not saved; a timer calls it.
    void keepCopies();
    // The first line of the command line: what to do next.
    void greet();
    // Plays a script in this window. Empty when all went as written.
    QString playScript(const QString& path, const QVector<QPair<QString, QString>>& variables, double stepTimeout);

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // Keys that no widget of the window wants reach the command line.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildDocks();
    void buildFileMenu();
    QAction* addFileAction(const char* icon, const QString& caption, const QString& tip, const QKeySequence& keys,
                           void (MainWindow::*act)(), bool onBar);
    void buildViewMenu();
    void buildAids(QMenu* menu);
    void buildHelpMenu();
    void showManual();
    void placeDocks();
    void resetLayout();
    void notePalettes();
    QAction* addAid(const QString& caption, const QKeySequence& key, bool on, void (*set)(bool));
    void buildCommandMenus();
    void buildStatusBar();
    void connectHost();
    void addDocument(NcApDocument* document);
    void removeDocument(NcApDocument* document);
    void showDocument(NcApDocument* document);
    void showInPanels(NcApDocument* document);
    void showTitles();
    void showDesk();
    void noteSaved(NcApDocument* document);
    void leaveStartPage();
    void tell(const QString& text);
    QString askToOpen(const QString& title, const QString& filters, const QString& kind);
    QString askToSave(const QString& title, const QString& filters, const QString& kind, const QString& start);
    void showCursor(const NcGePoint3d& world);
    void showAids();
    bool takeStrayKey(QKeyEvent* event);
    bool takeKey(QWidget* widget, QKeyEvent* key);
    void finishOrRepeat();
    void connectView(DrawingView* view);
    void closeUntouchedStart();
    DrawingView* currentView() const;
    DrawingView* viewOf(NcApDocument* document) const;

    void runPending();
    void newDrawing();
    void chooseDrawing();
    bool saveDrawing(NcApDocument* given, bool askName);
    void saveCurrent();
    void saveCurrentAs();
    void exportDrawing();
    void printDrawing();
    void chooseScript();
    void closeTab(int index);
    int keepMilliseconds() const;
    bool mayClose(Document& document);
    bool mayLeaveNotStored(const Document& document);
    void keepUnsaved(const Document& document);
    void noteRecent(const QString& path);
    void fillRecent();

    std::unique_ptr<QSettings> settings_;
    QTabWidget* tabs_;
    CommandLine* line_;
    LayersPage* layers_;
    PropertiesPanel* properties_ = nullptr;
    NcApDocument* shown_ = nullptr;     // in the panels
    const Document* givenUp_ = nullptr; // its changes need not be kept: the user was asked
    DeskPrompts prompts_;
    std::unique_ptr<DrawingKeeper> keeper_;
    CommandMenus* menus_ = nullptr;
    StartPage* start_ = nullptr;     // made when it is first shown
    ManualWindow* manual_ = nullptr; // likewise
    DeskState desk_;
    QTimer deskTimer_, keepTimer_;
    QLabel *deskProject_ = nullptr, *deskCycles_ = nullptr, *deskConnection_ = nullptr;
    QLabel* coordinates_ = nullptr;
    QMenu* recent_ = nullptr;
    QMenu* panels_ = nullptr;
    QAction* lightGround_ = nullptr;
    QAction *snaps_ = nullptr, *ortho_ = nullptr, *polar_ = nullptr;
    QString lastCommand_; // that Enter or a right click repeats
    QString pending_;     // a command that waits for another one to end
    int pendingTries_ = 0;
};
