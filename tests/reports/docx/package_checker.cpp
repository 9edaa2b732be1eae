#include "package_checker.h"

#include "docx_maker.h"

#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

namespace {

const char* const referenceNamespace = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

class Checker {
public:
    explicit Checker(const QString& path) : entries_(unpacked(path)) { }

    QStringList run()
    {
        checkNames();
        readContentTypes();
        for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
            checkDeclared(entry.key());
            if (entry.key().endsWith(".rels"))
                readRelationships(entry.key(), entry.value());
        }
        for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
            if (entry.key().endsWith(".xml") || entry.key().endsWith(".rels"))
                readPart(entry.key(), entry.value());
        }
        return faults_;
    }

private:
    struct Relationship {
        QString type;
        QString target; ///< an entry; empty for an external one
    };

    void fault(const QString& text) { faults_.append(text); }

    void checkNames()
    {
        QSet<QString> folded;
        for (const QString& name : entries_.keys()) {
            if (folded.contains(name.toLower()))
                fault("name twice: " + name);
            folded.insert(name.toLower());
            static const QRegularExpression plain("^[\\w\\[\\]._%/ ()-]+$");
            if (!plain.match(name).hasMatch() || name.split('/').contains("..") || name.startsWith('/'))
                fault("bad name: " + name);
        }
    }

    void readContentTypes()
    {
        QXmlStreamReader reader(entries_.value("[Content_Types].xml"));
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() == "Types")
                continue;
            const auto attributes = reader.attributes();
            const bool isDefault = reader.name() == "Default";
            const QString key = attributes.value(isDefault ? "Extension" : "PartName").toString().toLower();
            auto& map = isDefault ? defaults_ : overrides_;
            if (map.contains(key))
                fault("declared twice: " + key);
            if (attributes.value("ContentType").isEmpty())
                fault("declared as nothing: " + key);
            map.insert(key, attributes.value("ContentType").toString());
        }
        for (const QString& name : overrides_.keys()) {
            if (!hasEntry(name.mid(1)))
                fault("declared but missing: " + name);
        }
    }

    bool hasEntry(const QString& name) const
    {
        for (const QString& entry : entries_.keys()) {
            if (entry.compare(name, Qt::CaseInsensitive) == 0)
                return true;
        }
        return false;
    }

    void checkDeclared(const QString& name)
    {
        if (name.endsWith('/') || name == "[Content_Types].xml")
            return;
        const QString suffix = name.mid(name.lastIndexOf('.') + 1).toLower();
        if (!defaults_.contains(suffix) && !overrides_.contains("/" + name.toLower()))
            fault("no content type: " + name);
    }

    static QString sourceOf(const QString& relationshipsPart)
    {
        QString source = relationshipsPart;
        source.replace(QRegularExpression("_rels/([^/]*)\\.rels$"), "\\1");
        return source;
    }

    static QString resolve(const QString& source, const QString& target)
    {
        QStringList path = target.startsWith('/') ? QStringList() : source.split('/');
        if (!path.isEmpty())
            path.removeLast();
        for (const QString& step : target.split('/', Qt::SkipEmptyParts)) {
            if (step == ".." && !path.isEmpty())
                path.removeLast();
            else if (step != ".")
                path.append(step);
        }
        return path.join('/');
    }

    void readRelationships(const QString& part, const QByteArray& bytes)
    {
        const QString source = sourceOf(part);
        if (!source.isEmpty() && !source.endsWith('/') && !hasEntry(source))
            fault("relationships of nothing: " + part);
        QXmlStreamReader reader(bytes);
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != "Relationship")
                continue;
            const auto attributes = reader.attributes();
            const QString id = attributes.value("Id").toString();
            static const QRegularExpression ncName("^[\\w][\\w.-]*$", QRegularExpression::UseUnicodePropertiesOption);
            if (!ncName.match(id).hasMatch() || id.at(0).isDigit())
                fault(part + ": bad id " + id);
            if (relationships_[source].contains(id))
                fault(part + ": id twice " + id);
            Relationship found{attributes.value("Type").toString(), QString()};
            const QString target = attributes.value("Target").toString();
            if (attributes.value("TargetMode") != "External" && !target.startsWith('#')) {
                found.target = resolve(source, target);
                if (!hasEntry(found.target))
                    fault(part + ": leads nowhere " + target);
            }
            relationships_[source].insert(id, found);
        }
    }

    void readPart(const QString& name, const QByteArray& bytes)
    {
        QXmlStreamReader reader(bytes);
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (reader.name() == "docPr")
                checkDrawingId(name, reader.attributes().value("id").toString());
            for (const QXmlStreamAttribute& attribute : reader.attributes()) {
                if (attribute.namespaceUri() == referenceNamespace)
                    checkReference(name, reader.name().toString(), attribute);
            }
        }
        if (reader.hasError())
            fault(name + ": not well formed: " + reader.errorString());
    }

    void checkDrawingId(const QString& part, const QString& id)
    {
        if (drawings_.contains(id))
            fault(part + ": drawing id twice " + id);
        drawings_.insert(id);
        bool isNumber = false;
        if (id.toLongLong(&isNumber) > 0x7fffffff || !isNumber)
            fault(part + ": bad drawing id " + id);
    }

    void checkReference(const QString& part, const QString& element, const QXmlStreamAttribute& attribute)
    {
        const QString id = attribute.value().toString();
        if (id.isEmpty())
            return;
        const auto known = relationships_.value(part);
        if (!known.contains(id))
            fault(part + ": " + element + " refers to nothing: " + id);
        else if (attribute.name() == "embed" && element == "blip" && !known.value(id).type.endsWith("/image"))
            fault(part + ": a picture refers to " + known.value(id).type);
        else if (element.endsWith("erReference") && !known.value(id).type.endsWith("/" + element.left(6)))
            fault(part + ": " + element + " refers to " + known.value(id).type);
    }

    QMap<QString, QByteArray> entries_;
    QMap<QString, QString> defaults_;
    QMap<QString, QString> overrides_;
    QMap<QString, QMap<QString, Relationship>> relationships_;
    QSet<QString> drawings_;
    QStringList faults_;
};

} // namespace

QStringList findFaults(const QString& path) { return Checker(path).run(); }

QStringList newFaults(const QString& written, const QString& source)
{
    QStringList faults = findFaults(written);
    for (const QString& fault : findFaults(source))
        faults.removeAll(fault);
    return faults;
}
