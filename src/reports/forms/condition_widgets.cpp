#include "reports/forms/condition_widgets.h"

#include "analysis/levels/forms/color_map_widget.h"
#include "database/catalogues/forms/catalogue_box.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "reports/generator/project_nodes.h"
#include "session/project_session.h"

#include <QDir>
#include <QHeaderView>
#include <QTreeWidget>

using namespace formkit;

namespace {

constexpr int coordinateDecimals = 2;
constexpr int indent = 4; // blanks a level of the tree
enum PartRole { LevelRole = Qt::UserRole, IdRole };

// --- cycles -------------------------------------------------------------------------

QComboBox* cycleCombo(const QString& name, int chosen)
{
    QComboBox* box = narrowCombo(name, 24);
    fillCycleCombo(box, QStringLiteral(" | "));
    choose(box, chosen);
    return box;
}

// The catalogue may have been changed meanwhile.
QPushButton* cyclesButton(QWidget* form, const std::vector<QComboBox*>& boxes)
{
    QPushButton* button = dotsButton(QStringLiteral("CylesListBTN")); // the name is known so
    QObject::connect(button, &QPushButton::clicked, form, [form, boxes] {
        openCatalogue(CatalogueKind::Cycles, form);
        session().reloadCycles();
        for (QComboBox* box : boxes)
            setChoices(box, session().cycleEntries(QStringLiteral(" | ")));
    });
    return button;
}

// --- parts of the project ---------------------------------------------------------------

QComboBox* partCombo()
{
    QComboBox* box = narrowCombo(QStringLiteral("PartSelector"), 30);
    for (const ReportNode& node : projectNodes()) {
        box->addItem(QString(node.depth * indent, QChar::Nbsp) + node.name);
        box->setItemData(box->count() - 1, node.part.level, LevelRole);
        box->setItemData(box->count() - 1, node.part.id, IdRole);
    }
    return box;
}

ProjectPart partOf(const QComboBox* box)
{
    if (box->currentIndex() < 0)
        return {};
    return {box->currentData(LevelRole).toString(), box->currentData(IdRole).toInt()};
}

// --- boxes ---------------------------------------------------------------------------------

enum class Ticks { All, Inverted, None };

bool ticked(Ticks ticks, bool now) { return ticks == Ticks::All || (ticks == Ticks::Inverted && !now); }

// "Все", "Инв.", "Снять"; `apply` is called with what is wanted.
template <class Apply>
QLayout* tickButtons(QWidget* form, Apply apply)
{
    const auto make = [&](const char* name, const char* caption, Ticks ticks) {
        QPushButton* made = button(QString::fromLatin1(name), QString::fromUtf8(caption));
        QObject::connect(made, &QPushButton::clicked, form, [apply, ticks] { apply(ticks); });
        return made;
    };
    return row({make("SelectAllBTN", "Все", Ticks::All), make("InvertBTN", "Инв.", Ticks::Inverted),
                make("UnselectBTN", "Снять", Ticks::None), stretch()});
}

template <class TickedItem>
void tick(TickedItem* item, Ticks ticks, bool now)
{
    item->setData(Qt::CheckStateRole, int(ticked(ticks, now) ? Qt::Checked : Qt::Unchecked));
}

} // namespace

ReportCyclesSelectionWidget::ReportCyclesSelectionWidget(QWidget* parent) : ConditionWidget(parent)
{
    base_ = cycleCombo(QStringLiteral("BaseCycleCombo"), session().baseCycleId);
    current_ = cycleCombo(QStringLiteral("CurrentCycleCombo"), session().currentCycleId);
    layOut(this).grid({
        {"Исходный цикл", growing(base_), cyclesButton(this, {base_, current_})},
        {"Текущий цикл", growing(current_), nothing()},
    });
}

void ReportCyclesSelectionWidget::give(ReportParameters& parameters) const
{
    parameters.baseCycleId = chosenId(base_);
    parameters.currentCycleId = chosenId(current_);
    parameters.cycles = session().cycleRange(parameters.baseCycleId, parameters.currentCycleId);
}

ReportSingleCycleSelectionWidget::ReportSingleCycleSelectionWidget(QWidget* parent) : ConditionWidget(parent)
{
    cycle_ = cycleCombo(QStringLiteral("CurrentCycleCombo"), session().currentCycleId);
    layOut(this).grid({{"Цикл измерений", growing(cycle_), cyclesButton(this, {cycle_})}});
}

