// Block definitions, references, attributes and dynamic properties.
#pragma once

#include "entity.h"

class NcDbSortentsTable;

// Text that belongs to a block definition as a form field.
class NRX_API NcDbAttributeDefinition : public NcDbText {
    NCRX_DECLARE(NcDbAttributeDefinition)
public:
    NcDbEntity* clone() const override;
    // The object as an attribute definition, or null.
    static NcDbAttributeDefinition* cast(NcDbObject* object);

    QString tag() const { return tag_; }
    void setTag(const QString& tag);
    QString prompt() const { return prompt_; }
    void setPrompt(const QString& prompt);
    bool isConstant() const { return constant_; }
    void setConstant(bool on);
    bool isInvisible() const { return invisible_; }
    void setInvisible(bool on);

private:
    QString tag_, prompt_;
    bool constant_ = false, invisible_ = false;
};

// Text of one reference, tied to a definition by its tag.
class NRX_API NcDbAttribute : public NcDbText {
    NCRX_DECLARE(NcDbAttribute)
public:
    NcDbEntity* clone() const override;
    NcStatus setTextString(const QString& text) override;
    NcStatus transformBy(const NcGeMatrix3d& matrix) override;

    // Place, height, rotation, alignment and text of the definition, carried
    // by the transformation of the reference.
    NcStatus setAttributeFromBlock(const NcDbAttributeDefinition* definition, const NcGeMatrix3d& blockTransform);
    QString tag() const { return tag_; }
    void setTag(const QString& tag);
    bool isInvisible() const { return invisible_; }
    void setInvisible(bool on);
    int fieldLength() const { return fieldLength_; }
    void setFieldLength(int length);

    bool isMTextAttribute() const { return bool(mtext_); }
    NcStatus convertIntoMTextAttribute(bool on = true);
    // A copy; the caller deletes it. Null for a plain attribute.
    NcDbMText* getMTextAttribute() const;
    NcStatus setMTextAttribute(const NcDbMText* text);

private:
    QString tag_;
    bool invisible_ = false;
    int fieldLength_ = 0;
    std::unique_ptr<NcDbMText> mtext_;
};

// Walks ids that the host handed out; deleted by its user.
class NRX_API NcDbObjectIterator {
public:
    explicit NcDbObjectIterator(NcDbObjectIdArray ids) : ids_(std::move(ids)) { }
    void start() { at_ = 0; }
    bool done() const { return at_ >= ids_.size(); }
    void step() { ++at_; }
    NcDbObjectId objectId() const { return done() ? NcDbObjectId() : ids_[at_]; }

private:
    NcDbObjectIdArray ids_;
    size_t at_ = 0;
};

struct NcScale3d {
    double sx = 1.0, sy = 1.0, sz = 1.0;
};

class NRX_API NcDbBlockReference : public NcDbEntity {
    NCDB_ENTITY(NcDbBlockReference)
    NcDbBlockReference() = default;
    NcDbBlockReference(const NcGePoint3d& position, NcDbObjectId definition)
        : position_(position), definition_(definition)
    { }

    NcStatus setColorIndex(int index, bool withSubentities = true) override;
    NcStatus setColor(const NcCmColor& color, bool withSubentities = true) override;
    NcStatus setLayer(const QString& name, bool withSubentities = true, bool allowLocked = false) override;

    NcStatus setBlockTableRecord(NcDbObjectId definition);
    NcDbObjectId blockTableRecord() const { return definition_; }
    // Setting the place moves the attributes with it; transformBy does too.
    NcStatus setPosition(const NcGePoint3d& p);
    NcGePoint3d position() const { return position_; }
    NcStatus setRotation(double radians);
    // Radians in 0..2π.
    double rotation() const { return rotation_; }
    NcStatus setScaleFactors(const NcScale3d& scale);
    NcScale3d scaleFactors() const { return scale_; }
    NcGeVector3d normal() const { return normal_; }
    NcGeMatrix3d blockTransform() const;

    NcDbObjectIterator* attributeIterator() const;
    // The reference must be in a drawing; it then owns the attribute.
    NcStatus appendAttribute(NcDbObjectId& id, NcDbAttribute* attribute);
    NcStatus appendAttribute(NcDbAttribute* attribute);

private:
    NcGePoint3d position_;
    NcDbObjectId definition_;
    double rotation_ = 0.0;
    NcScale3d scale_;
    NcGeVector3d normal_{0, 0, 1};
    NcDbObjectIdArray attributes_;
    // Values of dynamic properties that differ from the definition, by name.
    std::vector<std::pair<QString, QString>> dynamicValues_;
};

// A value of a dynamic property: text (1), real (40), 16-bit (70) or 32-bit (90) integer.
class NRX_API NcDbEvalVariant {
public:
    NcDbEvalVariant() = default;
    explicit NcDbEvalVariant(double value) : type_(40), real_(value) { }
    explicit NcDbEvalVariant(short value) : type_(70), integer_(value) { }
    explicit NcDbEvalVariant(int value) : type_(90), integer_(value) { }
    explicit NcDbEvalVariant(const QString& value) : type_(1), text_(value) { }

    int restype() const { return type_; }
    double real() const { return real_; }
    int integer() const { return integer_; }
    QString text() const { return text_; }

private:
    int type_ = 0;
    double real_ = 0.0;
    int integer_ = 0;
    QString text_;
};

class NRX_API NcDbDynBlockReferenceProperty {
public:
    QString propertyName() const { return name_; }
    int propertyType() const { return type_; }
    bool readOnly() const { return false; }
    NcDbEvalVariant value() const;
    // Of the property's own type, and one of the allowed values if there are
    // any; else refused. The block is drawn anew.
    NcStatus setValue(const NcDbEvalVariant& value);
    std::vector<NcDbEvalVariant> getAllowedValues() const;

private:
    friend class NcDbDynBlockReference;
    NcDbObjectId reference_;
    QString name_;
    int type_ = 1;
};

// A look at a reference as a dynamic block; holds nothing open.
class NRX_API NcDbDynBlockReference {
public:
    explicit NcDbDynBlockReference(NcDbObjectId reference) : reference_(reference) { }
    bool isDynamicBlock() const;
    // The definition that the reference comes from, never an anonymous copy;
    // of a plain block its own definition.
    NcDbObjectId dynamicBlockTableRecord() const;
    // In the definition's order; empty for a plain block.
    std::vector<NcDbDynBlockReferenceProperty> getBlockProperties() const;

private:
    NcDbObjectId reference_;
};
