#include "module_host.h"

#include "application.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <algorithm>

#include <dlfcn.h>

struct ModuleHost::Module {
    QString path;
    QLibrary library;
    int (*entry)(int, void*) = nullptr;
    bool unlocked = false;
};

namespace {

// The packet that a module gets stands for it.
bool* unlockedFlag(void* packet) { return static_cast<bool*>(packet); }

// Libraries of all modules that are loaded, in the order of their loading.
std::vector<QLibrary*>& libraries()
{
    static std::vector<QLibrary*> all;
    return all;
}

void forgetLibrary(QLibrary& library)
{
    auto& all = libraries();
    all.erase(std::remove(all.begin(), all.end(), &library), all.end());
}

QString cleaned(const QString& path) { return QDir::cleanPath(QFileInfo(path).absoluteFilePath()); }

} // namespace

bool NcRxDynamicLinker::unlockApplication(void* packet)
{
    if (packet)
        *unlockedFlag(packet) = true;
    return packet != nullptr;
}

bool NcRxDynamicLinker::setMultiDocumentAware(void* packet) { return packet != nullptr; }

NcRxDynamicLinker* GetDynamicLinker()
{
    static NcRxDynamicLinker linker;
    return &linker;
}

QString ncModulePath(const void* address)
{
    Dl_info info;
    if (!address || !dladdr(address, &info) || !info.dli_fname)
        return QString();
    return cleaned(QString::fromLocal8Bit(info.dli_fname));
}

ModuleHost::ModuleHost() = default;

ModuleHost::~ModuleHost()
{
    // In the opposite order of loading, locked or not: the host ends.
    for (auto module = modules_.rbegin(); module != modules_.rend(); ++module) {
        forgetLibrary((*module)->library);
        (*module)->entry(kUnloadAppMsg, &(*module)->unlocked);
    }
}

bool ModuleHost::load(const QString& path, QString* error)
{
    const QString file = cleaned(path);
    if (loaded().contains(file))
        return true;
    auto module = std::make_unique<Module>();
    module->path = file;
    module->library.setFileName(file);
    module->library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    QString cause;
    if (module->library.load()) {
        module->entry = reinterpret_cast<int (*)(int, void*)>(module->library.resolve("ncrxEntryPoint"));
        if (!module->entry) {
            cause = QStringLiteral("В файле нет точки входа ncrxEntryPoint: ") + file;
            module->library.unload();
        }
    } else {
        cause = module->library.errorString();
    }
    if (error)
        *error = cause;
    if (!module->entry)
        return false;
    addTemplateFolder(QFileInfo(file).absolutePath());
    Module* started = module.get();
    modules_.push_back(std::move(module));
    libraries().push_back(&started->library);
    started->entry(kInitAppMsg, &started->unlocked);
    return true;
}

bool ModuleHost::unload(const QString& path)
{
    const QString file = cleaned(path);
    for (auto module = modules_.begin(); module != modules_.end(); ++module) {
        if ((*module)->path != file)
            continue;
        if (!(*module)->unlocked)
            return false;
        forgetLibrary((*module)->library);
        (*module)->entry(kUnloadAppMsg, &(*module)->unlocked);
        (*module)->library.unload();
        modules_.erase(module);
        return true;
    }
    return false;
}

QStringList ModuleHost::loaded() const
{
    QStringList paths;
    for (const auto& module : modules_)
        paths << module->path;
    return paths;
}

QFunctionPointer moduleFunction(const char* name)
{
    for (QLibrary* library : libraries())
        if (const QFunctionPointer found = library->resolve(name))
            return found;
    return nullptr;
}
