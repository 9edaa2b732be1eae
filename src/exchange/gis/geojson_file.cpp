#include "exchange/gis/geojson_file.h"

#include "base/text.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

namespace {

constexpr int degreeDecimals = 8; // a millimetre
constexpr int metreDecimals = 4;

QByteArray geometryOf(const GisFeature& feature)
{
    const GisPoint& at = feature.degrees;
    if (!feature.placed || !std::isfinite(at.x) || !std::isfinite(at.y))
        return "null";
    QString place = fixed(at.x, degreeDecimals) + ',' + fixed(at.y, degreeDecimals);
    if (std::isfinite(at.z))
        place += ',' + fixed(at.z, metreDecimals);
    return "{\"type\":\"Point\",\"coordinates\":[" + place.toLatin1() + "]}";
}

QByteArray propertiesOf(const GisLayer& layer, const GisFeature& feature)
{
    QJsonObject properties;
    for (int i = 0; i < layer.columns.size(); ++i) {
        const QVariant& value = feature.values[i];
        properties.insert(layer.columns[i].name,
                          value.isNull() ? QJsonValue() : QJsonValue::fromVariant(value)); // a date as its ISO text
    }
    return QJsonDocument(properties).toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray geoJson(const GisLayer& layer, const QString& proj4Text)
{
    // Written piece by piece: a tree of a million values would be far larger than the text.
    QByteArray text = "{\"type\":\"FeatureCollection\",\"name\":\"" + layer.name.toUtf8() + "\",";
    QByteArray head =
        QJsonDocument(QJsonObject{{"title", layer.title}, {"projection", proj4Text}}).toJson(QJsonDocument::Compact);
    text += head.mid(1, head.size() - 2) + ",\"features\":[";
    for (int i = 0; i < layer.features.size(); ++i) {
        const GisFeature& feature = layer.features[i];
        text += (i == 0 ? "\n" : ",\n");
        text += "{\"type\":\"Feature\",\"geometry\":" + geometryOf(feature)
            + ",\"properties\":" + propertiesOf(layer, feature) + '}';
    }
    return text += "\n]}\n";
}