void ReportSingleCycleSelectionWidget::give(ReportParameters& parameters) const
{
    parameters.cycleId = chosenId(cycle_);
}

ReportTreeProjectPartWidget::ReportTreeProjectPartWidget(QWidget* parent) : ConditionWidget(parent)
{
    layOut(this).grid({{"Часть проекта", growing(part_ = partCombo())}});
}

void ReportTreeProjectPartWidget::give(ReportParameters& parameters) const { parameters.part = partOf(part_); }

// --- elements and positions -------------------------------------------------------------------

ReportTreeFilterElementsWidget::ReportTreeFilterElementsWidget(FamilyKey family, QWidget* parent)
    : ConditionWidget(parent), family_(family)
{
    elements_ = table(QStringLiteral("OutputResult"),
                      {QStringLiteral(" "), QStringLiteral("Имя"), QStringLiteral("Х"), QStringLiteral("Y"),
                       QStringLiteral("Абс.Отм.")});
    elements_->setMinimumHeight(180);
    layOut(this).column({
        row({"Часть проекта", growing(part_ = partCombo())}),
        elements_,
        tickButtons(this,
                    [this](Ticks ticks) {
                        for (int i = 0; i < elements_->rowCount(); ++i)
                            tick(elements_->item(i, 0), ticks, elements_->item(i, 0)->checkState() == Qt::Checked);
                    }),
    });
    connect(part_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { showElements(); });
    showElements();
}

void ReportTreeFilterElementsWidget::showElements()
{
    const QVector<ElementChoice> found = elementsIn(partOf(part_), family_);
    elements_->setSortingEnabled(false);
    elements_->setRowCount(found.size());
    for (int i = 0; i < found.size(); ++i) {
        QTableWidgetItem* box = checkItem(true);
        box->setData(Qt::UserRole, found[i].id);
        elements_->setItem(i, 0, box);
        elements_->setItem(i, 1, textItem(found[i].name));
        elements_->setItem(i, 2, numberItem(found[i].x, coordinateDecimals));
        elements_->setItem(i, 3, numberItem(found[i].y, coordinateDecimals));
        elements_->setItem(i, 4, numberItem(found[i].z, coordinateDecimals));
    }
    fitColumns(elements_);
    elements_->setSortingEnabled(true);
}

void ReportTreeFilterElementsWidget::give(ReportParameters& parameters) const
{
    parameters.elements.clear();
    for (int i = 0; i < elements_->rowCount(); ++i) {
        if (elements_->item(i, 0)->checkState() == Qt::Checked)
            parameters.elements.append(elements_->item(i, 0)->data(Qt::UserRole).toInt());
    }
}

namespace {

template <class Visit>
void forEachPosition(QTreeWidget* tree, Visit visit)
{
    for (QTreeWidgetItemIterator at(tree); *at; ++at) {
        if ((*at)->flags() & Qt::ItemIsUserCheckable)
            visit(*at);
    }
}

} // namespace

ReportPositionSelectorWidget::ReportPositionSelectorWidget(QWidget* parent) : ConditionWidget(parent)
{
    tree_ = named<QTreeWidget>(QStringLiteral("ProjectTree"));
    tree_->setHeaderHidden(true);
    tree_->setMinimumHeight(180);
    QVector<QTreeWidgetItem*> above(4, nullptr);
    for (const ReportNode& node : projectNodes()) {
        auto* item = node.depth == 0 ? new QTreeWidgetItem(tree_) : new QTreeWidgetItem(above[node.depth - 1]);
        item->setText(0, node.name);
        item->setFlags(Qt::ItemIsEnabled);
        if (node.part.level == QLatin1String("positions")) {
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
            item->setCheckState(0, Qt::Checked);
            item->setData(0, Qt::UserRole, node.part.id);
        }
        above[node.depth] = item;
    }
    tree_->expandAll();
    layOut(this).column({
        "Выбор позиции",
        tree_,
        tickButtons(this,
                    [this](Ticks ticks) {
                        forEachPosition(tree_, [ticks](QTreeWidgetItem* item) {
                            item->setCheckState(
                                0, ticked(ticks, item->checkState(0) == Qt::Checked) ? Qt::Checked : Qt::Unchecked);
                        });
                    }),
    });
}

