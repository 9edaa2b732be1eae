// Documents of other makers, opened, filled, saved and merged.
#include "docx_maker.h"
#include "package_checker.h"
#include "real_files.h"

#include "reports/docx/docx_merger.h"
#include "reports/docx/docx_template.h"

#include <QXmlStreamReader>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

class SoundDocument : public testing::TestWithParam<QString> { };
class UnsoundDocument : public testing::TestWithParam<QString> { };

/// A part as a list of what means something in it: elements with their sorted
/// attributes, texts but for blanks between elements.
QStringList meaningOf(const QByteArray& xml)
{
    QStringList tokens;
    QXmlStreamReader reader(xml);
    QString parent;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            QStringList attributes;
            for (const auto& attribute : reader.attributes())
                attributes += attribute.qualifiedName() + "=" + attribute.value();
            attributes.sort();
            parent = reader.qualifiedName().toString();
            tokens += "<" + parent + " " + attributes.join(' ');
        } else if (token == QXmlStreamReader::EndElement) {
            tokens += "/" + reader.qualifiedName();
            parent.clear();
        } else if (token == QXmlStreamReader::Characters && (!reader.text().trimmed().isEmpty() || parent == "w:t")) {
            tokens += reader.text().toString();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString();
    return tokens;
}

std::string nameOf(const testing::TestParamInfo<QString>& info)
{
    QString name = info.param;
    return name.remove(".docx").replace('-', '_').toStdString();
}

} // namespace

TEST(RealDocuments, areThere) { EXPECT_EQ(soundDocuments().size(), 29); }

TEST_P(UnsoundDocument, isRefused)
{
    DocxTemplate docx;
    EXPECT_FALSE(docx.open(documentPath(GetParam())));
}

TEST_P(SoundDocument, savesUnchangedWithTheSameMeaning)
{
    Folder folder;
    DocxTemplate docx;
    const QString source = documentPath(GetParam());
    ASSERT_TRUE(docx.open(source));
    ASSERT_TRUE(docx.save(folder / "out.docx"));
    const auto before = unpacked(source);
    const auto after = unpacked(folder / "out.docx");
    EXPECT_EQ(before.keys(), after.keys());
    for (const QString& name : before.keys()) {
        // One of the documents calls its main part document2.xml.
        if (name.startsWith("word/document") || name.startsWith("word/_rels/document")) {
            EXPECT_EQ(meaningOf(before[name]), meaningOf(after[name])) << name;
        } else {
            EXPECT_EQ(before[name], after[name]) << name;
        }
    }
    EXPECT_EQ(newFaults(folder / "out.docx", source), QStringList());
}

TEST_P(SoundDocument, isFilledAndOpensAgainWithTheValues)
{
    Folder folder;
    DocxTemplate docx;
    const QString source = documentPath(GetParam());
    ASSERT_TRUE(docx.open(source));
    QMap<QString, QString> values;
    for (const QString& tag : docx.tags()) {
        if (docx.tagTypes[tag] != DocxTemplate::Text)
            continue;
        const QString value = QString::fromUtf8("Значение & <%1>").arg(values.size());
        ASSERT_TRUE(docx.setTag(tag, value));
        if (docx.applyText(tag))
            values[tag] = value;
    }
    writeFile(folder / "p.png", imageBytes("PNG"));
    for (const QString& tag : docx.tags()) {
        if (docx.tagTypes[tag] == DocxTemplate::Picture) {
            EXPECT_TRUE(docx.setTag(tag, folder / "p.png"));
        }
    }
    ASSERT_TRUE(docx.save(folder / "out.docx"));
    EXPECT_EQ(newFaults(folder / "out.docx", source), QStringList());
    DocxTemplate again;
    ASSERT_TRUE(again.open(folder / "out.docx"));
    for (const QString& tag : values.keys()) {
        EXPECT_TRUE(again.tagValues[tag].startsWith(values[tag])) << tag;
        EXPECT_TRUE(elements(again.tagElements[tag].firstChildElement("w:sdtPr"), "w:showingPlcHdr").isEmpty());
    }
}

TEST_P(SoundDocument, mergesWithItsNeighbourAndTheResultWithItself)
{
    Folder folder;
    const QStringList all = soundDocuments();
    const QString first = documentPath(GetParam());
    const QString second = documentPath(all.at((all.indexOf(GetParam()) + 1) % all.size()));
    ASSERT_TRUE(DocxMerger({first, second}).merge(folder / "pair.docx", false));
    EXPECT_EQ(newFaults(folder / "pair.docx", first), QStringList());
    ASSERT_TRUE(DocxMerger({folder / "pair.docx", folder / "pair.docx", second}).merge(folder / "twice.docx", false));
    EXPECT_EQ(newFaults(folder / "twice.docx", first), QStringList());

    QDomDocument one, other, both;
    ASSERT_TRUE(one.setContent(documentPart(first)));
    ASSERT_TRUE(other.setContent(documentPart(second)));
    ASSERT_TRUE(both.setContent(documentPart(folder / "pair.docx")));
    EXPECT_EQ(textOf(both.documentElement()), textOf(one.documentElement()) + textOf(other.documentElement()));
}

TEST(RealDocuments, mergeAllTogether)
{
    Folder folder;
    QStringList paths;
    for (const QString& name : soundDocuments() + unsoundDocuments())
        paths.append(documentPath(name));
    ASSERT_TRUE(DocxMerger(paths).merge(folder / "all.docx", false));
    EXPECT_EQ(newFaults(folder / "all.docx", paths.first()), QStringList());
    std::reverse(paths.begin(), paths.end());
    EXPECT_FALSE(DocxMerger(paths).merge(folder / "none.docx", false)) << "the first one is not sound";
}

INSTANTIATE_TEST_SUITE_P(, SoundDocument, testing::ValuesIn(soundDocuments()), nameOf);
INSTANTIATE_TEST_SUITE_P(, UnsoundDocument, testing::ValuesIn(unsoundDocuments()), nameOf);
