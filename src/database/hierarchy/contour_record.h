#pragma once
// A border line of a position as the database keeps it: its row and its points.

#include <QString>
#include <vector>

struct ContourPoint {
    double x = 0.0;
    double y = 0.0;
    double parameter = 0.0; ///< the line's own: whole numbers are vertices
    double distance = 0.0;  ///< along the line from its start
};

class ContourRecord {
public:
    int id = -1;
    int positionId = -1;
    QString name;
    std::vector<ContourPoint> points;

    /// False when there is no row of the id.
    bool load(int contourId);
    /// Takes the new row's id. The name goes into the statement as it stands.
    /// False when the server refuses one of the two statements; what the first
    /// has written stays.
    bool insert();
    /// Name and position; with points the line too.
    bool update() const;

private:
    QString lineText() const;
    bool insertPoints() const;
};
