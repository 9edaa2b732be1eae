#include "documents.h"

#include "editor_reactors.h"
#include "host_access.h"
#include "long_work.h"
#include "undo.h"

#include <dxf/drawing_file.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

QString cleaned(const QString& path) { return QDir::cleanPath(QFileInfo(path).absoluteFilePath()); }

quint64 changeCount(const NcDbDatabase& database) { return HostAccess::data(database).changeCount; }

} // namespace

Document::Document(const QString& fileName) : fileName_(fileName), database_(std::make_unique<NcDbDatabase>())
{
    savedChange_ = changeCount(*database_);
}

bool Document::isModified() const { return changeCount(*database_) != savedChange_; }

Documents& Documents::instance()
{
    static Documents documents;
    return documents;
}

Document* Documents::known(NcApDocument* document) const
{
    for (const auto& entry : documents_)
        if (entry.get() == document)
            return entry.get();
    return nullptr;
}

Document* Documents::find(const QString& path) const
{
    if (path.isEmpty())
        return nullptr;
    const QString wanted = cleaned(path);
    for (const auto& entry : documents_)
        if (!entry->isUntitled() && entry->fileName() == wanted)
            return entry.get();
    return nullptr;
}

QString Documents::templatePath(const QString& name) const
{
    QStringList candidates{name};
    for (const QString& folder : templateFolders_)
        candidates << QDir(folder).filePath(name);
    for (const QString& candidate : candidates)
        if (QFileInfo(candidate).isFile())
            return candidate;
    return QString();
}

void Documents::take(std::unique_ptr<Document> document)
{
    Document* taken = document.get();
    keepJournal(*taken->database());
    taken->savedChange_ = changeCount(*taken->database());
    documents_.push_back(std::move(document));
    const LongWork unwatched; // nobody stops what others do with it
    emit HostEvents::instance()->documentOpened(taken);
    makeCurrent(taken);
}

NcStatus Documents::openNew(const QString& templateName)
{
    auto document = std::make_unique<Document>(QStringLiteral("Чертеж%1.dwg").arg(++untitledCount_));
    if (!templateName.isEmpty()) {
        const QString path = templatePath(templateName);
        const NcStatus status = path.isEmpty() ? NcStatus::FileAccess : document->database()->readDwgFile(path);
        if (!isOk(status))
            return status;
    }
    take(std::move(document));
    return NcStatus::Ok;
}

NcStatus Documents::open(const QString& path)
{
    if (Document* already = find(path))
        return activate(already);
    auto document = std::make_unique<Document>(cleaned(path));
    const NcStatus status = document->database()->readDwgFile(path);
    if (!isOk(status))
        return status;
    document->untitled_ = false;
    take(std::move(document));
    return NcStatus::Ok;
}

NcStatus Documents::openCopy(const QString& file, const QString& name, bool untitled)
{
    auto document = std::make_unique<Document>(untitled ? name : cleaned(name));
    const NcStatus status = find(name) ? NcStatus::Duplicate : document->database()->readDwgFile(file);
    if (!isOk(status))
        return status;
    document->untitled_ = untitled;
    Document* taken = document.get();
    take(std::move(document));
    taken->savedChange_ = changeCount(*taken->database()) - 1;
    return NcStatus::Ok;
}

void Documents::makeCurrent(Document* document)
{
    current_ = document;
    ncdbHostApplicationServices()->setWorkingDatabase(document ? document->database() : nullptr);
    emit HostEvents::instance()->documentActivated(document);
    notifyPickfirst();
}

NcStatus Documents::activate(NcApDocument* document)
{
    Document* wanted = known(document);
    if (!wanted)
        return NcStatus::NotFound;
    if (wanted != current_ || ncdbHostApplicationServices()->workingDatabase() != wanted->database())
        makeCurrent(wanted);
    return NcStatus::Ok;
}

