#include "exchange/forms/import_questions.h"

#include "formkit/boxes.h"

ImportAnswer askImport(const QString& text, QWidget* parent)
{
    static const QVector<formkit::Answer> answers = {
        {"Да", QMessageBox::YesRole},
        {"Да для всех", QMessageBox::YesRole},
        {"Нет", QMessageBox::NoRole},
        {"Нет для всех", QMessageBox::NoRole},
    };
    static const ImportAnswer meanings[] = {ImportAnswer::Yes, ImportAnswer::YesToAll, ImportAnswer::No,
                                            ImportAnswer::NoToAll};
    return meanings[formkit::ask(parent, text, answers, 2)];
}
