#include "graphics/tiles_in_use.h"

#include "frame/frame_state.h"
#include "host_scope.h"

#include <gtest/gtest.h>

// Catches: tiles of another sheet or of the block in work, a tile that names only one of its users, a run past the end
// of the sheet.
TEST(TilesInUse, NameTheBlocksThatUseThem)
{
    const HostScope host;
    CurrentPane().LoadBytes("own: a.pcx\nown.xpos: 0\nown.ypos: 0\n"
                            "mole: A.pcx\nmole.xpos: 1\nmole.ypos: 0\nmole.frames: 2\n"
                            "zip: a.pcx\nzip.xpos: 0\nzip.ypos: 1\nzip.frames: 9\n"
                            "far: b.pcx\nfar.xpos: 1\nfar.ypos: 1\n");
    const auto tiles = TilesInUse(CurrentPane().Bytes(), LinesOf(CurrentPane()),
                                  {QStringLiteral("a.pcx"), 2, 2, 0, Frame.Settings.SheetKinds});
    ASSERT_EQ(tiles.size(), 3u);
    EXPECT_EQ(tiles.at(0).Tile, QPoint(1, 0));
    const TileUser mole{QStringLiteral("mole"), 3}, zip{QStringLiteral("zip"), 7};
    EXPECT_EQ(tiles.at(0).Users, std::vector{mole});
    EXPECT_EQ(tiles.at(1).Tile, QPoint(0, 1));
    EXPECT_EQ(tiles.at(1).Users, (std::vector{mole, zip}));
    EXPECT_EQ(tiles.at(2).Users, std::vector{zip});
}
