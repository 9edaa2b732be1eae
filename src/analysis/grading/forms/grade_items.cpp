#include "analysis/grading/forms/grade_items.h"

#include "base/placeholders.h"
#include "formkit/table_items.h"

#include <optional>

namespace {

struct GradeColors {
    std::optional<QColor> letters, ground;
};

GradeColors colorsOf(Grade grade)
{
    const QColor red(255, 0, 0);
    switch (grade) {
    case Grade::Normal: return {QColor(0, 255, 0), {}};
    case Grade::Limited: return {red, QColor(250, 250, 150)};
    case Grade::LimitedII: return {red, QColor(250, 200, 50)};
    case Grade::Fail: return {red, QColor(250, 100, 0)};
    default: return {};
    }
}

} // namespace

QTableWidgetItem* gradeItem(Grade grade, const QString& tip)
{
    QTableWidgetItem* item = formkit::textItem(gradeLabel(grade));
    item->setTextAlignment(Qt::AlignCenter);
    item->setToolTip(tip);
    const GradeColors colors = colorsOf(grade);
    if (colors.letters)
        item->setForeground(*colors.letters);
    if (colors.ground)
        item->setBackground(*colors.ground);
    return item;
}

QString countsTip(const GradeCounts& counts)
{
    QStringList lines;
    for (size_t grade = 0; grade < counts.size(); ++grade) {
        if (counts[grade] > 0)
            lines << fill("%1: %2", QString::fromUtf8(gradeWords(Grade(grade)).meaning).remove(QLatin1Char('\n')),
                          counts[grade]);
    }
    return lines.join(QLatin1Char('\n'));
}
