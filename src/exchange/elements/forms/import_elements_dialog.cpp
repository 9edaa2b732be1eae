#include "exchange/elements/forms/import_elements_dialog.h"

#include "elements/families/kinds.h"
#include "exchange/forms/import_questions.h"
#include "exchange/forms/role_view.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "hostkit/console.h"

#include <QScopedValueRollback>

using namespace formkit;

namespace {

const QString usualFormat = QStringLiteral("По умолчанию(*.csv)");
const QString noType = QStringLiteral("none");
const QStringList roleTexts = {"Имя",         "X",      "Y",       "Абс. отм.",      "Отм. Земли",
                               "Заглубление", "Высота", "Позиция", "Поворот маркера"};

// In the order of the combo.
const FamilyKey typeOrder[] = {FamilyKey::Dm,  FamilyKey::Ts,  FamilyKey::Tss, FamilyKey::Rp,
                               FamilyKey::Ggs, FamilyKey::Tsg, FamilyKey::Igs};

Choices typeChoices()
{
    Choices choices = {{"Тип элемента", noType}};
    for (const FamilyKey key : typeOrder) {
        const sql::Result rows = session().run(compose("SELECT type_id,name FROM %1", Identifier(family(key).types)));
        for (int i = 0; i < rows.ntuples(); ++i)
            choices.append({rows.getvalue(i, 1), rows.getvalue(i, 0)}); // the key is a text
    }
    return choices;
}

ColumnRoles rememberedRoles()
{
    ColumnRoles roles(ElementRole::Count);
    for (int role = 0; role < ElementRole::Count; ++role) {
        if (session().importColumns[size_t(role)] >= 0)
            roles.give(role, session().importColumns[size_t(role)]);
    }
    return roles;
}

int subobjectOf(int positionId)
{
    const sql::Result row =
        session().run(compose("select subobject_id from positions where position_id = %1", positionId));
    return row.hasRow() ? row.toInt(0, 0) : session().currentSubobjectId;
}

} // namespace

ImportElementsDialog::ImportElementsDialog(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "ImportElementsDialog", "Импорт элементов ГМН");
    layOut(this).column({
        row({
            button("OpenFileBtn", "Открыть", this, &ImportElementsDialog::chooseFile),
            growing(fileName_ = readOnly(edit("FileName"))),
            "Шаблон",
            combo("ImportTemplate", {{usualFormat, 0}}),
        }),
        row({
            encodingGroup(),
            separatorGroup(),
            group("Чтение").column({
                byRows_ = radio("ImportByRows", "По строкам", true),
                byColumns_ = radio("ImportByColumns", "По столбцам"),
                update_ = check("AttribUpdate", "Обновление аттрибутов по всей базе"),
                stretch(),
            }),
        }),
        targetGroup(),
        growing(tabs("Pages").pages({
            {"Файл", raw_ = named<RoleView>("RawInput", roleTexts)},
            {"Просмотр", preview_ = table("ImportPrewiew", importTitles())}, // scripts know the table by this spelling
        })),
        row({
            stretch(),
            button("ImportBtn", "Импорт", this, &ImportElementsDialog::runImport),
            button("CloseBtn", "Закрыть", this, &ImportElementsDialog::reject),
        }),
    });
    fillChoices();
    raw_->setRoles(rememberedRoles());
    connectChanges();
    resize(1120, 720);
}

QWidget* ImportElementsDialog::targetGroup()
{
    catalogCaption_ = label("Тип конструкции");
    return group("Элементы")
        .grid({
            {"Проект", growing(readOut("Project", session().projectName)), "Тип элемента",
             growing(types_ = narrowCombo("ElTypeCombo", 14))},
            {"Позиция проекта", growing(positions_ = narrowCombo("PositionsCombo", 14)), catalogCaption_,
             growing(catalog_ = narrowCombo("CatalogCombo", 14))},
        });
}

void ImportElementsDialog::fillChoices()
{
    addChoices(types_, typeChoices());
    addChoices(positions_,
               choicesOf(session().run("select position_id, position, subobject_id from positions join "
                                       "subobjects using(subobject_id) order by "
                                       "subobjects.appearence,positions.appearence")));
    positions_->setCurrentIndex(positions_->findData(session().currentPositionId));
    addChoices(catalog_, choicesOf(session().run("select catalog_id,name,note from tsg_catalog"), 2));
    catalog_->hide();
    catalogCaption_->hide();
}

