#include "entity_picker.h"
#include "script_verbs.h"

#include <nrx/application.h>

#include <QFile>
#include <QFileInfo>
#include <cmath>

namespace {

using Words = QStringList;

QString countText(const QString& what, const QString& expected, int met)
{
    return what + QStringLiteral(": ожидалось ") + expected + QStringLiteral(", встречено ") + QString::number(met);
}

// "5", ">=3", "!=0"; false when the text is none of these.
bool compareCount(const QString& rule, int met, bool& holds)
{
    int digits = 0;
    while (digits < rule.size() && !rule[digits].isDigit())
        ++digits;
    bool ok = false;
    const int wanted = rule.mid(digits).toInt(&ok);
    const QString sign = rule.left(digits);
    const struct {
        const char* sign;
        bool holds;
    } rules[] = {
        {"", met == wanted},   {"=", met == wanted}, {"!=", met != wanted}, {">", met > wanted},
        {">=", met >= wanted}, {"<", met < wanted},  {"<=", met <= wanted},
    };
    for (const auto& row : rules)
        if (ok && sign == QLatin1String(row.sign)) {
            holds = row.holds;
            return true;
        }
    return false;
}

QString judgeCount(const QString& what, const QString& rule, int met)
{
    bool holds = false;
    if (!compareCount(rule, met, holds))
        return QStringLiteral("«") + rule + QStringLiteral("» не число");
    return holds ? QString() : countText(what, rule, met);
}

// The console's own view: prompts and answers are part of it.
QString doExpect(const Words& words, const QString& console)
{
    const QString& text = words.last();
    const QString how = words.size() == 2 ? words[0] : QString();
    const bool there = console.contains(text);
    if (how == QLatin1String("line"))
        return console.split(QLatin1Char('\n')).contains(text)
            ? QString()
            : QStringLiteral("нет строки «") + text + QStringLiteral("», в консоли:\n") + console;
    if (how == QLatin1String("no"))
        return there ? QStringLiteral("в консоли есть «") + text + QStringLiteral("»:\n") + console : QString();
    if (!how.isEmpty())
        return QStringLiteral("неизвестное слово «") + how + QStringLiteral("»");
    return there ? QString() : QStringLiteral("нет текста «") + text + QStringLiteral("», в консоли:\n") + console;
}

QString queryEntities(const Words& words, NcDbObjectIdArray& found)
{
    EntityQuery query;
    QString error;
    if (parseEntityQuery(words, query, error))
        found = findEntities(query);
    return error;
}

QString doCount(const Words& words, const QString&)
{
    NcDbObjectIdArray found;
    const QString error = queryEntities(words.mid(1), found);
    const QString what = QStringLiteral("объектов ") + words.mid(1).join(QLatin1Char(' '));
    return error.isEmpty() ? judgeCount(what, words[0], int(found.size())) : error;
}

QString onlyOne(const Words& words, NcDbObjectId& id)
{
    NcDbObjectIdArray found;
    QString error = queryEntities(words, found);
    if (!error.isEmpty())
        return error;
    if (found.size() != 1)
        return countText(QStringLiteral("объектов ") + words.join(QLatin1Char(' ')), QStringLiteral("1"),
                         int(found.size()));
    id = found.front();
    return {};
}

QString differs(const QString& what, const QString& expected, const QString& met)
{
    return what + QStringLiteral(": ожидалось «") + expected + QStringLiteral("», встречено «") + met
        + QStringLiteral("»");
}

QString doAttribute(const Words& words, const QString&)
{
    NcDbObjectId id;
    QString text;
    QString error = onlyOne(words.mid(2), id);
    if (!error.isEmpty())
        return error;
    if (!attributeText(id, words[0], text))
        return QStringLiteral("нет атрибута «") + words[0] + QStringLiteral("»");
    return text == words[1] ? QString() : differs(QStringLiteral("атрибут ") + words[0], words[1], text);
}

QString printed(const NcDbEvalVariant& value)
{
    if (value.restype() == 1)
        return value.text();
    return value.restype() == 40 ? QString::number(value.real(), 'g', 12) : QString::number(value.integer());
}

QString doProperty(const Words& words, const QString&)
{
    NcDbObjectId id;
    QString error = onlyOne(words.mid(2), id);
    if (!error.isEmpty())
        return error;
    for (const NcDbDynBlockReferenceProperty& property : NcDbDynBlockReference(id).getBlockProperties()) {
        if (property.propertyName() != words[0])
            continue;
        const QString met = printed(property.value());
        bool number = false, wanted = false;
        const double gap = met.toDouble(&number) - words[1].toDouble(&wanted);
        const bool same = met == words[1] || (number && wanted && std::fabs(gap) <= 1e-6);
        return same ? QString() : differs(QStringLiteral("свойство ") + words[0], words[1], met);
    }
    return QStringLiteral("нет свойства «") + words[0] + QStringLiteral("»");
}

QString doPosition(const Words& words, const QString&)
{
    NcDbObjectId id;
    QString error = onlyOne(words.mid(1), id);
    NcDbBlockReference* reference = nullptr;
    if (!error.isEmpty())
        return error;
    if (!isOk(ncdbOpenObject(reference, id, kForRead)))
        return QStringLiteral("объект не вставка блока");
    const NcGePoint3d met = reference->position();
    reference->close();
    const double xyz[] = {met.x, met.y, met.z};
    const QStringList parts = words[0].split(QLatin1Char(','));
    QStringList shown;
    bool same = parts.size() >= 2 && parts.size() <= 3;
    for (int i = 0; i < parts.size() && i < 3; ++i) {
        shown << QString::number(xyz[i], 'f', 4);
        same = same && std::fabs(parts[i].toDouble() - xyz[i]) <= 1e-3;
    }
    return same ? QString() : differs(QStringLiteral("положение"), words[0], shown.join(QLatin1Char(',')));
}

QString doGroups(const Words& words, const QString&)
{
    NcDbDictionary* groups = nullptr;
    if (!isOk(ncdbHostApplicationServices()->workingDatabase()->getGroupDictionary(groups, kForRead)))
        return QStringLiteral("нет словаря групп");
    int met = 0;
    for (const QString& key : groups->keys())
        met += key.startsWith(words[1]);
    groups->close();
    return judgeCount(QStringLiteral("групп ") + words[1], words[0], met);
}

QString doDocuments(const Words& words, const QString&)
{
    return judgeCount(QStringLiteral("чертежей"), words[0], ncDocManagerPtr()->documentCount());
}

QString doExists(const Words& words, const QString&)
{
    return QFileInfo::exists(words[0]) ? QString() : QStringLiteral("нет файла «") + words[0] + QStringLiteral("»");
}

QString doMissing(const Words& words, const QString&)
{
    return QFileInfo::exists(words[0]) ? QStringLiteral("есть файл «") + words[0] + QStringLiteral("»") : QString();
}

QString doFileContains(const Words& words, const QString&)
{
    QFile file(words[0]);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("файл «") + words[0] + QStringLiteral("» не читается");
    return QString::fromUtf8(file.readAll()).contains(words[1])
        ? QString()
        : QStringLiteral("в файле «") + words[0] + QStringLiteral("» нет «") + words[1] + QStringLiteral("»");
}

QString doNothing(const Words&, const QString&) { return {}; }

struct Verb {
    const char* name;
    int least, most; // words; -1 for any number
    QString (*check)(const Words&, const QString& console);
};

// The first four are the runner's own.
const Verb kVerbs[] = {
    {"include", 1, 1, doNothing},      {"let", 2, 2, doNothing},
    {"timeout", 1, 1, doNothing},      {"echo", 0, -1, doNothing},
    {"expect", 1, 2, doExpect},        {"count", 1, -1, doCount},
    {"attribute", 3, -1, doAttribute}, {"property", 3, -1, doProperty},
    {"position", 2, -1, doPosition},   {"groups", 2, 2, doGroups},
    {"documents", 1, 1, doDocuments},  {"exists", 1, 1, doExists},
    {"missing", 1, 1, doMissing},      {"file-contains", 2, 2, doFileContains},
};

} // namespace

bool isNeutralVerb(const QString& verb)
{
    for (const Verb& row : kVerbs)
        if (verb == QLatin1String(row.name))
            return true;
    return false;
}

QString doCheckVerb(const QString& verb, const QStringList& words, const QString& console)
{
    for (const Verb& row : kVerbs) {
        if (verb != QLatin1String(row.name))
            continue;
        if (words.size() < row.least || (row.most >= 0 && words.size() > row.most) || row.check == doNothing)
            return QStringLiteral("«") + verb + QStringLiteral("»: неверные слова");
        return row.check(words, console);
    }
    return QStringLiteral("неизвестное слово «") + verb + QStringLiteral("»");
}
