#include "widget_access.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDial>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTextEdit>
#include <cmath>

namespace {

QString plainCaption(const QString& text)
{
    QString plain;
    for (int i = 0; i < text.size(); ++i)
        if (text[i] != QLatin1Char('&') || (i > 0 && text[i - 1] == QLatin1Char('&')))
            plain += text[i];
    return plain;
}

QWidget* inputField(QWidget* window)
{
    auto* dialog = qobject_cast<QInputDialog*>(window);
    if (!dialog)
        return nullptr;
    for (QWidget* widget : dialog->findChildren<QWidget*>())
        if (widget->isVisible()
            && (qobject_cast<QComboBox*>(widget) || qobject_cast<QAbstractSpinBox*>(widget)
                || qobject_cast<QPlainTextEdit*>(widget) || qobject_cast<QLineEdit*>(widget)))
            return widget;
    return nullptr;
}

// -1 when no item fits "index:N", "data:X" or the text.
template <class TextAt, class DataAt>
int itemIndex(int count, const QString& value, TextAt textAt, DataAt dataAt)
{
    if (value.startsWith(QLatin1String("index:"))) {
        bool ok = false;
        const int index = value.mid(6).toInt(&ok);
        return ok && index >= 0 && index < count ? index : -1;
    }
    const bool byData = value.startsWith(QLatin1String("data:"));
    for (int i = 0; i < count; ++i)
        if (byData ? dataAt(i) == value.mid(5) : textAt(i) == value)
            return i;
    return -1;
}

QString noItem(const QString& value) { return QStringLiteral("нет элемента «") + value + QStringLiteral("»"); }

QString setCombo(QComboBox* combo, const QString& value)
{
    const int index = itemIndex(
        combo->count(), value, [&](int i) { return combo->itemText(i); },
        [&](int i) { return combo->itemData(i).toString(); });
    if (index < 0 && combo->isEditable()) {
        combo->setEditText(value);
        if (combo->lineEdit()) {
            QMetaObject::invokeMethod(combo->lineEdit(), "textEdited", Q_ARG(QString, value));
            QMetaObject::invokeMethod(combo->lineEdit(), "editingFinished");
        }
        return {};
    }
    if (index < 0)
        return noItem(value);
    combo->setCurrentIndex(index);
    // What a user's choice sends and a program's does not.
    QMetaObject::invokeMethod(combo, "activated", Q_ARG(int, index));
    QMetaObject::invokeMethod(combo, "activated", Q_ARG(QString, combo->itemText(index)));
    QMetaObject::invokeMethod(combo, "textActivated", Q_ARG(QString, combo->itemText(index)));
    return {};
}

QString setTab(QTabBar* tabs, const QString& value)
{
    const int index = itemIndex(
        tabs->count(), value, [&](int i) { return plainCaption(tabs->tabText(i)); },
        [&](int i) { return tabs->tabData(i).toString(); });
    if (index < 0)
        return noItem(value);
    tabs->setCurrentIndex(index);
    return {};
}

QString setList(QListWidget* list, const QString& value)
{
    const int row = itemIndex(
        list->count(), value, [&](int i) { return list->item(i)->text(); },
        [&](int i) { return list->item(i)->data(Qt::UserRole).toString(); });
    if (row < 0)
        return noItem(value);
    list->setCurrentRow(row);
    emit list->itemClicked(list->item(row));
    return {};
}

QString setLine(QLineEdit* edit, const QString& value)
{
    if (edit->isReadOnly())
        return QStringLiteral("поле только для чтения");
    if (edit->maxLength() < value.size())
        return QStringLiteral("в поле входит знаков: ") + QString::number(edit->maxLength());
    int position = 0;
    QString checked = value;
    if (edit->validator() && edit->validator()->validate(checked, position) == QValidator::Invalid)
        return QStringLiteral("поле не принимает «") + value + QStringLiteral("»");
    edit->setText(value);
    QMetaObject::invokeMethod(edit, "textEdited", Q_ARG(QString, value));
    QMetaObject::invokeMethod(edit, "editingFinished");
    return {};
}

QString setSpin(QAbstractSpinBox* box, const QString& value)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        return QStringLiteral("«") + value + QStringLiteral("» не число");
    double met = number;
    if (auto* whole = qobject_cast<QSpinBox*>(box)) {
        whole->setValue(int(number));
        met = whole->value();
    } else if (auto* real = qobject_cast<QDoubleSpinBox*>(box)) {
        real->setValue(number);
        met = real->value();
    }
    emit box->editingFinished();
    // A box of real numbers rounds to its decimals.
    const auto* rounding = qobject_cast<QDoubleSpinBox*>(box);
    const double gap = rounding ? 0.5 * std::pow(10.0, -rounding->decimals()) : 0.0;
    if (qAbs(met - number) > gap + 1e-12)
        return QStringLiteral("поле приняло ") + QString::number(met);
    return {};
}

