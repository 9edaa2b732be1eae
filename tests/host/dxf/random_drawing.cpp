#include "random_drawing.h"

#include <drawing/host_access.h>
#include <dxf/foreign_entity.h>

#include <random>

namespace {

class Maker {
public:
    Maker(NcDbDatabase& database, unsigned seed) : database_(database), random_(seed) { }

    void fill()
    {
        drawing();
        for (int i = whole(0, 4); i >= 0; --i)
            layer(i);
        for (int i = whole(0, 2); i > 0; --i)
            coordinateSystem(i);
        chosenView();
        const int blocks = whole(1, 3);
        for (int i = 0; i < blocks; ++i)
            block(i);
        const NcDbObjectId model = HostAccess::data(database_).modelSpace,
                           paper = HostAccess::data(database_).paperSpace;
        contents(model, whole(5, 25));
        contents(paper, whole(0, 4));
        window(paper);
        foreign(model);
        groups(model);
        drawOrder(model);
        eraseSome(model);
    }

private:
    int whole(int least, int greatest) { return std::uniform_int_distribution<int>(least, greatest)(random_); }
    bool coin() { return whole(0, 1) == 1; }
    double real()
    {
        static const double kSpecial[] = {0.0, -0.0, 1.0, 0.1, 1e-9, 123456789.123456789, -1e15, 1.0 / 3.0};
        if (whole(0, 5) == 0)
            return kSpecial[whole(0, 7)];
        return std::uniform_real_distribution<double>(-5e5, 5e5)(random_);
    }
    double size() { return std::uniform_real_distribution<double>(0.1, 50.0)(random_); }
    double angle() { return std::uniform_real_distribution<double>(0.0, 6.28)(random_); }
    NcGePoint3d point() { return {real(), real(), coin() ? 0.0 : real()}; }
    NcGePoint2d point2d() { return {real(), real()}; }
    double bulge() { return coin() ? 0.0 : std::uniform_real_distribution<double>(-2.0, 2.0)(random_); }

    QString word()
    {
        static const QStringList kWords = {QStringLiteral("ДМ.017"),
                                           QStringLiteral("Скважина ТС-5"),
                                           QStringLiteral("%%d 45"),
                                           QStringLiteral(" "),
                                           QString(),
                                           QStringLiteral("a^b"),
                                           QStringLiteral("строка\tс табуляцией"),
                                           QStringLiteral("Ёжик №1 «да»"),
                                           QStringLiteral("back\\slash"),
                                           QStringLiteral("{скобки}"),
                                           QStringLiteral("ведущий "),
                                           QStringLiteral("  0"),
                                           QString::fromUtf8("\xF0\x9F\x98\x80 за пределами"),
                                           QStringLiteral("две\nстроки"),
                                           QString(700, QChar(0x0416))};
        return kWords[whole(0, kWords.size() - 1)];
    }
    QString lines()
    {
        const QString text = word();
        return QString(text).replace(QLatin1Char('\n'), QLatin1String("\\P"))
            + (coin() ? QStringLiteral("\\Pвторая %%d") : QString());
    }
    NcCmColor color()
    {
        switch (whole(0, 3)) {
        case 0: return NcCmColor::fromIndex(256);
        case 1: return NcCmColor::fromIndex(0);
        case 2: return NcCmColor::fromIndex(whole(1, 255));
        default: return NcCmColor::fromRGB(whole(0, 255), whole(0, 255), whole(0, 255));
        }
    }
    QString layerName() { return layers_[size_t(whole(0, int(layers_.size()) - 1))]; }

    void drawing()
    {
        NcDatabaseData& data = HostAccess::data(database_);
        data.dimtxt = size();
        data.dimscale = size();
        for (int i = whole(0, 3); i > 0; --i)
            data.summary.addCustomSummaryInfo(QStringLiteral("ключ %1").arg(i), word());
        if (coin())
            data.ucs.setCoordSystem(point(), {0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1});
        if (coin())
            data.header.push_back({QStringLiteral("$LTSCALE"), {{40, QStringLiteral("2.5")}}});
    }

    void layer(int number)
    {
        auto layer = std::make_unique<NcDbLayerTableRecord>();
        layer->setColor(coin() ? NcCmColor::fromIndex(whole(1, 255)) : NcCmColor::fromRGB(1, 2, whole(0, 255)));
        HostAccess::off(*layer) = coin();
        HostAccess::frozen(*layer) = coin();
        HostAccess::locked(*layer) = coin();
        layers_.push_back(QStringLiteral("Слой %1").arg(number));
        const NcDbObjectId id = HostAccess::addRecord(*HostAccess::objectAs<NcDbLayerTable>(database_.layerTableId()),
                                                      std::move(layer), layers_.back());
        if (coin())
            HostAccess::data(database_).currentLayer = id;
    }

