// The delivered block files: each holds the block of its name with exactly the
// attributes and properties that elements are written with.
#include "audited.h"

#include <drawing/audit.h>
#include <drawing/host_access.h>

#include <QCoreApplication>
#include <QDir>
#include <QMap>
#include <QSet>
#include <QTemporaryDir>

namespace {

struct Property {
    QString name;
    int type;
    QString value;
    QStringList allowed;
    bool operator==(const Property& o) const
    {
        return name == o.name && type == o.type && value == o.value && allowed == o.allowed;
    }
};
using Properties = std::vector<Property>;
using Attributes = QMap<QString, QString>;

Property real(const char* name, const char* value)
{
    return {QString::fromUtf8(name), 40, QString::fromUtf8(value), {}};
}

const Property kMirrored{
    QStringLiteral("Отраженное состояние1"), 70, QStringLiteral("0"), {QStringLiteral("0"), QStringLiteral("1")}};

// The doubled letter belongs to existing blocks.
Property state(const char* name)
{
    return {QString::fromUtf8(name),
            1,
            QStringLiteral("Выноска видна"),
            {QStringLiteral("Выноска видна"), QStringLiteral("Выноскаа скрыта")}};
}

Properties label(const char* x, const char* y, const char* stateName, const Properties& more = {})
{
    Properties all{real("Положение1 X", x), real("Положение1 Y", y), real("Длина полки", "12.0461"), kMirrored,
                   state(stateName)};
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

Properties mark(const Properties& more = {}) { return label("1.39489", "0.895453", "Видимость1", more); }

Properties usual(const Properties& more = {}) { return label("1.39489", "0.895453", "Выноска", more); }

Properties benchmark(const Properties& more = {}) { return label("2.01741", "1.29509", "Видимость1", more); }

Attributes tags(const QStringList& more = {})
{
    Attributes all{{QStringLiteral("name"), QStringLiteral(" ")}, {QStringLiteral("element_id"), QStringLiteral(" ")}};
    for (const QString& tag : more)
        all.insert(tag, QStringLiteral(" "));
    return all;
}

struct Block {
    const char* file;
    const char* name;
    Attributes attributes;
    Properties properties;
};

const std::vector<Block>& blocks()
{
    const Attributes stabiliser = tags({QStringLiteral("h"), QStringLiteral("de"), QStringLiteral("z")});
    const Attributes levelled = tags({QStringLiteral("rp_z")});
    Attributes well = tags();
    well.insert(QStringLiteral("Z"), QStringLiteral("0"));
    static const std::vector<Block> all = {
        {"dm", "dm_def", tags(), mark({real("Угол1", "0")})},
        {"ts", "ts_def", tags(), usual()},
        {"ggs", "ggs_def", tags(), usual()},
        {"tsg", "tsg_def", stabiliser, usual()},
        {"sv", "sv_def", {}, {}},
        {"rp_gl", "rp_gl_def", levelled, benchmark()},
        {"rp_gr", "rp_gr_def", levelled, benchmark()},
        {"rp_st", "rp_st_def", levelled, benchmark({real("Угол1", "0.0")})},
        {"dm_t", "dm_t_def", tags(), mark({real("Угол1", "0.0")})},
        {"dm_gl", "dm_gl_def", tags(), mark()},
        {"dm_pv", "dm_pv_def", tags(), mark()},
        {"tt", "tt_def", tags(), usual()},
        {"tss_p", "tss_p_def", tags(), usual()},
        {"pk",
         "pk_def",
         {{QStringLiteral("Z"), QStringLiteral("0")}, {QStringLiteral("ELEMENT_ID"), QStringLiteral("0")}},
         {}},
        {"skv", "skv_def", well, usual()},
        {"tsg_g", "tsg_g_def", stabiliser, usual({real("Положение2 X", "0"), real("Положение2 Y", "5")})},
        {"tsg_vs", "tsg_vs_def", stabiliser, usual({real("Заглубление X", "0"), real("Заглубление Y", "5")})},
        {"tss_h", "tss_h_def", tags(), usual()},
        {"rp_vr", "rp_vr_def", levelled, benchmark({real("Угол1", "0.0")})},
    };
    return all;
}

QString pathOf(const QString& file) { return QCoreApplication::applicationDirPath() + QLatin1Char('/') + file; }

QString blockPath(const Block& block) { return pathOf(QStringLiteral("blocks/%1.dwg").arg(QLatin1String(block.file))); }

Properties propertiesOf(const NcDbBlockTableRecord& record)
{
    Properties found;
    if (const DynamicDefinition* definition = HostAccess::dynamic(record).get()) {
        for (const DynamicParameter& parameter : definition->parameters)
            found.push_back({parameter.name, parameter.type, parameter.defaultValue, parameter.allowed});
    }
    return found;
}

template <class Less>
Properties sorted(Properties properties, Less less)
{
    std::sort(properties.begin(), properties.end(), less);
    return properties;
}

Properties sorted(Properties properties)
{
    return sorted(std::move(properties), [](const Property& a, const Property& b) { return a.name < b.name; });
}

class ShareBlock : public ::testing::TestWithParam<size_t> { };

} // namespace

TEST_P(ShareBlock, hasTheAttributesAndPropertiesOfItsKind)
{
    const Block& block = blocks()[GetParam()];
    NcDbDatabase drawing;
    ASSERT_EQ(drawing.readDwgFile(blockPath(block)), NcStatus::Ok) << block.file;
    const NcDbObjectId id = HostAccess::recordId(drawing, drawing.blockTableId(), QLatin1String(block.name));
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(id);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->getName(), QLatin1String(block.name));
    Attributes attributes;
    for (NcDbObjectId entity : HostAccess::entities(*record)) {
        const auto* definition = HostAccess::objectAs<NcDbAttributeDefinition>(entity);
        if (!definition)
            continue;
        EXPECT_FALSE(attributes.contains(definition->tag()));
        attributes.insert(definition->tag(), definition->textString());
        const bool key = definition->tag().compare(QLatin1String("element_id"), Qt::CaseInsensitive) == 0;
        EXPECT_EQ(definition->isInvisible(), key) << definition->tag().toStdString();
        EXPECT_FALSE(definition->isConstant());
    }
    EXPECT_EQ(attributes, block.attributes);
    EXPECT_TRUE(sorted(propertiesOf(*record)) == sorted(block.properties)) << block.name;
    for (const AuditFinding& finding : audit(drawing))
        ADD_FAILURE() << finding.text.toStdString();
}

