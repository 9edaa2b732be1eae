// Loads modules into the host.
#pragma once

#include <nrx/application.h>

#include <QString>
#include <QtGlobal>
#include <memory>
#include <vector>

// The modules that are loaded. They are told to unload when the host ends.
class NRX_API ModuleHost {
public:
    ModuleHost();
    ~ModuleHost();
    ModuleHost(const ModuleHost&) = delete;
    ModuleHost& operator=(const ModuleHost&) = delete;

    // Loads the file and sends it message 1. False, with the cause in `error`,
    // when it is no module. A module that is loaded already is left alone.
    bool load(const QString& path, QString* error = nullptr);
    // Sends message 2 and lets the file go. False when it is not loaded or
    // did not unlock itself.
    bool unload(const QString& path);
    QStringList loaded() const;

private:
    struct Module;
    std::vector<std::unique_ptr<Module>> modules_;
};

// A function that one of the loaded modules exports beside its entry point, for
// what a host may ask but need not; null when none does.
NRX_API QFunctionPointer moduleFunction(const char* name);
