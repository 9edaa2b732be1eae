#include "elements/element_layers.h"

#include "elements/families/kinds.h"
#include "hostkit/layers.h"

void ensureLayers()
{
    for (const QString& layer : elementLayers())
        ensureLayer(layer, 7);
}
