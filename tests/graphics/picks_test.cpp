#include "graphics/picks.h"

#include <gtest/gtest.h>

// Catches: a macro's pick without a window that hangs or counts as made, the word for a sheet alone shown as a prompt.
TEST(Picks, GoToWhoIsInstalled)
{
    const SheetRequest alone = MacroSheet(QStringLiteral("/a.pcx"), QStringLiteral("PREVIEW"));
    EXPECT_EQ(alone.Purpose, SheetPurpose::Show);
    EXPECT_EQ(alone.Prompt, QString());
    const SheetRequest pick = MacroSheet(QStringLiteral("/a.pcx"), QStringLiteral("Preview"));
    EXPECT_EQ(PickFromSheet(pick).Outcome, SheetOutcome::NotShown);
    EXPECT_EQ(PickElement({}), std::nullopt);
    Picks.Sheet = [](const SheetRequest& request) {
        EXPECT_EQ(request.Purpose, SheetPurpose::Pick);
        return SheetAnswer{.Outcome = SheetOutcome::Closed, .Element = {}, .Key = request.Prompt};
    };
    Picks.Element = [](const ElementRequest& request) { return std::optional(request.Title); };
    EXPECT_EQ(PickFromSheet(pick).Key, QStringLiteral("Preview"));
    EXPECT_EQ(PickElement({ElementParts::Action, QStringLiteral("t")}), QStringLiteral("t"));
    ResetPicks();
}
