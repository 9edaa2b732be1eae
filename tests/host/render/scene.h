// Small drawings for the tests of rendering.
#pragma once

#include <nrx/database.h>
#include <render/display_list.h>

// A drawing that its test fills.
class Scene {
public:
    NcDbDatabase drawing;

    NcDbObjectId add(NcDbEntity* entity, const QString& layer = QStringLiteral("0"), int color = 256);
    // Into a block definition of the name, made when it is not there.
    NcDbObjectId addToBlock(const QString& block, NcDbEntity* entity, const QString& layer = QStringLiteral("0"),
                            int color = 256);
    NcDbObjectId addLayer(const QString& name, int color);
    NcDbObjectId block(const QString& name);
    void setLayer(const QString& name, bool off, bool frozen);
    void erase(NcDbObjectId id);
    // A reference; entities of the definition come with it, attributes do not.
    NcDbObjectId insert(const QString& block, const NcGePoint3d& at, double scale = 1.0, double rotation = 0.0,
                        int color = 256);
    void addAttribute(NcDbObjectId reference, const QString& tag, const QString& text, const NcGePoint3d& at,
                      double height, bool invisible = false);
    DisplayList record(const QString& space = QStringLiteral("*Model_Space")) { return recordDrawing(drawing, space); }
};

// A filled square along the axes, for `Scene::add`.
NcDbHatch* square(double left, double bottom, double size);
// Figures of one kind.
std::vector<Figure> figuresOf(const DisplayList& list, Figure::Kind kind);
// Texts of a list in the order in which they are drawn.
QStringList textsOf(const DisplayList& list);
