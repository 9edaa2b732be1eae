// The application: modules, commands, documents, the main window.
#pragma once

#include "database.h"

#include <functional>

class QWidget;

// Messages to a module's ncrxEntryPoint.
enum NcAppMessage { kInitAppMsg = 1, kUnloadAppMsg = 2 };

class NRX_API NcRxDynamicLinker {
public:
    // Lets the host unload the module that `packet` stands for.
    bool unlockApplication(void* packet);
    // The module works with several open documents.
    bool setMultiDocumentAware(void* packet);
};
NRX_API NcRxDynamicLinker* GetDynamicLinker();

using NcCommandHandler = void (*)();
enum NcCommandFlags { kTransparent = 1, kUsePickSet = 2, kRedraw = 4 };

class NcEdCommand;
class NRX_API NcEdCommandStack {
public:
    NcStatus addCommand(const QString& group, const QString& globalName, const QString& localName, int flags,
                        NcCommandHandler handler, void* uiContext, int functionCode, void* resource,
                        NcEdCommand** command);
    NcStatus removeGroup(const QString& group);
};
NRX_API NcEdCommandStack* GetCommandStack();

// An open document. Documents belong to the manager.
class NRX_API NcApDocument {
public:
    virtual ~NcApDocument() = default;
    // Absolute path, or a given name for a document never saved.
    virtual QString fileName() const = 0;
    virtual NcDbDatabase* database() const = 0;
};

class NRX_API NcApDocManager {
public:
    int documentCount() const;
    NcApDocument* document(int index) const;
    NcApDocument* curDocument() const;
    // Null when no open document has that file name (as absolute, cleaned paths).
    NcApDocument* findByFileName(const QString& path) const;
    // Opens a new document from a template, in the application context, and
    // makes it current. The template is looked for by path, then beside the module.
    NcStatus appContextNewDocument(const QString& templateName);
    NcStatus appContextOpenDocument(const QString& path);
    NcStatus activateDocument(NcApDocument* document);
    NcStatus closeDocument(NcApDocument* document);
    // Gives the document its name; the drawing is saved under it.
    NcStatus saveDocumentAs(NcApDocument* document, const QString& path);
    // Runs a function outside any document's command, at once.
    void executeInApplicationContext(const std::function<void()>& function);
    // Feeds a command string to the document, run when the present command has ended.
    NcStatus sendStringToExecute(NcApDocument* document, const QString& text);
};
NRX_API NcApDocManager* ncDocManagerPtr();

// The host's main window, parent of all dialogs; null in batch work.
NRX_API QWidget* ndsw_ncadMainWnd();
// Path of the module file that holds `address` (a function or object of it).
NRX_API QString ncModulePath(const void* address);
