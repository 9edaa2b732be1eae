// Attribute definitions and attributes.
#include "class_table.h"
#include "entity_clone.h"
#include "text_parts.h"

NCRX_DEFINE(NcDbAttributeDefinition, NcDbText)
NCRX_DEFINE(NcDbAttribute, NcDbText)

NcDbEntity* NcDbAttributeDefinition::clone() const
{
    return cloned(*this, [&](NcDbAttributeDefinition& copy) {
        copyText(*this, copy);
        copy.tag_ = tag_;
        copy.prompt_ = prompt_;
        copy.constant_ = constant_;
        copy.invisible_ = invisible_;
    });
}

NcDbAttributeDefinition* NcDbAttributeDefinition::cast(NcDbObject* object)
{
    return object && object->isKindOf(desc()) ? static_cast<NcDbAttributeDefinition*>(object) : nullptr;
}

void NcDbAttributeDefinition::setTag(const QString& tag) { assign(tag_, tag); }

void NcDbAttributeDefinition::setPrompt(const QString& prompt) { assign(prompt_, prompt); }

void NcDbAttributeDefinition::setConstant(bool on) { assign(constant_, on); }

void NcDbAttributeDefinition::setInvisible(bool on) { assign(invisible_, on); }

NcDbEntity* NcDbAttribute::clone() const
{
    return cloned(*this, [&](NcDbAttribute& copy) {
        copyText(*this, copy);
        copy.tag_ = tag_;
        copy.invisible_ = invisible_;
        copy.fieldLength_ = fieldLength_;
        copy.mtext_.reset(mtext_ ? static_cast<NcDbMText*>(mtext_->clone()) : nullptr);
    });
}

NcStatus NcDbAttribute::setTextString(const QString& text)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    if (mtext_)
        mtext_->setContents(text);
    return NcDbText::setTextString(text);
}

NcStatus NcDbAttribute::setAttributeFromBlock(const NcDbAttributeDefinition* definition,
                                              const NcGeMatrix3d& blockTransform)
{
    if (!definition)
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    copyText(*definition, *this);
    return transformBy(blockTransform);
}

NcStatus NcDbAttribute::transformBy(const NcGeMatrix3d& matrix)
{
    const NcStatus status = NcDbText::transformBy(matrix);
    if (isOk(status) && mtext_)
        mtext_->transformBy(matrix);
    return status;
}

void NcDbAttribute::setTag(const QString& tag) { assign(tag_, tag); }

void NcDbAttribute::setInvisible(bool on) { assign(invisible_, on); }

void NcDbAttribute::setFieldLength(int length)
{
    if (length >= 0)
        assign(fieldLength_, length);
}

namespace {

// Where a text of several lines is held so that it stands like the text of one:
// 1..3 the top row, 4..6 the middle, 7..9 the bottom.
int attachmentOf(int horizontal, int vertical)
{
    if (horizontal == NcDbText::kTextMiddle)
        return 5;
    const int row = vertical == NcDbText::kTextTop ? 0 : vertical == NcDbText::kTextVertMid ? 1 : 2;
    const int column = horizontal == NcDbText::kTextCenter ? 1 : horizontal == NcDbText::kTextRight ? 2 : 0;
    return row * 3 + column + 1;
}

} // namespace

NcStatus NcDbAttribute::convertIntoMTextAttribute(bool on)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    if (on == isMTextAttribute())
        return NcStatus::Ok;
    mtext_.reset();
    if (on) {
        mtext_ = std::make_unique<NcDbMText>();
        const bool plain = horizontal_ == kTextLeft && vertical_ == kTextBase;
        mtext_->setContents(text_);
        mtext_->setLocation(plain ? position_ : alignment_);
        mtext_->setTextHeight(height_);
        mtext_->setRotation(rotation_);
        mtext_->setAttachment(attachmentOf(horizontal_, vertical_));
    }
    changed();
    return NcStatus::Ok;
}

NcDbMText* NcDbAttribute::getMTextAttribute() const
{
    return mtext_ ? static_cast<NcDbMText*>(mtext_->clone()) : nullptr;
}

NcStatus NcDbAttribute::setMTextAttribute(const NcDbMText* text)
{
    if (!text)
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    mtext_.reset(static_cast<NcDbMText*>(text->clone()));
    text_ = text->contents();
    position_ = alignment_ = text->location();
    height_ = text->textHeight();
    rotation_ = text->rotation();
    changed();
    return NcStatus::Ok;
}
