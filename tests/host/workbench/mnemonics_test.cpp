// The letters by which Alt reaches the parts of a form.
#include "window_fixture.h"

#include <workbench/form_mnemonics.h>
#include <workbench/print_dialog.h>

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>

#include <random>

namespace {

// What of a form has a caption, as it is shown.
QStringList captionsOf(const QWidget& form)
{
    QStringList captions;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            captions << button->text();
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            captions << label->text();
        if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            captions << group->title();
        if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                captions << tabs->tabText(i);
    }
    return captions;
}

QStringList plain(QStringList captions)
{
    for (QString& caption : captions)
        caption = withoutMnemonic(caption);
    return captions;
}

// Letters that two captions have.
QStringList twice(const QStringList& captions)
{
    QStringList met, found;
    for (const QString& caption : captions) {
        const QString letter = mnemonicOf(caption).isNull() ? QString() : QString(mnemonicOf(caption));
        if (!letter.isEmpty() && met.contains(letter))
            found << letter + QStringLiteral(": ") + caption;
        met << letter;
    }
    return found;
}

void press(QWidget& form, QChar letter)
{
    QTest::sendKeyEvent(QTest::Click, form.focusWidget() ? form.focusWidget() : &form,
                        Qt::Key(letter.toUpper().unicode()), QString(letter), Qt::AltModifier);
}

// A form with one of each.
class FullForm : public QDialog {
public:
    explicit FullForm(QWidget* parent) : QDialog(parent)
    {
        auto* column = new QVBoxLayout(this);
        auto* fields = new QFormLayout;
        fields->addRow(QStringLiteral("Глубина, м"), depth = new QSpinBox);
        fields->addRow(QStringLiteral("Примечание"), note = new QLineEdit);
        fields->addRow(QStringLiteral("Значение"), new QLabel(QStringLiteral("5,25")));
        column->addLayout(fields);
        column->addWidget(box = new QCheckBox(QStringLiteral("по забою")));
        column->addWidget(mean = new QRadioButton(QStringLiteral("Средневзвешенное по глубине")));
        column->addWidget(colour = new QPushButton(QStringLiteral("#AABBCC")));
        colour->setProperty("showsValue", true);
        column->addWidget(group = new QGroupBox(QStringLiteral("Песок && глина")));
        pages = new QTabWidget;
        for (const char* title : {"Нормы", "Скважины"}) {
            auto* page = new QWidget;
            (new QVBoxLayout(page))->addWidget(new QPushButton(QStringLiteral("Экспорт в .CSV")));
            pages->addTab(page, QString::fromUtf8(title));
        }
        column->addWidget(pages);
        column->addWidget(read = new QPushButton(QStringLiteral("Прочитать")));
        column->addWidget(save = new QPushButton(QStringLiteral("Сохранить")));
        auto* ends = new QDialogButtonBox;
        accepts = ends->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
        rejects = ends->addButton(QStringLiteral("Отмена"), QDialogButtonBox::RejectRole);
        column->addWidget(ends);
        connect(ends, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }

    QSpinBox* depth;
    QLineEdit* note;
    QCheckBox* box;
    QRadioButton* mean;
    QGroupBox* group;
    QTabWidget* pages;
    QPushButton *colour, *read, *save, *accepts, *rejects;
};

using Mnemonics = MainWindowTest;

} // namespace

TEST_F(Mnemonics, EachPartOfAFormHasALetterWhenItIsShown)
{
    FullForm form(window.get());
    const QStringList before = captionsOf(form);
    form.show();
    EXPECT_EQ(plain(captionsOf(form)), before);
    EXPECT_EQ(form.read->text(), QStringLiteral("&Прочитать"));
    EXPECT_EQ(form.save->text(), QStringLiteral("&Сохранить"));
    EXPECT_EQ(form.pages->tabText(0), QStringLiteral("&Нормы"));
    EXPECT_EQ(form.pages->tabText(1), QStringLiteral("С&кважины")) << "the first letter is given away";
    EXPECT_EQ(form.box->text(), QStringLiteral("по &забою")) << "the first letter of a word rather than any other";
    EXPECT_EQ(form.mean->text(), QStringLiteral("Средневзвешенное по &глубине"));
    EXPECT_EQ(form.group->title(), QStringLiteral("П&есок && глина")) << "a doubled sign stays";
    EXPECT_EQ(form.accepts->text(), QStringLiteral("&OK"));
    EXPECT_FALSE(mnemonicOf(form.rejects->text()).isNull());
    EXPECT_EQ(form.colour->text(), QStringLiteral("#AABBCC")) << "its text is its value";
    QStringList together = captionsOf(form);
    together.removeAll(form.pages->widget(1)->findChild<QPushButton*>()->text());
    EXPECT_EQ(twice(together), QStringList());
    EXPECT_EQ(form.pages->widget(0)->findChild<QPushButton*>()->text(),
              form.pages->widget(1)->findChild<QPushButton*>()->text())
        << "pages are not seen together";

    const QStringList given = captionsOf(form);
    form.hide();
    form.show();
    EXPECT_EQ(captionsOf(form), given) << "shown again it keeps them";
}

