// What makes a block dynamic: its parameters, and what they do to the entities
// of the definition. Plain data, so that block files can carry it.
#pragma once

#include <nrx/tables.h>

#include <QStringList>

// A property of the block's references.
struct DynamicParameter {
    QString name;
    int type = 40;        // 1 text, 40 real, 70 16-bit integer, 90 32-bit integer
    QString defaultValue; // printed; reals with '.' and no exponent needed
    QStringList allowed;  // empty: any value of the type

    bool operator==(const DynamicParameter& o) const
    {
        return name == o.name && type == o.type && defaultValue == o.defaultValue && allowed == o.allowed;
    }
};

// One rule: how one entity of the definition follows a parameter. Everything is
// told in the block's coordinates and in the state that the defaults describe.
//
// d is the parameter's value less its default. The rules of an entity apply in
// the order of the definition, each to what the one before left, so a label
// lists its mirroring (about the leader's default end) before the move that
// takes it to the leader's present end.
struct DynamicBinding {
    enum Kind {
        Move,    // by (d of `parameter`, d of `second`), the X and Y of a grip
        Slide,   // by `direction` times d
        Stretch, // only vertex `vertex` moves, as by Move
        Length,  // the vertex `vertex` of a line, or of a polyline, is set from the
                 // vertex before it (from vertex 1 when it is 0), in the
                 // direction it has, or in `direction` when the two coincide,
                 // at the distance `parameter`
        Rotate,  // by d radians about `base`
        Mirror,  // while the value is not 0: about the line through `base`
                 // along `direction`; texts stay readable
        Visible  // shown only while the value is one of `values`
    };

    Kind kind = Move;
    quint64 entity = 0; // handle of the entity in the definition
    QString parameter;
    QString second; // Move and Stretch: the Y parameter, may be empty
    int vertex = 1; // Stretch and Length: 0 start, 1 end of a line; index of a polyline
    NcGePoint2d base;
    NcGePoint2d direction{0.0, 1.0};
    QStringList values;

    bool operator==(const DynamicBinding& o) const
    {
        return kind == o.kind && entity == o.entity && parameter == o.parameter && second == o.second
            && vertex == o.vertex && base == o.base && direction == o.direction && values == o.values;
    }
};

struct DynamicDefinition {
    std::vector<DynamicParameter> parameters; // in the order of getBlockProperties
    std::vector<DynamicBinding> bindings;

    // Null when there is no such parameter. Names are compared exactly.
    const DynamicParameter* parameter(const QString& name) const;
    bool operator==(const DynamicDefinition& o) const { return parameters == o.parameters && bindings == o.bindings; }
};

// The definition as lines of text, for block sources and extension data: a line
// a parameter or binding, fields divided by '|', '\' before a '|' or '\' that
// belongs to a field. Handles are hexadecimal, numbers shortest exact.
//   parameter|<name>|<type>|<default>|<allowed>...
//   move|<entity>|<X parameter>|<Y parameter>
//   slide|<entity>|<parameter>|<dx>|<dy>
//   stretch|<entity>|<X parameter>|<Y parameter>|<vertex>
//   length|<entity>|<parameter>|<vertex>|<dx>|<dy>
//   rotate|<entity>|<parameter>|<x>|<y>
//   mirror|<entity>|<parameter>|<x>|<y>|<dx>|<dy>
//   visible|<entity>|<parameter>|<value>...
NRX_API QStringList dynamicDefinitionText(const DynamicDefinition& definition);
// False, with `definition` untouched, at the first line that is none of these
// or names a parameter that no line before declared.
NRX_API bool parseDynamicDefinition(const QStringList& lines, DynamicDefinition& definition);

// An entity of a reference as its properties say.
struct EvaluatedEntity {
    std::unique_ptr<NcDbEntity> entity; // a clone, in block coordinates, outside any drawing
    NcDbObjectId source;                // the entity of the definition
};

// All entities of the reference's definition that were not erased, in drawing
// order, after the parameters were applied; the same for a plain block, without
// a change. An entity that a parameter hides has isVisible() false. Attribute
// definitions are among them: of a reference only the constant ones are drawn,
// the others are drawn as its attributes.
NRX_API std::vector<EvaluatedEntity> evaluatedEntities(const NcDbBlockReference& reference);

// Printed value of a property: the reference's own, else the default.
NRX_API QString dynamicValue(const NcDbBlockReference& reference, const QString& name);

// Places the attributes whose definitions are bound to a parameter where the
// present values put them, and shows or hides them. Done by setValue.
NRX_API void placeAttributes(NcDbBlockReference& reference);
