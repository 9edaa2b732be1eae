#include "elements/geology/forms/ege_edit_dialog.h"

#include "base/placeholders.h"
#include "elements/geology/ground_hatches.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>

using namespace formkit;

namespace {

const QString codeField = QStringLiteral("code");
const QString patternField = QStringLiteral("hatch_pattern_name");
const QString colorField = QStringLiteral("color_hex");
constexpr int leastHeight = 200, usualHeight = 560;
constexpr int captionWidth = 340, leastFieldWidth = 220; // some captions take two lines

// No pattern, then the delivered ones.
Choices patternChoices()
{
    Choices choices = {{QString(), QString()}};
    for (const QString& file : GroundHatches::patternFiles(GroundHatches::deliveredFolder()))
        choices.append({file, file});
    return choices;
}

Field kindOf(const EgeColumn& column)
{
    const QByteArray name = column.name.toUtf8(), caption = column.caption().toUtf8();
    if (column.name == colorField)
        return Field::colourHex(name, caption)
            .dressed(QStringLiteral("QPushButton { background-color: %1; border: 1px solid #888; }"));
    if (column.name == patternField)
        return Field::choice(name, caption, patternChoices);
    if (!column.isNumber())
        return Field::text(name, caption);
    return Field::number(name, caption).in(unitIn(column.caption())); // the catalogue's own texts tell it
}

FieldList fieldsOf(const EgeColumns& columns)
{
    FieldList fields;
    for (const EgeColumn& column : columns) {
        Field field = kindOf(column).starts(startOfEgeColumn(column.name));
        fields.push_back(column.isRequired
                             ? std::move(field).required(fill("Поле '%1' обязательно для заполнения", column.comment))
                             : field);
    }
    return fields;
}

Record recordOf(const EgeColumns& columns)
{
    Record record;
    record.name = "EGEEditDialog";
    record.fields = fieldsOf(columns);
    return record;
}

// The file of the folder that a stored name means, as the choices have it; the
// name itself for one that is no file there.
QString patternOf(const QString& stored)
{
    for (const ComboEntry& choice : patternChoices()) {
        const QString& file = choice.text;
        if (file.compare(stored, Qt::CaseInsensitive) == 0 || file.compare(stored + ".pat", Qt::CaseInsensitive) == 0)
            return file;
    }
    return stored;
}

} // namespace

EGEEditDialog::EGEEditDialog(QWidget* parent) : EGEEditDialog(loadEgeColumns().value_or(EgeColumns()), parent) { }

// There are more fields than a screen has room for.
EGEEditDialog::EGEEditDialog(const EgeColumns& columns, QWidget* parent)
    : RecordDialog(recordOf(columns), parent), columns_(columns)
{
    for (QLabel* caption : fields().findChildren<QLabel*>()) {
        caption->setWordWrap(true);
        caption->setFixedWidth(captionWidth);
    }
    auto* scroll = named<QScrollArea>("FieldsArea");
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    delete layout()->replaceWidget(&fields(), scroll); // the item of the one that stood there
    scroll->setWidget(&fields());
    scroll->setMinimumWidth(captionWidth + leastFieldWidth + scroll->verticalScrollBar()->sizeHint().width());
    scroll->setMinimumHeight(leastHeight);
    resize(scroll->minimumWidth() + 120, usualHeight);
}

std::optional<QStringList> EGEEditDialog::load(const QString& key)
{
    std::optional<EgeValues> stored = loadEge(columns_, key.toInt());
    if (!stored)
        return {};
    (*stored)[colorField] = groundColor(stored->value(colorField));
    (*stored)[patternField] = offeredPattern(stored->value(patternField));
    QStringList values;
    for (const EgeColumn& column : columns_)
        values << stored->value(column.name);
    return values;
}

// A pattern that is no file of the folder stays what it is.
QString EGEEditDialog::offeredPattern(const QString& stored) const
{
    QString pattern = patternOf(stored);
    auto* box = fields().widget<QComboBox>(patternField);
    if (box && box->findData(pattern) < 0)
        box->addItem(pattern, pattern);
    return pattern;
}

void EGEEditDialog::shown()
{
    setWindowTitle(isNew() ? "Создание ИГЭ" : "Редактирование ИГЭ");
    if (columns_.isEmpty())
        warn(this, fault(), "Ошибка");
}

QString EGEEditDialog::fault() const
{
    if (columns_.isEmpty())
        return "Не удалось прочитать структуру данных ИГЭ из БД";
    QString broken = RecordDialog::fault();
    if (!broken.isEmpty())
        return broken;
    const QString code = fields().text(codeField);
    if (!isEgeCodeTaken(code, isNew() ? -1 : key().toInt()))
        return {};
    return fill("Код '%1' уже существует в текущем проекте. Укажите уникальный код.", code);
}

QString EGEEditDialog::faultTitle() const { return "Ошибка валидации"; }

EgeValues EGEEditDialog::entered() const
{
    EgeValues values;
    for (const EgeColumn& column : columns_)
        values.insert(column.name, fields().text(column.name));
    return values;
}

bool EGEEditDialog::store()
{
    const sql::Result written = session().run(isNew() ? egeInsert(columns_, entered(), Returning::Key)
                                                      : egeUpdate(columns_, entered(), key().toInt()));
    if (!(isNew() ? written.hasRow() : written.isCommand())) {
        warn(this, fill("Не удалось обновить ИГЭ:\n\n%1", session().connection.errorMessage()), "Ошибка базы данных");
        return false;
    }
    if (isNew())
        setKey(written.getvalue(0, 0));
    return true;
}
