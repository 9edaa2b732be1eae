#include "exchange/forms/import_questions.h"

#include <QMessageBox>
#include <QPushButton>

ImportAnswer askImport(const QString& text, QWidget* parent)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Внимание"), text, QMessageBox::NoButton, parent);
    const QAbstractButton* yes = box.addButton(QStringLiteral("Да"), QMessageBox::YesRole);
    const QAbstractButton* yesToAll = box.addButton(QStringLiteral("Да для всех"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(QStringLiteral("Нет"), QMessageBox::NoRole);
    const QAbstractButton* noToAll = box.addButton(QStringLiteral("Нет для всех"), QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    box.exec();
    if (box.clickedButton() == yes)
        return ImportAnswer::Yes;
    if (box.clickedButton() == yesToAll)
        return ImportAnswer::YesToAll;
    return box.clickedButton() == noToAll ? ImportAnswer::NoToAll : ImportAnswer::No;
}
