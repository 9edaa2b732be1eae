#include "exchange/forms/devices_import_form.h"

#include "exchange/forms/import_questions.h"
#include "exchange/forms/role_view.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "hostkit/console.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

const QString usualFormat = QStringLiteral("По умолчанию(*.csv)");
const QStringList roleTexts = {"Имя", "Серийный номер", "Описание"};
constexpr int firstRemembered = 9; // of the session's columns: those before are of elements

ColumnRoles rememberedRoles()
{
    ColumnRoles roles(DeviceRole::Count);
    for (int role = 0; role < DeviceRole::Count; ++role) {
        const int column = session().importColumns[size_t(firstRemembered + role)];
        if (column >= 0)
            roles.give(role, column);
    }
    return roles;
}

} // namespace

DevicesImportForm::DevicesImportForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "DevicesImportForm", "Импорт устройств");
    layOut(this).column({
        row({
            button("OpenFileBtn", "Открыть", this, &DevicesImportForm::chooseFile),
            growing(fileName_ = readOnly(edit("FileName"))),
            "Шаблон",
            combo("ImportTemplate", {{usualFormat, 0}}),
        }),
        row({encodingGroup(), separatorGroup(), stretch()}),
        growing(tabs("Pages").pages({
            {"Файл", raw_ = named<RoleView>("RawInput", roleTexts)},
            {"Просмотр", preview_ = table("ImportPreview", roleTexts + QStringList{"Статус"})},
        })),
        row({
            stretch(),
            button("ImportBtn", "Импорт", this, &DevicesImportForm::runImport),
            button("CloseBtn", "Закрыть", this, &DevicesImportForm::reject),
        }),
    });
    raw_->setRoles(rememberedRoles());
    connect(raw_, &RoleView::rolesChanged, this, &DevicesImportForm::showDevices);
    onChange(this, [this] { readFile(); });
    resize(760, 560);
}

void DevicesImportForm::chooseFile()
{
    const QString path = askFileToOpen(this, {"Открыть файл", usualFormat, fileName_->text()});
    if (path.isEmpty())
        return;
    fileName_->setText(path);
    readFile();
}

void DevicesImportForm::readFile()
{
    if (fileName_->text().isEmpty())
        return;
    const TextFile file = readTextFile(fileName_->text(), encoding());
    for (const QString& remark : file.remarks)
        say(QLatin1Char('\n') + remark);
    lines_ = file.lines;
    raw_->setLines(lines_, separator());
    showDevices();
}

void DevicesImportForm::showDevices()
{
    for (int role = 0; role < DeviceRole::Count; ++role)
        session().importColumns[size_t(firstRemembered + role)] = raw_->roles().columnOf(role);
    devices_ = readDevices(lines_, separator(), raw_->roles());
    preview_->setRowCount(devices_.size());
    for (int row = 0; row < devices_.size(); ++row) {
        const DeviceRecord& device = devices_[row];
        QTableWidgetItem* status = textItem(device.isValid() ? "ОК" : "Ошибка");
        if (!device.isValid())
            status->setForeground(Qt::red);
        preview_->setItem(row, 0, textItem(device.name));
        preview_->setItem(row, 1, textItem(device.serial));
        preview_->setItem(row, 2, textItem(device.description));
        preview_->setItem(row, 3, status);
    }
    fitColumns(preview_);
}

void DevicesImportForm::runImport()
{
    importDevices(devices_, [this](const QString& text) { return askUpdate(text, this); });
}
