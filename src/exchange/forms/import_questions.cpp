#include "exchange/forms/import_questions.h"

#include "formkit/boxes.h"
#include "formkit/for_all.h"

ImportAnswer askImport(const QString& text, QWidget* parent)
{
    switch (formkit::askForAll(parent, text, formkit::attention())) {
    case formkit::ForAllAnswer::Yes: return ImportAnswer::Yes;
    case formkit::ForAllAnswer::YesToAll: return ImportAnswer::YesToAll;
    case formkit::ForAllAnswer::NoToAll: return ImportAnswer::NoToAll;
    case formkit::ForAllAnswer::No: break;
    }
    return ImportAnswer::No;
}
