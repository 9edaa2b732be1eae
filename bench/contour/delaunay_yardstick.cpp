#include "delaunay_yardstick.h"

#ifdef TERVA_HAVE_CGAL
#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>

long delaunayTriangles(const geometry::PointList& points)
{
    using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
    std::vector<Kernel::Point_2> places;
    places.reserve(points.size());
    for (const geometry::Point3& p : points)
        places.emplace_back(p.x, p.y);
    const CGAL::Delaunay_triangulation_2<Kernel> triangulation(places.begin(), places.end());
    return static_cast<long>(triangulation.number_of_faces());
}
#else
long delaunayTriangles(const geometry::PointList&) { return -1; }
#endif
