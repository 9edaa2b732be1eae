#include "exchange/forms/import_controls.h"

#include "exchange/forms/measures_view.h"

#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

template <class Control>
Control* named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

QPushButton* makeButton(const char* caption, const char* name)
{
    auto* button = named(new QPushButton(QString::fromUtf8(caption)), name);
    button->setAutoDefault(false);
    return button;
}

QRadioButton* makeRadio(const char* caption, const char* name)
{
    return named(new QRadioButton(QString::fromUtf8(caption)), name);
}

// Long entries do not widen the dialog.
QComboBox* makeCombo(const char* name)
{
    auto* combo = named(new QComboBox, name);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(10);
    return combo;
}

QPushButton* makeNarrowButton(const char* caption, const char* name)
{
    QPushButton* button = makeButton(caption, name);
    button->setMaximumWidth(48);
    return button;
}

} // namespace

ImportControls::ImportControls(QDialog* dialog)
{
    auto* format = new QHBoxLayout;
    format->addWidget(encodingGroup());
    format->addWidget(separatorGroup());
    format->addWidget(elementsGroup(), 1);

    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(fileGroup());
    layout->addLayout(format);
    layout->addWidget(forAllGroup());
    layout->addWidget(tabs(), 1);
    ReadProgress = named(new QProgressBar, "ReadProgress");
    ReadProgress->setFormat(QStringLiteral("%p% (%v / %m)"));
    ReadProgress->setValue(0);
    layout->addWidget(ReadProgress);
    layout->addWidget(bottomRow());
    dialog->resize(1240, 700);
}

QWidget* ImportControls::fileGroup()
{
    auto* group = new QWidget;
    auto* layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    OpenFileBtn = makeButton("Открыть файл", "OpenFileBtn");
    FileName = named(new QLineEdit, "FileName");
    FileName->setReadOnly(true);
    ImportTemplate = makeCombo("ImportTemplate");
    layout->addWidget(OpenFileBtn);
    layout->addWidget(FileName, 1);
    layout->addWidget(new QLabel(QStringLiteral("Шаблон")));
    layout->addWidget(ImportTemplate);
    return group;
}

QWidget* ImportControls::encodingGroup()
{
    auto* group = new QGroupBox(QStringLiteral("Кодировка"));
    auto* layout = new QVBoxLayout(group);
    EncodingCP1251 = makeRadio("Windows 1251", "EncodingCP1251");
    EncodingUTF8 = makeRadio("UTF-8", "EncodingUTF8");
    EncodingUTF8->setChecked(true);
    layout->addWidget(EncodingUTF8);
    layout->addWidget(EncodingCP1251);
    layout->addStretch();
    return group;
}

QWidget* ImportControls::separatorGroup()
{
    auto* group = new QGroupBox(QStringLiteral("Разделитель"));
    auto* layout = new QGridLayout(group);
    // The "o" of the first caption is a Latin one: scripts know the button by it.
    SeparatorSemi = makeRadio("Тoчка с запятой (;)", "SeparatorSemi");
    SeparatorComma = makeRadio("Запятая (,)", "SeparatorComma");
    SeparatorTab = makeRadio("Табуляция", "SeparatorTab");
    SeparatorSpace = makeRadio("Пробел", "SeparatorSpace");
    SeparatorCustom = makeRadio("Пользовательский", "SeparatorCustom");
    CustomSepValue = named(new QLineEdit(QStringLiteral("|")), "CustomSepValue");
    CustomSepValue->setMaximumWidth(64);
    CustomSepValue->setEnabled(false);
    SeparatorSemi->setChecked(true);
    layout->addWidget(SeparatorSemi, 0, 0);
    layout->addWidget(SeparatorComma, 1, 0);
    layout->addWidget(SeparatorTab, 2, 0);
    layout->addWidget(SeparatorSpace, 0, 1);
    layout->addWidget(SeparatorCustom, 1, 1);
    layout->addWidget(CustomSepValue, 2, 1);
    layout->setRowStretch(3, 1);
    return group;
}

