// Entities: what is drawn.
#pragma once

#include "color.h"
#include "object.h"

#include <optional>

struct NcGeExtents {
    NcGePoint3d min, max;
};

class NRX_API NcDbEntity : public NcDbObject {
    NCRX_DECLARE(NcDbEntity)
public:
    NcDbEntity();

    // 0 by block, 256 by layer. With `withSubentities` the attributes of a
    // block reference follow.
    virtual NcStatus setColorIndex(int index, bool withSubentities = true);
    int colorIndex() const { return color_.colorIndex(); }
    virtual NcStatus setColor(const NcCmColor& color, bool withSubentities = true);
    NcCmColor color() const { return color_; }

    // A layer that does not exist is refused; a locked layer takes no new
    // entity unless `allowLocked`.
    virtual NcStatus setLayer(const QString& name, bool withSubentities = true, bool allowLocked = false);
    QString layer() const { return layer_; }

    // By name; "ByLayer" takes the layer's, "ByBlock" that of the reference.
    QString linetype() const { return linetype_; }
    NcStatus setLinetype(const QString& name);

    bool isVisible() const { return visible_; }
    void setVisible(bool visible);

    // The working database's current layer, colour and line type by layer.
    void setDatabaseDefaults(NcDbDatabase* database = nullptr);
    // Layer, colour, line type and visibility of another entity.
    NcStatus setPropertiesFrom(const NcDbEntity* other);

    virtual NcStatus transformBy(const NcGeMatrix3d& matrix) = 0;
    // Nothing for an entity without extents, or with a number that is not finite.
    virtual std::optional<NcGeExtents> extents() const = 0;
    // A copy outside any drawing; null if the class cannot be copied.
    virtual NcDbEntity* clone() const = 0;

private:
    NcCmColor color_;
    QString layer_ = QStringLiteral("0");
    QString linetype_ = QStringLiteral("ByLayer");
    bool visible_ = true;
};

#define NCDB_ENTITY(Class)                                                                                             \
    NCRX_DECLARE(Class)                                                                                                \
public:                                                                                                                \
    NcStatus transformBy(const NcGeMatrix3d& matrix) override;                                                         \
    std::optional<NcGeExtents> extents() const override;                                                               \
    NcDbEntity* clone() const override;

class NRX_API NcDbPoint : public NcDbEntity {
    NCDB_ENTITY(NcDbPoint)
    explicit NcDbPoint(const NcGePoint3d& position = {}) : position_(position) { }
    NcGePoint3d position() const { return position_; }
    void setPosition(const NcGePoint3d& p);

private:
    NcGePoint3d position_;
};

class NRX_API NcDbLine : public NcDbEntity {
    NCDB_ENTITY(NcDbLine)
    NcDbLine() = default;
    NcDbLine(const NcGePoint3d& start, const NcGePoint3d& end) : start_(start), end_(end) { }
    NcGePoint3d startPoint() const { return start_; }
    NcGePoint3d endPoint() const { return end_; }
    void setStartPoint(const NcGePoint3d& p);
    void setEndPoint(const NcGePoint3d& p);

private:
    NcGePoint3d start_, end_;
};

class NRX_API NcDbCircle : public NcDbEntity {
    NCDB_ENTITY(NcDbCircle)
    NcDbCircle() = default;
    NcDbCircle(const NcGePoint3d& centre, const NcGeVector3d& normal, double radius)
        : center_(centre), normal_(normal), radius_(radius)
    { }
    NcGePoint3d center() const { return center_; }
    NcGeVector3d normal() const { return normal_; }
    double radius() const { return radius_; }
    void setCenter(const NcGePoint3d& p);
    void setRadius(double radius);

private:
    NcGePoint3d center_;
    NcGeVector3d normal_{0, 0, 1};
    double radius_ = 0.0;
};

// Counter-clockwise from the start angle to the end angle, radians.
class NRX_API NcDbArc : public NcDbEntity {
    NCDB_ENTITY(NcDbArc)
    NcDbArc() = default;
    NcDbArc(const NcGePoint3d& centre, double radius, double start, double end)
        : center_(centre), radius_(radius), start_(start), end_(end)
    { }
    NcGePoint3d center() const { return center_; }
    double radius() const { return radius_; }
    double startAngle() const { return start_; }
    double endAngle() const { return end_; }
    void set(const NcGePoint3d& centre, double radius, double start, double end);

private:
    NcGePoint3d center_;
    double radius_ = 0.0, start_ = 0.0, end_ = 0.0;
};

