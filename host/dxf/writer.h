// Writing groups and records as text.
#pragma once

#include "fields.h"
#include "long_data.h"

#include <QByteArray>
#include <functional>

// The shortest text that reads back as the equal number; a number that is not
// finite has no form in a drawing file and becomes 0.
QString realText(double value);

class DxfWriter {
public:
    void group(int code, const QString& value); // the value as it stands
    void groups(const DxfGroups& groups);
    void text(int code, const QString& value); // control characters encoded
    void real(int code, double value);
    void integer(int code, qint64 value);
    void handle(int code, quint64 value);
    void point(int code, const NcGePoint3d& p); // three groups
    void point2d(int code, double x, double y);
    void vector(int code, const NcGeVector3d& v) { point(code, {v.x, v.y, v.z}); }
    void record(const DxfRecord& record);

    const QByteArray& bytes() const { return bytes_; }

    // Left for the section of objects.
    std::vector<DxfLongData> longData;

private:
    QByteArray bytes_;
};

// Kept groups without the references of control groups to what is no more.
using DxfIsDead = std::function<bool(quint64)>;
DxfGroups withoutDeadReferences(const DxfGroups& groups, const DxfIsDead& isDead);
