#include "session/project_file.h"

#include "base/xml_text.h"
#include "session/project_session.h"

#include <QDomDocument>
#include <QIODevice>

Enumerator ProjectSession::*const enumeratorsInUse[enumeratorCount] = {
    &ProjectSession::dmEnumerator,  &ProjectSession::tsEnumerator,  &ProjectSession::rpEnumerator,
    &ProjectSession::tssEnumerator, &ProjectSession::ggsEnumerator, &ProjectSession::tsgEnumerator,
    &ProjectSession::igsEnumerator,
};

namespace {

struct NumberingElement {
    const char* name;
    Enumerator ProjectSession::*inUse;
    Enumerator ProjectSession::*byDefault;
};

// In the order of the file.
const NumberingElement numberingElements[enumeratorCount] = {
    {"DmEnumerator", &ProjectSession::dmEnumerator, &ProjectSession::dmDefault},
    {"TsEnumerator", &ProjectSession::tsEnumerator, &ProjectSession::tsDefault},
    {"TssEnumerator", &ProjectSession::tssEnumerator, &ProjectSession::tssDefault},
    {"GgsEnumerator", &ProjectSession::ggsEnumerator, &ProjectSession::ggsDefault},
    {"TsgEnumerator", &ProjectSession::tsgEnumerator, &ProjectSession::tsgDefault},
    {"RpEnumerator", &ProjectSession::rpEnumerator, &ProjectSession::rpDefault},
    {"IgsEnumerator", &ProjectSession::igsEnumerator, &ProjectSession::igsDefault},
};

const QString valueAttribute = QStringLiteral("Value");

// --- writing -----------------------------------------------------------------

QDomElement addElement(QDomElement& parent, const char* name)
{
    QDomElement element = parent.ownerDocument().createElement(QString::fromLatin1(name));
    parent.appendChild(element);
    return element;
}

void setAttribute(QDomElement& element, const QString& name, const QString& value)
{
    element.setAttribute(name, storableInXml(value));
}

struct NamedValue {
    const char* name;
    QString value;
};

void addGroup(QDomElement& root, const char* name, const QVector<NamedValue>& values)
{
    QDomElement group = addElement(root, name);
    for (const NamedValue& entry : values) {
        QDomElement element = addElement(group, entry.name);
        setAttribute(element, valueAttribute, entry.value);
    }
}

void addNumbering(QDomElement& root, const ProjectSession& session)
{
    QDomElement current = root.lastChildElement(QStringLiteral("Current"));
    for (const NumberingElement& row : numberingElements) {
        const Enumerator& numbering = session.*row.inUse;
        QDomElement element = addElement(current, row.name);
        setAttribute(element, QStringLiteral("Prefix"), numbering.prefix);
        element.setAttribute(QStringLiteral("Counter"), QString::number(numbering.counter));
        element.setAttribute(QStringLiteral("Trailing"), QString::number(numbering.trailing));
    }
}

void addStateFilter(QDomElement& root, const QMap<QString, QString>& filter)
{
    QDomElement group = addElement(root, "StateFilter");
    for (auto state = filter.begin(); state != filter.end(); ++state) {
        QDomElement element = addElement(group, "State");
        setAttribute(element, QStringLiteral("Name"), state.key());
        setAttribute(element, QStringLiteral("Description"), state.value());
    }
}

// --- reading -----------------------------------------------------------------

class Group {
public:
    Group(const QDomElement& root, const char* name) : element_(root.firstChildElement(QString::fromLatin1(name))) { }