void ImportElementsDialog::connectChanges()
{
    onChange(this, [this] { readFile(); });
    connect(raw_, &RoleView::rolesChanged, this, &ImportElementsDialog::readRecords);
    connect(byColumns_, &QRadioButton::toggled, this, [this](bool on) {
        raw_->setDirection(on ? Qt::Vertical : Qt::Horizontal);
        readRecords();
    });
    connect(update_, &QCheckBox::toggled, this, &ImportElementsDialog::showRecords);
    const auto chosen = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(positions_, chosen, this, &ImportElementsDialog::showRecords);
    connect(types_, chosen, this, [this] {
        const Family* family = familyOfKind(chosenKind());
        catalog_->setVisible(family && family->hasDepth);
        catalogCaption_->setVisible(family && family->hasDepth);
        showRecords();
    });
}

void ImportElementsDialog::reject()
{
    if (!busy_)
        QDialog::reject();
}

// --- what is read --------------------------------------------------------------

void ImportElementsDialog::chooseFile()
{
    const QString path = askFileToOpen(this, {"Открыть файл", usualFormat, fileName_->text()});
    if (path.isEmpty())
        return;
    fileName_->setText(path);
    readFile();
}

void ImportElementsDialog::readFile()
{
    if (busy_ || fileName_->text().isEmpty())
        return;
    const TextFile file = readTextFile(fileName_->text(), encoding());
    for (const QString& remark : file.remarks)
        say(QLatin1Char('\n') + remark);
    lines_ = file.lines;
    raw_->setLines(lines_, separator());
    readRecords();
}

void ImportElementsDialog::readRecords()
{
    rememberColumns();
    records_ = readElements(cellsOf(lines_, separator(), byColumns_->isChecked()), raw_->roles());
    showRecords();
}

void ImportElementsDialog::rememberColumns() const
{
    for (int role = 0; role < ElementRole::Count; ++role)
        session().importColumns[size_t(role)] = raw_->roles().columnOf(role);
}

int ImportElementsDialog::chosenKind() const
{
    const QString typeId = types_->currentData().toString();
    return typeId.isEmpty() || typeId == noType ? noKind : kindByTypeId(typeId);
}

QHash<QString, int> ImportElementsDialog::knownIds() const
{
    QHash<QString, int> ids;
    const Family* family = familyOfKind(chosenKind());
    if (!family)
        return ids;
    const sql::Result rows =
        session().run(compose("SELECT element_id, element_name, x, y,z from %1 where position_id=%2",
                              Identifier(family->elements), chosenId(positions_)));
    for (int i = 0; i < rows.ntuples(); ++i)
        ids.insert(rows.getvalue(i, 1), rows.toInt(i, 0));
    return ids;
}

// --- what is shown ---------------------------------------------------------------

void ImportElementsDialog::showRecords()
{
    const bool updates = update_->isChecked();
    const QStringList& titles = updates ? updateTitles() : importTitles();
    preview_->clear();
    preview_->setColumnCount(titles.size());
    preview_->setHorizontalHeaderLabels(titles);
    preview_->setRowCount(records_.size());
    const QHash<QString, int> ids = updates ? QHash<QString, int>() : knownIds();
    if (updates)
        base_.load();
    for (int row = 0; row < records_.size(); ++row)
        showRow(row, updates ? updatePreview(records_[row], base_) : importPreview(records_[row], ids));
    preview_->resizeColumnsToContents();
}

void ImportElementsDialog::showRow(int row, const QVector<PreviewCell>& cells)
{
    for (int column = 0; column < cells.size(); ++column) {
        QTableWidgetItem* item = textItem(cells[column].text);
        if (cells[column].tone != PreviewCell::Plain)
            item->setForeground(cells[column].tone == PreviewCell::Good ? Qt::darkGreen : Qt::red);
        preview_->setItem(row, column, item);
    }
}

// --- what is written -------------------------------------------------------------

bool ImportElementsDialog::isReady()
{
    if (update_->isChecked())
        return true;
    if (chosenKind() == noKind)
        warn(this, "Не выбран тип элемента");
    else if (chosenId(positions_) == -1 && !raw_->roles().has(ElementRole::Position))
        warn(this, "Нет информации о позиции элемента");
    else
        return true;
    return false;
}

void ImportElementsDialog::runImport()
{
    if (busy_ || !isReady())
        return;
    {
        const QScopedValueRollback<bool> writing(busy_, true);
        ProgressBox box(this, windowTitle(), "Импорт элементов...");
        const ElementImportProgress progress = [&box](int done, int total) { return box.step(done, total); };
        const int position = chosenId(positions_);
        const ElementImportTask task{chosenKind(), position, subobjectOf(position),
                                     catalog_->isVisible() ? chosenId(catalog_) : -1};
        if (update_->isChecked())
            updateElements(records_, base_, progress);
        else
            importElements(
                records_, task, [this](const QString& text) { return askUpdate(text, this); }, progress);
    }
    showRecords();
}
