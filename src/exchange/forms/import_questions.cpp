#include "exchange/forms/import_questions.h"

#include "formkit/boxes.h"

ImportAnswer askImport(const QString& text, QWidget* parent)
{
    static const QVector<formkit::Answer> answers = {
        {"Да", true},
        {"Да для всех", true},
        {"Нет", false},
        {"Нет для всех", false},
    };
    static const ImportAnswer meanings[] = {ImportAnswer::Yes, ImportAnswer::YesToAll, ImportAnswer::No,
                                            ImportAnswer::NoToAll};
    return meanings[formkit::ask(parent, text, answers, 2)];
}
