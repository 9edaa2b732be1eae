#include "analysis/grading/forms/positions_analytic_states_form.h"

#include "files/written_file.h"

#include "analysis/grading/attribute_texts.h"
#include "analysis/grading/forms/grade_items.h"
#include "analysis/grading/forms/position_passport.h"
#include "analysis/grading/stored_grades.h"
#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "session/forms/palette_refresh.h"

#include <QMenu>
#include <QTextCodec>

using namespace formkit;

namespace {

constexpr int kQuietTime = 10;   // ms before the progress is seen
constexpr int kCycleLength = 24; // characters of the cycle boxes

enum TableColumn { Object, Subobject, Position, HasNorms, Thermal, Settlement, Relative, State, TableColumns };

// The reason why there is no grade stands above the numbers.
QString tipOf(const QString& remark, const GradedSide& side)
{
    const QString counts = countsTip(side.counts);
    return remark.isEmpty() || counts.isEmpty() ? remark + counts : remark + QLatin1Char('\n') + counts;
}

} // namespace

PositionsAnalyticStatesForm::PositionsAnalyticStatesForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "PositionsAnalyticStatesForm", "Геотехническое состояние сооружений");
    layOut(this).column({
        row({"Исходный цикл",
             growing(baseCycle_ = narrowCombo("BaseCyclesCombo", kCycleLength, session().cycleEntries(" - "))),
             "Текущий цикл",
             growing(currentCycle_ = narrowCombo("CurrentCyclesCombo", kCycleLength, session().cycleEntries(" - "))),
             button("RunBTN", "Обработать", this, &PositionsAnalyticStatesForm::run)}),
        growing(table_ = table("PositionList",
                               {"Объект", "Подобъект", "Позиция", "Норм. значения", "Сост. грунтов", "Макс. осадка",
                                "Отн. осадка", "Сост. позиции"})),
        status_ = note("StatusLabel"),
        row({button("SaveStatsZ_btn", "Сохранить", this, &PositionsAnalyticStatesForm::save),
             button("ExportClipBTN", "Экспорт в буфер", this, [this] { copyTable(table_, WithTitles); }),
             button("ExportCSVBTN", "Экспорт в CSV", this, &PositionsAnalyticStatesForm::exportText), stretch(),
             endButtons(this, {rejects("CloseBtn", "Закрыть")})}),
    });
    resize(1320, 560);
    choose(baseCycle_, session().baseCycleId);
    if (!choose(currentCycle_, session().currentCycleId))
        currentCycle_->setCurrentIndex(currentCycle_->count() - 1);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table_, &QTableWidget::customContextMenuRequested, this, &PositionsAnalyticStatesForm::showMenu);
    for (QComboBox* combo : {baseCycle_, currentCycle_})
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &PositionsAnalyticStatesForm::clearGrades);
    loadPositions();
}

QPair<int, int> PositionsAnalyticStatesForm::cyclePair() const
{
    const QVector<int> chosen = session().cycleRange(chosenId(baseCycle_), chosenId(currentCycle_));
    return chosen.isEmpty() ? qMakePair(-1, -1) : qMakePair(chosen.first(), chosen.last());
}

void PositionsAnalyticStatesForm::loadPositions()
{
    if (!session().checkConnection()) {
        status_->setText(QStringLiteral("\nНе установлено соединение с базой данных\n"));
        return;
    }
    positions_ = listPositions();
    table_->setRowCount(positions_.size());
    for (int row = 0; row < positions_.size(); ++row) {
        table_->setItem(row, Object, textItem(positions_[row].object));
        table_->setItem(row, Subobject, textItem(positions_[row].subobject));
        table_->setItem(row, Position, textItem(positions_[row].position));
    }
    clearGrades();
    fitColumns(table_);
}

void PositionsAnalyticStatesForm::clearGrades()
{
    grades_.clear();
    for (int row = 0; row < table_->rowCount(); ++row) {
        for (int column = HasNorms; column < TableColumns; ++column)
            table_->setItem(row, column, textItem(QString()));
    }
    status_->setText(QStringLiteral("Выберите циклы и нажмите «Обработать»"));
}