// Planar polyline with bulges (tangent of a quarter of the arc's angle).
class NRX_API NcDbPolyline : public NcDbEntity {
    NCDB_ENTITY(NcDbPolyline)
    struct Vertex {
        NcGePoint2d point;
        double bulge = 0.0;
        double startWidth = 0.0, endWidth = 0.0;
    };

    NcStatus addVertexAt(int index, const NcGePoint2d& p, double bulge = 0.0, double startWidth = 0.0,
                         double endWidth = 0.0);
    NcStatus getPointAt(int index, NcGePoint3d& p) const;
    NcStatus getBulgeAt(int index, double& bulge) const;
    NcStatus getWidthsAt(int index, double& start, double& end) const;
    // The same width along the whole line.
    NcStatus setConstantWidth(double width);
    int numVerts() const { return int(vertices_.size()); }
    bool isClosed() const { return closed_; }
    void setClosed(bool closed);
    double elevation() const { return elevation_; }
    void setElevation(double z);

private:
    std::vector<Vertex> vertices_;
    bool closed_ = false;
    double elevation_ = 0.0;
};

// The older polyline: the same geometry, each vertex an object of its own in
// files; here a list of vertices.
class NRX_API NcDb2dPolyline : public NcDbEntity {
    NCDB_ENTITY(NcDb2dPolyline)
    NcStatus appendVertex(const NcGePoint3d& p, double bulge = 0.0);
    int numVerts() const { return int(points_.size()); }
    NcStatus getPointAt(int index, NcGePoint3d& p) const;
    NcStatus getBulgeAt(int index, double& bulge) const;
    bool isClosed() const { return closed_; }
    void setClosed(bool closed);

private:
    std::vector<NcGePoint3d> points_;
    std::vector<double> bulges_;
    bool closed_ = false;
};

class NRX_API NcDbText : public NcDbEntity {
    NCDB_ENTITY(NcDbText)
    enum HorizontalMode {
        kTextLeft = 0,
        kTextCenter = 1,
        kTextRight = 2,
        kTextAlign = 3,
        kTextMiddle = 4,
        kTextFit = 5
    };
    enum VerticalMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };

    NcDbText() = default;
    NcDbText(const NcGePoint3d& position, const QString& text, double height, double rotation = 0.0)
        : position_(position), alignment_(position), text_(text), height_(height), rotation_(rotation)
    { }

    QString textString() const { return text_; }
    virtual NcStatus setTextString(const QString& text);
    double height() const { return height_; }
    void setHeight(double height);
    double rotation() const { return rotation_; }
    void setRotation(double radians);
    double widthFactor() const { return widthFactor_; }
    void setWidthFactor(double factor);
    NcGePoint3d position() const { return position_; }
    void setPosition(const NcGePoint3d& p);
    // Where a text with modes other than left and base is held.
    NcGePoint3d alignmentPoint() const { return alignment_; }
    void setAlignmentPoint(const NcGePoint3d& p);
    int horizontalMode() const { return horizontal_; }
    void setHorizontalMode(int mode);
    int verticalMode() const { return vertical_; }
    void setVerticalMode(int mode);

protected:
    NcGePoint3d position_, alignment_;
    QString text_;
    double height_ = 2.5, rotation_ = 0.0, widthFactor_ = 1.0;
    int horizontal_ = kTextLeft, vertical_ = kTextBase;
};