    void coordinateSystem(int number)
    {
        auto ucs = std::make_unique<NcDbUCSTableRecord>();
        HostAccess::origin(*ucs) = point();
        HostAccess::xAxis(*ucs) = {std::cos(1.0 * number), std::sin(1.0 * number), 0.0};
        HostAccess::yAxis(*ucs) = {-std::sin(1.0 * number), std::cos(1.0 * number), 0.0};
        HostAccess::addRecord(*HostAccess::objectAs<NcDbUCSTable>(database_.ucsTableId()), std::move(ucs),
                              QStringLiteral("ПСК %1").arg(number));
    }
    // A view that nobody has chosen opens on what there is.
    void chosenView()
    {
        const NcDbObjectId view =
            HostAccess::recordId(database_, database_.viewportTableId(), QStringLiteral("*Active"));
        auto& active = *HostAccess::objectAs<NcDbViewportTableRecord>(view);
        HostAccess::center(active) = point2d();
        HostAccess::height(active) = size();
        HostAccess::width(active) = size();
    }

    NcDbBlockTableRecord& record(NcDbObjectId id) { return *HostAccess::objectAs<NcDbBlockTableRecord>(id); }

    NcDbObjectId add(NcDbObjectId owner, std::unique_ptr<NcDbEntity> entity)
    {
        HostAccess::layer(*entity) = layerName();
        HostAccess::color(*entity) = color();
        HostAccess::visible(*entity) = whole(0, 5) != 0;
        if (coin())
            HostAccess::linetype(*entity) = coin() ? QStringLiteral("ByBlock") : QStringLiteral("Continuous");
        if (whole(0, 6) == 0)
            HostAccess::data(*entity).xdata.push_back(
                {QStringLiteral("ACAD"), {{1000, word().left(20).simplified()}, {1040, QStringLiteral("1.5")}}});
        return HostAccess::addEntity(record(owner), std::move(entity));
    }

    // A dynamic block, or a plain one, which may hold the one before.
    void block(int number)
    {
        auto made = std::make_unique<NcDbBlockTableRecord>();
        HostAccess::origin(*made) = coin() ? NcGePoint3d() : point();
        const NcDbObjectId id = HostAccess::addRecord(*HostAccess::objectAs<NcDbBlockTable>(database_.blockTableId()),
                                                      std::move(made), QStringLiteral("блок_%1").arg(number));
        contents(id, whole(1, 4));
        for (const QString& tag : {QStringLiteral("name"), QStringLiteral("element_id")}) {
            auto definition = std::make_unique<NcDbAttributeDefinition>();
            fillText(*definition);
            HostAccess::tag(*definition) = tag;
            HostAccess::prompt(*definition) = word();
            HostAccess::invisible(*definition) = coin();
            HostAccess::constant(*definition) = whole(0, 4) == 0;
            add(id, std::move(definition));
        }
        if (coin())
            makeDynamic(record(id));
        blocks_.push_back(id);
    }

    void makeDynamic(NcDbBlockTableRecord& block)
    {
        auto definition = std::make_unique<DynamicDefinition>();
        definition->parameters = {{QStringLiteral("Положение1 X"), 40, QStringLiteral("1.39489"), {}},
                                  {QStringLiteral("Отраженное состояние1"),
                                   70,
                                   QStringLiteral("0"),
                                   {QStringLiteral("0"), QStringLiteral("1")}},
                                  {QStringLiteral("Выноска"),
                                   1,
                                   QStringLiteral("Выноска видна"),
                                   {QStringLiteral("Выноска видна"), QStringLiteral("скр|ыта\\")}}};
        for (NcDbObjectId id : HostAccess::entities(block)) {
            DynamicBinding move;
            move.entity = id.handle();
            move.parameter = QStringLiteral("Положение1 X");
            definition->bindings.push_back(move);
            if (coin()) {
                DynamicBinding visible;
                visible.kind = DynamicBinding::Visible;
                visible.entity = id.handle();
                visible.parameter = QStringLiteral("Выноска");
                visible.values << QStringLiteral("Выноска видна");
                definition->bindings.push_back(visible);
            }
        }
        HostAccess::dynamic(block) = std::move(definition);
    }

    void fillText(NcDbText& text)
    {
        HostAccess::position(text) = point();
        HostAccess::alignment(text) = coin() ? text.position() : point();
        HostAccess::text(text) = word();
        HostAccess::height(text) = size();
        HostAccess::rotation(text) = coin() ? 0.0 : angle();
        HostAccess::widthFactor(text) = coin() ? 1.0 : 0.8;
        HostAccess::horizontal(text) = whole(0, 5);
        HostAccess::vertical(text) = whole(0, 3);
    }

