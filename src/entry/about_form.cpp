#include "entry/about_form.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

AboutForm::AboutForm(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("AboutForm"));
    setWindowTitle(QStringLiteral("О программе"));

    auto* text = new QLabel(QStringLiteral("<h2>Терва</h2>"
                                           "<p>Геотехнический мониторинг зданий на многолетнемёрзлых грунтах</p>"
                                           "<p>Версия %1</p>")
                                .arg(QStringLiteral(TERVA_VERSION)),
                            this);
    text->setObjectName(QStringLiteral("AboutText"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
}
