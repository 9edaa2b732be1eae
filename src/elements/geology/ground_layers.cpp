#include "elements/geology/ground_layers.h"

#include "base/placeholders.h"
#include "elements/geology/quoted_text.h"
#include "session/project_session.h"

namespace {

constexpr int depthDecimals = 3;
constexpr int noGround = -1;

GroundLook lookAt(const sql::Result& rows, int row, int patternColumn)
{
    GroundLook look;
    look.pattern = rows.getvalue(row, patternColumn);
    if (!rows.isNull(row, patternColumn + 1))
        look.scale = rows.toDouble(row, patternColumn + 1);
    look.color = groundColor(rows.getvalue(row, patternColumn + 2));
    return look;
}

// Both statements of layers have these columns, the first of them the key too.
GroundLayer layerAt(const sql::Result& rows, int row, int firstColumn)
{
    enum Column { From, To, Ground, Description, Code, Name, Pattern };
    const auto text = [&](Column column) { return rows.getvalue(row, firstColumn + column); };
    GroundLayer layer;
    layer.from = rows.toDouble(row, firstColumn + From);
    layer.to = rows.toDouble(row, firstColumn + To);
    layer.ground.id = rows.isNull(row, firstColumn + Ground) ? noGround : rows.toInt(row, firstColumn + Ground);
    layer.description = text(Description);
    layer.ground.code = text(Code);
    layer.ground.name = text(Name);
    layer.ground.look = lookAt(rows, row, firstColumn + Pattern);
    return layer;
}

Statement layerInsert(const char* table, int elementId, const GroundLayer& layer)
{
    const Statement ground = layer.ground.id == noGround ? Statement("null") : compose("%1", layer.ground.id);
    return compose("INSERT INTO %6 (element_id, ege_id, depth_from, depth_to, description) VALUES (%1, %2, %3, %4, %5)",
                   elementId, ground, Numeral(layer.from, depthDecimals), Numeral(layer.to, depthDecimals),
                   quotedText(layer.description), table);
}

} // namespace

QString groundColor(const QString& stored)
{
    const QString trimmed = stored.trimmed();
    if (trimmed.isEmpty())
        return GroundLook().color;
    return trimmed.startsWith(QLatin1Char('#')) ? trimmed : QLatin1Char('#') + trimmed;
}

QString GroundElement::text() const { return id == noGround ? QString() : code + QStringLiteral(" - ") + name; }

std::optional<QVector<GroundElement>> loadGroundElements()
{
    enum Column { Id, Code, Name, Pattern };
    const sql::Result rows = session().run("SELECT ege_id, code, name, hatch_pattern_name, hatch_scale, color_hex FROM "
                                           "geology_ege_catalog ORDER BY COALESCE(code, '')");
    if (!rows.isTuples())
        return {};
    QVector<GroundElement> elements;
    for (int row = 0; row < rows.ntuples(); ++row)
        elements.append(
            {rows.toInt(row, Id), rows.getvalue(row, Code), rows.getvalue(row, Name), lookAt(rows, row, Pattern)});
    return elements;
}

std::optional<GroundLayers> loadLayers(const char* table, int elementId)
{
    enum Column { LayerId, Rest };
    const sql::Result rows = session().run(
        compose("SELECT igl.layer_id, igl.depth_from, igl.depth_to, igl.ege_id, igl.description, gec.code as ege_code, "
                "gec.name as ege_name, gec.hatch_pattern_name, gec.hatch_scale, gec.color_hex FROM %2 igl LEFT JOIN "
                "geology_ege_catalog gec ON igl.ege_id = gec.ege_id WHERE igl.element_id = %1 ORDER BY igl.depth_from",
                elementId, table));
    if (!rows.isTuples())
        return {};
    GroundLayers layers;
    for (int row = 0; row < rows.ntuples(); ++row) {
        layers.append(layerAt(rows, row, Rest));
        layers.last().id = rows.toInt(row, LayerId);
    }
    return layers;
}

std::optional<GroundLayers> loadGroundColumn(const char* table, int elementId)
{
    const sql::Result rows = session().run(
        compose("SELECT tgl.depth_from, tgl.depth_to, tgl.ege_id, tgl.description, gec.code as ege_code, gec.name as "
                "ege_name, gec.hatch_pattern_name, gec.hatch_scale, gec.color_hex FROM %2 tgl LEFT JOIN "
                "geology_ege_catalog gec ON tgl.ege_id = gec.ege_id WHERE tgl.element_id = %1 ORDER BY tgl.depth_from",
                elementId, table));
    if (!rows.isTuples())
        return {};
    GroundLayers layers;
    for (int row = 0; row < rows.ntuples(); ++row)
        layers.append(layerAt(rows, row, 0));
    return layers;
}

QString layerFault(const GroundLayers& layers, int index)
{
    if (index < 0 || index >= layers.size())
        return QStringLiteral("Неверный индекс строки");
    if (layers[index].from < 0.0)
        return QStringLiteral("Глубина начала не может быть отрицательной");
    if (!(layers[index].to > layers[index].from))
        return QStringLiteral("Глубина конца должна быть больше глубины начала");
    return {};
}

bool saveLayers(const char* table, int elementId, const GroundLayers& layers, const QSet<int>& known, QString& problem)
{
    for (const GroundLayer& layer : layers) {
        if (layer.ground.id != noGround && !known.contains(layer.ground.id)) {
            problem = fill("Ошибка: слой имеет невалидный ИГЭ (ege_id = %1)", layer.ground.id);
            return false;
        }
    }
    const sql::Result emptied = session().run(compose("DELETE FROM %2 WHERE element_id = %1", elementId, table));
    if (!emptied.isCommand()) {
        problem = fill("Прежние слои не удалены: %1", session().connection.errorMessage());
        return false;
    }
    for (const GroundLayer& layer : layers) {
        if (!session().run(layerInsert(table, elementId, layer)).isCommand()) {
            problem = fill("Ошибка при сохранении слоя (ege_id=%1): %2", layer.ground.id,
                           session().connection.errorMessage());
            return false;
        }
    }
    return true;
}
