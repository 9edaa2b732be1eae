#include "database/forms/projection_fields.h"

#include "database/provisioning/projections.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

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

QLayout* projectionFields(QPlainTextEdit*& text, const QString& moduleDir)
{
    QLabel* caption = nullptr;
    QComboBox* list = nullptr;
    QLayout* made = column({
        caption = label("Параметры проекции (proj4)"),
        text = linesEdit("Proj4Text", 6),
        list = combo("ProjectionCombo"),
    });
    caption->setBuddy(text);
    text->setPlaceholderText(QString::fromLatin1(exampleProjection));
    text->setToolTip(QStringLiteral("Например: ") + QString::fromLatin1(exampleProjection));
    fillProjections(list, projectionsPath(moduleDir));
    QObject::connect(list, QOverload<int>::of(&QComboBox::activated), text, [list, text = text](int index) {
        if (index > 0)
            text->setPlainText(list->itemData(index).toString());
    });
    return made;
}