// What the module reads the properties through.
TEST_P(ShareBlock, offersItsPropertiesToTheModule)
{
    const Block& block = blocks()[GetParam()];
    NcDbDatabase drawing;
    ASSERT_EQ(drawing.readDwgFile(blockPath(block)), NcStatus::Ok);
    const auto& model = *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing).modelSpace);
    ASSERT_EQ(HostAccess::entities(model).size(), 1u);
    const NcDbDynBlockReference look(HostAccess::entities(model).front());
    EXPECT_EQ(look.isDynamicBlock(), !block.properties.empty());
    EXPECT_EQ(look.getBlockProperties().size(), block.properties.size());
    for (NcDbDynBlockReferenceProperty property : look.getBlockProperties()) {
        for (const NcDbEvalVariant& value : property.getAllowedValues())
            EXPECT_EQ(property.setValue(value), NcStatus::Ok) << property.propertyName().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(all, ShareBlock, ::testing::Range<size_t>(0, 19),
                         [](const auto& tested) { return std::string(blocks()[tested.param].file); });

TEST(ShareFiles, thereAreNineteenBlocksAndAllAreSound)
{
    const QDir folder(pathOf(QStringLiteral("blocks")));
    QSet<QString> expected;
    QStringList paths{pathOf(QStringLiteral("Default.dwt"))};
    for (const Block& block : blocks()) {
        expected.insert(QLatin1String(block.file) + QStringLiteral(".dwg"));
        paths << blockPath(block);
    }
    EXPECT_EQ(expected.size(), 19);
    const QStringList found = folder.entryList(QDir::Files);
    EXPECT_EQ(QSet<QString>(found.begin(), found.end()), expected);
    // The library goes by the name's end.
    QTemporaryDir copies;
    QStringList named;
    for (const QString& path : paths) {
        named << copies.filePath(QString::number(named.size()) + QStringLiteral(".dxf"));
        ASSERT_TRUE(QFile::copy(path, named.last())) << path.toStdString();
    }
    expectSound(named);
}

TEST(ShareFiles, templateIsAPlainMetricDrawing)
{
    NcDbDatabase drawing;
    ASSERT_EQ(drawing.readDwgFile(pathOf(QStringLiteral("Default.dwt"))), NcStatus::Ok);
    const auto& model = *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing).modelSpace);
    EXPECT_TRUE(HostAccess::entities(model).empty());
    EXPECT_EQ(HostAccess::records(*HostAccess::objectAs<NcDbLayerTable>(drawing.layerTableId())).size(), 1u);
    bool metres = false;
    for (const HeaderVariable& variable : HostAccess::data(drawing).header)
        metres = metres
            || (variable.name == QLatin1String("$INSUNITS")
                && variable.groups.front().value.trimmed() == QLatin1String("6"));
    EXPECT_TRUE(metres);
}
