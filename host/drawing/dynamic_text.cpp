// A dynamic definition as lines of text and back.
#include "dynamic_definition.h"

#include <QLocale>

namespace {

// Fields that follow the entity's handle.
struct KindForm {
    DynamicBinding::Kind kind;
    const char* word;
    const char* fields; // p parameter, s second, v vertex, b base, d direction, * values
};

const KindForm kForms[] = {{DynamicBinding::Move, "move", "ps"},        {DynamicBinding::Slide, "slide", "pd"},
                           {DynamicBinding::Stretch, "stretch", "psv"}, {DynamicBinding::Length, "length", "pvd"},
                           {DynamicBinding::Rotate, "rotate", "pb"},    {DynamicBinding::Mirror, "mirror", "pbd"},
                           {DynamicBinding::Visible, "visible", "p*"}};

const QLatin1Char kDivider('|'), kEscape('\\');

QString joined(const QStringList& fields)
{
    QStringList escaped;
    for (QString field : fields)
        escaped << field.replace(kEscape, QLatin1String("\\\\")).replace(kDivider, QLatin1String("\\|"));
    return escaped.join(kDivider);
}

QStringList divided(const QString& line)
{
    QStringList fields{QString()};
    for (int i = 0; i < line.size(); ++i) {
        if (line[i] == kEscape && i + 1 < line.size())
            fields.back() += line[++i];
        else if (line[i] == kDivider)
            fields << QString();
        else
            fields.back() += line[i];
    }
    return fields;
}

QString shortest(double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); }

QStringList pointFields(const NcGePoint2d& point) { return {shortest(point.x), shortest(point.y)}; }

const KindForm& formOf(DynamicBinding::Kind kind)
{
    for (const KindForm& form : kForms)
        if (form.kind == kind)
            return form;
    return kForms[0];
}

QString bindingLine(const DynamicBinding& binding)
{
    const KindForm& form = formOf(binding.kind);
    QStringList fields{QString::fromLatin1(form.word), QString::number(binding.entity, 16).toUpper()};
    for (const char* field = form.fields; *field; ++field) {
        switch (*field) {
        case 'p': fields << binding.parameter; break;
        case 's': fields << binding.second; break;
        case 'v': fields << QString::number(binding.vertex); break;
        case 'b': fields << pointFields(binding.base); break;
        case 'd': fields << pointFields(binding.direction); break;
        default: fields << binding.values; break;
        }
    }
    return joined(fields);
}

// Takes fields from the front of a line.
class FieldReader {
public:
    explicit FieldReader(const QStringList& fields) : fields_(fields) { }
    QString text()
    {
        good_ = good_ && at_ < fields_.size();
        return good_ ? fields_[at_++] : QString();
    }
    int integer()
    {
        bool converted = false;
        const int value = text().toInt(&converted);
        good_ = good_ && converted;
        return value;
    }
    double real()
    {
        bool converted = false;
        const double value = text().toDouble(&converted);
        good_ = good_ && converted;
        return value;
    }
    quint64 handle()
    {
        bool converted = false;
        const quint64 value = text().toULongLong(&converted, 16);
        good_ = good_ && converted;
        return value;
    }
    NcGePoint2d point()
    {
        const double x = real();
        return {x, real()};
    }
    QStringList rest()
    {
        QStringList values = fields_.mid(at_);
        at_ = fields_.size();
        return values;
    }
    bool finished() const { return good_ && at_ == fields_.size(); }

private:
    QStringList fields_;
    int at_ = 0;
    bool good_ = true;
};

bool readParameter(FieldReader fields, DynamicDefinition& definition)
{
    DynamicParameter parameter;
    parameter.name = fields.text();
    parameter.type = fields.integer();
    parameter.defaultValue = fields.text();
    parameter.allowed = fields.rest();
    const bool known = parameter.type == 1 || parameter.type == 40 || parameter.type == 70 || parameter.type == 90;
    if (!fields.finished() || !known || parameter.name.isEmpty() || definition.parameter(parameter.name))
        return false;
    definition.parameters.push_back(parameter);
    return true;
}

bool readBinding(const KindForm& form, FieldReader fields, DynamicDefinition& definition)
{
    DynamicBinding binding;
    binding.kind = form.kind;
    binding.entity = fields.handle();
    for (const char* field = form.fields; *field; ++field) {
        switch (*field) {
        case 'p': binding.parameter = fields.text(); break;
        case 's': binding.second = fields.text(); break;
        case 'v': binding.vertex = fields.integer(); break;
        case 'b': binding.base = fields.point(); break;
        case 'd': binding.direction = fields.point(); break;
        default: binding.values = fields.rest(); break;
        }
    }
    const bool named =
        definition.parameter(binding.parameter) && (binding.second.isEmpty() || definition.parameter(binding.second));
    if (!fields.finished() || !named)
        return false;
    definition.bindings.push_back(binding);
    return true;
}

bool readLine(const QString& line, DynamicDefinition& definition)
{
    const QStringList fields = divided(line);
    if (fields.front() == QLatin1String("parameter"))
        return readParameter(FieldReader(fields.mid(1)), definition);
    for (const KindForm& form : kForms)
        if (fields.front() == QLatin1String(form.word))
            return readBinding(form, FieldReader(fields.mid(1)), definition);
    return false;
}

} // namespace

QStringList dynamicDefinitionText(const DynamicDefinition& definition)
{
    QStringList lines;
    for (const DynamicParameter& parameter : definition.parameters)
        lines << joined(QStringList{QStringLiteral("parameter"), parameter.name, QString::number(parameter.type),
                                    parameter.defaultValue}
                        + parameter.allowed);
    for (const DynamicBinding& binding : definition.bindings)
        lines << bindingLine(binding);
    return lines;
}

bool parseDynamicDefinition(const QStringList& lines, DynamicDefinition& definition)
{
    DynamicDefinition read;
    for (const QString& line : lines)
        if (!readLine(line, read))
            return false;
    definition = std::move(read);
    return true;
}
