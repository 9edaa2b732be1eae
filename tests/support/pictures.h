#pragma once
// Pictures of forms: kept where TERVA_PICTURES says, for the documentation and
// for looking at; otherwise they are only taken.

#include <QString>
#include <QWidget>

/// Shows the form, lets its layout settle, looks at it (see looks.h) and takes its picture. What belongs to the machine
/// alone (folders, databases, the server's port and password) is shown by neutral texts and
/// stands in the form again afterwards. False when there is nothing to see or the picture
/// could not be kept.
bool takePicture(QWidget& form, const QString& name);

/// The text as a picture shows it.
QString withoutMachine(QString text);