TEST_F(Mnemonics, AltAndTheLetterReachThePart)
{
    FullForm form(window.get());
    form.show();
    form.activateWindow();
    QTest::qWait(30);
    int read = 0;
    QObject::connect(form.read, &QPushButton::clicked, &form, [&read] { ++read; });
    // A button that is reached so is seen pressed for a moment.
    press(form, QChar(0x041F)); // П
    EXPECT_TRUE(QTest::qWaitFor([&] { return read == 1; }));
    press(form, QChar(0x0417)); // З
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.box->isChecked(); }));
    press(form, QChar(0x0413)); // Г
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.mean->isChecked(); }));
    press(form, QChar(0x041A)); // К
    EXPECT_EQ(form.pages->currentIndex(), 1);
    const QLabel* caption = nullptr;
    for (const QLabel* label : form.findChildren<QLabel*>())
        if (label->buddy() == form.note)
            caption = label;
    ASSERT_FALSE(mnemonicOf(caption->text()).isNull()) << caption->text();
    press(form, mnemonicOf(caption->text()));
    EXPECT_TRUE(form.note->hasFocus());
    press(form, mnemonicOf(form.rejects->text()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
}

TEST_F(Mnemonics, LettersThatLookAlikeAreOne)
{
    QDialog form;
    auto* column = new QVBoxLayout(&form);
    auto* latin = new QPushButton(QStringLiteral("CSV"));
    auto* cyrillic = new QPushButton(QStringLiteral("Сброс"));
    column->addWidget(latin);
    column->addWidget(cyrillic);
    giveMnemonics(form);
    EXPECT_EQ(latin->text(), QStringLiteral("&CSV"));
    EXPECT_EQ(cyrillic->text(), QStringLiteral("С&брос"));
}

TEST_F(Mnemonics, WhatHasALetterKeepsItAndTheSecondOfTwoGetsAnother)
{
    QDialog form;
    auto* column = new QVBoxLayout(&form);
    QVector<QPushButton*> buttons;
    for (const char* text : {"Печать", "В &PDF", "По&дробно", "&Дальше", "АБ", "Б", "А", "12 %", ""}) {
        buttons << new QPushButton(QString::fromUtf8(text));
        column->addWidget(buttons.last());
    }
    auto* icon = new QToolButton;
    icon->setText(QStringLiteral("Жёлтый"));
    QPixmap picture(4, 4);
    picture.fill(Qt::gray);
    icon->setIcon(QIcon(picture));
    column->addWidget(icon);
    giveMnemonics(form);
    QStringList shown;
    for (const QPushButton* button : buttons)
        shown << button->text();
    EXPECT_EQ(shown, (QStringList{"&Печать", "В &PDF", "По&дробно", "Да&льше", "&АБ", "&Б", "А", "12 %", ""}))
        << shown.join('|');
    EXPECT_EQ(icon->text(), QStringLiteral("Жёлтый")) << "nobody would see the letter";
}

// Whatever a form holds.
TEST_F(Mnemonics, NoLetterStandsTwiceInAnyForm)
{
    std::mt19937 random(5);
    const QString letters = QStringLiteral("абвгдежзиклмнопрстуфхцчшэюя   &&ABCXх");
    for (int round = 0; round < 200; ++round) {
        QDialog form;
        auto* column = new QVBoxLayout(&form);
        const int count = int(random() % 40);
        for (int i = 0; i < count; ++i) {
            QString text;
            for (int c = int(random() % 12); c >= 0; --c)
                text += letters[int(random() % uint(letters.size()))];
            text.replace(QStringLiteral("&"), QStringLiteral("&&"));
            column->addWidget(i % 3 ? static_cast<QWidget*>(new QPushButton(text)) : new QCheckBox(text));
        }
        const QStringList before = captionsOf(form);
        giveMnemonics(form);
        EXPECT_EQ(plain(captionsOf(form)), before) << round;
        EXPECT_EQ(twice(captionsOf(form)), QStringList()) << round;
        const QStringList given = captionsOf(form);
        giveMnemonics(form);
        EXPECT_EQ(captionsOf(form), given) << round;
    }
}

TEST_F(Mnemonics, BoxesAndTheHostsFormsHaveThem)
{
    QMessageBox box(window.get());
    auto* open = box.addButton(QStringLiteral("Открыть копию"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    box.show();
    EXPECT_EQ(open->text(), QStringLiteral("&Открыть копию"));
    EXPECT_EQ(twice(captionsOf(box)), QStringList());
    QSettings settings(folder.filePath(QStringLiteral("s.ini")), QSettings::IniFormat);
    PrintDialog print(*view()->document().database(), Sheet(), {}, settings);
    print.show();
    EXPECT_EQ(twice(captionsOf(print)), QStringList());
    int without = 0;
    for (const QWidget* widget : print.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        without += button && button->isVisible() && !button->text().isEmpty() && mnemonicOf(button->text()).isNull();
    }
    EXPECT_EQ(without, 0);
}
