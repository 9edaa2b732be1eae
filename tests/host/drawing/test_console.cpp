// Prompts, the console's text, selection sets and coordinate systems.
#include "drawing_fixture.h"

#include <drawing/application.h>

#include <deque>

namespace {

// Answers in the order given, and keeps what was printed and asked.
class Answers : public PromptBackend {
public:
    PromptReply ask(const PromptRequest& request) override
    {
        asked.push_back(request);
        if (replies.empty())
            return PromptReply();
        const PromptReply reply = replies.front();
        replies.pop_front();
        return reply;
    }
    void print(const QString& text) override { printed += text; }

    std::deque<PromptReply> replies;
    std::vector<PromptRequest> asked;
    QString printed;
};

class ConsoleTest : public DrawingTest {
protected:
    void SetUp() override
    {
        DrawingTest::SetUp();
        before = setPromptBackend(&backend);
    }
    void TearDown() override
    {
        setPromptBackend(before);
        DrawingTest::TearDown();
    }
    PromptReply& reply(int status = kPromptNormal)
    {
        backend.replies.emplace_back();
        backend.replies.back().status = status;
        return backend.replies.back();
    }
    QString printed()
    {
        const QString text = backend.printed;
        backend.printed.clear();
        return text;
    }

    Answers backend;
    PromptBackend* before = nullptr;
};

class ConsoleText : public ConsoleTest { };
class Prompts : public ConsoleTest { };
class Selection : public ConsoleTest { };
class Coordinates : public ConsoleTest { };

TEST_F(ConsoleText, StringsAreWide)
{
    EXPECT_EQ(ncutPrintf(L"\n Выбор '%s'", L"Да"), 12);
    EXPECT_EQ(printed(), QStringLiteral("\n Выбор 'Да'"));
    ncutPrintf(L"%ls|%S|%hs", L"а", L"б", "в");
    EXPECT_EQ(printed(), QStringLiteral("а|б|в"));
    const wchar_t* nothing = nullptr;
    ncutPrintf(L"%s", nothing);
    EXPECT_EQ(printed(), QStringLiteral("(null)"));
}

TEST_F(ConsoleText, NumbersOfEachKind)
{
    ncutPrintf(L"%d %i %u %ld %lld %x %X %zu", -5, 7, 4000000000u, -6000000000L, 1LL << 40, 255, 255, size_t(9));
    EXPECT_EQ(printed(), QStringLiteral("-5 7 4000000000 -6000000000 1099511627776 ff FF 9"));
}

TEST_F(ConsoleText, RealsAreRoundedAsEverywhere)
{
    ncutPrintf(L"X:%f  Y:%.2f  Z:%.0f %g %g", 1.5, 0.125, 2.5, 0.1, 1e-7);
    EXPECT_EQ(printed(), QStringLiteral("X:1.500000  Y:0.13  Z:3 0.1 1e-07"));
    ncutPrintf(L"%g %g %.3g", 1234567.0, 100000.0, 2.0 / 3.0);
    EXPECT_EQ(printed(), QStringLiteral("1.23457e+06 100000 0.667"));
}

TEST_F(ConsoleText, WidthsPrecisionsAndFlags)
{
    ncutPrintf(L"[%5d|%-5d|%05d|%+d|% d]", 42, 42, -42, 42, 42);
    EXPECT_EQ(printed(), QStringLiteral("[   42|42   |-0042|+42| 42]"));
    ncutPrintf(L"[%6s|%-4s|%.2s|%*d|%-*d|%.*f]", L"аб", L"в", L"где", 4, 7, 3, 8, 1, 0.25);
    EXPECT_EQ(printed(), QStringLiteral("[    аб|в   |гд|   7|8  |0.3]"));
    ncutPrintf(L"[%08.3f|%c|%c]", -1.5, L'Ж', 0x1F600);
    EXPECT_EQ(printed(), QStringLiteral("[-001.500|Ж|") + QString::fromUtf8("😀") + QStringLiteral("]"));
}

TEST_F(ConsoleText, PercentSignsAndUnknownConversionsStay)
{
    EXPECT_EQ(ncutPrintf(L"100%% %q %"), 9);
    EXPECT_EQ(printed(), QStringLiteral("100% %q %"));
    EXPECT_EQ(ncutPrintf(nullptr), 0);
}

TEST_F(ConsoleText, AValueThatLooksLikeAFormatIsPrintedAsItIs)
{
    ncutPrintf(L"%s", L"%d %s");
    EXPECT_EQ(printed(), QStringLiteral("%d %s"));
}

TEST_F(Prompts, KeywordsArePairedLocalWithGlobal)
{
    reply().text = QStringLiteral("Yes");
    ncedInitGet(0, QStringLiteral("Да Нет _ Yes No"));
    QString answer;
    EXPECT_EQ(ncedGetKword(QStringLiteral("Выполнять? [Да/Нет] <Да>"), answer), kPromptNormal);
    EXPECT_EQ(answer, QStringLiteral("Yes"));
    const PromptRequest& request = backend.asked.front();
    EXPECT_EQ(request.kind, PromptRequest::Keyword);
    EXPECT_EQ(request.prompt, QStringLiteral("Выполнять? [Да/Нет] <Да>"));
    ASSERT_EQ(request.keywords.size(), 2u);
    EXPECT_EQ(request.keywords[1].local, QStringLiteral("Нет"));
    EXPECT_EQ(request.keywords[1].global, QStringLiteral("No"));
}

TEST_F(Prompts, KeywordsAreForOnePromptOnly)
{
    ncedInitGet(0, QStringLiteral("Да _ Yes"));
    QString answer;
    ncedGetKword(QString(), answer);
    ncedGetKword(QString(), answer);
    EXPECT_EQ(backend.asked[0].keywords.size(), 1u);
    EXPECT_TRUE(backend.asked[1].keywords.empty());
}

TEST_F(Prompts, WordsWithoutAGlobalOneStandForThemselves)
{
    ncedInitGet(0, QStringLiteral("Позиции Чертежу"));
    QString answer;
    ncedGetKword(QString(), answer);
    EXPECT_EQ(backend.asked[0].keywords[1].global, QStringLiteral("Чертежу"));
}

TEST_F(Prompts, AnswersAreHandedThroughAndOthersLeaveTheValue)
{
    double real = 4.0;
    reply(kPromptEmpty);
    EXPECT_EQ(ncedGetReal(QStringLiteral("r"), real), kPromptEmpty);
    EXPECT_EQ(real, 4.0);
    reply().real = 2.5;
    EXPECT_EQ(ncedGetReal(QStringLiteral("r"), real), kPromptNormal);
    EXPECT_EQ(real, 2.5);
    int integer = 9;
    EXPECT_EQ(ncedGetInt(QStringLiteral("i"), integer), kPromptCancel);
    EXPECT_EQ(integer, 9);
    reply().integer = -3;
    EXPECT_EQ(ncedGetInt(QStringLiteral("i"), integer), kPromptNormal);
    EXPECT_EQ(integer, -3);
    QString text = QStringLiteral("before");
    reply(kPromptEmpty);
    EXPECT_EQ(ncedGetString(true, QStringLiteral("s"), text), kPromptEmpty);
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(backend.asked.back().spaces);
    reply().text = QStringLiteral("имя 1");
    ncedGetString(true, QStringLiteral("s"), text);
    EXPECT_EQ(text, QStringLiteral("имя 1"));
}

TEST_F(Prompts, PointsHaveABaseOrNone)
{
    reply().point = {1, 2, 3};
    NcGePoint3d point;
    EXPECT_EQ(ncedGetPoint(nullptr, QStringLiteral("Точка вставки:"), point), kPromptNormal);
    EXPECT_EQ(point, NcGePoint3d(1, 2, 3));
    EXPECT_FALSE(backend.asked.back().base.has_value());
    const NcGePoint3d base(5, 5, 0);
    EXPECT_EQ(ncedGetPoint(&base, QString(), point), kPromptCancel);
    EXPECT_EQ(backend.asked.back().base->x, 5.0);
    EXPECT_EQ(point, NcGePoint3d(1, 2, 3));
}

TEST_F(Prompts, FlagsRefuseEmptyZeroAndNegative)
{
    reply(kPromptEmpty);
    reply().real = 0.0;
    reply().real = -1.0;
    reply().real = 8.0;
    ncedInitGet(1 | 2 | 4, QString());
    double real = 0.0;
    EXPECT_EQ(ncedGetReal(QString(), real), kPromptNormal);
    EXPECT_EQ(real, 8.0);
    EXPECT_EQ(printed().count(QStringLiteral("Недопустимое значение.")), 3);
    EXPECT_EQ(ncedGetReal(QString(), real), kPromptCancel) << "the flags are for one prompt";
}

TEST_F(Prompts, ABackEndThatNeverGivesAGoodAnswerEndsInACancel)
{
    for (int i = 0; i < 200; ++i)
        reply(kPromptEmpty);
    ncedInitGet(1, QString());
    double real = 0.0;
    EXPECT_EQ(ncedGetReal(QString(), real), kPromptCancel);
}

TEST_F(Prompts, EntitiesComeAsNames)
{
    const NcDbObjectId id = add(new NcDbLine);
    reply().entity = id;
    backend.replies.back().point = {7, 8, 0};
    NcSelectionName name;
    NcGePoint3d picked;
    EXPECT_EQ(ncedEntSel(QStringLiteral("?"), name, picked), kPromptNormal);
    NcDbObjectId found;
    ncdbGetObjectId(found, name);
    EXPECT_EQ(found, id);
    EXPECT_EQ(picked, NcGePoint3d(7, 8, 0));
    reply().entity = NcDbObjectId();
    EXPECT_EQ(ncedEntSel(QStringLiteral("?"), name, picked), kPromptError);
    erase(id);
    reply().entity = id;
    EXPECT_EQ(ncedEntSel(QStringLiteral("?"), name, picked), kPromptError);
}

TEST_F(Prompts, ColoursStartWithTheGivenOne)
{
    int index = 3;
    reply().color.setColorIndex(5);
    EXPECT_TRUE(ncedSetColorDialog(index));
    EXPECT_EQ(index, 5);
    EXPECT_EQ(backend.asked.back().color.colorIndex(), 3);
    reply().color.setColorIndex(256);
    EXPECT_FALSE(ncedSetColorDialog(index, false)) << "by layer was not to be chosen";
    EXPECT_FALSE(ncedSetColorDialog(index));
    EXPECT_EQ(index, 5);
    NcCmColor color = NcCmColor::fromIndex(1);
    reply().color.setRGB(1, 2, 3);
    EXPECT_TRUE(ncedSetColorDialogTrueColor(color));
    EXPECT_TRUE(backend.asked.back().trueColor);
    EXPECT_EQ(color.blue(), 3);
}

TEST_F(Prompts, WithoutABackEndEverythingIsCancelled)
{
    setPromptBackend(nullptr);
    QString text;
    double real;
    int integer;
    NcGePoint3d point;
    NcSelectionName name;
    EXPECT_EQ(ncedGetKword(QString(), text), kPromptCancel);
    EXPECT_EQ(ncedGetString(false, QString(), text), kPromptCancel);
    EXPECT_EQ(ncedGetReal(QString(), real), kPromptCancel);
    EXPECT_EQ(ncedGetInt(QString(), integer), kPromptCancel);
    EXPECT_EQ(ncedGetPoint(nullptr, QString(), point), kPromptCancel);
    EXPECT_EQ(ncedEntSel(QString(), name, point), kPromptCancel);
    ::testing::internal::CaptureStdout();
    ncutPrintf(L"строка %d\n", 1);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "строка 1\n");
}

