#include "formkit/widgets.h"

#include "formkit/icons.h"
#include "formkit/number_validator.h"

#include <QHeaderView>

namespace formkit {

namespace {

constexpr int kCaptionMargins = 28; // what a button's style adds to its caption
constexpr int kTextMargins = 12;    // what a text's frame adds to its lines
constexpr int kIconSize = 20;

} // namespace

void nameForm(QWidget* form, const QString& name, const QString& title)
{
    form->setObjectName(name);
    form->setWindowTitle(title);
}

QLabel* label(const QString& caption) { return new QLabel(caption); }

QLabel* readOut(const QString& name, const QString& text)
{
    auto* shown = named<QLabel>(name, text);
    shown->setTextFormat(Qt::PlainText);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return shown;
}

QLabel* note(const QString& name, const QString& text)
{
    auto* shown = named<QLabel>(name, text);
    shown->setWordWrap(true);
    return shown;
}

QPlainTextEdit* logBox(const QString& name, int lines)
{
    QPlainTextEdit* log = readOnly(linesEdit(name, lines));
    log->setTabChangesFocus(false);
    log->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return log;
}

void appendToLog(QPlainTextEdit* log, const QString& text)
{
    log->moveCursor(QTextCursor::End);
    log->insertPlainText(text);
    log->ensureCursorVisible();
}

QLineEdit* edit(const QString& name, const QString& text) { return named<QLineEdit>(name, text); }

QLineEdit* passwordEdit(const QString& name)
{
    QLineEdit* field = edit(name);
    field->setEchoMode(QLineEdit::Password);
    return field;
}

QLineEdit* numberEdit(const QString& name, const QString& text)
{
    QLineEdit* field = edit(name, text);
    field->setValidator(new NumberValidator(field));
    return field;
}

QPlainTextEdit* linesEdit(const QString& name, int leastLines)
{
    auto* field = named<QPlainTextEdit>(name);
    field->setTabChangesFocus(true);
    field->setMinimumHeight(field->fontMetrics().lineSpacing() * leastLines + kTextMargins);
    return field;
}

QDateEdit* dateEdit(const QString& name, const QDate& date)
{
    auto* field = named<QDateEdit>(name, date);
    field->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    field->setCalendarPopup(true);
    return field;
}

QSpinBox* spin(const QString& name, int least, int most, int value)
{
    auto* field = named<QSpinBox>(name);
    field->setRange(least, most);
    field->setValue(value);
    return field;
}

QDoubleSpinBox* realSpin(const QString& name, double least, double most, double step, int decimals)
{
    auto* field = named<QDoubleSpinBox>(name);
    field->setDecimals(decimals);
    field->setRange(least, most);
    field->setSingleStep(step);
    return field;
}

QSlider* slider(const QString& name, int least, int most, int value)
{
    auto* field = named<QSlider>(name, Qt::Horizontal);
    field->setRange(least, most);
    field->setSingleStep(1);
    field->setValue(value);
    return field;
}

QComboBox* combo(const QString& name, const Choices& choices)
{
    auto* box = named<QComboBox>(name);
    addChoices(box, choices);
    return box;
}

QComboBox* narrowCombo(const QString& name, int characters, const Choices& choices)
{
    QComboBox* box = combo(name, choices);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(characters);
    return box;
}

QCheckBox* check(const QString& name, const QString& caption, bool on)
{
    auto* box = named<QCheckBox>(name, caption);
    box->setChecked(on);
    return box;
}

QRadioButton* radio(const QString& name, const QString& caption, bool on)
{
    auto* box = named<QRadioButton>(name, caption);
    box->setChecked(on);
    return box;
}

QListWidget* listBox(const QString& name) { return named<QListWidget>(name); }

QTableWidget* table(const QString& name, const QStringList& titles)
{
    auto* made = named<QTableWidget>(name, 0, titles.size());
    made->setHorizontalHeaderLabels(titles);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return made;
}

QPushButton* button(const QString& name, const QString& caption)
{
    auto* made = named<QPushButton>(name, caption);
    made->setAutoDefault(false);
    return made;
}

QToolButton* toolButton(const QString& name, const QString& caption, const QString& iconName, const QString& tip)
{
    auto* made = named<QToolButton>(name);
    made->setText(caption);
    made->setIcon(icon(iconName));
    made->setIconSize(QSize(kIconSize, kIconSize));
    made->setAutoRaise(true);
    made->setToolTip(tip.isEmpty() ? caption : tip);
    return made;
}

QPushButton* dotsButton(const QString& name)
{
    const QString dots = QStringLiteral("...");
    QPushButton* made = button(name, dots);
    keepRoomFor(made, dots);
    made->setFixedWidth(made->minimumWidth());
    return made;
}

void keepRoomFor(QPushButton* button, const QString& caption)
{
    const int needed = button->fontMetrics().horizontalAdvance(caption) + kCaptionMargins;
    button->setMinimumWidth(qMax(button->minimumWidth(), needed));
}

} // namespace formkit
