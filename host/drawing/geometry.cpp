#include <nrx/geometry.h>

#include <cmath>

const NcGeVector3d NcGeVector3d::kXAxis(1, 0, 0);
const NcGeVector3d NcGeVector3d::kYAxis(0, 1, 0);
const NcGeVector3d NcGeVector3d::kZAxis(0, 0, 1);
const NcGePoint3d NcGePoint3d::kOrigin(0, 0, 0);

namespace { }

double NcGeVector3d::length() const { return std::sqrt(dotProduct(*this)); }

NcGeVector3d NcGeVector3d::normal() const
{
    const double size = length();
    return size > 0.0 ? *this * (1.0 / size) : *this;
}

double NcGeVector3d::dotProduct(const NcGeVector3d& other) const { return x * other.x + y * other.y + z * other.z; }

NcGeVector3d NcGeVector3d::crossProduct(const NcGeVector3d& o) const
{
    return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
}

double NcGeVector3d::angleTo(const NcGeVector3d& other, const NcGeVector3d& about) const
{
    const double angle = std::atan2(crossProduct(other).dotProduct(about.normal()), dotProduct(other));
    return angle < 0.0 ? angle + 2.0 * M_PI : angle;
}

double NcGePoint3d::distanceTo(const NcGePoint3d& other) const { return (*this - other).length(); }

NcGeMatrix3d::NcGeMatrix3d() { setToIdentity(); }

NcGeMatrix3d NcGeMatrix3d::translation(const NcGeVector3d& by)
{
    NcGeMatrix3d matrix;
    matrix.entry[0][3] = by.x;
    matrix.entry[1][3] = by.y;
    matrix.entry[2][3] = by.z;
    return matrix;
}

NcGeMatrix3d NcGeMatrix3d::scaling(double factor, const NcGePoint3d& centre)
{
    NcGeMatrix3d matrix;
    for (int i = 0; i < 3; ++i)
        matrix.entry[i][i] = factor;
    const NcGeVector3d shift = centre - matrix * centre;
    matrix.entry[0][3] = shift.x;
    matrix.entry[1][3] = shift.y;
    matrix.entry[2][3] = shift.z;
    return matrix;
}

NcGeMatrix3d NcGeMatrix3d::rotation(double angle, const NcGeVector3d& axis, const NcGePoint3d& centre)
{
    // Rodrigues' formula.
    const NcGeVector3d u = axis.normal();
    const double c = std::cos(angle), s = std::sin(angle), k = 1.0 - c;
    NcGeMatrix3d matrix;
    const double rows[3][3] = {{c + u.x * u.x * k, u.x * u.y * k - u.z * s, u.x * u.z * k + u.y * s},
                               {u.y * u.x * k + u.z * s, c + u.y * u.y * k, u.y * u.z * k - u.x * s},
                               {u.z * u.x * k - u.y * s, u.z * u.y * k + u.x * s, c + u.z * u.z * k}};
    for (int r = 0; r < 3; ++r)
        for (int column = 0; column < 3; ++column)
            matrix.entry[r][column] = rows[r][column];
    const NcGeVector3d shift = centre - matrix * centre;
    matrix.entry[0][3] = shift.x;
    matrix.entry[1][3] = shift.y;
    matrix.entry[2][3] = shift.z;
    return matrix;
}

NcGeMatrix3d& NcGeMatrix3d::setToIdentity()
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            entry[r][c] = r == c ? 1.0 : 0.0;
    return *this;
}

NcGeMatrix3d& NcGeMatrix3d::setTranslation(const NcGeVector3d& by)
{
    entry[0][3] = by.x;
    entry[1][3] = by.y;
    entry[2][3] = by.z;
    return *this;
}

