#include "database/catalogues/forms/state_form.h"

#include "database/catalogues/forms/catalogue_rows.h"

#include <QLineEdit>

StateForm::StateForm(QWidget* parent) : RecordDialog(stateRecord(), parent) { }

void StateForm::shown() { fields().widget<QLineEdit>("StateID")->setEnabled(isNew()); }
