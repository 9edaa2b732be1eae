#include "formkit/end_buttons.h"

#include <QDialog>
#include <QPushButton>

namespace formkit {

EndButton accepts(const QString& name, const QString& caption) { return {name, caption, QDialogButtonBox::AcceptRole}; }

EndButton rejects(const QString& name, const QString& caption) { return {name, caption, QDialogButtonBox::RejectRole}; }

EndButton ok(const QString& name) { return accepts(name, QStringLiteral("OK")); }

EndButton cancel(const QString& name) { return rejects(name, QStringLiteral("Отмена")); }

QDialogButtonBox* endButtons(QDialog* form, std::initializer_list<EndButton> buttons)
{
    auto* box = new QDialogButtonBox;
    bool hasDefault = false;
    for (const EndButton& wanted : buttons) {
        QPushButton* made = box->addButton(wanted.caption, wanted.role);
        made->setObjectName(wanted.name);
        if (hasDefault || wanted.role != QDialogButtonBox::AcceptRole)
            continue;
        made->setDefault(true);
        hasDefault = true;
    }
    QObject::connect(box, &QDialogButtonBox::accepted, form, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, form, &QDialog::reject);
    return box;
}

} // namespace formkit
