#include "box_actions.h"

#include "widget_access.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace {

const struct {
    QDialogButtonBox::StandardButton button;
    const char* english;
    const char* russian;
} kStandardButtons[] = {
    {QDialogButtonBox::Ok, "OK", "ОК"},
    {QDialogButtonBox::Cancel, "Cancel", "Отмена"},
    {QDialogButtonBox::Yes, "Yes", "Да"},
    {QDialogButtonBox::No, "No", "Нет"},
    {QDialogButtonBox::YesToAll, "Yes to All", "Да для всех"},
    {QDialogButtonBox::NoToAll, "No to All", "Нет для всех"},
    {QDialogButtonBox::Save, "Save", "Сохранить"},
    {QDialogButtonBox::SaveAll, "Save All", "Сохранить все"},
    {QDialogButtonBox::Open, "Open", "Открыть"},
    {QDialogButtonBox::Close, "Close", "Закрыть"},
    {QDialogButtonBox::Discard, "Discard", "Не сохранять"},
    {QDialogButtonBox::Apply, "Apply", "Применить"},
    {QDialogButtonBox::Abort, "Abort", "Прервать"},
    {QDialogButtonBox::Retry, "Retry", "Повторить"},
    {QDialogButtonBox::Ignore, "Ignore", "Пропустить"},
    {QDialogButtonBox::Help, "Help", "Справка"},
};

QAbstractButton* standardButton(QWidget* window, QDialogButtonBox::StandardButton which)
{
    if (auto* box = qobject_cast<QMessageBox*>(window))
        return box->button(QMessageBox::StandardButton(int(which)));
    for (QDialogButtonBox* box : window->findChildren<QDialogButtonBox*>())
        if (QAbstractButton* button = box->button(which))
            return button;
    return nullptr;
}

} // namespace

QAbstractButton* findBoxButton(QWidget* window, const QString& name)
{
    for (const auto& row : kStandardButtons)
        if (name == QString::fromUtf8(row.russian) || name == QString::fromUtf8(row.english))
            return standardButton(window, row.button);
    return nullptr;
}

QString chooseFiles(QWidget* window, const QStringList& paths)
{
    auto* dialog = qobject_cast<QFileDialog*>(window);
    if (!dialog)
        return QStringLiteral("окно не выбирает файлы");
    QStringList absolute;
    for (const QString& path : paths)
        absolute << QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    const bool open = dialog->acceptMode() == QFileDialog::AcceptOpen;
    for (const QString& path : absolute)
        if (open && !QFileInfo::exists(path))
            return QStringLiteral("нет файла «") + path + QStringLiteral("»");
    if (absolute.size() > 1 && dialog->fileMode() != QFileDialog::ExistingFiles)
        return QStringLiteral("окно берёт один файл");
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!edit)
        return QStringLiteral("в окне нет поля имени файла");
    const QString quote = QStringLiteral("\"");
    edit->setText(absolute.size() == 1 ? absolute.first() : quote + absolute.join(QStringLiteral("\" \"")) + quote);
    static_cast<QDialog*>(dialog)->accept();
    return {};
}

QString chooseColor(QWidget* window, const QStringList& words)
{
    const QStringList parts = words[0].split(QLatin1Char(','));
    if (auto* dialog = qobject_cast<QColorDialog*>(window)) {
        if (parts.size() != 3)
            return QStringLiteral("цвет пишется как R,G,B");
        dialog->setCurrentColor(QColor(parts[0].toInt(), parts[1].toInt(), parts[2].toInt()));
        static_cast<QDialog*>(dialog)->accept();
        return {};
    }
    QWidget* field = findNamedWidget(window, QStringLiteral("colorValue"));
    auto* form = qobject_cast<QDialog*>(window);
    if (!field || !form)
        return QStringLiteral("окно не выбирает цвет");
    QString wrong = setWidgetValue(field, words[0]);
    if (wrong.isEmpty())
        form->accept();
    return wrong;
}