    void fillMText(NcDbMText& text)
    {
        HostAccess::contents(text) = lines();
        HostAccess::location(text) = point();
        HostAccess::height(text) = size();
        HostAccess::width(text) = coin() ? 0.0 : size();
        HostAccess::rotation(text) = coin() ? 0.0 : angle();
        HostAccess::attachment(text) = whole(1, 9);
        HostAccess::backgroundFill(text) = coin();
        HostAccess::useBackgroundColor(text) = coin();
        HostAccess::backgroundScale(text) = coin() ? 1.5 : 1.1;
    }

    std::unique_ptr<NcDbEntity> polyline()
    {
        auto made = std::make_unique<NcDbPolyline>();
        const bool widths = coin();
        for (int i = whole(2, 6); i > 0; --i)
            HostAccess::vertices(*made).push_back({point2d(), bulge(), widths ? size() : 0.0, widths ? size() : 0.0});
        HostAccess::closed(*made) = coin();
        HostAccess::elevation(*made) = coin() ? 0.0 : real();
        return made;
    }

    std::unique_ptr<NcDbEntity> oldPolyline()
    {
        auto made = std::make_unique<NcDb2dPolyline>();
        const double z = real();
        for (int i = whole(2, 6); i > 0; --i) {
            HostAccess::points(*made).push_back({real(), real(), z});
            HostAccess::bulges(*made).push_back(bulge());
        }
        HostAccess::closed(*made) = coin();
        return made;
    }

    std::unique_ptr<NcDbEntity> hatch()
    {
        auto made = std::make_unique<NcDbHatch>();
        static const int kTypes[] = {NcDbHatch::kPolyline, NcDbHatch::kExternal | NcDbHatch::kPolyline,
                                     NcDbHatch::kDefault, NcDbHatch::kExternal};
        for (int i = whole(1, 3); i > 0; --i) {
            NcDbHatch::Loop loop;
            loop.type = kTypes[whole(0, 3)];
            for (int k = whole(3, 7); k > 0; --k) {
                loop.points.push_back(point2d());
                loop.bulges.push_back(bulge());
            }
            HostAccess::loops(*made).push_back(loop);
        }
        HostAccess::evaluated(*made) = true;
        HostAccess::elevation(*made) = coin() ? 0.0 : real();
        HostAccess::associative(*made) = coin();
        HostAccess::patternScale(*made) = coin() ? 1.0 : size();
        HostAccess::style(*made) = NcDbHatch::HatchStyle(whole(0, 2));
        if (coin()) {
            HostAccess::pattern(*made) = coin() ? QStringLiteral("SAND") : QStringLiteral("НЕТ ТАКОГО");
            HostAccess::patternType(*made) = NcDbHatch::PatternType(whole(0, 2));
        }
        return made;
    }

    std::unique_ptr<NcDbEntity> table()
    {
        auto made = std::make_unique<NcDbTable>();
        made->setSize(whole(1, 5), whole(1, 4));
        HostAccess::position(*made) = point();
        HostAccess::direction(*made) = coin() ? NcGeVector3d(1, 0, 0) : NcGeVector3d(0.6, 0.8, 0);
        for (NcDbTable::Cell& cell : HostAccess::cells(*made)) {
            cell.text = lines();
            cell.textHeight = size();
            cell.alignment = whole(1, 9);
            cell.hasBackground = coin();
            cell.background = cell.hasBackground ? color() : NcCmColor();
        }
        for (double& width : HostAccess::widths(*made))
            width = size();
        if (made->numRows() > 1)
            made->mergeCells(0, 1, 0, made->numColumns() - 1);
        return made;
    }

    std::unique_ptr<NcDbEntity> simple()
    {
        switch (whole(0, 5)) {
        case 0: return std::make_unique<NcDbPoint>(point());
        case 1: return std::make_unique<NcDbLine>(point(), point());
        case 2: return std::make_unique<NcDbCircle>(point(), NcGeVector3d(0, 0, 1), size());
        case 3: return std::make_unique<NcDbArc>(point(), size(), angle(), angle());
        case 4: return polyline();
        default: return oldPolyline();
        }
    }

    std::unique_ptr<NcDbEntity> entity()
    {
        switch (whole(0, 6)) {
        case 0: {
            auto text = std::make_unique<NcDbText>();
            fillText(*text);
            return text;
        }
        case 1: {
            auto text = std::make_unique<NcDbMText>();
            fillMText(*text);
            return text;
        }
        case 2: return hatch();
        case 3: return table();
        default: return simple();
        }
    }

    void contents(NcDbObjectId owner, int count)
    {
        for (; count > 0; --count) {
            if (!blocks_.empty() && whole(0, 3) == 0)
                reference(owner);
            else
                add(owner, entity());
        }
    }