TEST_F(Selection, TheWholeDrawingByLayer)
{
    addLayer(QStringLiteral("A"));
    auto* onLayer = new NcDbLine;
    onLayer->setLayer(QStringLiteral("A"));
    const NcDbObjectId id = add(onLayer);
    const NcDbObjectId other = add(new NcDbCircle);
    const NcDbObjectId inBlock = add(new NcDbLine, addBlock(QStringLiteral("b")));
    NcSelectionSet set;
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {{8, QStringLiteral("a")}}, set), kPromptNormal);
    EXPECT_EQ(set.ids, NcDbObjectIdArray{id});
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {}, set), kPromptNormal);
    EXPECT_EQ(set.ids, (NcDbObjectIdArray{id, other})) << "block definitions are not drawn: " << inBlock.handle();
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {{0, QStringLiteral("CIRCLE")}}, set), kPromptNormal);
    EXPECT_EQ(set.ids, NcDbObjectIdArray{other});
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {{8, QStringLiteral("A")}, {0, QStringLiteral("CIRCLE")}}, set),
              kPromptError);
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {{62, QStringLiteral("1")}}, set), kPromptError);
    EXPECT_EQ(ncedSSGet(QStringLiteral("W"), {}, set), kPromptError);
    erase(id);
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {{8, QStringLiteral("A")}}, set), kPromptError);
    EXPECT_EQ(ncedSSLength(set), 0);
}

