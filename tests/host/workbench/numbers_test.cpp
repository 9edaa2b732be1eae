// Numbers on the screen: docs/decisions/0016-numbers-on-the-screen.md.
#include "window_fixture.h"

#include <workbench/shown_number.h>

#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace {

class Numbers : public MainWindowTest {
protected:
    ~Numbers() override { QLocale::setDefault(before); }
    static void speak(QLocale::Language language) { QLocale::setDefault(QLocale(language)); }
    // What a spin box holds after these keys.
    double typed(const QString& keys)
    {
        QDialog form(window.get());
        auto* field = new QDoubleSpinBox(&form);
        form.show();
        field->setFocus();
        field->selectAll();
        for (const QChar& key : keys)
            QTest::keyClick(field, key.toLatin1());
        shown = field->text();
        return field->value();
    }
    const QLocale before;
    QString shown;
};

} // namespace

TEST_F(Numbers, TheWindowWritesThemAsTheLocaleDoes)
{
    speak(QLocale::Russian);
    EXPECT_EQ(shownNumber(12345.5), QStringLiteral("12345,500"));
    EXPECT_EQ(shownExact(2.5), QStringLiteral("2,5"));
    showHundred();
    move(20, 10);
    const QString coordinates = window->findChild<QLabel*>(QStringLiteral("coordinates"))->text();
    EXPECT_TRUE(coordinates.contains(QLatin1Char(','))) << coordinates;
    EXPECT_FALSE(coordinates.contains(QLatin1Char('.'))) << coordinates;
    speak(QLocale::C);
    EXPECT_EQ(shownNumber(12345.5), QStringLiteral("12345.500"));
}

TEST_F(Numbers, TheCommandLineWritesAPointBecauseACommaPartsCoordinates)
{
    speak(QLocale::Russian);
    window->runLine(QStringLiteral("DIST 0,0 2.5,0"));
    EXPECT_TRUE(history().contains(QStringLiteral("2.500"))) << history();
    EXPECT_FALSE(history().contains(QStringLiteral("2,500"))) << history();
}

TEST_F(Numbers, ASpinBoxTakesAPointAndAComma)
{
    for (const QLocale::Language language : {QLocale::Russian, QLocale::C}) {
        speak(language);
        EXPECT_EQ(typed(QStringLiteral("2.5")), 2.5) << shown;
        EXPECT_EQ(typed(QStringLiteral("2,5")), 2.5) << shown;
    }
    speak(QLocale::Russian);
    typed(QStringLiteral("2.5"));
    EXPECT_TRUE(shown.startsWith(QStringLiteral("2,5"))) << shown;
}

TEST_F(Numbers, EnterLeavesANumbersFieldAndNotTheForm)
{
    QDialog form(window.get());
    auto* column = new QVBoxLayout(&form);
    auto* line = new QLineEdit;
    line->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[-0-9.]*")), line));
    auto* spin = new QDoubleSpinBox;
    auto* caption = new QLabel(QStringLiteral("между ними"));
    auto* name = new QLineEdit;
    auto* ok = new QPushButton(QStringLiteral("OK"));
    ok->setDefault(true);
    for (QWidget* part : std::initializer_list<QWidget*>{line, caption, spin, name, ok})
        column->addWidget(part);
    QObject::connect(ok, &QPushButton::clicked, &form, &QDialog::accept);
    form.show();
    form.activateWindow();
    line->setFocus();
    QTest::qWait(20);
    int edited = 0;
    QObject::connect(line, &QLineEdit::editingFinished, &form, [&edited] { ++edited; });
    QTest::keyClicks(line, QStringLiteral("2.5"));
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_GE(edited, 1);
    EXPECT_TRUE(spin->hasFocus()) << "the next field, not the caption before it";
    QTest::keyClick(spin, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(name->hasFocus());
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible()) << "in a text Enter accepts";
}

TEST_F(Numbers, WhatIsTypedIntoAPropertyIsReadEitherWay)
{
    double read = 0.0;
    EXPECT_TRUE(readNumber(QStringLiteral("2,5"), read));
    EXPECT_EQ(read, 2.5);
    EXPECT_TRUE(readNumber(QStringLiteral("-3.25"), read));
    EXPECT_EQ(read, -3.25);
    EXPECT_FALSE(readNumber(QStringLiteral("1,2,3"), read));
}
