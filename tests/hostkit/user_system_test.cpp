#include "hostkit/user_system.h"

#include "support/element_drawing.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(UserSystem, ItsAngleIsThatOfItsXAxisInPlan)
{
    const ElementDrawing drawing;
    EXPECT_EQ(userSystemAngle(), 0.0);
    ncedSetCurrentUCS(NcGeMatrix3d::translation({100, 200, 0}) * NcGeMatrix3d::rotation(2.5, NcGeVector3d::kZAxis));
    EXPECT_NEAR(userSystemAngle(), 2.5, 1e-12);
    EXPECT_NEAR(userXAxis().x, std::cos(2.5), 1e-12);
    ncedSetCurrentUCS(NcGeMatrix3d::rotation(-2.5, NcGeVector3d::kZAxis));
    EXPECT_NEAR(userSystemAngle(), -2.5, 1e-12);
    EXPECT_NEAR(planAngle({0, -3, 7}), -M_PI / 2, 1e-12) << "its height does not matter";
}

TEST(UserSystem, WithoutADrawingIsTheWorlds)
{
    NcDbDatabase* before = ncdbHostApplicationServices()->workingDatabase();
    ncdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(userSystemAngle(), 0.0);
    ncdbHostApplicationServices()->setWorkingDatabase(before);
}