void PositionsAnalyticStatesForm::run()
{
    const auto [base, current] = cyclePair();
    if (base == -1)
        return warn(this, "В проекте нет циклов измерений");
    if (!session().checkConnection())
        return status_->setText(QStringLiteral("\nНе установлено соединение с базой данных\n"));
    clearGrades();
    QStringList unread;
    ProgressBox progress(this, "Обработка позиций", QString(), "Отмена", kQuietTime);
    for (int row = 0; row < positions_.size(); ++row) {
        if (!progress.step(row, positions_.size(), positions_[row].position))
            break;
        if (positions_[row].id == -1)
            continue;
        const PositionGrades graded = gradedPosition(positions_[row].id, base, current);
        if (graded.unread) {
            unread << positions_[row].position;
            continue;
        }
        showGrades(row, grades_.emplace(row, graded).first->second);
    }
    progress.step(positions_.size(), positions_.size());
    fitColumns(table_);
    const QString done = fill("Обработано позиций: %1 из %2", qint64(grades_.size()), positions_.size());
    status_->setText(unread.isEmpty() ? done : done + ". Не прочитаны данные: " + unread.join(", "));
}

void PositionsAnalyticStatesForm::showGrades(int row, const PositionGrades& grades)
{
    const PositionAttributes& norms = grades.attributes;
    table_->setItem(row, HasNorms, textItem(norms.exist ? QStringLiteral("Да") : QStringLiteral("Нет")));
    table_->setItem(
        row, Thermal,
        gradeItem(grades.thermal.grade, tipOf(thermalRemark(norms, grades.thermal.counts), grades.thermal)));
    table_->setItem(row, Settlement,
                    gradeItem(grades.settlement.grade,
                              tipOf(settlementRemark(norms, grades.settlement.counts), grades.settlement)));
    table_->setItem(
        row, Relative,
        gradeItem(grades.relative.grade, tipOf(relativeRemark(norms, grades.relative.counts), grades.relative)));
    table_->setItem(row, State, gradeItem(grades.grade));
}

void PositionsAnalyticStatesForm::save()
{
    if (grades_.empty())
        return warn(this, "Нет обработанных позиций: сохранять нечего");
    if (!canStoreGrades())
        return warn(this, "В базе данных нет таблицы positions_stat: состояния не сохранены");
    QStringList problems;
    int stored = 0;
    {
        ProgressBox progress(this, "Сохранение состояний", QString());
        int done = 0;
        for (const auto& [row, grades] : grades_) {
            if (!progress.step(done++, int(grades_.size()), positions_[row].position))
                break;
            QString problem;
            if (storeGrades(grades, &problem))
                ++stored;
            else
                problems << fill("%1: %2", positions_[row].position, problem.trimmed());
        }
    }
    status_->setText(fill("Сохранено состояний: %1 из %2", stored, qint64(grades_.size())));
    if (!problems.isEmpty())
        warn(this,
             fill("Не сохранены состояния позиций (%1):\n%2", problems.size(),
                  QStringList(problems.mid(0, 10)).join(QLatin1Char('\n'))));
}

void PositionsAnalyticStatesForm::exportText()
{
    const QString path = askFileToSave(this, {"Экспорт в csv", "*.csv"});
    if (path.isEmpty())
        return;
    // Office programs of this language open such a file without a question.
    const QByteArray bytes =
        QTextCodec::codecForName("Windows-1251")->fromUnicode(tableText(table_, QLatin1Char(';'), WithTitles));
    QString problem;
    if (!saveFile(path, bytes, &problem))
        warn(this, fill("Не удалось записать файл %1: %2", path, problem));
}

void PositionsAnalyticStatesForm::showMenu(const QPoint& place)
{
    const QTableWidgetItem* item = table_->itemAt(place);
    if (!item || positions_[item->row()].id == -1)
        return;
    const int row = item->row();
    QMenu menu(this);
    connect(menu.addAction("Пасспорт позиции"), &QAction::triggered, this, [this, row] { openPassport(row); });
    connect(menu.addAction("Установить текущей"), &QAction::triggered, this, [this, row] { makeCurrent(row); });
    menu.exec(table_->viewport()->mapToGlobal(place));
}

void PositionsAnalyticStatesForm::openPassport(int row)
{
    PositionPassport passport(positions_[row].id, this);
    passport.exec();
    const auto graded = grades_.find(row);
    if (graded == grades_.end() || !passport.hasChanged())
        return;
    const PositionGrades again =
        gradedPosition(positions_[row].id, graded->second.baseCycle, graded->second.currentCycle);
    if (again.unread)
        return status_->setText("Не прочитаны данные: " + positions_[row].position);
    graded->second = again;
    showGrades(row, again);
}

void PositionsAnalyticStatesForm::makeCurrent(int row)
{
    const bool made = session().setCurrentPosition(positions_[row].id);
    status_->setText(
        fill(made ? "Текущая позиция: %1" : "Не удалось сделать текущей позицию: %1", positions_[row].position));
    refreshPalettes();
}
