// Arithmetic of renumbering: names as a prefix and a number.
#pragma once

#include <QString>
#include <QVector>
#include <optional>

struct NumberedRow {
    int id = -1;
    QString name; ///< as it stands
    QString prefix;
    int number = 0;

    /// Prefix and plain number: leading zeros are not kept.
    QString newName() const { return prefix + QString::number(number); }
};

/// The name parted before the digits at its end; nothing for a name without
/// them or with more than fit 32 bits.
std::optional<NumberedRow> numberedRow(int id, const QString& name);

void sortById(QVector<NumberedRow>& rows);
void sortByNumber(QVector<NumberedRow>& rows);

/// Whether each number is its predecessor's plus 1.
bool isSequential(const QVector<NumberedRow>& rowsByNumber);

/// Gives the row `selected` the number. Among the rows numbered `number` and
/// above, those with an id below the selected one's move up by 1, those above
/// keep theirs. Rows numbered below stay, the selected one too. False, with
/// nothing moved, when one stands at the last number that there is.
bool moveToNumber(QVector<NumberedRow>& rows, int selected, int number);
