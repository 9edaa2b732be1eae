// Elements and the line that catches them.
#pragma once

#include "analysis/profiles/profile_line.h"
#include "base/statement.h"

#include <algorithm>

/// An element with its place by a line; coordinates in metres.
struct LineElement {
    int id = -1;
    QString name;
    double x = 0.0, y = 0.0, z = 0.0, h = 0.0;
    double param = 0.0, dist = 0.0; ///< of the nearest place on the line
    double offset = 0.0;            ///< from it
};

/// How far from the line an element may stand.
struct Corridor {
    static constexpr double tight = 0.01; ///< m, of "Точно"
    static constexpr double start = 1.0;  ///< m, what a form begins with

    bool exact = false;
    double width = start;
    double tolerance() const { return exact ? tight : width; }
};

/// Keeps the elements that are nearer to the line than the tolerance, gives
/// them their places and orders them along the line; those at one place stay in
/// their order.
template <class Element>
void keepCaught(std::vector<Element>& elements, const ProfileLine& line, double tolerance)
{
    std::vector<Element> caught;
    for (Element& element : elements) {
        const ProfileLine::Place place = line.closest(element.x, element.y);
        if (!(place.offset < tolerance))
            continue;
        element.param = place.param;
        element.dist = place.dist;
        element.offset = place.offset;
        caught.push_back(std::move(element));
    }
    std::stable_sort(caught.begin(), caught.end(),
                     [](const Element& one, const Element& other) { return one.param < other.param; });
    elements = std::move(caught);
}

/// " (x between ...) and (y between ...) ": the box of the line, wider by the
/// tolerance on each side, since a straight line's own box has no width.
Statement boxCondition(const ProfileLine& line, double tolerance);
