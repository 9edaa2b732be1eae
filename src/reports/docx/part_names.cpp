#include "reports/docx/part_names.h"

#include <QStringList>

namespace docx {
namespace {

struct PlaceRow {
    const char* typeEnd;
    const char* prefix;
    const char* folder;
};

// The last row is for every other type.
constexpr PlaceRow bodyPlaces[] = {
    {"/image", "image_merged_", "word/media/"},
    {"/header", "header_merged_", "word/"},
    {"/footer", "footer_merged_", "word/"},
    {"/drawing", "drawing_merged_", "word/drawings/"},
    {"", "merged_", "word/"},
};

constexpr PlaceRow reachedPlaces[] = {
    {"/image", "image_merged_", "word/media/"},
    {"/drawing", "drawing_merged_", "word/drawings/"},
    {"/chart", "chart_merged_", "word/charts/"},
    {"/theme", "theme_merged_", "word/theme/"},
    {"", "part_merged_", "word/"},
};

struct TypeRow {
    const char* end;
    const char* contentType;
};

constexpr TypeRow typesByRelationship[] = {
    {"/header", "application/vnd.openxmlformats-officedocument.wordprocessingml.header+xml"},
    {"/footer", "application/vnd.openxmlformats-officedocument.wordprocessingml.footer+xml"},
    {"/drawing", "application/vnd.openxmlformats-officedocument.drawing+xml"},
    {"/chart", "application/vnd.openxmlformats-officedocument.drawingml.chart+xml"},
    {"/theme", "application/vnd.openxmlformats-officedocument.theme+xml"},
};

constexpr TypeRow typesByName[] = {
    {".png", "image/png"},   {".jpeg", "image/jpeg"}, {".jpg", "image/jpeg"},
    {".emf", "image/x-emf"}, {".wmf", "image/x-wmf"}, {".xml", "application/xml"},
};

template <size_t rows>
PartPlace placeOf(const PlaceRow (&table)[rows], const QString& type)
{
    size_t row = 0;
    while (row + 1 < rows && !type.endsWith(QLatin1String(table[row].typeEnd)))
        ++row;
    return {QLatin1String(table[row].prefix), QLatin1String(table[row].folder)};
}

template <size_t rows>
QString typeOf(const TypeRow (&table)[rows], const QString& name, Qt::CaseSensitivity sensitivity)
{
    for (const TypeRow& row : table) {
        if (name.endsWith(QLatin1String(row.end), sensitivity))
            return QLatin1String(row.contentType);
    }
    return QString();
}

QString fileOf(const QString& partName) { return partName.mid(partName.lastIndexOf(QLatin1Char('/')) + 1); }

} // namespace

QString folderOf(const QString& partName) { return partName.left(partName.lastIndexOf(QLatin1Char('/')) + 1); }

PartPlace placeOfBodyPart(const QString& relationshipType) { return placeOf(bodyPlaces, relationshipType); }

PartPlace placeOfReachedPart(const QString& relationshipType) { return placeOf(reachedPlaces, relationshipType); }

QString contentTypeOf(const QString& relationshipType, const QString& partName)
{
    const QString type = typeOf(typesByRelationship, relationshipType, Qt::CaseSensitive);
    return type.isEmpty() ? typeOf(typesByName, partName, Qt::CaseInsensitive) : type;
}

QString suffixOf(const QString& partName)
{
    const QString file = fileOf(partName);
    const int point = file.lastIndexOf(QLatin1Char('.'));
    QString suffix;
    for (int i = point + 1; point >= 0 && i < file.size(); ++i) {
        if (file.at(i).unicode() < 0x80 && file.at(i).isLetterOrNumber())
            suffix += file.at(i);
    }
    return suffix;
}

QString relationshipsPartOf(const QString& partName)
{
    return folderOf(partName) + QLatin1String("_rels/") + fileOf(partName) + QLatin1String(".rels");
}

QString resolvedTarget(const QString& partName, const QString& target)
{
    const bool absolute = target.startsWith(QLatin1Char('/'));
    QStringList path;
    const QString whole = (absolute ? QString() : folderOf(partName)) + target;
    for (const QString& step : whole.split(QLatin1Char('/'))) {
        if (step == QLatin1String("..")) {
            if (path.isEmpty())
                return QString();
            path.removeLast();
        } else if (!step.isEmpty() && step != QLatin1String(".")) {
            path.append(step);
        }
    }
    return path.join(QLatin1Char('/'));
}

QString relativeTarget(const QString& fromPart, const QString& toPart)
{
    QStringList from = fromPart.split(QLatin1Char('/'));
    QStringList to = toPart.split(QLatin1Char('/'));
    from.removeLast();
    while (!from.isEmpty() && to.size() > 1 && from.first() == to.first()) {
        from.removeFirst();
        to.removeFirst();
    }
    return QStringLiteral("../").repeated(from.size()) + to.join(QLatin1Char('/'));
}

} // namespace docx
