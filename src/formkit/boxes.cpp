#include "formkit/boxes.h"

#include "formkit/modal.h"

#include <QMessageBox>
#include <QPushButton>
#include <memory>

namespace formkit {

namespace {

// The box over its parent, or over the host's window.
class Box {
public:
    Box(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
        QMessageBox::StandardButtons buttons)
        : host_(parent ? nullptr : std::make_unique<OverHost>()),
          box(icon, title, text, buttons, host_ ? static_cast<QWidget*>(*host_) : parent)
    {
        box.setTextFormat(Qt::PlainText);
    }

private:
    std::unique_ptr<OverHost> host_;

public:
    QMessageBox box;
};

} // namespace

QString attention() { return QStringLiteral("Внимание"); }

void warn(QWidget* parent, const QString& text, const QString& title)
{
    Box(parent, QMessageBox::Warning, title, text, QMessageBox::Ok).box.exec();
}

void inform(QWidget* parent, const QString& text, const QString& title)
{
    Box(parent, QMessageBox::Information, title, text, QMessageBox::Ok).box.exec();
}

bool confirm(QWidget* parent, const Question& question)
{
    static const QMessageBox::Icon icons[] = {QMessageBox::Question, QMessageBox::Warning, QMessageBox::Critical};
    Box asked(parent, icons[int(question.look)], question.title, question.text, QMessageBox::Yes | QMessageBox::No);
    asked.box.setDefaultButton(question.preset == Preset::Yes ? QMessageBox::Yes : QMessageBox::No);
    return asked.box.exec() == QMessageBox::Yes;
}

int ask(QWidget* parent, const QString& text, const QVector<Answer>& answers, int preset, const QString& title)
{
    Box asked(parent, QMessageBox::Question, title, text, QMessageBox::NoButton);
    QVector<QPushButton*> buttons;
    for (const Answer& answer : answers)
        buttons.append(asked.box.addButton(answer.caption, answer.agrees ? QMessageBox::YesRole : QMessageBox::NoRole));
    asked.box.setDefaultButton(buttons.value(preset));
    asked.box.setEscapeButton(buttons.value(preset));
    asked.box.exec();
    for (int i = 0; i < buttons.size(); ++i) {
        if (asked.box.clickedButton() == buttons[i])
            return i;
    }
    return preset;
}

} // namespace formkit
