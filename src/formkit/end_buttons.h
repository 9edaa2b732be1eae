#pragma once
// The buttons that end a form.

#include <QDialogButtonBox>
#include <QString>
#include <initializer_list>

class QDialog;

namespace formkit {

struct EndButton {
    QString name;
    QString caption;
    QDialogButtonBox::ButtonRole role;
};

EndButton accepts(const QString& name, const QString& caption); ///< ends with accept()
EndButton rejects(const QString& name, const QString& caption); ///< ends with reject()
EndButton ok(const QString& name = QStringLiteral("OkBtn"));
EndButton cancel(const QString& name = QStringLiteral("CancelBtn"));

/// The buttons in a box that calls the form's accept() and reject(). The first
/// that accepts is what Enter presses.
QDialogButtonBox* endButtons(QDialog* form, std::initializer_list<EndButton> buttons);

} // namespace formkit
