// Texts, texts of several lines, attribute definitions and attributes.
#include "entity_codec.h"

#include "text_coding.h"

namespace {

constexpr int kInvisible = 1, kConstant = 2;
// Bits of a multiline text's background.
constexpr int kFill = 1, kDrawingBackground = 2;
// Of a ground whose colour nobody told.
constexpr int kPaperColor = 7;
const QString kBackground = QStringLiteral("background"), kMText = QStringLiteral("mtext");

// A text without a style has the standard one, which ours is not.
void takeStyle(DxfEntityFields& fields, const char* subclass, NcDbEntity& text)
{
    if (!fields.has(7))
        HostAccess::data(text).foreignGroups = {{100, QLatin1String(subclass)}, {7, QStringLiteral("Standard")}};
    fields.drop(7, QLatin1String(kTextStyle));
}

void writeStyle(DxfRecordWriter& record)
{
    if (!record.keepsCode(7))
        record.text(7, QLatin1String(kTextStyle));
}

void readTextPart(DxfEntityFields& fields, NcDbText& text)
{
    fields.enter("AcDbText");
    HostAccess::position(text) = fields.point(10);
    HostAccess::alignment(text) = fields.point(11, text.position());
    HostAccess::height(text) = fields.real(40, 2.5);
    HostAccess::text(text) = fields.text(1);
    HostAccess::rotation(text) = fields.angle(50);
    HostAccess::widthFactor(text) = fields.real(41, 1.0);
    HostAccess::horizontal(text) = fields.integer(72);
    takeStyle(fields, "AcDbText", text);
}

void writeTextPart(const NcDbText& text, DxfRecordWriter& record)
{
    record.subclass("AcDbText");
    record.point(10, text.position());
    record.real(40, text.height());
    record.text(1, text.textString());
    writeStyle(record);
    if (text.rotation() != 0.0)
        record.angle(50, text.rotation());
    if (text.widthFactor() != 1.0)
        record.real(41, text.widthFactor());
    if (text.horizontalMode() != 0)
        record.integer(72, text.horizontalMode());
    const bool aligned = text.horizontalMode() != 0 || text.verticalMode() != 0;
    if (aligned || text.alignmentPoint() != text.position())
        record.point(11, text.alignmentPoint());
}

std::unique_ptr<NcDbEntity> readText(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    auto text = std::make_unique<NcDbText>();
    readTextPart(fields, *text);
    HostAccess::vertical(*text) = fields.integer(73);
    return text;
}

void writeText(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& text = as<NcDbText>(entity);
    writeTextPart(text, record);
    record.subclass("AcDbText");
    if (text.verticalMode() != 0)
        record.integer(73, text.verticalMode());
}

// Lines are told apart by the format's code, not by control characters.
QString withLineCodes(QString contents)
{
    contents.replace(QLatin1String("\r\n"), QLatin1String("\\P"));
    return contents.replace(QLatin1Char('\n'), QLatin1String("\\P"));
}

std::unique_ptr<NcDbEntity> readMText(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    auto text = std::make_unique<NcDbMText>();
    fields.enter("AcDbMText");
    HostAccess::location(*text) = fields.point(10);
    HostAccess::height(*text) = fields.real(40, 2.5);
    HostAccess::width(*text) = fields.real(41);
    HostAccess::attachment(*text) = qBound(1, fields.integer(71, 1), 9);
    QString contents;
    for (const QString& piece : fields.values(3))
        contents += piece;
    for (const QString& piece : fields.values(1))
        contents += piece;
    HostAccess::contents(*text) = withLineCodes(fromCaretCoding(contents));
    const bool turned = fields.has(50);
    const NcGeVector3d direction = fields.vector(11, {1, 0, 0});
    const double fromDirection = NcGeVector3d::kXAxis.angleTo(direction, NcGeVector3d::kZAxis);
    HostAccess::rotation(*text) = turned ? fields.angle(50) : fromDirection;
    const int background = fields.integer(90);
    HostAccess::backgroundFill(*text) = background & (kFill | kDrawingBackground);
    HostAccess::useBackgroundColor(*text) = (background & kDrawingBackground) || fields.own().has(kBackground);
    HostAccess::backgroundScale(*text) = fields.real(45, 1.5);
    takeStyle(fields, "AcDbMText", *text);
    fields.drop(72, 1);
    fields.drop(63, kPaperColor);
    return text;
}

// The format takes lines of text of 250 characters; a pair of surrogates is
// not cut.
void writeContents(const QString& contents, DxfRecordWriter& record)
{
    const QString text = toCaretCoding(withLineCodes(contents));
    int at = 0;
    while (text.size() - at > 250) {
        const int size = text.at(at + 249).isHighSurrogate() ? 249 : 250;
        record.groups({{3, text.mid(at, size)}});
        at += size;
    }
    record.groups({{1, text.mid(at)}});
}

void writeBackground(const NcDbMText& text, DxfRecordWriter& record)
{
    const std::optional<QString> color = record.takeKept(63);
    if (text.backgroundFillOn())
        record.integer(90, text.useBackgroundColorOn() ? kFill | kDrawingBackground : kFill);
    else if (text.useBackgroundColorOn())
        record.own().entry(kBackground).addInteger(1);
    if (text.backgroundFillOn())
        record.groups({{63, color.value_or(QString::number(kPaperColor))}});
    if (text.backgroundFillOn() || text.backgroundScaleFactor() != 1.5)
        record.real(45, text.backgroundScaleFactor());
}

void writeMText(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& text = as<NcDbMText>(entity);
    record.subclass("AcDbMText");
    record.point(10, text.location());
    record.real(40, text.textHeight());
    record.real(41, text.width());
    record.integer(71, text.attachment());
    if (!record.keepsCode(72))
        record.integer(72, 1);
    writeContents(text.contents(), record);
    writeStyle(record);
    if (text.rotation() != 0.0)
        record.angle(50, text.rotation());
    writeBackground(text, record);
}

std::unique_ptr<NcDbEntity> readDefinition(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    auto definition = std::make_unique<NcDbAttributeDefinition>();
    readTextPart(fields, *definition);
    fields.enter("AcDbAttributeDefinition");
    HostAccess::prompt(*definition) = fields.text(3);
    HostAccess::tag(*definition) = fields.word(2);
    const int flags = fields.flags(70, kInvisible | kConstant);
    HostAccess::invisible(*definition) = flags & kInvisible;
    HostAccess::constant(*definition) = flags & kConstant;
    HostAccess::vertical(*definition) = fields.integer(74);
    return definition;
}

void writeDefinition(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& definition = as<NcDbAttributeDefinition>(entity);
    writeTextPart(definition, record);
    record.subclass("AcDbAttributeDefinition");
    record.text(3, definition.prompt());
    record.text(2, definition.tag());
    record.flags(70, (definition.isInvisible() ? kInvisible : 0) | (definition.isConstant() ? kConstant : 0),
                 kInvisible | kConstant);
    if (definition.verticalMode() != 0)
        record.integer(74, definition.verticalMode());
}

// A multiline text as an attribute's value: what the single line does not say.
void addMText(const NcDbMText& text, OwnValues& values)
{
    values.addText(text.contents());
    for (double number : {text.location().x, text.location().y, text.location().z, text.textHeight(), text.width(),
                          text.rotation(), text.backgroundScaleFactor()})
        values.addReal(number);
    values.addInteger(text.attachment());
    values.addInteger((text.backgroundFillOn() ? kFill : 0) | (text.useBackgroundColorOn() ? kDrawingBackground : 0));
}

std::unique_ptr<NcDbMText> takeMText(OwnValues values)
{
    auto text = std::make_unique<NcDbMText>();
    HostAccess::contents(*text) = values.text();
    NcGePoint3d& location = HostAccess::location(*text);
    for (double* number : {&location.x, &location.y, &location.z, &HostAccess::height(*text), &HostAccess::width(*text),
                           &HostAccess::rotation(*text), &HostAccess::backgroundScale(*text)})
        *number = values.real();
    HostAccess::attachment(*text) = qBound(1, values.integer(), 9);
    const int background = values.integer();
    HostAccess::backgroundFill(*text) = background & kFill;
    HostAccess::useBackgroundColor(*text) = background & kDrawingBackground;
    return text;
}

std::unique_ptr<NcDbEntity> readAttribute(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    auto attribute = std::make_unique<NcDbAttribute>();
    readTextPart(fields, *attribute);
    fields.enter("AcDbAttribute");
    HostAccess::tag(*attribute) = fields.word(2);
    HostAccess::invisible(*attribute) = fields.flags(70, kInvisible) & kInvisible;
    HostAccess::fieldLength(*attribute) = fields.integer(73);
    HostAccess::vertical(*attribute) = fields.integer(74);
    if (fields.own().has(kMText))
        HostAccess::mtext(*attribute) = takeMText(fields.own().values(kMText));
    return attribute;
}

void writeAttribute(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& attribute = as<NcDbAttribute>(entity);
    writeTextPart(attribute, record);
    record.subclass("AcDbAttribute");
    record.text(2, attribute.tag());
    record.flags(70, attribute.isInvisible() ? kInvisible : 0, kInvisible);
    if (attribute.fieldLength() != 0)
        record.integer(73, attribute.fieldLength());
    if (attribute.verticalMode() != 0)
        record.integer(74, attribute.verticalMode());
    if (const NcDbMText* text = HostAccess::mtext(attribute).get())
        addMText(*text, record.own().entry(kMText));
}

} // namespace

// Some programs take a style's name for that of a typeface: this one has
// Cyrillic letters there.
const char* const kTextStyle = "unicode";

std::vector<EntityCodec> textCodecs()
{
    return {
        {"TEXT", NcDbText::desc, readText, writeText},
        {"MTEXT", NcDbMText::desc, readMText, writeMText},
        {"ATTDEF", NcDbAttributeDefinition::desc, readDefinition, writeDefinition},
        {"ATTRIB", NcDbAttribute::desc, readAttribute, writeAttribute},
    };
}
