#include "analysis/profiles/section_frame.h"

#include "analysis/maps/temperature_differences.h"
#include "base/placeholders.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kText = 2.5;   // height of the frame's texts
constexpr double kSmall = 1.8;  // of captions, values and figures at wells
constexpr double kBeside = 0.8; // of a caption from the well's line
constexpr double kHeads = -2.0; // where the row heads end
constexpr double kRowHeight = 10.0;
constexpr double kFirstRow = -15.0; // middle of the first row
constexpr double kTableTop = -10.0;
constexpr double kUpright = M_PI / 2.0;
constexpr double kSame = 0.005; // m, below what two decimals show
constexpr size_t kMostPickets = 2000;
constexpr double kMostMarks = 400.0; // of the ruler

class Frame {
public:
    Frame(const TemperatureSection& section, const SectionTitles& titles)
        : section_(section), titles_(titles), ox_(section.view().origX), oy_(section.view().origY)
    { }

    SectionFrame made()
    {
        scales();
        for (const SectionWell& well : section_.wells())
            wellLine(well);
        ground();
        for (const SectionWell& well : section_.wells())
            wellEnd(well);
        pickets();
        rows();
        for (const SectionWell& well : section_.wells())
            wellValues(well);
        ruler();
        return std::move(made_);
    }

private:
    Sketch& sketch() { return made_.sketch; }

    // A text that must stand.
    void put(const SketchText& text)
    {
        field_.take(boxOf(text));
        sketch().texts.push_back(text);
    }
    // One that gives way.
    bool offer(const SketchText& text)
    {
        if (!field_.take(boxOf(text))) {
            ++made_.leftOut;
            return false;
        }
        sketch().texts.push_back(text);
        return true;
    }

    void scales()
    {
        const SectionView& view = section_.view();
        const std::pair<QString, double> texts[] = {
            {QStringLiteral("Масштаб"), 6.0},
            {fill("Горизонтальный %1", scaleText(view.horizontal)), 3.0},
            {fill("Вертикальный %1", scaleText(view.vertical)), 0.0},
        };
        for (const auto& [text, place] : texts)
            put({ox_ + kHeads, oy_ + place, text, kText, 0.0, SketchText::Right, SketchText::Base});
    }

    // From the well's end up past the ground, the caption beside what stands above it.
    void wellLine(const SectionWell& well)
    {
        const double x = section_.x(well.dist);
        const double mouth =
            std::max(section_.groundY(well),
                     well.log.empty() ? section_.groundY(well) : section_.y(well, well.log.begin()->first));
        SketchText caption{x - kBeside, mouth + 1.0, well.name, kSmall, kUpright, SketchText::Left, SketchText::Base};
        // Wells that stand close together carry their captions one above another.
        while (!field_.isFree(boxOf(caption)))
            caption.y += caption.width() + 1.0;
        put(caption);
        const double bottom = well.log.empty() ? section_.groundY(well) : section_.y(well, well.log.rbegin()->first);
        const double top = caption.y + caption.width();
        sketch().line(x, bottom, x, top);
        field_.block({x - 0.3, bottom, x + 0.3, top});
    }

    void ground()
    {
        geometry::PointList line;
        for (const SectionWell& well : section_.wells())
            line.push_back({section_.x(well.dist), section_.groundY(well), 0.0});
        if (line.size() > 1)
            sketch().lines.push_back({line});
    }

    void wellEnd(const SectionWell& well)
    {
        if (well.log.empty())
            return;
        const double x = section_.x(well.dist);
        const double depth = well.log.rbegin()->first;
        const double y = section_.y(well, depth);
        sketch().line(x - 0.6, y, x + 0.6, y);
        offer({x, y - 2.4, fill("D=%1", fixed(depth, 2)), kSmall, 0.0, SketchText::Center});
        offer({x, y - 4.6, fill("Z=%1", fixed(well.ground() - depth, 2)), kSmall, 0.0, SketchText::Center});
    }

    void wellValues(const SectionWell& well)
    {
        const double x = section_.x(well.dist);
        for (const auto& [depth, value] : well.log) {
            const double y = section_.y(well, depth);
            const SketchText text{x + kBeside, y, sectionValueText(value, titles_.difference), kSmall};
            if (offer(text))
                sketch().line(x - 0.4, y, x + 0.4, y);
        }
    }

    // On the table's upper edge.
    void pickets()
    {
        const double step = section_.view().picketStep;
        if (!(step > 0.0))
            return;
        for (size_t number = 0; number < kMostPickets; ++number) {
            const double dist = step * double(number);
            if (dist > section_.length() + kSame)
                break;
            const double x = section_.x(dist);
            sketch().line(x, oy_ + kTableTop, x, oy_ + kTableTop + 1.5);
            offer({x, oy_ - 7.0, fill("Пикет %1", QString::number(number)), kText, 0.0, SketchText::Center});
        }
    }