NcStatus Documents::close(NcApDocument* document)
{
    Document* closing = known(document);
    if (!closing)
        return NcStatus::NotFound;
    if (HostAccess::data(*closing->database()).openObjects > 0)
        return NcStatus::WasOpenForWrite;
    emit HostEvents::instance()->documentClosing(closing);
    const auto found =
        std::find_if(documents_.begin(), documents_.end(), [&](const auto& entry) { return entry.get() == closing; });
    const std::unique_ptr<Document> last = std::move(*found);
    documents_.erase(found);
    if (current_ == closing)
        makeCurrent(documents_.empty() ? nullptr : documents_.back().get());
    return NcStatus::Ok;
}

NcStatus Documents::saveAs(NcApDocument* document, const QString& path, QString* problem)
{
    const auto refuse = [problem](NcStatus status, const char* why) {
        if (problem)
            *problem = QString::fromUtf8(why);
        return status;
    };
    Document* saved = known(document);
    if (!saved)
        return refuse(NcStatus::NotFound, "чертёж не открыт");
    if (path.isEmpty())
        return refuse(NcStatus::InvalidInput, "имя не задано");
    const Document* holder = find(path);
    if (holder && holder != saved)
        return refuse(NcStatus::Duplicate, "под этим именем открыт другой чертёж");
    const NcStatus status = writeDrawing(*saved->database(), path, problem);
    if (!isOk(status))
        return status;
    saved->fileName_ = cleaned(path);
    saved->untitled_ = false;
    saved->savedChange_ = changeCount(*saved->database());
    const LongWork unwatched;
    emit HostEvents::instance()->documentSaved(saved);
    return NcStatus::Ok;
}

void Documents::setPickfirst(const NcDbObjectIdArray& ids)
{
    if (!current_)
        return;
    current_->pickfirst_ = ids;
    current_->walkedAt_.reset();
    notifyPickfirst();
}

void Documents::addTemplateFolder(const QString& folder)
{
    if (!templateFolders_.contains(folder))
        templateFolders_ << folder;
}

void Documents::forgetAll()
{
    while (!documents_.empty()) {
        emit HostEvents::instance()->documentClosing(documents_.back().get());
        current_ = current_ == documents_.back().get() ? nullptr : current_;
        documents_.pop_back();
    }
    makeCurrent(nullptr);
    templateFolders_.clear();
    untitledCount_ = 0;
}

int NcApDocManager::documentCount() const { return int(Documents::instance().all().size()); }

NcApDocument* NcApDocManager::document(int index) const
{
    const auto& all = Documents::instance().all();
    return index >= 0 && size_t(index) < all.size() ? all[size_t(index)].get() : nullptr;
}

NcApDocument* NcApDocManager::curDocument() const { return Documents::instance().current(); }

NcApDocument* NcApDocManager::findByFileName(const QString& path) const { return Documents::instance().find(path); }

NcStatus NcApDocManager::appContextNewDocument(const QString& templateName)
{
    return Documents::instance().openNew(templateName);
}

NcStatus NcApDocManager::appContextOpenDocument(const QString& path) { return Documents::instance().open(path); }

NcStatus NcApDocManager::activateDocument(NcApDocument* document) { return Documents::instance().activate(document); }

NcStatus NcApDocManager::closeDocument(NcApDocument* document) { return Documents::instance().close(document); }

NcStatus NcApDocManager::saveDocumentAs(NcApDocument* document, const QString& path)
{
    return Documents::instance().saveAs(document, path);
}

void NcApDocManager::executeInApplicationContext(const std::function<void()>& function)
{
    if (function)
        function();
}

NcApDocManager* ncDocManagerPtr()
{
    static NcApDocManager manager;
    return &manager;
}

void setPickfirst(const NcDbObjectIdArray& ids) { Documents::instance().setPickfirst(ids); }

void addTemplateFolder(const QString& folder) { Documents::instance().addTemplateFolder(folder); }

void openStartDocument()
{
    NcApDocManager* documents = ncDocManagerPtr();
    if (documents->documentCount() == 0 && !isOk(documents->appContextNewDocument(QStringLiteral("Default.dwt"))))
        documents->appContextNewDocument(QString());
}

void closeAllDocuments() { Documents::instance().forgetAll(); }
