#include "analysis/maps/build_messages.h"

namespace {

constexpr std::size_t kMostNames = 10;

} // namespace

QString pointNames(const std::vector<int>& points, const QStringList& names)
{
    QStringList shown;
    for (std::size_t i = 0; i < points.size() && i < kMostNames; ++i) {
        const QString name = names.value(points[i]).trimmed();
        shown << (name.isEmpty() ? QStringLiteral("№ %1").arg(points[i] + 1) : name);
    }
    QString text = shown.join(QStringLiteral(", "));
    if (points.size() > kMostNames)
        text += QStringLiteral(" и ещё %1").arg(points.size() - kMostNames);
    return text;
}

namespace {

QString noMapMessage(const contour::BuildResult& result, const QStringList& names)
{
    switch (result.status) {
    case contour::BuildStatus::NoPoints: return QStringLiteral("Не загружены точки!");
    case contour::BuildStatus::NoBounds: return QStringLiteral("Не загружены границы!");
    case contour::BuildStatus::FewPoints:
        return result.without.empty()
            ? QStringLiteral("Карта не построена: нет ни одной точки.")
            : QStringLiteral("Карта не построена: нужно не меньше трёх точек, есть только %1.")
                  .arg(pointNames(result.without, names));
    case contour::BuildStatus::NoTriangle:
        return QStringLiteral("Карта не построена: точки лежат на одной прямой или в одном месте: %1.")
            .arg(pointNames(result.without, names));
    case contour::BuildStatus::Done:
    case contour::BuildStatus::Cancelled: break;
    }
    return {};
}

} // namespace

QString buildMessage(const contour::BuildResult& result, const QStringList& names)
{
    QStringList lines;
    const QString noMap = noMapMessage(result, names);
    if (!noMap.isEmpty())
        lines << noMap;
    else if (result.gridRefused)
        lines << QStringLiteral("Сетка IDW не построена: граница слишком узкая. Карта построена по точкам без сетки.");
    if (!result.leftOut.empty())
        lines << QStringLiteral("Не учтены точки в одном месте с введёнными раньше: %1.")
                     .arg(pointNames(result.leftOut, names));
    return lines.join(QLatin1Char('\n'));
}
