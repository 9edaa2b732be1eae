#include "drawing/insertion.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "drawing/insertion_family.h"
#include "drawing/next_name.h"
#include "elements/block_definitions.h"
#include "elements/element_block.h"
#include "hostkit/console.h"
#include "hostkit/error_markers.h"

#include <nrx/editor.h>

#include <cmath>

namespace {

// What an element has beside its place and name.
struct Dimensions {
    double height = 0.0;
    double depth = 0.0;
    int catalogId = -1;
};

// Of a block without a row. Keys of the tables begin behind it.
const QString placeholderId = QStringLiteral("1001");
constexpr double startHeight = 1.0;
constexpr double startDepth = 5.0;

Dimensions startDimensions(const InsertionFamily& texts)
{
    Dimensions start;
    start.height = texts.heightPrompt.isEmpty() ? 0.0 : startHeight;
    start.depth = texts.depthPrompt.isEmpty() ? 0.0 : startDepth;
    return start;
}

// Offers the value and takes another; an empty answer keeps it. An empty
// prompt asks nothing. False: the user cancelled, or the answer is no number.
bool askReal(const QString& prompt, double& value)
{
    if (prompt.isEmpty())
        return true;
    double answer = value;
    const int status = ncedGetReal(prompt + general(value, 2) + QLatin1Char('>'), answer);
    if (status == kPromptNormal && std::isfinite(answer))
        value = answer;
    return std::isfinite(answer) && (status == kPromptNormal || status == kPromptEmpty);
}

// The insertion point in world coordinates.
bool askPoint(NcGePoint3d& point)
{
    NcGePoint3d picked;
    if (ncedGetPoint(nullptr, QStringLiteral("Точка вставки:"), picked) != kPromptNormal)
        return false;
    point = picked;
    ncdbUcs2Wcs(picked, point);
    say(fill("X:%1  Y:%2  Z:%3 \n", fixed(point.x, 6), fixed(point.y, 6), fixed(point.z, 6)));
    return true;
}

// The last number that a counter holds gives its name again and again.
QString nextTakenName(Enumerator& enumerator)
{
    if (isExhausted(enumerator))
        say(fill("\nСчетчик дошел до %1 и дальше не растет: имена повторяются\n", enumerator.counter));
    return takeName(enumerator);
}

// A typed name leaves the numbering alone, an empty answer takes its next name.
bool askName(const InsertionFamily& texts, Enumerator& enumerator, QString& name)
{
    QString answer;
    const int status = ncedGetString(true, texts.namePrompt + nextName(enumerator) + QLatin1Char('>'), answer);
    if (status != kPromptNormal && status != kPromptEmpty)
        return false;
    name = status == kPromptEmpty || answer.isEmpty() ? nextTakenName(enumerator) : answer;
    return true;
}

ElementBlock newElement(int kind, const NcGePoint3d& point, const QString& name, const Dimensions& dimensions)
{
    ElementBlock element(kind);
    element.x = point.x;
    element.y = point.y;
    element.z = point.z;
    element.h = dimensions.height;
    element.e = dimensions.depth;
    element.catalogId = dimensions.catalogId;
    element.scale = session().placementScale;
    element.setAttribute("name", name);
    // So that the block has an id even when the row fails.
    element.setAttribute("element_id", placeholderId);
    // Only thermostabilisers have these attributes.
    element.setAttribute("h", fixed(dimensions.height, 2));
    element.setAttribute("de", fixed(dimensions.depth, 2));
    element.setAttribute("z", fixed(point.z, 2));
    return element;
}

// The row's key is the block's only if there is a row.
void tellRefusedRow(const ElementBlock& element)
{
    const bool withoutRow = element.attributes.value(QStringLiteral("element_id")) == placeholderId;
    if (!withoutRow)
        return say(fill("\nОшибка: свойства элемента %1 не записаны в базу данных\n", element.name()));
    say(fill("\nОшибка: элемент %1 не записан в базу данных, его блок вставлен с element_id=%2\n", element.name(),
             placeholderId));
    ensureErrorLayer();
    addErrorMarker(ErrorMarker::NotInDatabase, {element.x, element.y, element.z});
}

void place(ElementBlock& element)
{
    const bool written = element.insertRow(session().currentPositionId);
    element.insertBlock();
    if (!written)
        tellRefusedRow(element);
}

bool chooseConstruction(const InsertionFamily& texts, const CatalogChooser& chooseCatalog, Dimensions& dimensions)
{
    if (!texts.fromCatalog)
        return true;
    const std::optional<int> chosen = chooseCatalog ? chooseCatalog() : std::nullopt;
    dimensions.catalogId = chosen.value_or(-1);
    return chosen.has_value();
}

void insertMany(int kind, const InsertionFamily& texts, Enumerator& enumerator, Dimensions dimensions)
{
    if (!askReal(texts.defaultHeightPrompt, dimensions.height) || !askReal(texts.defaultDepthPrompt, dimensions.depth))
        return;
    say("\n Выполняем циклическую вставку");
    NcGePoint3d point;
    while (askPoint(point)) {
        const QString name = nextTakenName(enumerator);
        say(name + " \n");
        ElementBlock element = newElement(kind, point, name, dimensions);
        // Only benchmarks have it; one inserted alone keeps its start value.
        element.setAttribute("rp_z", fixed(dimensions.height, 2));
        place(element);
    }
}

void insertOne(int kind, const InsertionFamily& texts, Enumerator& enumerator, Dimensions dimensions)
{
    say("\n Работаем поштучно");
    NcGePoint3d point;
    QString name;
    if (!texts.fromCatalog && !askPoint(point))
        return;
    if (!askName(texts, enumerator, name) || !askReal(texts.heightPrompt, dimensions.height)
        || !askReal(texts.depthPrompt, dimensions.depth))
        return;
    if (texts.fromCatalog && !askPoint(point))
        return;
    ElementBlock element = newElement(kind, point, name, dimensions);
    place(element);
}

} // namespace

void insertElements(int kind, const CatalogChooser& chooseCatalog)
{
    const Family* family = familyOfKind(kind);
    if (!family || !ensureBlockDefinitions())
        return;
    QString answer;
    ncedInitGet(0, QStringLiteral("Да Нет _ Yes No"));
    if (ncedGetKword(QStringLiteral("Выполнять циклическую вставку [Да/Нет] <Да>"), answer) != kPromptNormal)
        return;
    say(fill("\n Выбор '%1'", answer));

    const InsertionFamily& texts = insertionFamily(family->key);
    Dimensions dimensions = startDimensions(texts);
    if (!chooseConstruction(texts, chooseCatalog, dimensions))
        return;
    const auto insert = answer == QLatin1String("Yes") ? insertMany : insertOne;
    insert(kind, texts, enumeratorOf(family->key), dimensions);
}
