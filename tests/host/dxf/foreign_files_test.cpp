// Drawings of other programs: read, kept, and sound when they are saved.
#include "audited.h"
#include "drawing_text.h"

#include <drawing/host_access.h>
#include <dxf/document.h>
#include <dxf/foreign_entity.h>
#include <dxf/group_reader.h>

#include <QDir>
#include <QMap>
#include <QTemporaryDir>

#include <algorithm>

namespace {

const QDir kSamples(QStringLiteral(TERVA_SOURCE_DIR "/tests/data/dxf"));

DxfDocument documentOf(const QString& path)
{
    QFile file(path);
    DxfDocument document;
    DxfGroups groups;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(readGroups(file.readAll(), groups) && readDocument(groups, document));
    return document;
}

// The groups of a record, sorted, numbers in one form: what is kept may change
// its place within the record, not its value.
QStringList contentOf(const DxfRecord& record)
{
    QStringList content;
    for (const DxfGroup& group : record.groups) {
        bool isReal = false;
        const double real = group.value.toDouble(&isReal);
        const bool number =
            isReal && ((group.code >= 10 && group.code < 60) || (group.code >= 140 && group.code < 150));
        // A line break of either form; a circumflex of either form.
        const QString text = QString(group.value.trimmed())
                                 .replace(QLatin1String("^J"), QLatin1String("\\P"))
                                 .replace(QLatin1String("^ "), QLatin1String("^"));
        content << QStringLiteral("%1 %2").arg(group.code).arg(number ? QString::number(real, 'g', 15) : text);
    }
    content.sort();
    return content;
}

QMap<QString, const DxfRecord*> byHandle(const DxfRecords& records)
{
    QMap<QString, const DxfRecord*> map;
    for (const DxfRecord& record : records)
        map.insert(firstValue(record.groups, 5), &record);
    return map;
}

class ForeignFile : public ::testing::Test {
protected:
    void resave(const QString& name)
    {
        ASSERT_EQ(drawing.readDwgFile(kSamples.filePath(name)), NcStatus::Ok) << name.toStdString();
        ASSERT_EQ(drawing.saveAs(saved(name)), NcStatus::Ok);
    }
    QString saved(const QString& name) const { return folder.filePath(name); }
    NcDbBlockTableRecord& model()
    {
        return *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing).modelSpace);
    }
    template <class Class>
    std::vector<const Class*> entities()
    {
        std::vector<const Class*> found;
        for (NcDbObjectId id : HostAccess::entities(model())) {
            if (const auto* entity = HostAccess::objectAs<Class>(id))
                found.push_back(entity);
        }
        return found;
    }

    QTemporaryDir folder;
    NcDbDatabase drawing;
};

} // namespace

TEST(ForeignFiles, allAreReadAndSavedSoundly)
{
    QTemporaryDir folder;
    QStringList saved;
    const QStringList files = kSamples.entryList({QStringLiteral("*.dxf")}, QDir::Files);
    ASSERT_GE(files.size(), 10);
    for (const QString& file : files) {
        NcDbDatabase drawing, again;
        ASSERT_EQ(drawing.readDwgFile(kSamples.filePath(file)), NcStatus::Ok) << file.toStdString();
        saved << folder.filePath(file);
        ASSERT_EQ(drawing.saveAs(saved.last()), NcStatus::Ok);
        ASSERT_EQ(again.readDwgFile(saved.last()), NcStatus::Ok);
        EXPECT_EQ(firstDifference(drawingLines(drawing), drawingLines(again)).toStdString(), "") << file.toStdString();
    }
    expectSound(saved);
}

TEST(ForeignFiles, objectsThatAreNotUnderstoodComeBack)
{
    QTemporaryDir folder;
    for (const QString& file : kSamples.entryList({QStringLiteral("*.dxf")}, QDir::Files)) {
        NcDbDatabase drawing;
        const QString saved = folder.filePath(file);
        ASSERT_EQ(drawing.readDwgFile(kSamples.filePath(file)), NcStatus::Ok);
        ASSERT_EQ(drawing.saveAs(saved), NcStatus::Ok);
        const DxfDocument before = documentOf(kSamples.filePath(file)), after = documentOf(saved);
        const QMap<QString, const DxfRecord*> objects = byHandle(after.objects);
        for (const DxfRecord& record : before.objects) {
            const DxfRecord* kept = objects.value(firstValue(record.groups, 5));
            ASSERT_NE(kept, nullptr) << file.toStdString() << ' ' << record.type.toStdString();
            EXPECT_EQ(kept->type, record.type);
            // Both are understood, and looked at elsewhere.
            if (record.type != QLatin1String("DICTIONARY") && record.type != QLatin1String("SORTENTSTABLE")) {
                EXPECT_EQ(contentOf(*kept), contentOf(record)) << record.type.toStdString();
            }
        }
        EXPECT_GE(after.classes.size(), before.classes.size());
        EXPECT_EQ(after.others.size(), before.others.size());
    }
}

