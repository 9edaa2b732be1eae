// The way from an element's passport to its block.
#include "elements/passports/forms/element_passport.h"
#include "inspected_drawing.h"
#include "support/form_texts.h"

namespace {

class ShownElement : public InspectedDrawing {
protected:
    void SetUp() override
    {
        InspectedDrawing::SetUp();
        addBlock(0, "11", 500, 500);
        mark_ = addBlock(0, "1");
        addBlock(0, "21", 600, 600);
        well_ = addBlock(families()[FamilyKey::Ts].kinds.first(), "1");
    }
    void show(FamilyKey family)
    {
        const ElementPassport passport(family, 1);
        child<QPushButton>(passport, "ShowBtn")->click();
    }

    static NcDbObjectIdArray picked()
    {
        NcSelectionSet set;
        return ncedSSGet("_I", {}, set) == kPromptNormal ? set.ids : NcDbObjectIdArray();
    }

    NcDbObjectId mark_, well_;
};

} // namespace

TEST_F(ShownElement, IsTheBlockOfThePassportsElement)
{
    show(FamilyKey::Dm);
    EXPECT_EQ(picked(), NcDbObjectIdArray{mark_});
    show(FamilyKey::Ts);
    EXPECT_EQ(picked(), NcDbObjectIdArray{well_}) << "what was picked before is not picked any more";
}

TEST_F(ShownElement, WithoutABlockNothingIsPicked)
{
    setPickfirst({well_});
    erase(mark_);
    show(FamilyKey::Dm);
    EXPECT_EQ(picked(), NcDbObjectIdArray{well_}) << "the selection stays";
}