    QDomElement child(const char* name) const { return element_.firstChildElement(QString::fromLatin1(name)); }
    QString text(const char* name) const { return child(name).attribute(valueAttribute); }
    int number(const char* name, int fallback) const
    {
        bool ok = false;
        const int value = text(name).toInt(&ok);
        return ok ? value : fallback;
    }

private:
    QDomElement element_;
};

Enumerator readNumbering(const QDomElement& element, const Enumerator& byDefault)
{
    const auto number = [&element](const QString& name, int fallback) {
        bool ok = false;
        const int value = element.attribute(name).toInt(&ok);
        return ok ? value : fallback;
    };
    const QString prefix = storableInXml(element.attribute(QStringLiteral("Prefix"))); // as it would be stored again
    return {prefix.isEmpty() ? byDefault.prefix : prefix, number(QStringLiteral("Counter"), byDefault.counter),
            number(QStringLiteral("Trailing"), byDefault.trailing)};
}

int placeOf(Enumerator ProjectSession::*inUse)
{
    int place = 0;
    while (enumeratorsInUse[place] != inUse)
        ++place;
    return place;
}

void readMetaAndPaths(const QDomElement& root, ProjectFile& file)
{
    const Group meta(root, "Meta");
    file.projectName = meta.text("ProjectName");
    file.projectCode = meta.text("ProjectCode");
    file.projectOwner = meta.text("ProjectOwner");
    file.projectLocation = meta.text("ProjectLocation");
    const Group path(root, "Path");
    file.workDir = path.text("WorkDir");
    file.tempDir = path.text("TempDir");
    file.templateDir = path.text("TemplateDir");
}

void readDatabase(const QDomElement& root, ProjectFile& file)
{
    const Group database(root, "Database");
    file.sqlType = database.number("SQLType", 0);
    file.database = {database.text("SQLHost"), database.text("SQLPort"), database.text("SQLDatabase"),
                     database.text("SQLUser"),
                     QString::fromUtf8(QByteArray::fromBase64(database.text("SQLPass").toUtf8()))};
}

// Old files also hold a FileID, which means nothing any more.
void readCurrent(const QDomElement& root, const ProjectSession& defaults, ProjectFile& file)
{
    const Group current(root, "Current");
    file.positionId = current.number("PositionID", defaults.defaultPositionId);
    file.baseCycleId = current.number("BaseCycleID", defaults.defaultBaseCycleId);
    file.currentCycleId = current.number("CurrentCycleID", defaults.defaultCurrentCycleId);
    file.temperatureColormapId = current.number("TemperatureColormapID", -3);
    file.dynamicTemperatureColormapId = current.number("DynamicTemperatureColormapID", -3);
    file.deformationColormapId = current.number("DeformationColormapID", -2);
    file.exportPath = current.text("CurrentExportPath");
    for (const NumberingElement& row : numberingElements)
        file.enumerators[size_t(placeOf(row.inUse))] = readNumbering(current.child(row.name), defaults.*row.byDefault);
}

void readStateFilter(const QDomElement& root, ProjectFile& file)
{
    const QString state = QStringLiteral("State");
    const QDomElement group = root.firstChildElement(QStringLiteral("StateFilter"));
    for (QDomElement element = group.firstChildElement(state); !element.isNull();
         element = element.nextSiblingElement(state))
        file.stateFilter.insert(element.attribute(QStringLiteral("Name")),
                                element.attribute(QStringLiteral("Description")));
}

} // namespace

std::optional<ProjectFile> readProjectFile(QIODevice& device, const ProjectSession& defaults)
{
    QDomDocument document;
    const QByteArray bytes = device.readAll();
    if (isNestedDeeper(bytes) || !document.setContent(bytes))
        return std::nullopt;
    const QDomElement root = document.firstChildElement();
    ProjectFile file;
    readMetaAndPaths(root, file);
    readDatabase(root, file);
    readCurrent(root, defaults, file);
    readStateFilter(root, file);
    return file;
}

QByteArray projectFileText(const ProjectSession& session)
{
    const auto number = [](int value) { return QString::number(value); };
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("TervaProject"));
    document.appendChild(root);
    addGroup(root, "Meta",
             {{"ProjectName", session.projectName},
              {"ProjectCode", session.projectCode},
              {"ProjectOwner", session.projectOwner},
              {"ProjectLocation", session.projectLocation}});
    addGroup(root, "Path",
             {{"Filename", session.projectFile},
              {"WorkDir", session.workDir},
              {"TempDir", session.tempDir},
              {"TemplateDir", session.templateDir}});
    addGroup(root, "Database",
             {{"SQLType", number(session.sqlType)},
              {"SQLHost", session.sqlHost},
              {"SQLPort", session.sqlPort},
              {"SQLDatabase", session.sqlDatabase},
              {"SQLUser", session.sqlUser},
              {"SQLPass", QString::fromLatin1(session.sqlPass.toUtf8().toBase64())}});
    addGroup(root, "Current",
             {{"PositionID", number(session.currentPositionId)},
              {"BaseCycleID", number(session.baseCycleId)},
              {"CurrentCycleID", number(session.currentCycleId)},
              {"TemperatureColormapID", number(session.temperatureColormapId)},
              {"DynamicTemperatureColormapID", number(session.dynamicTemperatureColormapId)},
              {"DeformationColormapID", number(session.deformationColormapId)},
              {"CurrentExportPath", session.exportPath}});
    addNumbering(root, session);
    addStateFilter(root, session.stateFilter);
    return document.toByteArray(1);
}

QString withProjectSuffix(const QString& path)
{
    const QString suffix = QStringLiteral(".terva");
    return path.isEmpty() || path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}
