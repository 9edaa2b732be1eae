// The call for a refresh of palettes.
#include "session/forms/palette_refresh.h"

#include <gtest/gtest.h>

TEST(PaletteRefreshing, CallsWhoeverOwnsThePalettes)
{
    int all = 0;
    int explorer = 0;
    refreshPalettes();
    setPaletteRefresh({[&all] { ++all; }, [&explorer] { ++explorer; }});
    refreshPalettes();
    refreshPalettes();
    refreshProjectExplorer();
    EXPECT_EQ(all, 2);
    EXPECT_EQ(explorer, 1);
    setPaletteRefresh({});
    refreshProjectExplorer();
    EXPECT_EQ(explorer, 1);
}