TEST(ForeignFiles, entitiesComeBackGroupByGroup)
{
    QTemporaryDir folder;
    for (const QString& file : kSamples.entryList({QStringLiteral("*.dxf")}, QDir::Files)) {
        const DxfDocument before = documentOf(kSamples.filePath(file));
        // Records of older versions are brought to the present form.
        if (before.version() < QLatin1String("AC1021"))
            continue;
        NcDbDatabase drawing;
        const QString saved = folder.filePath(file);
        ASSERT_EQ(drawing.readDwgFile(kSamples.filePath(file)), NcStatus::Ok);
        ASSERT_EQ(drawing.saveAs(saved), NcStatus::Ok);
        const DxfDocument after = documentOf(saved);
        ASSERT_EQ(after.entities.size(), before.entities.size());
        // They come in the order in which they are drawn, whatever it was.
        QMap<QString, const DxfRecord*> written;
        for (const auto& entity : after.entities)
            written.insert(firstValue(entity.main.groups, 5), &entity.main);
        for (size_t i = 0; i < before.entities.size(); ++i) {
            const DxfRecord& one = before.entities[i].main;
            const DxfRecord* same = written.value(firstValue(one.groups, 5), &after.entities[i].main);
            QStringList lost = contentOf(one);
            for (const QString& group : contentOf(*same))
                lost.removeOne(group);
            // Values that say what is so without them.
            static const QStringList kPlain = {
                QStringLiteral("43 0"),  QStringLiteral("39 0"),  QStringLiteral("50 0"), QStringLiteral("210 0"),
                QStringLiteral("220 0"), QStringLiteral("230 1"), QStringLiteral("42 0"), QStringLiteral("72 0"),
                QStringLiteral("41 1"),  QStringLiteral("42 1"),  QStringLiteral("43 1"), QStringLiteral("62 256"),
                QStringLiteral("73 0"),  QStringLiteral("74 0"),  QStringLiteral("38 0"), QStringLiteral("40 0"),
                QStringLiteral("41 0"),  QStringLiteral("11 1"),  QStringLiteral("21 0"), QStringLiteral("31 0"),
                QStringLiteral("30 0")};
            for (const QString& plain : kPlain)
                lost.removeAll(plain);
            EXPECT_EQ(lost.join(QLatin1Char(' ')).toStdString(), "")
                << file.toStdString() << ' ' << one.type.toStdString();
        }
    }
}

TEST_F(ForeignFile, oldVersionIsReadInItsCodePage)
{
    resave(QStringLiteral("ez-ASCII_R12.dxf"));
    const auto references = entities<NcDbBlockReference>();
    ASSERT_EQ(references.size(), 1u);
    // The file names no code page: that of our users is taken.
    EXPECT_EQ(references.front()->layer(), QStringLiteral("ΛΑΓΕΡДЬЦ"));
    const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(references.front()->blockTableRecord());
    const auto* text = HostAccess::objectAs<NcDbText>(HostAccess::entities(*block).at(0));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->textString(), QStringLiteral("ABCДЬЦαβγ"));
}

TEST_F(ForeignFile, oldVersionIsWrittenAsUtf8WithSubclasses)
{
    resave(QStringLiteral("ez-ASCII_R12.dxf"));
    const DxfDocument document = documentOf(saved(QStringLiteral("ez-ASCII_R12.dxf")));
    EXPECT_EQ(document.version(), QStringLiteral("AC1021"));
    for (const DxfEntity& entity : document.entities)
        EXPECT_EQ(firstValue(entity.main.groups, 100), QStringLiteral("AcDbEntity"));
    EXPECT_NE(document.table(QStringLiteral("BLOCK_RECORD")), nullptr);
}

TEST_F(ForeignFile, layerThatOnlyEntitiesNameIsMade)
{
    resave(QStringLiteral("ez-R12_with_trash_beyond_EOF.dxf"));
    ASSERT_EQ(entities<NcDbCircle>().size(), 1u);
    EXPECT_EQ(entities<NcDbCircle>().front()->radius(), 1.5);
    EXPECT_FALSE(
        HostAccess::recordId(drawing, drawing.layerTableId(), QStringLiteral("Layer_is_a_required_tag")).isNull());
}

