// The scale of a map: value ranges with a colour each.
#pragma once

#include <nrx/color.h>

#include <QString>
#include <QStringList>
#include <vector>

struct LevelRange {
    double min = 0.0;
    double max = 0.0;
    NcCmColor color; // RGB

    // A value at the upper bound belongs to the next range.
    bool holds(double value) const { return min <= value && value < max; }
};

class LevelMap {
public:
    // Built-in scales; positive ids are rows of `levelmaps`.
    enum BuiltIn { Temperature = -3, Deformation = -2, User = -1 };

    // A built-in scale, or the row with this id; an unknown id gives an empty map.
    explicit LevelMap(int id = User);

    // Replaces the ranges by `count` equal ones from min to max, blended from
    // blue over green to red, and makes the map the user's own (id -1). A count
    // below 1 gives no range.
    void fillGradient(double min, double max, int count);

    // Reads name and ranges of the row `id`. False when there is no row or its
    // data break off; the ranges before the break are kept.
    bool load();
    bool exists() const;
    bool update() const;
    // Takes the new row's id. False when the server refuses.
    bool insert();
    bool remove() const;

    // A ".cmp" file: one range a line, "min, max, r, g, b", bounds with 2
    // decimals, colours in the given number base.
    bool saveFile(const QString& path, int base = 10) const;
    // False, the map as it was, unless every field of every line converts.
    bool loadFile(const QString& path, int base = 10);

    // What the contour engine cuts at: the first lower bound, then every upper bound.
    std::vector<double> levels() const;
    // The colour of a value, or null when it lies outside all ranges.
    const LevelRange* rangeOf(double value) const;

    // The stored text: ranges joined by "&", fields by "|", bounds with 4 decimals.
    QString dataText() const;
    bool parse(const QString& data);

    // Sets minimum and maximum from the ranges; +inf and -inf when there are none.
    void recomputeLimits();

    std::vector<LevelRange> ranges;
    double minimum, maximum;
    QString name;
    int id;
};

// Names of the built-in maps by id, -3 to -1; empty for any other id.
QString builtInLevelMapName(int id);

// Ids and names of the stored maps, in the server's order; empty without a connection.
std::vector<std::pair<int, QString>> storedLevelMaps();