QWidget* ImportControls::elementsGroup()
{
    auto* group = new QGroupBox(QStringLiteral("Элементы"));
    auto* layout = new QGridLayout(group);
    ProjectPosition = makeRadio("Установленная позиция проекта", "ProjectPosition");
    AllDatabase = makeRadio("По всей базе", "AllDatabase");
    PositionCombo = makeCombo("PositionCombo");
    PositionLabel = named(new QLabel, "PositionLabel");
    PositionLabel->setWordWrap(true);
    ProjectPosition->setChecked(true);
    layout->addWidget(ProjectPosition, 0, 0);
    layout->addWidget(AllDatabase, 1, 0);
    layout->addWidget(new QLabel(QStringLiteral("Позиция")), 0, 1);
    layout->addWidget(PositionCombo, 0, 2);
    layout->addWidget(PositionLabel, 1, 1, 1, 2);
    layout->setColumnStretch(2, 1);
    return group;
}

QWidget* ImportControls::forAllGroup()
{
    auto* group = new QGroupBox(QStringLiteral("Для всех строк"));
    forAll_ = new QGridLayout(group);
    CyclesCombo = makeCombo("CyclesCombo");
    DeviceCombo = makeCombo("DeviceCombo");
    OperatorCombo = makeCombo("OperatorCombo");
    struct Line {
        const char* label;
        QComboBox* combo;
        const char* toAll;
        const char* list;
        QPushButton*& toAllButton;
        QPushButton*& listButton;
    };
    const Line lines[] = {
        {"Цикл измерений ", CyclesCombo, "BTNCyclesToAll", "BTNCycleList", BTNCyclesToAll, BTNCycleList},
        {"Инструмент", DeviceCombo, "BTNToolToAll", "BTNDevicesList", BTNToolToAll, BTNDevicesList},
        {"Оператор", OperatorCombo, "BTNOperatorToAll", "BTNPerformersList", BTNOperatorToAll, BTNPerformersList},
    };
    for (const Line& line : lines) {
        line.toAllButton = addForAllRow(QString::fromUtf8(line.label), line.combo, QString::fromLatin1(line.toAll));
        line.listButton = makeNarrowButton("...", line.list);
        forAll_->addWidget(line.listButton, 1, forAll_->columnCount());
    }
    return group;
}

QPushButton* ImportControls::addForAllRow(const QString& label, QWidget* value, const QString& buttonName)
{
    const int column = forAll_->count() == 0 ? 0 : forAll_->columnCount();
    auto* caption = new QLabel(label);
    caption->setBuddy(value);
    QPushButton* toAll = makeNarrowButton("Все", buttonName.toLatin1().constData());
    forAll_->addWidget(caption, 0, column);
    forAll_->addWidget(value, 1, column);
    forAll_->addWidget(toAll, 1, column + 1);
    forAll_->setColumnStretch(column, 1);
    return toAll;
}

QWidget* ImportControls::tabs()
{
    auto* pages = new QTabWidget;
    measuresView = named(new MeasuresView, "measuresView");
    RawInput = named(new QTableView, "RawInput");
    RawInput->setEditTriggers(QAbstractItemView::NoEditTriggers);
    RawInput->horizontalHeader()->setDefaultSectionSize(140);
    pages->addTab(measuresView, QStringLiteral("Измерения"));
    pages->addTab(RawInput, QStringLiteral("Просмотр"));
    return pages;
}

QWidget* ImportControls::bottomRow()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    SummaryLabel = named(new QLabel, "SummaryLabel");
    SummaryLabel->setWordWrap(true);
    ImportBtn = makeButton("Импорт", "ImportBtn");
    CopyErrorsBtn = makeButton("Копировать ошибки", "CopyErrorsBtn");
    CloseBtn = makeButton("Закрыть", "CloseBtn");
    layout->addWidget(SummaryLabel, 1);
    layout->addWidget(ImportBtn);
    layout->addWidget(CopyErrorsBtn);
    layout->addWidget(CloseBtn);
    return row;
}

QString ImportControls::separator() const
{
    if (SeparatorComma->isChecked())
        return QStringLiteral(",");
    if (SeparatorTab->isChecked())
        return QStringLiteral("\t");
    if (SeparatorSpace->isChecked())
        return QStringLiteral(" ");
    if (SeparatorCustom->isChecked())
        return CustomSepValue->text();
    return QStringLiteral(";");
}

TextEncoding ImportControls::encoding() const
{
    return EncodingCP1251->isChecked() ? TextEncoding::Windows1251 : TextEncoding::Utf8;
}

void ImportControls::chooseUsualFormat()
{
    EncodingUTF8->setChecked(true);
    SeparatorSemi->setChecked(true);
}
