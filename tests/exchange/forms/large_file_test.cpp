// A file of many rows in the window of an import: its reading tells how far it is and can be
// stopped, and only the rows in sight are given their heights.
#include "exchange/forms/dialog_fixture.h"
#include "exchange/forms/import_controls.h"
#include "exchange/forms/measures_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <functional>

namespace {

constexpr int manyRows = 3000;
constexpr int readByRead = 5; // rows between two of an element that is not known

class LargeFiles : public ImportDialogs {
protected:
    void SetUp() override
    {
        ImportDialogs::SetUp();
        dialog = std::make_unique<MeasureImportDialog>(*importFamily(FamilyKey::Dm));
        dialog->show();
        QByteArray text = "Имя;Дата;Отметка;SN прибора\n";
        for (int row = 0; row < manyRows; ++row)
            text += row % readByRead == readByRead - 1 ? "Неизвестная марка;15.05.2099;1;Чужой прибор\n"
                                                       : "Т-1;15.01.2021;" + QByteArray::number(row) + ";SN-1\n";
        dialog->findChild<QRadioButton*>("EncodingCP1251")->setChecked(true);
        dialog->findChild<QLineEdit*>("FileName")->setText(write(text));
    }

    void read() { dialog->findChild<QRadioButton*>("EncodingUTF8")->setChecked(true); }

    MeasuresView* view() { return dialog->findChild<MeasuresView*>("measuresView"); }
    QString remark() { return dialog->findChild<QLabel*>("RemarkLabel")->text(); }

    // What the box of progress says while `work` is done, each text once; the box is cancelled at
    // one of them.
    QStringList boxes(const std::function<void()>& work, const QString& cancelAt = {})
    {
        QStringList texts;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            auto* box = dialog->findChild<QProgressDialog*>();
            if (!box)
                return;
            if (!texts.contains(box->labelText()))
                texts << box->labelText();
            if (box->labelText() == cancelAt)
                box->cancel();
        });
        look.start(0);
        work();
        return texts;
    }

    bool hasItsHeight(int row)
    {
        const int height = view()->rowHeight(row);
        view()->resizeRowToContents(row);
        return height == view()->rowHeight(row);
    }

    std::unique_ptr<MeasureImportDialog> dialog;
};

} // namespace

TEST_F(LargeFiles, ReadingThemTellsItsStepsAndKeepsEveryRow)
{
    EXPECT_EQ(boxes([this] { read(); }), QStringList({"Чтение файла", "Разбор строк", "Проверка строк"}));
    ASSERT_EQ(view()->model()->rowCount(), manyRows);
    EXPECT_EQ(remark(), "");
    const int unknown = readByRead - 1;
    EXPECT_EQ(view()->model()->index(unknown, 1).data(), "Неизвестная марка (ID: -1)");
    EXPECT_EQ(view()->model()->index(manyRows - 2, 5).data(), QString::number(manyRows - 2));
}

TEST_F(LargeFiles, ReadingThemCanBeStoppedAtEveryStep)
{
    for (const char* step : {"Чтение файла", "Разбор строк", "Проверка строк"}) {
        boxes([this] { read(); }, step);
        EXPECT_EQ(view()->model()->rowCount(), 0) << step;
        EXPECT_EQ(remark(), "Чтение файла остановлено.") << step;
        EXPECT_TRUE(console.text().endsWith("\nЧтение файла остановлено.\n")) << step;
        dialog->findChild<QRadioButton*>("EncodingCP1251")->setChecked(true);
        read();
        EXPECT_EQ(view()->model()->rowCount(), manyRows) << "read anew behind " << step;
        EXPECT_EQ(remark(), "");
        dialog->findChild<QRadioButton*>("EncodingCP1251")->setChecked(true);
    }
}

TEST_F(LargeFiles, AValueForAllRowsIsGivenToAllWhateverTheBoxIsTold)
{
    read();
    auto* performers = dialog->findChild<QComboBox*>("OperatorCombo");
    performers->setCurrentIndex(performers->findData(1));
    const auto give = [this] { dialog->findChild<QPushButton*>("BTNOperatorToAll")->click(); };
    EXPECT_EQ(boxes(give, "Проверка строк"), QStringList("Проверка строк"));
    for (int row = 0; row < manyRows; ++row)
        ASSERT_EQ(view()->model()->index(row, 4).data(), "Иванов Иван - Иванов") << row;
    const QString summary = dialog->findChild<QLabel*>("SummaryLabel")->text();
    EXPECT_TRUE(summary.startsWith("Всего: 3000 | Без данных: 0 | Верифицированных: 2400 ")) << summary;
}

TEST_F(LargeFiles, CopyingTheRestStopsWithoutHalfOfIt)
{
    read();
    QApplication::clipboard()->setText("прежнее");
    const auto copy = [this] { dialog->findChild<QPushButton*>("CopyErrorsBtn")->click(); };
    boxes(copy, "Копирование строк");
    EXPECT_EQ(QApplication::clipboard()->text(), "прежнее");
    copy();
    EXPECT_EQ(QApplication::clipboard()->text().count('\n'), manyRows);
}

TEST_F(LargeFiles, RowsGetTheirHeightsWhenTheyAreSeen)
{
    read();
    QApplication::processEvents();
    const int usual = view()->verticalHeader()->defaultSectionSize();
    const int middle = manyRows / 2 / readByRead * readByRead + readByRead - 1;
    EXPECT_EQ(view()->rowHeight(middle), usual) << "nobody has looked at it";
    EXPECT_GT(view()->rowHeight(readByRead - 1), usual) << "a status of many words";
    for (const int place : {0, manyRows / 2, manyRows - 1}) {
        view()->scrollTo(view()->model()->index(place, 0));
        QApplication::processEvents();
        const QRect seen = view()->visualRect(view()->model()->index(place, 0));
        EXPECT_TRUE(view()->viewport()->rect().contains(seen.center())) << place;
        EXPECT_LE(seen.bottom(), view()->viewport()->height()) << place;
        const int last = view()->rowAt(view()->viewport()->height() - 1);
        for (int row = view()->rowAt(0); row <= (last < 0 ? manyRows - 1 : last); ++row)
            EXPECT_TRUE(hasItsHeight(row)) << row;
    }
    view()->verticalScrollBar()->setValue(middle);
    EXPECT_GT(view()->rowHeight(middle), usual) << "by the bar";
}
