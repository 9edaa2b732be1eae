#include "block_builder.h"

namespace {

const double kPi = 3.14159265358979323846;

struct WithForm {
    const char* word;
    DynamicBinding::Kind kind;
    const char* fields; // p parameter, s second parameter, v vertex, b base, d direction, * values
};

const WithForm kForms[] = {
    {"move", DynamicBinding::Move, "ps"},      {"stretch", DynamicBinding::Stretch, "vps"},
    {"length", DynamicBinding::Length, "vpd"}, {"rotate", DynamicBinding::Rotate, "pb"},
    {"mirror", DynamicBinding::Mirror, "pbd"}, {"visible", DynamicBinding::Visible, "p*"},
};

struct TypeWord {
    const char* word;
    int type;
};

const TypeWord kTypes[] = {{"text", 1}, {"real", 40}, {"short", 70}, {"integer", 90}};

struct Holding {
    const char* word;
    int horizontal, vertical;
};

const Holding kHoldings[] = {{"left", NcDbText::kTextLeft, NcDbText::kTextBase},
                             {"center", NcDbText::kTextCenter, NcDbText::kTextVertMid},
                             {"right", NcDbText::kTextRight, NcDbText::kTextBase}};

NcGePoint3d lifted(const NcGePoint2d& p) { return {p.x, p.y, 0.0}; }

bool hold(NcDbText& text, const QString& word)
{
    for (const Holding& holding : kHoldings) {
        if (word == QLatin1String(holding.word)) {
            HostAccess::horizontal(text) = holding.horizontal;
            HostAccess::vertical(text) = holding.vertical;
            return true;
        }
    }
    return false;
}

} // namespace

BlockBuilder::BlockBuilder(NcDbDatabase& database, NcDbBlockTableRecord& block) : database_(database), block_(block) { }

bool BlockBuilder::build(const SymbolSource& symbol, QString& message)
{
    for (const SourceLine& line : symbol.lines) {
        if (take(line.words))
            continue;
        message = QStringLiteral("line %1: %2").arg(line.number).arg(line.words.join(QLatin1Char(' ')));
        return false;
    }
    if (!open_.empty()) {
        message = QStringLiteral("%1: a \"with\" without its \"end\"").arg(symbol.block);
        return false;
    }
    if (!definition_.parameters.empty())
        HostAccess::dynamic(block_) = std::make_unique<DynamicDefinition>(definition_);
    return true;
}

bool BlockBuilder::take(const QStringList& words)
{
    const QString& verb = words.first();
    std::vector<double> v;
    if (verb == QLatin1String("parameter"))
        return takeParameter(words);
    if (verb == QLatin1String("with"))
        return takeWith(words);
    if (verb == QLatin1String("text"))
        return takeText(words);
    if (verb == QLatin1String("attribute"))
        return takeAttribute(words);
    if (verb == QLatin1String("polyline") || verb == QLatin1String("area"))
        return takeChain(words);
    if (verb == QLatin1String("end")) {
        const bool open = !open_.empty();
        if (open)
            open_.pop_back();
        return open;
    }
    if (verb == QLatin1String("at")) {
        const bool good = numbers(words, 1, 2, v);
        origin_ = good ? NcGePoint2d(v[0], v[1]) : origin_;
        return good;
    }
    return takeShape(words);
}

bool BlockBuilder::numbers(const QStringList& words, int from, int count, std::vector<double>& values) const
{
    values.clear();
    for (int i = from; i < from + count; ++i) {
        bool ok = false;
        values.push_back(words.value(i).toDouble(&ok));
        if (!ok)
            return false;
    }
    return true;
}

bool BlockBuilder::takeParameter(const QStringList& words)
{
    if (words.size() < 4)
        return false;
    for (const TypeWord& type : kTypes) {
        if (words[2] == QLatin1String(type.word)) {
            definition_.parameters.push_back({words[1], type.type, words[3], words.mid(4)});
            return true;
        }
    }
    return false;
}

bool BlockBuilder::takeWith(const QStringList& words)
{
    for (const WithForm& form : kForms) {
        if (words.value(1) != QLatin1String(form.word))
            continue;
        DynamicBinding binding;
        binding.kind = form.kind;
        int at = 2;
        std::vector<double> v;
        for (const char* field = form.fields; *field; ++field) {
            const bool pair = *field == 'b' || *field == 'd';
            if (pair && !numbers(words, at, 2, v))
                return false;
            switch (*field) {
            case 'p': binding.parameter = words.value(at); break;
            case 's': binding.second = words.value(at); break;
            case 'v': binding.vertex = words.value(at).toInt(); break;
            case 'b': binding.base = {origin_.x + v[0], origin_.y + v[1]}; break;
            case 'd': binding.direction = {v[0], v[1]}; break;
            default: binding.values = words.mid(at); break;
            }
            at += pair ? 2 : 1;
        }
        open_.push_back(binding);
        return definition_.parameter(binding.parameter)
            && (binding.second.isEmpty() || definition_.parameter(binding.second));
    }
    return false;
}