TEST_F(ForeignFile, escapesOfCharactersAreUnderstood)
{
    resave(QStringLiteral("ez-dxf_unicode.dxf"));
    QFile file(saved(QStringLiteral("ez-dxf_unicode.dxf")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.contains("Tschüss mit ü"));
    EXPECT_FALSE(bytes.contains("\\U+"));
}

TEST_F(ForeignFile, groupsAndAttributesAreUnderstood)
{
    resave(QStringLiteral("ez-groups.dxf"));
    const auto& dictionary = *HostAccess::objectAs<NcDbDictionary>(HostAccess::data(drawing).groupDictionary);
    ASSERT_EQ(dictionary.keys().size(), 2u);
    for (const auto& entry : HostAccess::entries(dictionary))
        EXPECT_GT(HostAccess::objectAs<NcDbGroup>(entry.second)->numEntities(), 0);
    resave(QStringLiteral("ez-multi_insert_with_attribs.dxf"));
    const auto references = entities<NcDbBlockReference>();
    ASSERT_EQ(references.size(), 1u);
    EXPECT_EQ(HostAccess::attributes(*references.front()).size(), 3u);
}

TEST_F(ForeignFile, hatchesOfSingleEdgesAreDrawnAsPolylines)
{
    resave(QStringLiteral("ez-hatches_1.dxf"));
    const auto hatches = entities<NcDbHatch>();
    ASSERT_EQ(hatches.size(), 10u);
    for (const NcDbHatch* hatch : hatches) {
        ASSERT_GT(hatch->numLoops(), 0);
        EXPECT_GE(hatch->loopAt(0).points.size(), 2u);
    }
}

TEST_F(ForeignFile, whatAnErasedEntityOwnedGoesWithIt)
{
    ASSERT_EQ(drawing.readDwgFile(kSamples.filePath(QStringLiteral("ez-custom_blocks.dxf"))), NcStatus::Ok);
    for (NcDbObjectId id : NcDbObjectIdArray(HostAccess::entities(model()))) {
        NcDbEntity* entity = nullptr;
        ASSERT_EQ(ncdbOpenObject(entity, id, kForWrite), NcStatus::Ok);
        entity->erase();
        entity->close();
    }
    ASSERT_EQ(drawing.saveAs(saved(QStringLiteral("erased.dxf"))), NcStatus::Ok);
    expectSound({saved(QStringLiteral("erased.dxf"))});
}

// A text without a style has the standard one of its own drawing.
TEST_F(ForeignFile, textKeepsItsStyle)
{
    resave(QStringLiteral("ez-R12_with_trash_beyond_EOF.dxf"));
    HostAccess::addEntity(model(), std::make_unique<NcDbText>(NcGePoint3d(), QStringLiteral("наш"), 2.5));
    ASSERT_EQ(drawing.saveAs(saved(QStringLiteral("ours.dxf"))), NcStatus::Ok);
    const DxfDocument ours = documentOf(saved(QStringLiteral("ours.dxf")));
    ASSERT_EQ(ours.entities.size(), 2u);
    EXPECT_EQ(firstValue(ours.entities[1].main.groups, 7), QStringLiteral("unicode"));
    resave(QStringLiteral("ez-ASCII_R12.dxf"));
    const DxfDocument theirs = documentOf(saved(QStringLiteral("ez-ASCII_R12.dxf")));
    const DxfRecord& text = theirs.blocks.back().entities.at(0).main;
    EXPECT_EQ(text.type, QStringLiteral("TEXT"));
    EXPECT_EQ(firstValue(text.groups, 7).toUpper(), QStringLiteral("STANDARD"));
}

TEST(TextOfFiles, cyrillicOfOldCodePage)
{
    const QByteArray bytes =
        "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  9\n$DWGCODEPAGE\n  3\nANSI_1251\n  0\nENDSEC\n"
        "  0\nSECTION\n  2\nENTITIES\n  0\nTEXT\n  8\n\xD1\xEB\xEE\xE9\n 10\n1.0\n 20\n2.0\n 40\n2.5\n  "
        "1\n\xC4\xCC.17\n  0\nENDSEC\n  0\nEOF\n";
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("old.dxf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    NcDbDatabase drawing;
    ASSERT_EQ(drawing.readDwgFile(file.fileName()), NcStatus::Ok);
    const auto& model = *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing).modelSpace);
    ASSERT_EQ(HostAccess::entities(model).size(), 1u);
    const auto* text = HostAccess::objectAs<NcDbText>(HostAccess::entities(model).front());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->textString(), QStringLiteral("ДМ.17"));
    EXPECT_EQ(text->layer(), QStringLiteral("Слой"));
    EXPECT_EQ(text->position(), NcGePoint3d(1, 2, 0));
}
