#include "database/forms/projection_fields.h"

#include "database/forms/field_rows.h"
#include "database/provisioning/projections.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>

namespace {

const char* const exampleProjection =
    "+proj=tmerc +lat_0=0 +lon_0=78.05 +k=1 +x_0=4500000 +y_0=-5811057.63 +ellps=krass "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs +type=crs";

void fillProjections(QComboBox* list, const QString& path)
{
    list->addItem(QStringLiteral("-- Выберите проекцию --"));
    const std::optional<QVector<Projection>> projections = readProjections(path);
    list->setEnabled(projections.has_value());
    if (!projections)
        return;
    for (const Projection& projection : *projections)
        list->addItem(projection.name, projection.proj4);
}

} // namespace

ProjectionFields addProjectionFields(QBoxLayout* layout, const QString& moduleDir)
{
    auto* text = new QPlainTextEdit;
    text->setObjectName(QStringLiteral("Proj4Text"));
    text->setPlaceholderText(QString::fromLatin1(exampleProjection));
    text->setToolTip(QStringLiteral("Например: ") + QString::fromLatin1(exampleProjection));
    text->setTabChangesFocus(true);
    setLeastLines(text, 6);

    auto* list = new QComboBox;
    list->setObjectName(QStringLiteral("ProjectionCombo"));
    fillProjections(list, projectionsPath(moduleDir));
    QObject::connect(list, QOverload<int>::of(&QComboBox::activated), text, [list, text](int index) {
        if (index > 0)
            text->setPlainText(list->itemData(index).toString());
    });

    auto* label = new QLabel(QStringLiteral("Параметры проекции (proj4)"));
    label->setBuddy(text);
    layout->addWidget(label);
    layout->addWidget(text);
    layout->addWidget(list);
    return {text, list};
}
