#include "analysis/levels/forms/color_map_widget.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

#include <nrx/editor.h>

#include <QHeaderView>
#include <QInputDialog>
#include <QSignalBlocker>
#include <array>
#include <cmath>

using namespace formkit;

namespace {

enum Row { MinRow, MaxRow, ColorRow, RowCount };
constexpr int kMaximumCount = 256;
const QString kFilter = QStringLiteral("cmp (*.cmp)");

// Where the project uses a map, what is asked before it goes, what stands in for it.
struct MapUse {
    int ProjectSession::*field;
    const char* question;
    int fallback;
};

const std::array<MapUse, 3> kMapUses = {{
    {&ProjectSession::deformationColormapId, "Палитра '%1' установлена для карт деформаций. \n Удалить в любом случае?",
     LevelMap::Deformation},
    {&ProjectSession::temperatureColormapId, "Палитра '%1' установлена для карт температур. \n Удалить в любом случае?",
     LevelMap::Temperature},
    {&ProjectSession::dynamicTemperatureColormapId,
     "Палитра '%1' установлена для карт динамики температур. \n Удалить в любом случае?", LevelMap::Temperature},
}};

QTableWidgetItem* boundItem(double value)
{
    QTableWidgetItem* item = numberItem(value, 2);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    return item;
}

QTableWidgetItem* colorItem(const NcCmColor& color)
{
    auto* item = new QTableWidgetItem;
    item->setBackground(QColor(color.red(), color.green(), color.blue()));
    item->setFlags(Qt::ItemIsEnabled);
    item->setToolTip(QStringLiteral("Двойной щелчок меняет цвет"));
    return item;
}

// In the unit of what the map shows: degrees, metres or millimetres.
QDoubleSpinBox* limit(const char* name) { return withoutUnit(realSpin(name, -1e6, 1e6)); }

} // namespace

ColorMapWidget::ColorMapWidget(QWidget* parent) : QWidget(parent)
{
    build();
    fillMaps();
    showCurrent();
}

void ColorMapWidget::build()
{
    layOut(this).column({
        row({"Цветовая карта уровней", growing(levelMapType_ = combo("LevelMapType"))}),
        colorTable_ = table("ColorTable"),
        row({
            "Минимум",
            growing(levelMin_ = limit("LevelMin")),
            "Максимум",
            growing(levelMax_ = limit("LevelMax")),
            "Число уровней",
            growing(levelCount_ = withoutUnit(spin("LevelCountSpin", 0, kMaximumCount))),
        }),
        row({
            button("SaveColorMapBtn", "Сохранить в файл", this, &ColorMapWidget::saveToFile),
            button("LoadColorMapBtn", "Загрузить из файла", this, &ColorMapWidget::loadFromFile),
            writeDatabase_ = button("WriteDB_btn", "Записать в БД", this, &ColorMapWidget::writeToDatabase),
            deleteDatabase_ = button("DeleteDb_btn", "Удалить из БД", this, &ColorMapWidget::deleteFromDatabase),
        }),
    });
    layout()->setContentsMargins(0, 0, 0, 0);
    colorTable_->setRowCount(RowCount);
    colorTable_->setVerticalHeaderLabels({QStringLiteral("От"), QStringLiteral("До"), QStringLiteral("Цвет")});
    colorTable_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                                 | QAbstractItemView::AnyKeyPressed);
    colorTable_->horizontalHeader()->setMinimumSectionSize(56);
    colorTable_->verticalHeader()->setDefaultSectionSize(24);
    colorTable_->setFixedHeight(130);
    // Each step of typing would ask anew and paint a map of its own.
    levelCount_->setKeyboardTracking(false);

    connect(levelMapType_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ColorMapWidget::chooseMap);
    connect(colorTable_, &QTableWidget::itemChanged, this, &ColorMapWidget::editCell);
    connect(colorTable_, &QTableWidget::cellDoubleClicked, this, &ColorMapWidget::editColor);
    connect(levelCount_, QOverload<int>::of(&QSpinBox::valueChanged), this, &ColorMapWidget::changeCount);
}

void ColorMapWidget::fillMaps()
{
    const bool connected = session().checkConnection();
    writeDatabase_->setEnabled(connected);
    const QSignalBlocker quiet(levelMapType_);
    levelMapType_->clear();
    maps_.read(connected);
    for (const auto& [id, name] : maps_.list())
        levelMapType_->addItem(name, id);
}

LevelMap& ColorMapWidget::currentMap() { return maps_.at(levelMapId()); }
const LevelMap& ColorMapWidget::current() const { return maps_.at(levelMapId()); }
int ColorMapWidget::levelMapId() const { return levelMapType_->currentData().toInt(); }

void ColorMapWidget::setLevelMapId(int id) { choose(levelMapType_, id); }

void ColorMapWidget::selectMap(int id)
{
    {
        const QSignalBlocker quiet(levelMapType_);
        setLevelMapId(id);
    }
    chooseMap();
}

