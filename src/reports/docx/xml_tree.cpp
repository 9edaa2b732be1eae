#include "reports/docx/xml_tree.h"

#include "reports/docx/xml_scan.h"

#include <QHash>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace docx {
namespace {

/// A document repeats a few dozen names a hundred thousand times: each is kept
/// in memory once.
class Names {
public:
    QString operator()(const QStringRef& name)
    {
        const auto known = names_.constFind(QStringView(name));
        if (known != names_.constEnd())
            return *known;
        QString copy = name.toString();
        names_.insert(QStringView(copy), copy);
        return copy;
    }

private:
    QHash<QStringView, QString> names_;
};

class TreeBuilder {
public:
    TreeBuilder(const QByteArray& xml, QDomDocument* document) : reader_(xml), document_(document), parent_(*document)
    {
        reader_.setNamespaceProcessing(false);
    }

    bool run()
    {
        while (!reader_.atEnd())
            take(reader_.readNext());
        return !reader_.hasError() && !document_->documentElement().isNull();
    }

    QString error() const { return reader_.errorString(); }

private:
    void take(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartDocument: addDeclaration(); break;
        case QXmlStreamReader::StartElement: parent_ = parent_.appendChild(makeElement()); break;
        case QXmlStreamReader::EndElement: parent_ = parent_.parentNode(); break;
        case QXmlStreamReader::Characters: addText(); break;
        case QXmlStreamReader::Comment: parent_.appendChild(document_->createComment(reader_.text().toString())); break;
        case QXmlStreamReader::ProcessingInstruction:
            parent_.appendChild(document_->createProcessingInstruction(reader_.processingInstructionTarget().toString(),
                                                                       reader_.processingInstructionData().toString()));
            break;
        default: break;
        }
    }

    void addDeclaration()
    {
        if (reader_.documentVersion().isEmpty())
            return;
        QString text = QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"");
        if (reader_.isStandaloneDocument())
            text += QStringLiteral(" standalone=\"yes\"");
        document_->appendChild(document_->createProcessingInstruction(QStringLiteral("xml"), text));
    }

    QDomElement makeElement()
    {
        QDomElement element = document_->createElement(names_(reader_.qualifiedName()));
        const QXmlStreamAttributes attributes = reader_.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            element.setAttribute(names_(attribute.qualifiedName()), attribute.value().toString());
        return element;
    }

    void addText()
    {
        if (!parent_.isElement())
            return; // line ends around the root
        const QString text = reader_.text().toString();
        if (reader_.isCDATA())
            parent_.appendChild(document_->createCDATASection(text));
        else
            parent_.appendChild(document_->createTextNode(text));
    }

    QXmlStreamReader reader_;
    QDomDocument* document_;
    QDomNode parent_;
    Names names_;
};

/// UTF-16, the other encoding that the container allows, becomes UTF-8 without
/// its declaration. Other bytes stay as they are.
QByteArray inUtf8(const QByteArray& xml)
{
    if (!xml.startsWith("\xfe\xff") && !xml.startsWith("\xff\xfe"))
        return xml;
    QString text = QTextCodec::codecForName("UTF-16")->toUnicode(xml);
    if (text.startsWith(QLatin1String("<?xml ")))
        text.remove(0, text.indexOf(QLatin1String("?>")) + 2);
    return text.toUtf8();
}

} // namespace

bool parseXml(const QByteArray& bytes, QDomDocument* document, QString* error)
{
    const QByteArray xml = bytes.size() > XmlBounds::bytes ? bytes : inUtf8(bytes);
    QString fault = findFault(xml);
    if (fault.isEmpty()) {
        QDomDocument built{QString()}; // a default one is null and takes no children
        TreeBuilder builder(xml, &built);
        if (builder.run()) {
            *document = built;
            return true;
        }
        fault = builder.error();
    }
    *document = QDomDocument();
    if (error)
        *error = fault;
    return false;
}

bool checkXml(const QByteArray& bytes, QByteArray* text, QString* error)
{
    *text = bytes.size() > XmlBounds::bytes ? bytes : inUtf8(bytes);
    *error = findFault(*text);
    if (!error->isEmpty())
        return false;
    QXmlStreamReader reader(*text);
    reader.setNamespaceProcessing(false);
    bool hasRoot = false;
    while (!reader.atEnd())
        hasRoot = reader.readNext() == QXmlStreamReader::StartElement || hasRoot;
    if (!reader.hasError() && hasRoot)
        return true;
    *error = reader.errorString();
    return false;
}

QByteArray printXml(const QDomDocument& document, int indent) { return document.toByteArray(indent); }

} // namespace docx
