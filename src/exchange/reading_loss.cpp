#include "exchange/reading_loss.h"

#include "base/text.h"

#include <QStringList>

QString lossText(const QString& cell, double read, int losses)
{
    const QString quoted = QStringLiteral("«%1» ").arg(cell.trimmed());
    if (losses & numberLost)
        return quoted + QStringLiteral("не прочитано как число");
    QStringList lost;
    if (losses & signLost)
        lost << QStringLiteral("знак");
    if (losses & groupLost)
        lost << QStringLiteral("разряды");
    if (losses & exponentLost)
        lost << QStringLiteral("порядок");
    return quoted
        + QStringLiteral("прочитано как %1: не учтено — %2").arg(general(read), lost.join(QStringLiteral(", ")));
}