    void reference(NcDbObjectId owner)
    {
        const NcDbObjectId definition = blocks_[size_t(whole(0, int(blocks_.size()) - 1))];
        auto made = std::make_unique<NcDbBlockReference>(point(), definition);
        NcDbBlockReference& reference = *made;
        HostAccess::rotation(reference) = coin() ? 0.0 : angle();
        HostAccess::scale(reference) = coin() ? NcScale3d() : NcScale3d{size(), -size(), size()};
        if (HostAccess::dynamic(record(definition)) && coin()) {
            auto& values = HostAccess::dynamicValues(reference);
            values.push_back(
                {QStringLiteral("Положение1 X"), coin() ? QStringLiteral("7.25") : QStringLiteral("1.39489")});
            if (coin())
                values.push_back({QStringLiteral("Выноска"), QStringLiteral("скр|ыта\\")});
        }
        add(owner, std::move(made));
        for (const QString& tag : {QStringLiteral("name"), QStringLiteral("element_id")}) {
            if (coin())
                attribute(reference, tag);
        }
    }

    void attribute(NcDbBlockReference& reference, const QString& tag)
    {
        auto made = std::make_unique<NcDbAttribute>();
        fillText(*made);
        HostAccess::tag(*made) = tag;
        HostAccess::layer(*made) = layerName();
        HostAccess::invisible(*made) = coin();
        HostAccess::fieldLength(*made) = coin() ? 25 : 0;
        if (whole(0, 3) == 0) {
            HostAccess::mtext(*made) = std::make_unique<NcDbMText>();
            fillMText(*HostAccess::mtext(*made));
        }
        HostAccess::addAttribute(reference, std::move(made));
    }

    void window(NcDbObjectId paper)
    {
        auto made = std::make_unique<NcDbViewport>();
        made->setGeometry(point(), size(), size());
        made->setTwistAngle(angle());
        made->setView(point2d(), size());
        HostAccess::viewTarget(*made) = point();
        made->setUcs(point(), {0.6, 0.8, 0}, {-0.8, 0.6, 0});
        add(paper, std::move(made));
    }

    void foreign(NcDbObjectId model)
    {
        auto made = std::make_unique<NcDbForeignEntity>(QStringLiteral("ELLIPSE"));
        NcDbForeignEntity& ellipse = *made;
        add(model, std::move(made));
        HostAccess::data(ellipse).foreignGroups = {
            {100, QStringLiteral("AcDbEllipse")}, {10, QStringLiteral("1.0")},
            {20, QStringLiteral("2.0")},          {30, QStringLiteral("0.0")},
            {11, QStringLiteral("5.0")},          {21, QStringLiteral("0.0")},
            {31, QStringLiteral("0.0")},          {40, QStringLiteral("0.5")},
            {41, QStringLiteral("0.0")},          {42, QStringLiteral("6.283185307179586")}};
    }

    void groups(NcDbObjectId model)
    {
        const NcDbObjectIdArray entities = HostAccess::entities(record(model));
        auto& dictionary = *HostAccess::objectAs<NcDbDictionary>(HostAccess::data(database_).groupDictionary);
        for (int i = whole(0, 2); i > 0; --i) {
            auto group = std::make_unique<NcDbGroup>(word().simplified());
            for (NcDbObjectId id : entities) {
                if (coin())
                    HostAccess::members(*group).push_back(id);
            }
            const NcDbObjectId id = HostAccess::adopt(database_, std::move(group), dictionary.objectId());
            HostAccess::entries(dictionary).emplace_back(QStringLiteral("TERVA_DEF_%1").arg(i), id);
        }
    }

    void drawOrder(NcDbObjectId model)
    {
        if (coin())
            return;
        NcDbSortentsTable* table = nullptr;
        if (!isOk(record(model).getSortentsTable(table)))
            return;
        NcDbObjectIdArray chosen;
        for (NcDbObjectId id : HostAccess::entities(record(model))) {
            if (coin())
                chosen.push_back(id);
        }
        table->moveToBottom(chosen);
        table->close();
    }

    void eraseSome(NcDbObjectId model)
    {
        for (NcDbObjectId id : NcDbObjectIdArray(HostAccess::entities(record(model)))) {
            NcDbEntity* entity = nullptr;
            if (whole(0, 9) == 0 && isOk(ncdbOpenObject(entity, id, kForWrite))) {
                entity->erase();
                entity->close();
            }
        }
    }

    NcDbDatabase& database_;
    std::mt19937 random_;
    std::vector<QString> layers_{QStringLiteral("0")};
    NcDbObjectIdArray blocks_;
};

} // namespace

void fillRandomly(NcDbDatabase& database, unsigned seed) { Maker(database, seed).fill(); }
