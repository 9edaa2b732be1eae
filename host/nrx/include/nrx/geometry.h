// Points, vectors and matrices of the host: plain values in drawing units.
#pragma once

#include "types.h"

struct NRX_API NcGeVector3d {
    double x = 0.0, y = 0.0, z = 0.0;

    NcGeVector3d() = default;
    NcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) { }

    static const NcGeVector3d kXAxis;
    static const NcGeVector3d kYAxis;
    static const NcGeVector3d kZAxis;

    double length() const;
    // The vector of length 1; the zero vector stays as it is.
    NcGeVector3d normal() const;
    double dotProduct(const NcGeVector3d& other) const;
    NcGeVector3d crossProduct(const NcGeVector3d& other) const;
    // Angle to the other vector in radians, 0..2π counter-clockwise about `about`.
    double angleTo(const NcGeVector3d& other, const NcGeVector3d& about) const;

    NcGeVector3d operator+(const NcGeVector3d& o) const { return {x + o.x, y + o.y, z + o.z}; }
    NcGeVector3d operator-(const NcGeVector3d& o) const { return {x - o.x, y - o.y, z - o.z}; }
    NcGeVector3d operator-() const { return {-x, -y, -z}; }
    NcGeVector3d operator*(double k) const { return {x * k, y * k, z * k}; }
    bool operator==(const NcGeVector3d& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const NcGeVector3d& o) const { return !(*this == o); }
};

struct NRX_API NcGePoint3d {
    double x = 0.0, y = 0.0, z = 0.0;

    NcGePoint3d() = default;
    NcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) { }

    static const NcGePoint3d kOrigin;

    double distanceTo(const NcGePoint3d& other) const;
    NcGeVector3d asVector() const { return {x, y, z}; }

    NcGePoint3d operator+(const NcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    NcGePoint3d operator-(const NcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    NcGeVector3d operator-(const NcGePoint3d& o) const { return {x - o.x, y - o.y, z - o.z}; }
    bool operator==(const NcGePoint3d& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const NcGePoint3d& o) const { return !(*this == o); }
};

struct NcGePoint2d {
    double x = 0.0, y = 0.0;

    NcGePoint2d() = default;
    NcGePoint2d(double xx, double yy) : x(xx), y(yy) { }
    bool operator==(const NcGePoint2d& o) const { return x == o.x && y == o.y; }
    bool operator!=(const NcGePoint2d& o) const { return !(*this == o); }
};

// 4 x 4, column vectors: p' = entry * p, translation in entry[r][3].
struct NRX_API NcGeMatrix3d {
    double entry[4][4];

    NcGeMatrix3d(); // identity

    static NcGeMatrix3d translation(const NcGeVector3d& by);
    static NcGeMatrix3d scaling(double factor, const NcGePoint3d& centre = NcGePoint3d::kOrigin);
    // Angle in radians, counter-clockwise about `axis` through `centre`.
    static NcGeMatrix3d rotation(double angle, const NcGeVector3d& axis,
                                 const NcGePoint3d& centre = NcGePoint3d::kOrigin);

    NcGeMatrix3d& setToIdentity();
    NcGeMatrix3d& setTranslation(const NcGeVector3d& by);
    NcGeMatrix3d& setCoordSystem(const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y,
                                 const NcGeVector3d& z);
    void getCoordSystem(NcGePoint3d& origin, NcGeVector3d& x, NcGeVector3d& y, NcGeVector3d& z) const;
    // World to the plane through the origin with the given normal.
    NcGeMatrix3d& setToWorldToPlane(const NcGeVector3d& normal);

    double det() const;
    // The identity when the matrix is singular.
    NcGeMatrix3d inverse() const;
    NcGeMatrix3d operator*(const NcGeMatrix3d& other) const;
    NcGePoint3d operator*(const NcGePoint3d& p) const;
    NcGeVector3d operator*(const NcGeVector3d& v) const;
    bool operator==(const NcGeMatrix3d& other) const;
};
