// The open documents behind the document manager.
#pragma once

#include "application.h"

#include <deque>

class Documents {
public:
    NRX_API static Documents& instance();

    const std::vector<std::unique_ptr<Document>>& all() const { return documents_; }
    Document* current() const { return current_; }
    // Null for a document that is not open (any more).
    Document* known(NcApDocument* document) const;
    NRX_API Document* find(const QString& path) const;

    NcStatus openNew(const QString& templateName);
    NcStatus open(const QString& path);
    // A drawing of that name, changed and not saved, from another file.
    NRX_API NcStatus openCopy(const QString& file, const QString& name, bool untitled);
    NcStatus activate(NcApDocument* document);
    NcStatus close(NcApDocument* document);
    // `problem`, if given, gets the reason in words.
    NRX_API NcStatus saveAs(NcApDocument* document, const QString& path, QString* problem = nullptr);
    void setPickfirst(const NcDbObjectIdArray& ids);
    void addTemplateFolder(const QString& folder);
    void forgetAll();

private:
    QString templatePath(const QString& name) const;
    void take(std::unique_ptr<Document> document);
    void makeCurrent(Document* document);

    std::vector<std::unique_ptr<Document>> documents_;
    Document* current_ = nullptr;
    QStringList templateFolders_;
    int untitledCount_ = 0;
};
