#include "exchange/forms/import_questions.h"

#include "formkit/boxes.h"

namespace {

ImportAnswer askOfFour(const QString& text, QWidget* parent, const QString& yesToAll, const QString& noToAll)
{
    const QVector<formkit::Answer> answers = {{"Да", true}, {yesToAll, true}, {"Нет", false}, {noToAll, false}};
    static const ImportAnswer meanings[] = {ImportAnswer::Yes, ImportAnswer::YesToAll, ImportAnswer::No,
                                            ImportAnswer::NoToAll};
    return meanings[formkit::ask(parent, text, answers, 2)];
}

} // namespace

ImportAnswer askImport(const QString& text, QWidget* parent)
{
    return askOfFour(text, parent, "Да для всех", "Нет для всех");
}

ImportAnswer askUpdate(const QString& text, QWidget* parent)
{
    return askOfFour(text, parent, "Да (все)", "Нет (все)");
}
