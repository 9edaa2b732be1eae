#include "drawing/forms/enumerator_form.h"

#include "drawing/next_name.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

EnumeratorForm::EnumeratorForm(Enumerator& enumerator, QWidget* parent)
    : QDialog(parent),
      enumerator_(enumerator),
      prefix_(new QLineEdit(enumerator.prefix, this)),
      counter_(new QLineEdit(QString::number(enumerator.counter), this)),
      trailing_(new QSpinBox(this)),
      preview_(new QLabel(this))
{
    setWindowTitle("Настройка нумерации");
    prefix_->setObjectName("Prefix");
    counter_->setObjectName("Counter");
    trailing_->setObjectName("Trailing");
    trailing_->setRange(0, 999);
    trailing_->setValue(enumerator.trailing);
    preview_->setObjectName("TextLabel");
    preview_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    preview_->setTextFormat(Qt::PlainText);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton("OK", QDialogButtonBox::AcceptRole)->setObjectName("OkBtn");
    buttons->addButton("Отмена", QDialogButtonBox::RejectRole)->setObjectName("CancelBtn");

    auto* layout = new QFormLayout(this);
    layout->addRow("Префикс", prefix_);
    layout->addRow("Счетчик", counter_);
    layout->addRow("Число знаков", trailing_);
    layout->addRow("Следующее имя", preview_);
    layout->addRow(buttons);
    setMinimumWidth(320);

    connect(prefix_, &QLineEdit::textChanged, this, &EnumeratorForm::showPreview);
    connect(counter_, &QLineEdit::textChanged, this, &EnumeratorForm::showPreview);
    connect(trailing_, qOverload<int>(&QSpinBox::valueChanged), this, &EnumeratorForm::showPreview);
    connect(buttons, &QDialogButtonBox::accepted, this, &EnumeratorForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &EnumeratorForm::reject);
    showPreview();
}

void EnumeratorForm::accept()
{
    enumerator_ = entered();
    QDialog::accept();
}

Enumerator EnumeratorForm::entered() const
{
    // A counter that is no number counts as 0.
    return {prefix_->text(), counter_->text().toInt(), trailing_->value()};
}

void EnumeratorForm::showPreview() { preview_->setText(nextName(entered())); }
