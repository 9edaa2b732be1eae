#include "formkit/field.h"

#include "base/placeholders.h"
#include "formkit/file_questions.h"

#include <nrx/color.h>
#include <nrx/editor.h>

#include <QColor>

namespace formkit {

namespace {

QColor colourOf(const NcCmColor& color) { return {color.red(), color.green(), color.blue()}; }

} // namespace

Field Field::integer(const char* name, const char* caption, int least, int most)
{
    Field field(name, caption, FieldKind::Integer);
    field.least = least;
    field.most = most;
    return field;
}

Field Field::decimal(const char* name, const char* caption, double least, double most, int decimals)
{
    Field field(name, caption, FieldKind::Decimal);
    field.least = least;
    field.most = most;
    field.decimals = decimals;
    return field;
}

Field Field::lines(const char* name, const char* caption, int least)
{
    Field field(name, caption, FieldKind::Lines);
    field.decimals = least;
    return field;
}

Field Field::choice(const char* name, const char* caption, std::function<Choices()> choices)
{
    Field field(name, caption, FieldKind::Choice);
    field.choices = std::move(choices);
    return field;
}

Field Field::path(const char* name, const char* caption, const char* button, Chooser choose)
{
    Field field(name, caption, FieldKind::Path);
    field.buttonName = QString::fromUtf8(button);
    field.chooser = std::move(choose);
    return field;
}

Field Field::fileToOpen(const char* name, const char* caption, const char* button, const QString& title,
                        const QString& filter)
{
    return path(name, caption, button, [title, filter](QWidget* form, const QString& now) {
        return askFileToOpen(form, {title, filter, now});
    });
}

Field Field::folder(const char* name, const char* caption, const char* button, const QString& title)
{
    return path(name, caption, button,
                [title](QWidget* form, const QString& now) { return askFolder(form, title, now); });
}

Field Field::colour(const char* name, const char* caption, Chooser choose, std::function<QColor(const QString&)> wears)
{
    Field field(name, caption, FieldKind::Colour);
    field.chooser = std::move(choose);
    field.wears = std::move(wears);
    return field;
}

Field Field::colourIndex(const char* name, const char* caption)
{
    return colour(
        name, caption,
        [](QWidget*, const QString& now) {
            int index = now.toInt();
            return ncedSetColorDialog(index) ? QString::number(index) : QString();
        },
        [](const QString& value) { return colourOf(NcCmColor::fromIndex(value.toInt())); });
}

Field Field::colourHex(const char* name, const char* caption)
{
    return colour(
        name, caption,
        [](QWidget*, const QString& now) {
            const QColor before(now);
            NcCmColor color = NcCmColor::fromRGB(before.red(), before.green(), before.blue());
            return ncedSetColorDialogTrueColor(color) ? colourOf(color).name().toUpper() : QString();
        },
        [](const QString& value) { return QColor(value); });
}

Field&& Field::required(const QString& text) &&
{
    isRequired = true;
    refusal = text;
    return std::move(*this);
}

Field&& Field::longest(int most) &&
{
    length = most;
    return std::move(*this);
}

Field&& Field::matching(const QString& wanted) &&
{
    pattern = wanted;
    return std::move(*this);
}

Field&& Field::starts(const QString& value) &&
{
    start = value;
    return std::move(*this);
}

Field&& Field::tip(const QString& text) &&
{
    toolTip = text;
    return std::move(*this);
}

Field&& Field::step(double wanted) &&
{
    singleStep = wanted;
    return std::move(*this);
}

Field&& Field::in(const QString& wanted) &&
{
    unit = wanted;
    return std::move(*this);
}

Field&& Field::withoutUnit() && { return std::move(*this).in(QStringLiteral("")); }

Field&& Field::dressed(const QString& wanted) &&
{
    sheet = wanted;
    return std::move(*this);
}

Field&& Field::emptyAs(const QString& text) &&
{
    empty = text;
    return std::move(*this);
}

QString faultOf(const Field& field, const QString& value)
{
    if (!field.isRequired || !value.trimmed().isEmpty())
        return {};
    return field.refusal.isEmpty() ? fill("Поле '%1' обязательно для заполнения", field.caption) : field.refusal;
}

} // namespace formkit
