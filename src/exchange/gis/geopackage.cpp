#include "exchange/gis/geopackage.h"

#include <QDataStream>
#include <QDateTime>
#include <cmath>
#include <sqlite3.h>

namespace {

constexpr int undefinedPlane = -1; ///< GeoPackage's own number for coordinates of no known system
constexpr int projectSystem = 9999;
constexpr int applicationId = 0x47504B47; // "GPKG"
constexpr int formatVersion = 10300;

const char* const frame =
    "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER NOT NULL PRIMARY KEY, organization TEXT "
    "NOT NULL, organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT);"
    "CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL, identifier TEXT "
    "UNIQUE, "
    "description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')), min_x "
    "DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE, srs_id INTEGER, CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) "
    "REFERENCES gpkg_spatial_ref_sys(srs_id));"
    "CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL, geometry_type_name TEXT "
    "NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL, CONSTRAINT pk_geom_cols PRIMARY KEY "
    "(table_name, column_name), CONSTRAINT uk_gc_table_name UNIQUE (table_name), CONSTRAINT fk_gc_tn FOREIGN KEY "
    "(table_name) REFERENCES gpkg_contents(table_name), CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES "
    "gpkg_spatial_ref_sys (srs_id));"
    "INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined Cartesian SRS', -1, 'NONE', -1, 'undefined', 'undefined "
    "Cartesian coordinate reference system'), ('Undefined geographic SRS', 0, 'NONE', 0, 'undefined', 'undefined "
    "geographic coordinate reference system'), ('WGS 84 geodetic', 4326, 'EPSG', 4326, 'GEOGCS[\"WGS "
    "84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563,AUTHORITY[\"EPSG\",\"7030\"]],AUTHORITY["
    "\"EPSG\",\"6326\"]],PRIMEM[\"Greenwich\",0,AUTHORITY[\"EPSG\",\"8901\"]],UNIT[\"degree\",0.0174532925199433,"
    "AUTHORITY[\"EPSG\",\"9122\"]],AUTHORITY[\"EPSG\",\"4326\"]]', 'longitude/latitude coordinates in decimal degrees "
    "on the WGS 84 spheroid')";

const char* typeName(GisColumn::Type type)
{
    switch (type) {
    case GisColumn::Integer: return "INTEGER";
    case GisColumn::Real: return "DOUBLE";
    case GisColumn::Date: return "DATE";
    case GisColumn::Text: break;
    }
    return "TEXT";
}

// The header of a GeoPackage geometry and a point as ISO well-known binary.
QByteArray pointBytes(const GisPoint& point, int system)
{
    constexpr quint8 littleEndianNoEnvelope = 1;
    constexpr quint32 point2d = 1, point3d = 1001;
    const bool hasHeight = std::isfinite(point.z);
    QByteArray bytes("GP");
    QDataStream out(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint8(0) << littleEndianNoEnvelope << qint32(system);
    out << quint8(1) << (hasHeight ? point3d : point2d) << point.x << point.y;
    if (hasHeight)
        out << point.z;
    return bytes;
}

/// A file that lies in memory until it is whole.
class Store {
public:
    Store() { take(sqlite3_open(":memory:", &base_)); }
    ~Store() { sqlite3_close(base_); }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    bool isGood() const { return problem_.isEmpty(); }
    QString problem() const { return problem_; }

    /// Constants and names of our own.
    void execute(const QString& statement)
    {
        if (isGood())
            take(sqlite3_exec(base_, statement.toUtf8().constData(), nullptr, nullptr, nullptr));
    }

    /// One row a call, the values in the place of the question marks.
    class Insertion {
    public:
        Insertion(Store& store, const QString& statement) : store_(store)
        {
            if (store_.isGood())
                store_.take(sqlite3_prepare_v2(store_.base_, statement.toUtf8().constData(), -1, &row_, nullptr));
        }
        ~Insertion() { sqlite3_finalize(row_); }
        Insertion(const Insertion&) = delete;
        Insertion& operator=(const Insertion&) = delete;

        void add(const QVector<QVariant>& values)
        {
            if (!store_.isGood())
                return;
            for (int i = 0; i < values.size(); ++i)
                store_.take(bind(i + 1, values[i]));
            const int stepped = sqlite3_step(row_);
            store_.take(stepped == SQLITE_DONE ? SQLITE_OK : stepped);
            sqlite3_reset(row_);
        }

    private:
        int bind(int place, const QVariant& value)
        {
            if (value.isNull())
                return sqlite3_bind_null(row_, place);
            switch (value.type()) {
            case QVariant::Int: return sqlite3_bind_int(row_, place, value.toInt());
            case QVariant::Double: return sqlite3_bind_double(row_, place, value.toDouble());
            case QVariant::ByteArray: {
                const QByteArray bytes = value.toByteArray();
                return sqlite3_bind_blob(row_, place, bytes.constData(), bytes.size(), SQLITE_TRANSIENT);
            }
            default: break;
            }
            const QByteArray text = value.toString().toUtf8(); // a date as its ISO text
            return sqlite3_bind_text(row_, place, text.constData(), text.size(), SQLITE_TRANSIENT);
        }

        Store& store_;
        sqlite3_stmt* row_ = nullptr;
    };

    QByteArray bytes()
    {
        sqlite3_int64 size = 0;
        unsigned char* const copy = isGood() ? sqlite3_serialize(base_, "main", &size, 0) : nullptr;
        QByteArray whole(reinterpret_cast<const char*>(copy), copy ? int(size) : 0);
        sqlite3_free(copy);
        return whole;
    }

private:
    void take(int code)
    {
        if (code != SQLITE_OK && problem_.isEmpty())
            problem_ = QString::fromUtf8(base_ ? sqlite3_errmsg(base_) : sqlite3_errstr(code));
    }

    sqlite3* base_ = nullptr;
    QString problem_;
};

void addSystem(Store& store, const QString& wkt, const QString& proj4Text)
{
    Store::Insertion row(store, "INSERT INTO gpkg_spatial_ref_sys VALUES (?, ?, ?, ?, ?, ?)");
    row.add({"Система координат проекта", projectSystem, "TERVA", projectSystem, wkt, proj4Text});
}

// The rectangle of the layer's points; null values without any.
QVector<QVariant> boundsOf(const GisLayer& layer)
{
    QVector<QVariant> bounds(4, QVariant(QVariant::Double));
    for (const GisFeature& feature : layer.features) {
        if (!feature.placed)
            continue;
        const double at[] = {feature.plan.x, feature.plan.y};
        for (int i = 0; i < 2; ++i) {
            bounds[i] = bounds[i].isNull() ? at[i] : std::min(bounds[i].toDouble(), at[i]);
            bounds[i + 2] = bounds[i + 2].isNull() ? at[i] : std::max(bounds[i + 2].toDouble(), at[i]);
        }
    }
    return bounds;
}

void addLayer(Store& store, const GisLayer& layer, int system)
{
    constexpr int heightMayBe = 2;
    QString columns, marks;
    for (const GisColumn& column : layer.columns) {
        columns += ", \"" + column.name + "\" " + typeName(column.type);
        marks += ", ?";
    }
    store.execute("CREATE TABLE " + layer.name + " (fid INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, geom POINT"
                  + columns + ")");
    Store::Insertion(store,
                     "INSERT INTO gpkg_contents (table_name, data_type, identifier, description, min_x, min_y, "
                     "max_x, max_y, srs_id) VALUES (?, 'features', ?, ?, ?, ?, ?, ?, ?)")
        .add(QVector<QVariant>{layer.name, layer.name, layer.title} + boundsOf(layer) + QVector<QVariant>{system});
    Store::Insertion(store, "INSERT INTO gpkg_geometry_columns VALUES (?, 'geom', 'POINT', ?, ?, 0)")
        .add({layer.name, system, heightMayBe});
    Store::Insertion row(store, "INSERT INTO " + layer.name + " VALUES (NULL, ?" + marks + ")");
    for (const GisFeature& feature : layer.features) {
        const QVariant place =
            feature.placed ? QVariant(pointBytes(feature.plan, system)) : QVariant(QVariant::ByteArray);
        row.add(QVector<QVariant>{place} + feature.values);
    }
}

} // namespace

GeoPackage geoPackage(const QVector<const GisLayer*>& layers, const QString& wkt, const QString& proj4Text)
{
    Store store;
    store.execute(
        QStringLiteral("PRAGMA application_id = %1; PRAGMA user_version = %2").arg(applicationId).arg(formatVersion));
    store.execute(QStringLiteral("BEGIN"));
    store.execute(QString::fromUtf8(frame));
    const int system = wkt.isEmpty() ? undefinedPlane : projectSystem;
    if (system == projectSystem)
        addSystem(store, wkt, proj4Text);
    for (const GisLayer* layer : layers)
        addLayer(store, *layer, system);
    store.execute(QStringLiteral("COMMIT"));
    const QByteArray bytes = store.bytes();
    return {bytes, bytes.isEmpty() && store.isGood() ? QStringLiteral("не хватает памяти") : store.problem()};
}
