#include "exchange/gis/projection_text.h"

#include "base/text.h"

#include <QHash>
#include <QStringList>
#include <cmath>
#include <vector>

namespace {

struct Ellipsoid {
    const char* key;
    const char* name;
    double axis;       ///< semi-major, m
    double flattening; ///< inverse
};

const Ellipsoid ellipsoids[] = {
    {"WGS84", "WGS 84", 6378137.0, 298.257223563},    {"krass", "Krassowsky 1940", 6378245.0, 298.3},
    {"GRS80", "GRS 1980", 6378137.0, 298.257222101},  {"bessel", "Bessel 1841", 6377397.155, 299.1528128},
    {"intl", "International 1924", 6378388.0, 297.0}, {"GSK2011", "GSK-2011", 6378136.5, 298.2564151},
    {"PZ90", "PZ-90", 6378136.0, 298.25784},
};

struct Term {
    const char* key;  ///< in the projection's text
    const char* name; ///< in WKT
    double start;     ///< where the text is silent
};

struct Projection {
    const char* key;
    const char* name;
    std::vector<Term> terms;
};

const std::vector<Projection>& projections()
{
    static const std::vector<Term> origin = {{"lat_0", "latitude_of_origin", 0.0},
                                             {"lon_0", "central_meridian", 0.0},
                                             {"k", "scale_factor", 1.0},
                                             {"x_0", "false_easting", 0.0},
                                             {"y_0", "false_northing", 0.0}};
    static const std::vector<Projection> rows = {
        {"tmerc", "Transverse_Mercator", origin},
        {"lcc",
         "Lambert_Conformal_Conic_2SP",
         {{"lat_1", "standard_parallel_1", 0.0},
          {"lat_2", "standard_parallel_2", 0.0},
          {"lat_0", "latitude_of_origin", 0.0},
          {"lon_0", "central_meridian", 0.0},
          {"x_0", "false_easting", 0.0},
          {"y_0", "false_northing", 0.0}}},
    };
    return rows;
}

using Terms = QHash<QString, QString>;

Terms termsOf(const QString& text)
{
    Terms terms;
    for (QString word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (word.startsWith(QLatin1Char('+')))
            word.remove(0, 1);
        const int sign = word.indexOf(QLatin1Char('='));
        terms.insert(word.left(sign), sign < 0 ? QString() : word.mid(sign + 1));
    }
    if (terms.contains("k_0") && !terms.contains("k"))
        terms.insert("k", terms.value("k_0"));
    return terms;
}

QString number(double value) { return general(value, 15); }

QString quoted(const QString& text) { return '"' + QString(text).replace('"', QLatin1String("\"\"")) + '"'; }

double numberOf(const Terms& terms, const char* key, double start)
{
    bool ok = false;
    const double value = terms.value(key).toDouble(&ok);
    return ok ? value : start;
}

Ellipsoid ellipsoidOf(const Terms& terms)
{
    if (terms.contains("a")) {
        const double axis = numberOf(terms, "a", ellipsoids[0].axis);
        const double minor = numberOf(terms, "b", axis);
        const double flattening = terms.contains("rf") ? numberOf(terms, "rf", 0.0)
            : minor == axis                            ? 0.0
                                                       : axis / (axis - minor);
        return {"", "unnamed", axis, flattening};
    }
    for (const Ellipsoid& known : ellipsoids) {
        if (terms.value("ellps", terms.value("datum")) == QLatin1String(known.key))
            return known;
    }
    return ellipsoids[0];
}

QString geographic(const Terms& terms)
{
    const Ellipsoid ellipsoid = ellipsoidOf(terms);
    QString datum = terms.value("datum") == QLatin1String("WGS84") ? "WGS_1984" : "unknown";
    QStringList shift = terms.value("towgs84").split(',', Qt::SkipEmptyParts);
    QString shiftText;
    if (!shift.isEmpty()) {
        while (shift.size() < 7)
            shift << "0";
        shiftText = ",TOWGS84[" + shift.mid(0, 7).join(',') + "]";
    }
    return QStringLiteral("GEOGCS[\"%1\",DATUM[\"%2\",SPHEROID[\"%3\",%4,%5]%6],PRIMEM[\"Greenwich\",0],"
                          "UNIT[\"degree\",0.0174532925199433]]")
        .arg(datum == "unknown" ? "unknown" : "WGS 84", datum, ellipsoid.name, number(ellipsoid.axis),
             number(ellipsoid.flattening), shiftText);
}

// A zone of the universal projection as the projection that it is.
Terms ofZone(Terms terms)
{
    terms.insert("proj", "tmerc");
    terms.insert("lat_0", "0");
    terms.insert("lon_0", number(numberOf(terms, "zone", 31) * 6 - 183));
    terms.insert("k", "0.9996");
    terms.insert("x_0", "500000");
    terms.insert("y_0", terms.contains("south") ? "10000000" : "0");
    return terms;
}

QString parameters(const Projection& projection, const Terms& terms)
{
    QString text;
    for (const Term& term : projection.terms)
        text += QStringLiteral(",PARAMETER[\"%1\",%2]").arg(term.name, number(numberOf(terms, term.key, term.start)));
    return text;
}

} // namespace

QString projectionWkt(const QString& proj4Text, const QString& name)
{
    Terms terms = termsOf(proj4Text);
    const QString kind = terms.value("proj");
    if (kind.isEmpty())
        return {};
    if (kind == QLatin1String("longlat") || kind == QLatin1String("latlong"))
        return geographic(terms);
    if (kind == QLatin1String("utm"))
        terms = ofZone(terms);
    const bool inMetres = terms.value("units", "m") == QLatin1String("m") && !terms.contains("to_meter");
    for (const Projection& projection : projections()) {
        if (inMetres && terms.value("proj") == QLatin1String(projection.key)) {
            return QStringLiteral("PROJCS[%1,%2,PROJECTION[\"%3\"]%4,UNIT[\"metre\",1],AXIS[\"Easting\",EAST],"
                                  "AXIS[\"Northing\",NORTH]]")
                .arg(quoted(name), geographic(terms), projection.name, parameters(projection, terms));
        }
    }
    return QStringLiteral("PROJCS[%1,%2,PROJECTION[\"custom_proj4\"],UNIT[\"metre\",1],EXTENSION[\"PROJ4\",%3]]")
        .arg(quoted(name), geographic(terms), quoted(proj4Text.trimmed()));
}
