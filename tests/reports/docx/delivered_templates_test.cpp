// The sample templates that lie beside the programs.
#include "reports/docx/docx_template.h"

#include <QCoreApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QDir delivered() { return QDir(QCoreApplication::applicationDirPath() + "/templates"); }

QStringList describedTags(const QString& path)
{
    QFile file(path);
    QDomDocument description;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly) && description.setContent(&file)) << path.toStdString();
    QStringList tags;
    const QDomNodeList rows = description.elementsByTagName("substitution");
    for (int i = 0; i < rows.size(); ++i)
        tags << rows.at(i).toElement().attribute("tag");
    tags.sort();
    return tags;
}

} // namespace

TEST(DeliveredTemplates, OpenFillAndHoldTheTagsOfTheirDescriptions)
{
    const QStringList files = delivered().entryList({"*.docx"});
    ASSERT_FALSE(files.isEmpty());
    QTemporaryDir folder;
    const QString picture = folder.filePath("picture.png");
    QPixmap white(20, 20);
    white.fill();
    ASSERT_TRUE(white.save(picture));
    for (const QString& name : files) {
        const QString path = delivered().filePath(name);
        DocxTemplate document;
        ASSERT_TRUE(document.open(path)) << name.toStdString();
        const QStringList tags = describedTags(QString(path).replace(".docx", ".xml"));
        EXPECT_EQ(document.tags(), tags);
        for (const QString& tag : tags) {
            const bool isPicture = document.tagTypes.value(tag) == DocxTemplate::Picture;
            EXPECT_TRUE(document.setTag(tag, isPicture ? picture : "Значение " + tag)) << tag.toStdString();
        }
        ASSERT_TRUE(document.save(folder.filePath(name)));
        DocxTemplate filled;
        ASSERT_TRUE(filled.open(folder.filePath(name)));
        EXPECT_TRUE(filled.document.toString().contains("Значение "));
        EXPECT_FALSE(filled.document.toString().contains("showingPlcHdr"));
    }
}
