// The elements of a position by name and by place, in the order of their rows.
#pragma once

#include <QHash>
#include <QPair>
#include <QVector>

/// What the rows say about a record; the numbers are those of the questions.
enum class ElementMatch {
    New = 0,
    OtherPlace = 1, ///< the name is known
    OtherName = 2,  ///< the place is taken
    Same = 3,
};

struct PlacedElement {
    int id = -1;
    QString name;
    double x = 0.0, y = 0.0;
};

class PlacedElements {
public:
    void append(const PlacedElement& element);
    /// The element of the id gets another name and place.
    void change(const PlacedElement& element);

    /// The first row that bears the name, or lies less than 0.0001 in the plan
    /// from the point, decides.
    ElementMatch find(const QString& name, double x, double y, PlacedElement* found) const;

private:
    using Cell = QPair<qint64, qint64>;
    static Cell cellOf(double x, double y);
    int firstOfName(const QString& name) const;
    int firstNear(double x, double y) const;

    QVector<PlacedElement> rows_;
    QHash<int, int> byId_;
    QMultiHash<QString, int> byName_;
    QMultiHash<Cell, int> byCell_;
};