QString setDate(QDateTimeEdit* edit, const QString& value)
{
    QDateTime moment = QDateTime::fromString(value, edit->displayFormat());
    if (!moment.isValid())
        moment = QDateTime::fromString(value, Qt::ISODate);
    if (!moment.isValid())
        return QStringLiteral("«") + value + QStringLiteral("» не дата");
    edit->setDateTime(moment);
    emit edit->editingFinished();
    return {};
}

QString setChecked(QWidget* widget, const QString& value)
{
    const bool on = value == QLatin1String("on");
    if (!on && value != QLatin1String("off"))
        return QStringLiteral("нужно on или off");
    if (auto* group = qobject_cast<QGroupBox*>(widget)) {
        if (!group->isCheckable())
            return QStringLiteral("рамка без флажка");
        group->setChecked(on);
        return {};
    }
    auto* button = static_cast<QAbstractButton*>(widget);
    if (!button->isCheckable())
        return QStringLiteral("кнопка без флажка");
    if (button->isChecked() != on)
        button->click();
    return button->isChecked() == on ? QString() : QStringLiteral("флажок не меняется");
}

QString setStack(QStackedWidget* stack, const QString& value)
{
    const int index = itemIndex(
        stack->count(), value, [&](int i) { return stack->widget(i)->objectName(); }, [](int) { return QString(); });
    if (index < 0)
        return noItem(value);
    stack->setCurrentIndex(index);
    return {};
}

QString setSlider(QAbstractSlider* slider, const QString& value)
{
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok || number < slider->minimum() || number > slider->maximum())
        return QStringLiteral("«") + value + QStringLiteral("» вне шкалы");
    slider->setValue(number);
    return {};
}

} // namespace

QWidget* findNamedWidget(QWidget* window, const QString& name)
{
    QWidget* at = window;
    const QStringList path = name.split(QLatin1Char('/'));
    for (const QString& part : path) {
        QWidget* found = part == QLatin1String("input") ? inputField(at) : nullptr;
        if (!found)
            found = at->findChild<QWidget*>(part);
        if (!found)
            return nullptr;
        at = found;
    }
    return at;
}

QAbstractButton* findButton(QWidget* window, const QString& nameOrCaption)
{
    if (auto* named = qobject_cast<QAbstractButton*>(findNamedWidget(window, nameOrCaption)))
        return named;
    QAbstractButton* hidden = nullptr;
    for (QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
        if (plainCaption(button->text()) != nameOrCaption)
            continue;
        if (button->isVisible())
            return button;
        hidden = button;
    }
    return hidden;
}