bool BlockBuilder::takeShape(const QStringList& words)
{
    std::vector<double> v;
    const QString& verb = words.first();
    const auto p = [&](size_t i) { return NcGePoint3d(origin_.x + v[i], origin_.y + v[i + 1], 0.0); };
    if (verb == QLatin1String("line") && numbers(words, 1, 4, v)) {
        add(std::make_unique<NcDbLine>(p(0), p(2)));
    } else if (verb == QLatin1String("circle") && numbers(words, 1, 3, v)) {
        add(std::make_unique<NcDbCircle>(p(0), NcGeVector3d(0, 0, 1), v[2]));
    } else if (verb == QLatin1String("arc") && numbers(words, 1, 5, v)) {
        add(std::make_unique<NcDbArc>(p(0), v[2], v[3] * kPi / 180.0, v[4] * kPi / 180.0));
    } else if (verb == QLatin1String("disc") && numbers(words, 1, 3, v)) {
        auto disc = std::make_unique<NcDbHatch>();
        HostAccess::loops(*disc).push_back({NcDbHatch::kExternal | NcDbHatch::kPolyline,
                                            {{p(0).x - v[2], p(0).y}, {p(0).x + v[2], p(0).y}},
                                            {1.0, 1.0}});
        HostAccess::evaluated(*disc) = true;
        add(std::move(disc));
    } else {
        return false;
    }
    return true;
}

// Points "x,y" or "x,y,b" with the bulge of the arc that leads on from it.
bool BlockBuilder::takeChain(const QStringList& words)
{
    const bool area = words.first() == QLatin1String("area");
    std::vector<NcGePoint2d> points;
    std::vector<double> bulges;
    for (const QString& word : words.mid(1)) {
        const QStringList parts = word.split(QLatin1Char(','));
        std::vector<double> v;
        if (parts.size() < 2 || !numbers(parts, 0, parts.size(), v))
            return false;
        points.push_back({origin_.x + v[0], origin_.y + v[1]});
        bulges.push_back(v.size() > 2 ? v[2] : 0.0);
    }
    if (points.size() < 2)
        return false;
    if (area) {
        auto hatch = std::make_unique<NcDbHatch>();
        HostAccess::loops(*hatch).push_back({NcDbHatch::kExternal | NcDbHatch::kPolyline, points, bulges});
        HostAccess::evaluated(*hatch) = true;
        add(std::move(hatch));
        return true;
    }
    // A chain that comes back to its first point is closed.
    const bool closed = points.size() > 2 && points.front() == points.back();
    auto polyline = std::make_unique<NcDbPolyline>();
    HostAccess::closed(*polyline) = closed;
    for (size_t i = 0; i + (closed ? 1 : 0) < points.size(); ++i)
        HostAccess::vertices(*polyline).push_back({points[i], bulges[i], 0.0, 0.0});
    add(std::move(polyline));
    return true;
}

bool BlockBuilder::takeText(const QStringList& words)
{
    std::vector<double> v;
    if (words.size() != 6 || !numbers(words, 1, 3, v))
        return false;
    const NcGePoint2d p(origin_.x + v[0], origin_.y + v[1]);
    auto text = std::make_unique<NcDbText>(lifted(p), words[5], v[2]);
    const bool good = hold(*text, words[4]);
    add(std::move(text));
    return good;
}

bool BlockBuilder::takeAttribute(const QStringList& words)
{
    std::vector<double> v;
    const bool hidden = words.value(1) == QLatin1String("hidden");
    if (words.size() != 8 || !numbers(words, 4, 3, v) || (!hidden && words[1] != QLatin1String("shown")))
        return false;
    auto attribute = std::make_unique<NcDbAttributeDefinition>();
    HostAccess::tag(*attribute) = words[2];
    HostAccess::prompt(*attribute) = words[2];
    HostAccess::text(*attribute) = words[3];
    HostAccess::position(*attribute) = {origin_.x + v[0], origin_.y + v[1], 0.0};
    HostAccess::alignment(*attribute) = attribute->position();
    HostAccess::height(*attribute) = v[2];
    HostAccess::invisible(*attribute) = hidden;
    const bool good = hold(*attribute, words[7]);
    add(std::move(attribute));
    return good;
}

void BlockBuilder::add(std::unique_ptr<NcDbEntity> entity)
{
    // Colour and layer are those of the reference.
    HostAccess::color(*entity).setColorIndex(0);
    const NcDbObjectId id = HostAccess::addEntity(block_, std::move(entity));
    for (auto binding = open_.rbegin(); binding != open_.rend(); ++binding) {
        definition_.bindings.push_back(*binding);
        definition_.bindings.back().entity = id.handle();
    }
}
