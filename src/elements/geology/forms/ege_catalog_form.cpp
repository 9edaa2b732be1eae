#include "elements/geology/forms/ege_catalog_form.h"

#include "base/placeholders.h"
#include "elements/geology/ege_files.h"
#include "elements/geology/forms/ege_edit_dialog.h"
#include "elements/geology/forms/igs_layer_hatch_delegate.h"
#include "exchange/text_file.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/progress_box.h"
#include "formkit/widgets.h"

#include "files/written_file.h"

#include <QAbstractItemView>
#include <QFile>
#include <QHeaderView>

using namespace formkit;

namespace {

enum Column { CodeColumn, NameColumn, DescriptionColumn, HatchColumn };
constexpr int lookRole = Qt::UserRole + 1;
constexpr int shownProblems = 10;
constexpr int hatchWidth = 180;

const QString fault = QStringLiteral("Ошибка");
const QString fileFilter = QStringLiteral("CSV Files (*.csv)");
const QByteArray byteOrderMark = "\xEF\xBB\xBF";

Catalogue egeCatalogue()
{
    Catalogue catalogue;
    catalogue.listName = "EGETable";
    catalogue.statement = "SELECT ege_id FROM geology_ege_catalog ORDER BY COALESCE(code, '')";
    catalogue.texts = 0; // an entry is read by its own statement
    catalogue.titles = {"Код", "Название", "Описание", "Штриховка"};
    catalogue.question = "Удалить ИГЭ %1 ?";
    catalogue.remove = "DELETE FROM geology_ege_catalog WHERE ege_id = %1";
    catalogue.record = [](QWidget* parent) -> std::unique_ptr<RecordDialog> {
        return std::make_unique<EGEEditDialog>(parent);
    };
    catalogue.createsByMenu = false;
    catalogue.create.name = catalogue.edit.name = catalogue.erase.name = QString();
    return catalogue;
}

GroundLook lookOf(const EgeValues& entry)
{
    GroundLook look;
    look.pattern = entry.value("hatch_pattern_name");
    look.color = groundColor(entry.value("color_hex"));
    if (!entry.value("hatch_scale").isEmpty())
        look.scale = entry.value("hatch_scale").toDouble();
    return look;
}

EgeImport importLines(QWidget* parent, const QStringList& lines, const EgeColumns& columns)
{
    ProgressBox box(parent, "Импорт из CSV", "Импорт ИГЭ...");
    const auto step = [&box](int done, int total) { return box.step(done, total); };
    return importEgeFile(lines.join(QLatin1Char('\n')), columns, step);
}

} // namespace

EGECatalogList::EGECatalogList(QWidget* parent) : CatalogueList(egeCatalogue(), parent)
{
    view()->setItemDelegateForColumn(HatchColumn, new IGSLayerHatchDelegate(lookRole, this));
}

void EGECatalogList::refresh()
{
    columns_ = loadEgeColumns().value_or(EgeColumns());
    CatalogueList::refresh();
    if (auto* table = qobject_cast<QTableWidget*>(view())) {
        table->horizontalHeader()->setStretchLastSection(false);
        table->horizontalHeader()->setSectionResizeMode(DescriptionColumn, QHeaderView::Stretch);
        table->setColumnWidth(HatchColumn, hatchWidth);
    }
}

void EGECatalogList::dress(int row, const QString& key)
{
    const EgeValues entry = loadEge(columns_, key.toInt()).value_or(EgeValues());
    QAbstractItemModel* model = view()->model();
    const auto put = [&](Column column, const char* name) {
        model->setData(model->index(row, column), entry.value(name));
    };
    put(CodeColumn, "code");
    put(NameColumn, "name");
    put(DescriptionColumn, "description");
    const GroundLook look = lookOf(entry);
    const QModelIndex hatch = model->index(row, HatchColumn);
    model->setData(hatch, look.color);
    model->setData(hatch, QVariant::fromValue(look), lookRole);
    model->setData(hatch, fill("%1 %2", look.pattern, look.color).trimmed(), Qt::ToolTipRole);
}

bool EGECatalogList::mayDelete(const QString& key)
{
    const std::optional<int> uses = countEgeUses(key.toInt());
    if (!uses) {
        warn(this, session().connection.errorMessage(), "Ошибка базы данных");
        return false;
    }
    if (*uses > 0) {
        warn(this, fill("Невозможно удалить ИГЭ. Он используется в %1 слоях.", *uses));
        return false;
    }
    const QModelIndex code = view()->currentIndex().sibling(view()->currentIndex().row(), CodeColumn);
    return confirm(this, fill("Удалить ИГЭ %1 ?", code.data().toString()));
}

EGECatalogForm::EGECatalogForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "EGECatalogForm", "Каталог ИГЭ");
    list_ = new EGECatalogList;
    layOut(this).column({
        growing(list_),
        row({
            button("CreateBTN", "Создать", list_, &EGECatalogList::createEntry),
            button("ImportBTN", "Импорт из CSV", this, &EGECatalogForm::importFile),
            button("ExportBTN", "Экспорт в CSV", this, &EGECatalogForm::exportFile),
            stretch(),
            button("CloseBTN", "Закрыть", this, &EGECatalogForm::reject),
        }),
    });
    resize(820, 480);
    list_->refresh();
}

void EGECatalogForm::importFile()
{
    const QString path = askFileToOpen(this, {"Импорт из CSV", fileFilter});
    if (path.isEmpty())
        return;
    if (!QFile(path).open(QIODevice::ReadOnly))
        return warn(this, "Не удалось открыть файл для чтения", fault);
    const TextFile file = readTextFile(path, TextEncoding::Utf8);
    if (!file.remarks.isEmpty())
        warn(this, file.remarks.join(QLatin1Char('\n')));
    const std::optional<EgeColumns> columns = loadEgeFileColumns();
    if (!columns || columns->isEmpty())
        return warn(this, "Не удалось прочитать структуру данных ИГЭ из БД", fault);
    const EgeImport import = importLines(this, file.lines, *columns);
    if (!import.refusal.isEmpty())
        return warn(this, import.refusal, fault);
    list_->refresh();
    if (!import.problems.isEmpty())
        warn(this,
             fill("Не записаны строки (%1):\n%2", import.problems.size(),
                  QStringList(import.problems.mid(0, shownProblems)).join(QLatin1Char('\n'))),
             "Ошибка базы данных");
    inform(this, fill("Создано новых: %1\nОбновлено существующих: %2", import.created, import.updated),
           "Импорт завершен");
}

void EGECatalogForm::exportFile()
{
    const std::optional<EgeColumns> columns = loadEgeFileColumns();
    const std::optional<QString> text = columns ? egeFileText(*columns) : std::nullopt;
    if (!text)
        return warn(this, "Не удалось прочитать структуру данных ИГЭ из БД", fault);
    if (text->isEmpty())
        return warn(this, "Каталог пуст. Нечего экспортировать.");
    const QString path = askFileToSave(this, {"Экспорт в CSV", fileFilter});
    if (path.isEmpty())
        return;
    QString problem;
    if (!saveFile(path, byteOrderMark + text->toUtf8(), &problem))
        warn(this, fill("Не удалось открыть файл для записи\n%1: %2", path, problem), fault);
}