TEST_F(Selection, NamesByIndex)
{
    const NcDbObjectId a = add(new NcDbLine), b = add(new NcDbLine);
    NcSelectionSet set;
    NcSelectionName name;
    for (NcDbObjectId id : {a, b, a}) {
        ncdbGetAdsName(name, id);
        EXPECT_EQ(ncedSSAdd(name, set), kPromptNormal);
    }
    EXPECT_EQ(ncedSSLength(set), 2);
    EXPECT_EQ(ncedSSName(set, 1, name), kPromptNormal);
    NcDbObjectId id;
    ncdbGetObjectId(id, name);
    EXPECT_EQ(id, b);
    EXPECT_EQ(ncedSSName(set, 2, name), kPromptError);
    EXPECT_EQ(ncedSSName(set, -1, name), kPromptError);
    EXPECT_EQ(ncedSSAdd(NcSelectionName(), set), kPromptError);
    EXPECT_EQ(ncedSSFree(set), kPromptNormal);
    EXPECT_EQ(ncedSSLength(set), 0);
}

TEST_F(Selection, TheUserIsAskedWithoutAMode)
{
    const NcDbObjectId line = add(new NcDbLine), circle = add(new NcDbCircle);
    reply().entities = {line, circle};
    NcSelectionSet set;
    EXPECT_EQ(ncedSSGet(QString(), {{0, QStringLiteral("LINE")}}, set), kPromptNormal);
    EXPECT_EQ(set.ids, NcDbObjectIdArray{line});
    EXPECT_EQ(backend.asked.back().kind, PromptRequest::Selection);
    EXPECT_EQ(ncedSSGet(QString(), {}, set), kPromptCancel);
    reply(kPromptEmpty);
    EXPECT_EQ(ncedSSGet(QString(), {}, set), kPromptError);
}