QString setWidgetValue(QWidget* widget, const QString& value)
{
    if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        return setTab(tabs->tabBar(), value);
    if (!widget->isEnabled())
        return QStringLiteral("поле недоступно");
    if (auto* edit = qobject_cast<QLineEdit*>(widget))
        return setLine(edit, value);
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        return setCombo(combo, value);
    if (auto* date = qobject_cast<QDateTimeEdit*>(widget))
        return setDate(date, value);
    if (auto* box = qobject_cast<QAbstractSpinBox*>(widget))
        return setSpin(box, value);
    if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QGroupBox*>(widget))
        return setChecked(widget, value);
    if (auto* tabs = qobject_cast<QTabBar*>(widget))
        return setTab(tabs, value);
    if (auto* list = qobject_cast<QListWidget*>(widget))
        return setList(list, value);
    if (auto* slider = qobject_cast<QAbstractSlider*>(widget))
        return setSlider(slider, value);
    if (auto* stack = qobject_cast<QStackedWidget*>(widget))
        return setStack(stack, value);
    if (auto* text = qobject_cast<QTextEdit*>(widget)) {
        text->setPlainText(value);
        return text->isReadOnly() ? QStringLiteral("поле только для чтения") : QString();
    }
    if (auto* text = qobject_cast<QPlainTextEdit*>(widget)) {
        text->setPlainText(value);
        return text->isReadOnly() ? QStringLiteral("поле только для чтения") : QString();
    }
    return QStringLiteral("в это поле ничего не вводят");
}

bool widgetValue(const QWidget* widget, QString& value)
{
    if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
        return widgetValue(tabs->tabBar(), value);
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget))
        value = plainCaption(tabs->tabText(tabs->currentIndex()));
    else if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        value = edit->text();
    else if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        value = combo->currentText();
    else if (const auto* date = qobject_cast<const QDateTimeEdit*>(widget))
        value = date->text();
    else if (const auto* whole = qobject_cast<const QSpinBox*>(widget))
        value = QString::number(whole->value());
    else if (const auto* real = qobject_cast<const QDoubleSpinBox*>(widget))
        value = QString::number(real->value(), 'f', real->decimals());
    else if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        value = group->isCheckable() ? QString::fromLatin1(group->isChecked() ? "on" : "off")
                                     : plainCaption(group->title());
    else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        value = button->isCheckable() ? QString::fromLatin1(button->isChecked() ? "on" : "off")
                                      : plainCaption(button->text());
    else if (const auto* list = qobject_cast<const QListWidget*>(widget))
        value = list->currentItem() ? list->currentItem()->text() : QString();
    else if (const auto* slider = qobject_cast<const QAbstractSlider*>(widget))
        value = QString::number(slider->value());
    else if (const auto* stack = qobject_cast<const QStackedWidget*>(widget))
        value = QStringLiteral("index:") + QString::number(stack->currentIndex());
    else if (const auto* text = qobject_cast<const QTextEdit*>(widget))
        value = text->toPlainText();
    else if (const auto* text = qobject_cast<const QPlainTextEdit*>(widget))
        value = text->toPlainText();
    else if (const auto* label = qobject_cast<const QLabel*>(widget))
        value = label->buddy() ? plainCaption(label->text()) : label->text();
    else if (const auto* bar = qobject_cast<const QProgressBar*>(widget))
        value = QString::number(bar->value());
    else
        return false;
    return true;
}

bool widgetItems(const QWidget* widget, QStringList& items)
{
    items.clear();
    if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
        return widgetItems(tabs->tabBar(), items);
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            items << plainCaption(tabs->tabText(i));
    } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        for (int i = 0; i < combo->count(); ++i)
            items << combo->itemText(i);
    } else if (const auto* list = qobject_cast<const QListWidget*>(widget)) {
        for (int i = 0; i < list->count(); ++i)
            items << list->item(i)->text();
    } else {
        return false;
    }
    return true;
}

bool sameValue(const QString& met, const QString& expected)
{
    if (met == expected)
        return true;
    bool first = false, second = false;
    const double a = met.toDouble(&first), b = expected.toDouble(&second);
    return first && second && a == b;
}

QString describeWidget(const QWidget* widget)
{
    return QStringLiteral("«") + widget->objectName() + QStringLiteral("» (")
        + QString::fromLatin1(widget->metaObject()->className()) + QStringLiteral(")");
}
