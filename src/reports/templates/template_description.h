#pragma once
// The XML file beside a Word template: which kind of document it is for and
// what each of its tags receives.

#include <QString>
#include <QVector>
#include <optional>

struct Substitution {
    QString tag;
    QString variable; ///< may be empty
    QString text;     ///< may be empty
};

struct TemplateDescription {
    QString documentKey;
    QString name;
    QString path;     ///< file name of the description
    QString docxPath; ///< file name of the Word file
    QVector<Substitution> substitutions;
};

enum class DescriptionFault { None, NotOpened, NotParsed };

/// Nothing when the file does not open or is no XML; `fault` says which.
std::optional<TemplateDescription> readDescription(const QString& path, DescriptionFault* fault = nullptr);

/// Written beside its place and moved over it.
bool writeDescription(const QString& path, const TemplateDescription& description, QString* problem = nullptr);

/// The descriptions in a folder, by name; none when there is no such folder.
QStringList descriptionFiles(const QString& folder);