void ColorMapWidget::chooseMap()
{
    showCurrent();
    emit levelMapChanged();
}

void ColorMapWidget::showCurrent()
{
    showLimits();
    showRanges();
    deleteDatabase_->setEnabled(writeDatabase_->isEnabled() && levelMapId() > 0);
}

void ColorMapWidget::showLimits()
{
    const LevelMap& map = current();
    const QSignalBlocker quiet(levelCount_);
    levelCount_->setValue(int(map.ranges.size()));
    if (map.ranges.empty())
        return;
    levelMin_->setValue(map.minimum);
    levelMax_->setValue(map.maximum);
}

void ColorMapWidget::showRanges()
{
    const QSignalBlocker quiet(colorTable_);
    const std::vector<LevelRange>& ranges = current().ranges;
    colorTable_->setColumnCount(int(ranges.size()));
    for (int column = 0; column < int(ranges.size()); ++column) {
        const LevelRange& range = ranges[size_t(column)];
        colorTable_->setItem(MinRow, column, boundItem(range.min));
        colorTable_->setItem(MaxRow, column, boundItem(range.max));
        colorTable_->setItem(ColorRow, column, colorItem(range.color));
    }
    colorTable_->resizeColumnsToContents();
}

void ColorMapWidget::editCell(QTableWidgetItem* item)
{
    LevelRange& range = currentMap().ranges.at(size_t(item->column()));
    double& bound = item->row() == MinRow ? range.min : range.max;
    bool isNumber = false;
    const double value = item->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (isNumber && std::isfinite(value)) {
        bound = value;
        maps_.noteEdit(levelMapId());
        currentMap().recomputeLimits();
    }
    const QSignalBlocker quiet(colorTable_);
    item->setText(fixed(bound, 2));
    emit levelMapChanged();
}

void ColorMapWidget::editColor(int row, int column)
{
    if (row != ColorRow)
        return;
    NcCmColor& color = currentMap().ranges.at(size_t(column)).color;
    if (!ncedSetColorDialogTrueColor(color))
        return;
    maps_.noteEdit(levelMapId());
    showRanges();
    emit levelMapChanged();
}

void ColorMapWidget::changeCount(int count)
{
    if (maps_.gradientLosesEdits(levelMapId())
        && !confirm(this, "Будут потеряны именения в настройке палитры.\n Продолжить?")) {
        showLimits();
        return;
    }
    LevelMap gradient;
    gradient.fillGradient(levelMin_->value(), levelMax_->value(), count);
    keepAsUserMap(std::move(gradient));
}

// Stored and built-in maps stay as they are: what was made up becomes the user's own.
void ColorMapWidget::keepAsUserMap(LevelMap map)
{
    maps_.keepAsUsers(std::move(map));
    selectMap(LevelMap::User);
}

void ColorMapWidget::saveToFile()
{
    const QString path = askFileToSave(this, {"Сохранить цветовую палитру уровней", kFilter});
    if (!path.isEmpty() && !current().saveFile(path))
        warn(this, fill("Не удалось записать файл '%1'", path));
}

void ColorMapWidget::loadFromFile()
{
    const QString path = askFileToOpen(this, {"Загрузить цветовую палитру уровней", kFilter});
    if (path.isEmpty())
        return;
    LevelMap read;
    if (!read.loadFile(path, 10) && !read.loadFile(path, 16)) {
        warn(this, fill("Ошибка загрузки палитры %1", path));
        return;
    }
    keepAsUserMap(std::move(read));
}

void ColorMapWidget::writeToDatabase()
{
    bool accepted = false;
    const QString name = QInputDialog::getText(this, QStringLiteral("Сохранить палитру"), QStringLiteral("Имя"),
                                               QLineEdit::Normal, current().name, &accepted);
    if (!accepted || name.isEmpty())
        return;
    LevelMap map = current();
    map.name = name;
    const bool written = map.id > 0 && map.exists() ? map.update() : map.insert();
    if (!written) {
        warn(this, "Палитра не записана в базу данных");
        return;
    }
    maps_.forgetEdit(levelMapId()); // what was edited is now in the row
    maps_.forgetEdit(map.id);
    session().reloadLevelMaps();
    fillMaps();
    selectMap(map.id);
}

bool ColorMapWidget::confirmDeletion(const LevelMap& map)
{
    if (!confirm(this, fill("Удалить палитру '%1' ?", map.name)))
        return false;
    for (const MapUse& use : kMapUses) {
        if (session().*use.field == map.id && !confirm(this, fill(use.question, map.name)))
            return false;
    }
    return true;
}

void ColorMapWidget::deleteFromDatabase()
{
    const LevelMap map = current();
    if (map.id <= 0 || !confirmDeletion(map) || !map.remove())
        return;
    for (const MapUse& use : kMapUses) {
        if (session().*use.field == map.id)
            session().*use.field = use.fallback;
    }
    maps_.forgetEdit(map.id);
    session().reloadLevelMaps();
    fillMaps();
    selectMap(LevelMap::Deformation);
}
