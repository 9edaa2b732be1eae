#include "elements/passports/layer_texts.h"

#include "base/placeholders.h"
#include "base/text.h"

#include <QSet>

namespace {

constexpr int decimals = 2;

} // namespace

QStringList layerTitles()
{
    return {"Глубина от (м)", "Глубина до (м)", "Толщина (м)", "Абс. отметки (м)", "Описание", "Штриховка"};
}

QStringList layerTexts(const GroundLayer& layer, double ground)
{
    return {fixed(layer.from, decimals), fixed(layer.to, decimals), fixed(layer.to - layer.from, decimals),
            fill("%1 - %2", fixed(ground - layer.from, decimals), fixed(ground - layer.to, decimals)),
            layer.description};
}

QVector<GroundElement> groundsOf(const GroundLayers& layers)
{
    QVector<GroundElement> grounds;
    QSet<int> met;
    for (const GroundLayer& layer : layers) {
        if (layer.ground.id == -1 || met.contains(layer.ground.id))
            continue;
        met.insert(layer.ground.id);
        grounds.append(layer.ground);
    }
    return grounds;
}
