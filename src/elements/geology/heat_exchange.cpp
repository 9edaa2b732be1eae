#include "elements/geology/heat_exchange.h"

#include "base/placeholders.h"

#include <QRegularExpression>

namespace {

bool isNumber(const QString& text)
{
    bool ok = false;
    text.toDouble(&ok);
    return ok;
}

// A spreadsheet of this language writes decimals behind a comma.
QString numberOf(const QString& cell) { return cell.trimmed().replace(QLatin1Char(','), QLatin1Char('.')); }

} // namespace

HeatExchange parseHeatExchange(const QString& text)
{
    HeatExchange pairs;
    for (const QString& piece : text.split(QLatin1Char('|'))) {
        const int colon = piece.indexOf(QLatin1Char(':'));
        if (colon >= 0)
            pairs.append({piece.left(colon), piece.mid(colon + 1)});
    }
    return pairs;
}

QString heatExchangeText(const HeatExchange& pairs)
{
    QStringList pieces;
    for (const HeatExchangePair& pair : pairs)
        pieces << fill("%1:%2", pair.speed, pair.coefficient);
    return pieces.join(QLatin1Char('|'));
}

QString heatExchangeFault(const HeatExchange& pairs)
{
    for (int i = 0; i < pairs.size(); ++i) {
        if (!isNumber(pairs[i].speed) || !isNumber(pairs[i].coefficient))
            return fill("В столбце %1 нужны скорость и коэффициент", i + 1);
    }
    return {};
}

QString speedTitle() { return QStringLiteral("Скорость ветра м/с"); }

QString coefficientTitle() { return QStringLiteral(" a конд."); }

QString heatExchangeCsv(const HeatExchange& pairs)
{
    QString text = speedTitle() + QLatin1Char(';') + coefficientTitle() + QLatin1Char('\n');
    for (const HeatExchangePair& pair : pairs)
        text += fill("%1;%2", pair.speed, pair.coefficient) + QLatin1Char('\n');
    return text;
}

HeatExchange readHeatExchangeCsv(const QStringList& lines)
{
    HeatExchange pairs;
    for (const QString& line : lines) {
        const QStringList cells = line.split(QLatin1Char(';'));
        const HeatExchangePair pair{numberOf(cells.value(0)), numberOf(cells.value(1))};
        if (isNumber(pair.speed) && isNumber(pair.coefficient))
            pairs.append(pair);
    }
    return pairs;
}

QString heatExchangeFileName(const QString& entryName)
{
    static const QRegularExpression forbidden(QStringLiteral("[\\\\\\/\\*\\.]"));
    return fill("Параметры теплообмена СОУ %1.csv", QString(entryName).replace(forbidden, QStringLiteral("_")));
}
