// The stand-in's side of the application: documents, commands, modules and
// what the windows of the host register here.
#pragma once

#include "prompt_backend.h"

#include <nrx/application.h>
#include <nrx/editor.h>

#include <QObject>
#include <QStringList>
#include <optional>

// What happens in the host, for its windows.
class NRX_API HostEvents : public QObject {
    Q_OBJECT
public:
    static HostEvents* instance();

signals:
    void documentOpened(NcApDocument* document);
    void documentActivated(NcApDocument* document); // null when the last one was closed
    void documentClosing(NcApDocument* document);
    void documentSaved(NcApDocument* document);
    void commandStarted(const QString& name);
    void commandEnded(const QString& name);
    void pickfirstModified();
    void commandsChanged();
    void viewChanged(); // the record "*Active" or the user coordinate system was set
};

// Parent of all dialogs; null in batch work.
NRX_API void setMainWindow(QWidget* window);

// An open drawing with its file name.
class NRX_API Document : public NcApDocument {
public:
    explicit Document(const QString& fileName);
    QString fileName() const override { return fileName_; }
    NcDbDatabase* database() const override { return database_.get(); }
    // Whether it was changed since it was opened or saved.
    bool isModified() const;
    // Never saved: fileName is only a given name.
    bool isUntitled() const { return untitled_; }
    // Entities that the user picked before a command, "implied".
    const NcDbObjectIdArray& pickfirst() const { return pickfirst_; }
    // Those of them that are still there. Looked through once, until it or the
    // drawing changes.
    NcDbObjectIdArray livingPickfirst();

private:
    friend class Documents;
    QString fileName_;
    std::unique_ptr<NcDbDatabase> database_;
    quint64 savedChange_ = 0;
    bool untitled_ = true;
    NcDbObjectIdArray pickfirst_;
    std::optional<quint64> walkedAt_; // the drawing's change at which all of pickfirst_ was found living
};

// Sets the implied selection of the current document and tells the reactors.
NRX_API void setPickfirst(const NcDbObjectIdArray& ids);
// Folders where templates are looked for, after the path itself.
NRX_API void addTemplateFolder(const QString& folder);
// A new drawing when none is open, from "Default.dwt" if it is there.
NRX_API void openStartDocument();
// Closes all documents, forgets pick-first sets and folders: for tests.
NRX_API void closeAllDocuments();

// A registered command.
struct CommandInfo {
    QString group, globalName, localName;
    int flags = 0;
    QStringList aliases; // of the host's own commands
};
NRX_API std::vector<CommandInfo> registeredCommands();
NRX_API std::vector<CommandInfo> hostCommands();
// By local or global name, ignoring case; '_' before a name takes the global
// one only, '.' is passed over. A command of the host when no module has it.
NRX_API bool hasCommand(const QString& name);
// A command of the host itself ("zoom"); it gets the words after its name.
NRX_API void addHostCommand(const QString& name, const std::function<void(const QStringList& arguments)>& handler,
                            const QStringList& aliases = {}, int flags = kTransparent);

// What running a command came to.
enum class CommandOutcome { Done, Unknown, Busy };
// Runs the command, then what was queued meanwhile. Inside a running command
// only one flagged transparent is run, else Busy.
NRX_API CommandOutcome runCommand(const QString& name);
// Words of a command line: a command and the answers to its prompts.
NRX_API CommandOutcome runCommandWords(const QStringList& words);
// Whether a command runs just now, and its global name.
NRX_API QString activeCommand();
// Runs what ncedCommand and sendStringToExecute queued while no command ran.
NRX_API void runQueuedCommands();

// The layout viewport that is active in a drawing; the null id for model space.
NRX_API void setCurrentViewport(NcDbDatabase& database, NcDbObjectId viewport);
// System variables that are not those of a drawing.
NRX_API void setSystemVariable(const QString& name, const QString& value);