NcGeMatrix3d& NcGeMatrix3d::setCoordSystem(const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y,
                                           const NcGeVector3d& z)
{
    setToIdentity();
    const NcGeVector3d columns[4] = {x, y, z, origin.asVector()};
    for (int c = 0; c < 4; ++c) {
        entry[0][c] = columns[c].x;
        entry[1][c] = columns[c].y;
        entry[2][c] = columns[c].z;
    }
    return *this;
}

void NcGeMatrix3d::getCoordSystem(NcGePoint3d& origin, NcGeVector3d& x, NcGeVector3d& y, NcGeVector3d& z) const
{
    x = {entry[0][0], entry[1][0], entry[2][0]};
    y = {entry[0][1], entry[1][1], entry[2][1]};
    z = {entry[0][2], entry[1][2], entry[2][2]};
    origin = {entry[0][3], entry[1][3], entry[2][3]};
}

NcGeMatrix3d& NcGeMatrix3d::setToWorldToPlane(const NcGeVector3d& normal)
{
    // The arbitrary axis rule: a normal near the world's Z takes its X axis
    // from the world's Y, any other from the world's Z.
    const NcGeVector3d z = normal.normal();
    const bool nearZ = std::fabs(z.x) < 1.0 / 64.0 && std::fabs(z.y) < 1.0 / 64.0;
    const NcGeVector3d x = (nearZ ? NcGeVector3d::kYAxis : NcGeVector3d::kZAxis).crossProduct(z).normal();
    NcGeMatrix3d planeToWorld;
    planeToWorld.setCoordSystem(NcGePoint3d::kOrigin, x, z.crossProduct(x).normal(), z);
    return *this = planeToWorld.inverse();
}

double NcGeMatrix3d::det() const
{
    const auto& e = entry;
    return e[0][0] * (e[1][1] * e[2][2] - e[1][2] * e[2][1]) - e[0][1] * (e[1][0] * e[2][2] - e[1][2] * e[2][0])
        + e[0][2] * (e[1][0] * e[2][1] - e[1][1] * e[2][0]);
}

NcGeMatrix3d NcGeMatrix3d::inverse() const
{
    const double d = det();
    NcGeMatrix3d result;
    if (d == 0.0 || !std::isfinite(d))
        return result;
    const auto& e = entry;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) {
            const int r1 = (c + 1) % 3, r2 = (c + 2) % 3, c1 = (r + 1) % 3, c2 = (r + 2) % 3;
            result.entry[r][c] = (e[r1][c1] * e[r2][c2] - e[r1][c2] * e[r2][c1]) / d;
        }
    }
    const NcGeVector3d moved = result * NcGeVector3d(e[0][3], e[1][3], e[2][3]);
    return result.setTranslation(-moved);
}

NcGeMatrix3d NcGeMatrix3d::operator*(const NcGeMatrix3d& other) const
{
    NcGeMatrix3d product;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            product.entry[r][c] = 0.0;
            for (int k = 0; k < 4; ++k)
                product.entry[r][c] += entry[r][k] * other.entry[k][c];
        }
    }
    return product;
}

NcGePoint3d NcGeMatrix3d::operator*(const NcGePoint3d& p) const
{
    const auto& e = entry;
    return {e[0][0] * p.x + e[0][1] * p.y + e[0][2] * p.z + e[0][3],
            e[1][0] * p.x + e[1][1] * p.y + e[1][2] * p.z + e[1][3],
            e[2][0] * p.x + e[2][1] * p.y + e[2][2] * p.z + e[2][3]};
}

NcGeVector3d NcGeMatrix3d::operator*(const NcGeVector3d& v) const
{
    const auto& e = entry;
    return {e[0][0] * v.x + e[0][1] * v.y + e[0][2] * v.z, e[1][0] * v.x + e[1][1] * v.y + e[1][2] * v.z,
            e[2][0] * v.x + e[2][1] * v.y + e[2][2] * v.z};
}

bool NcGeMatrix3d::operator==(const NcGeMatrix3d& other) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (entry[r][c] != other.entry[r][c])
                return false;
    return true;
}