// Text of several lines; `contents` may hold the host's formatting codes.
class NRX_API NcDbMText : public NcDbEntity {
    NCDB_ENTITY(NcDbMText)
    QString contents() const { return contents_; }
    void setContents(const QString& text);
    NcGePoint3d location() const { return location_; }
    void setLocation(const NcGePoint3d& p);
    double textHeight() const { return height_; }
    void setTextHeight(double height);
    double width() const { return width_; }
    void setWidth(double width);
    double rotation() const { return rotation_; }
    void setRotation(double radians);
    // 1..9: rows from top to bottom, left, centre and right in each.
    int attachment() const { return attachment_; }
    void setAttachment(int attachment);
    // Whether an opaque ground hides what lies below the text.
    bool backgroundFillOn() const { return backgroundFill_; }
    void setBackgroundFill(bool on);
    bool useBackgroundColorOn() const { return useBackgroundColor_; }
    void setUseBackgroundColor(bool on);
    double backgroundScaleFactor() const { return backgroundScale_; }
    void setBackgroundScaleFactor(double factor);

private:
    QString contents_;
    NcGePoint3d location_;
    double height_ = 2.5, width_ = 0.0, rotation_ = 0.0;
    int attachment_ = 1;
    bool backgroundFill_ = false, useBackgroundColor_ = false;
    double backgroundScale_ = 1.5;
};

// A table: cells of text with a background each.
class NRX_API NcDbTable : public NcDbEntity {
    NCDB_ENTITY(NcDbTable)
    struct Cell {
        QString text;
        double textHeight = 2.0;
        bool hasBackground = false;
        NcCmColor background;
        int alignment = 5; // 1..9 like a multiline text
    };

    NcStatus setSize(int rows, int columns);
    int numRows() const { return rows_; }
    int numColumns() const { return columns_; }
    NcGePoint3d position() const { return position_; }
    void setPosition(const NcGePoint3d& p);
    NcGeVector3d direction() const { return direction_; }
    void setDirection(const NcGeVector3d& x);
    NcStatus setRowHeight(int row, double height);
    NcStatus setRowHeight(double height);
    double rowHeight(int row) const;
    NcStatus setColumnWidth(int column, double width);
    double columnWidth(int column) const;
    NcStatus setTextString(int row, int column, const QString& text);
    QString textString(int row, int column) const;
    NcStatus setTextHeight(int row, int column, double height);
    NcStatus setAlignment(int row, int column, int alignment);
    NcStatus setBackgroundColor(int row, int column, const NcCmColor& color);
    const Cell* cell(int row, int column) const;
    NcStatus mergeCells(int minRow, int maxRow, int minColumn, int maxColumn);

private:
    template <class Change>
    NcStatus changeCell(int row, int column, const Change& change);

    int rows_ = 0, columns_ = 0;
    NcGePoint3d position_;
    NcGeVector3d direction_{1, 0, 0};
    std::vector<double> heights_, widths_;
    std::vector<Cell> cells_; // row by row
    struct Merge {
        int minRow, maxRow, minColumn, maxColumn;
    };
    std::vector<Merge> merges_;
};

class NRX_API NcDbHatch : public NcDbEntity {
    NCDB_ENTITY(NcDbHatch)
    enum PatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    enum HatchStyle { kNormal = 0, kOuter = 1, kIgnore = 2 };
    enum LoopType { kDefault = 0, kExternal = 1, kPolyline = 2 };
    struct Loop {
        int type = kDefault;
        std::vector<NcGePoint2d> points;
        std::vector<double> bulges;
    };

    void setNormal(const NcGeVector3d& normal);
    NcGeVector3d normal() const { return normal_; }
    void setElevation(double z);
    double elevation() const { return elevation_; }
    void setAssociative(bool on);
    bool associative() const { return associative_; }
    NcStatus setPattern(PatternType type, const QString& name);
    QString patternName() const { return pattern_; }
    PatternType patternType() const { return patternType_; }
    void setPatternScale(double scale);
    double patternScale() const { return patternScale_; }
    NcStatus setHatchStyle(HatchStyle style);
    HatchStyle hatchStyle() const { return style_; }
    // Fewer than 3 points are refused. Loops are closed without repeating a point.
    NcStatus appendLoop(int type, const std::vector<NcGePoint2d>& points, const std::vector<double>& bulges);
    int numLoops() const { return int(loops_.size()); }
    const Loop& loopAt(int index) const { return loops_[size_t(index)]; }
    // Refused when there is no loop.
    NcStatus evaluateHatch();

private:
    NcGeVector3d normal_{0, 0, 1};
    double elevation_ = 0.0;
    bool associative_ = false, evaluated_ = false;
    PatternType patternType_ = kPreDefined;
    QString pattern_ = QStringLiteral("SOLID");
    double patternScale_ = 1.0;
    HatchStyle style_ = kNormal;
    std::vector<Loop> loops_;
};