void ReportPositionSelectorWidget::give(ReportParameters& parameters) const
{
    parameters.positions.clear();
    forEachPosition(tree_, [&parameters](QTreeWidgetItem* item) {
        if (item->checkState(0) == Qt::Checked)
            parameters.positions.append(item->data(0, Qt::UserRole).toInt());
    });
}

// --- the others ------------------------------------------------------------------------------

ReportColorMapSelectionWidget::ReportColorMapSelectionWidget(int levelMapId, QWidget* parent) : ConditionWidget(parent)
{
    layOut(this).column({map_ = named<ColorMapWidget>(QStringLiteral("ColorMap"))});
    map_->setLevelMapId(levelMapId);
}

void ReportColorMapSelectionWidget::give(ReportParameters& parameters) const { parameters.colorMap = map_->current(); }

ReportFolderSelectionWidget::ReportFolderSelectionWidget(QWidget* parent) : ConditionWidget(parent)
{
    layOut(this).column({
        row({"Папка экспорта", growing(folder_ = edit(QStringLiteral("ExportPath"), session().exportPath)),
             button(QStringLiteral("SelectBTN"), QStringLiteral("Выбрать"), this,
                    &ReportFolderSelectionWidget::chooseFolder)}),
        row({overwrite_ = check(QStringLiteral("FileOverWrite"), QStringLiteral("Перезаписывать файлы")),
             merge_ = check(QStringLiteral("MergeFiles"), QStringLiteral("Объединять файлы")), stretch()}),
    });
}

void ReportFolderSelectionWidget::chooseFolder()
{
    const QString folder = askFolder(this, QStringLiteral("Папка экспорта проекта"), folder_->text());
    if (folder.isEmpty())
        return;
    folder_->setText(QDir::toNativeSeparators(folder));
}

void ReportFolderSelectionWidget::give(ReportParameters& parameters) const
{
    const QString folder = folder_->text().trimmed();
    parameters.folder = folder.isEmpty() ? QString() : QDir(QDir::fromNativeSeparators(folder)).absolutePath();
    parameters.overwrite = overwrite_->isChecked();
    parameters.merge = merge_->isChecked();
}

ReportDefectOnliCheckWidget::ReportDefectOnliCheckWidget(QWidget* parent) : ConditionWidget(parent)
{
    layOut(this).row(
        {defectsOnly_ = check(QStringLiteral("DefectOnly"), QStringLiteral("Выводить только дефектные элементы")),
         stretch()});
}

void ReportDefectOnliCheckWidget::give(ReportParameters& parameters) const
{
    parameters.defectsOnly = defectsOnly_->isChecked();
}

std::vector<Condition> makeConditions(quint32 conditions)
{
    const ProjectSession& now = session();
    struct Row {
        quint32 bit;
        std::function<ConditionWidget*()> make;
    };
    const Row rows[] = {
        {condition::cycles, [] { return new ReportCyclesSelectionWidget; }},
        {condition::projectPart, [] { return new ReportTreeProjectPartWidget; }},
        // The only kind that asks for elements is about thermal wells.
        {condition::elements, [] { return new ReportTreeFilterElementsWidget(FamilyKey::Ts); }},
        {condition::positions, [] { return new ReportPositionSelectorWidget; }},
        {condition::singleCycle, [] { return new ReportSingleCycleSelectionWidget; }},
        {condition::temperatureMap, [&now] { return new ReportColorMapSelectionWidget(now.temperatureColormapId); }},
        {condition::deformationMap, [&now] { return new ReportColorMapSelectionWidget(now.deformationColormapId); }},
        {condition::temperatureDifferenceMap,
         [&now] { return new ReportColorMapSelectionWidget(now.dynamicTemperatureColormapId); }},
        {condition::folder, [] { return new ReportFolderSelectionWidget; }},
        {condition::defectsOnly, [] { return new ReportDefectOnliCheckWidget; }},
    };
    std::vector<Condition> made;
    for (const Row& row : rows) {
        if (conditions & row.bit)
            made.push_back({row.bit, row.make()});
    }
    return made;
}