    void rows()
    {
        QStringList heads = {QStringLiteral("Расстояние, м."), QStringLiteral("Пикет, м."),
                             fill("Цикл %1", titles_.cycle)};
        if (section_.view().byElevation)
            heads << QStringLiteral("Абсолютная отметка, м.");
        double widest = 0.0;
        for (int row = 0; row < heads.size(); ++row) {
            const SketchText head{ox_ + kHeads, middleOf(row), heads[row], kText, 0.0, SketchText::Right};
            widest = std::max(widest, head.width());
            put(head);
        }
        const SketchText cycles{ox_ + 1.0, middleOf(2), titles_.cycleTexts, kText};
        put(cycles);
        const double right = std::max({section_.right() + 2.0, ox_ + 20.0, cycles.x + cycles.width() + 1.0});
        distances();
        for (const SectionWell& well : section_.wells())
            figuresOf(well);
        lines(ox_ + kHeads - widest - 2.0, right, heads.size());
    }

    double middleOf(int row) const { return oy_ + kFirstRow - kRowHeight * row; }

    void lines(double left, double right, int rows)
    {
        const double top = oy_ + kTableTop, bottom = top - kRowHeight * rows;
        for (int row = 0; row <= rows; ++row)
            sketch().line(left, top - kRowHeight * row, right, top - kRowHeight * row);
        for (const double x : {left, ox_ + kHeads + 0.5, right})
            sketch().line(x, top, x, bottom);
    }

    // Between neighbours: across where there is room, upright where there is less.
    void distances()
    {
        const auto& wells = section_.wells();
        const double top = oy_ + kTableTop;
        for (size_t i = 0; i < wells.size(); ++i) {
            const double x = section_.x(wells[i].dist);
            sketch().line(x, top, x, top - kRowHeight);
            if (i == 0)
                continue;
            const double before = section_.x(wells[i - 1].dist);
            SketchText text{(before + x) / 2.0, middleOf(0), fixed(wells[i].dist - wells[i - 1].dist, 2), kText, 0.0,
                            SketchText::Center};
            if (text.width() > x - before) {
                text.height = kSmall;
                text.angle = kUpright;
            }
            if (text.angle != 0.0 && text.height > x - before)
                ++made_.leftOut;
            else
                offer(text);
        }
    }

    void figuresOf(const SectionWell& well)
    {
        const double x = section_.x(well.dist);
        const auto upright = [&](int row, const QString& text) {
            offer({x, middleOf(row), text, kSmall, kUpright, SketchText::Center});
        };
        upright(1, picketText(well.dist, section_.view().picketStep));
        if (section_.view().byElevation)
            upright(3, fixed(well.ground(), 2));
    }

    // Depths or elevations at the section's right side.
    void ruler()
    {
        const double top = section_.top(), bottom = oy_;
        if (!(top > bottom) || section_.wells().empty())
            return;
        const SectionView& view = section_.view();
        const double step = rulerStep(std::max(kText * 2.0, (top - bottom) / kMostMarks) / view.vertical);
        const double x = section_.right() + 12.0;
        const SectionWell& first = section_.wells().front();
        // Key at the section's bottom, and how it goes upwards.
        const double atBottom = view.byElevation ? first.ground() - (section_.groundY(first) - oy_) / view.vertical
                                                 : (section_.groundY(first) - oy_) / view.vertical;
        const double sign = view.byElevation ? 1.0 : -1.0;
        const double atTop = atBottom + sign * (top - bottom) / view.vertical;
        sketch().line(x, bottom, x, top);
        const double low = std::min(atBottom, atTop), high = std::max(atBottom, atTop);
        for (double key = std::ceil(low / step - 1e-9) * step; key <= high + step * 1e-9; key += step) {
            const double y = oy_ + sign * (key - atBottom) * view.vertical;
            sketch().line(x, y, x + 1.0, y);
            put({x + 1.8, y, general(std::fabs(key) < step * 1e-6 ? 0.0 : key, 8), kSmall});
        }
        put({x, top + 2.5, view.byElevation ? QStringLiteral("Отметка, м") : QStringLiteral("Глубина, м"), kSmall, 0.0,
             SketchText::Center});
    }

    // 1, 2 or 5 times a power of ten, not below the least.
    static double rulerStep(double least)
    {
        const double power = std::pow(10.0, std::floor(std::log10(least)));
        for (const double times : {1.0, 2.0, 5.0}) {
            if (times * power >= least)
                return times * power;
        }
        return 10.0 * power;
    }

    const TemperatureSection& section_;
    const SectionTitles& titles_;
    double ox_, oy_;
    LabelField field_;
    SectionFrame made_;
};

} // namespace

SectionFrame sectionFrame(const TemperatureSection& section, const SectionTitles& titles)
{
    return Frame(section, titles).made();
}

QString picketText(double dist, double step)
{
    if (!(step > 0.0))
        return fill("+%1", fixed(dist, 2));
    const double number = std::floor((dist + kSame) / step);
    const double offset = dist - number * step;
    if (offset < kSame)
        return fill("Пикет %1", fixed(number, 0));
    return fill("+%1", fixed(offset, 2));
}

QString sectionValueText(double value, bool difference)
{
    return difference ? differenceLabel(value) : fixed(value, 2);
}