TEST_F(Coordinates, WorldAndUserAreTheSameAtFirst)
{
    NcGePoint3d point;
    EXPECT_TRUE(ncdbUcs2Wcs({1, 2, 3}, point));
    EXPECT_EQ(point, NcGePoint3d(1, 2, 3));
    NcGeMatrix3d matrix;
    EXPECT_EQ(ncedGetCurrentUCS(matrix), NcStatus::Ok);
    EXPECT_EQ(matrix, NcGeMatrix3d());
}

TEST_F(Coordinates, PointsAndVectorsTurnBothWays)
{
    const NcGeMatrix3d ucs = NcGeMatrix3d::translation({100, 50, 0}) * NcGeMatrix3d::rotation(kPi / 2.0, {0, 0, 1});
    ASSERT_EQ(ncedSetCurrentUCS(ucs), NcStatus::Ok);
    NcGePoint3d world, user;
    EXPECT_TRUE(ncdbUcs2Wcs({10, 0, 0}, world));
    expectPoint(world, 100, 60);
    EXPECT_TRUE(ncdbWcs2Ucs(world, user));
    expectPoint(user, 10, 0);
    EXPECT_TRUE(ncdbUcs2Wcs({10, 0, 0}, world, true));
    expectPoint(world, 0, 10);
}

TEST_F(Coordinates, WhatCannotBeTurnedStays)
{
    EXPECT_EQ(ncedSetCurrentUCS(NcGeMatrix3d::scaling(0.0)), NcStatus::InvalidInput);
    NcGePoint3d point(7, 7, 7);
    EXPECT_FALSE(ncdbUcs2Wcs({std::nan(""), 0, 0}, point));
    EXPECT_EQ(point, NcGePoint3d(7, 7, 7));
    ncdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_FALSE(ncdbUcs2Wcs({1, 2, 3}, point));
    EXPECT_FALSE(ncdbWcs2Ucs({1, 2, 3}, point));
    NcGeMatrix3d matrix;
    EXPECT_EQ(ncedGetCurrentUCS(matrix), NcStatus::NotInDatabase);
    EXPECT_EQ(ncedVports2VportTableRecords(), NcStatus::NotFound);
    EXPECT_TRUE(ncedGetCurViewportObjectId().isNull());
}

TEST_F(Coordinates, AStoredSystemIsAppliedThroughTheActiveView)
{
    NcDbUCSTable* table = nullptr;
    ASSERT_EQ(drawing.getSymbolTable(table, kForWrite), NcStatus::Ok);
    auto* record = new NcDbUCSTableRecord;
    record->setName(QStringLiteral("Площадка"));
    record->setOrigin({10, 20, 0});
    record->setXAxis({0, 1, 0});
    record->setYAxis({-1, 0, 0});
    NcDbObjectId id;
    EXPECT_EQ(table->add(id, record), NcStatus::Ok);
    record->close();
    table->close();
    ASSERT_EQ(ncedVports2VportTableRecords(), NcStatus::Ok);
    const NcDbObjectId view = HostAccess::recordId(drawing, drawing.viewportTableId(), QStringLiteral("*ACTIVE"));
    change<NcDbViewportTableRecord>(view, [&](NcDbViewportTableRecord& active) {
        EXPECT_EQ(active.setUcs(drawing.clayer()), NcStatus::NotFound);
        EXPECT_EQ(active.setUcs(id), NcStatus::Ok);
        EXPECT_EQ(active.setUcs({}, {0, 0, 0}, {0, 1, 0}), NcStatus::InvalidInput);
    });
    NcGePoint3d point;
    ncdbUcs2Wcs({1, 0, 0}, point);
    EXPECT_EQ(point, NcGePoint3d(1, 0, 0)) << "not before the records are taken over";
    ASSERT_EQ(ncedVportTableRecords2Vports(), NcStatus::Ok);
    ncdbUcs2Wcs({1, 0, 0}, point);
    expectPoint(point, 10, 21);
}

TEST_F(Coordinates, TheCurrentViewportIsALivingOne)
{
    auto* viewport = new NcDbViewport;
    viewport->setGeometry({}, 10, 10);
    const NcDbObjectId id = add(viewport, blockNamed(QStringLiteral("*Paper_Space")));
    EXPECT_TRUE(ncedGetCurViewportObjectId().isNull());
    setCurrentViewport(drawing, id);
    EXPECT_EQ(ncedGetCurViewportObjectId(), id);
    erase(id);
    EXPECT_TRUE(ncedGetCurViewportObjectId().isNull());
}

} // namespace
