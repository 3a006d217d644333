#include "windows/options/options_fixture.h"

#include <QComboBox>

using MorePageTest = OptionsWindow;

// Catches: a box on another setting, an Apply that touches what was not changed, a view that changes only in the file,
// a menu entry that does not follow.
TEST_F(MorePageTest, ApplyPutsTheViewAndTheRestInForce)
{
    struct
    {
        const char *Box, *Key;
    } const ticks[] = {{"chkLineNumbers", "ShowLineNumbers"},
                       {"chkSpaces", "ShowSpaces"},
                       {"chkSyntaxColours", "UseColour"},
                       {"chkSuperTab", "SuperTab"},
                       {"chkLineHints", "LineHints"},
                       {"chkThumbnails", "Thumbnails"},
                       {"chkWelcome", "1stTime"},
                       {"chkAskBeforeMacros", "AskBeforeMacros"}};
    std::map<QString, QString> wanted;
    Options([&](frmOptions& window) {
        const QByteArray before = Run.UserIni();
        Click(window, "cmblApply2");
        EXPECT_EQ(Run.UserIni(), before);
        for (const auto& tick : ticks) {
            auto& box = Part<QCheckBox>(window, tick.Box);
            EXPECT_EQ(box.isChecked(), Ini("Misc", tick.Key) == QStringLiteral("1")) << tick.Box;
            box.click();
            wanted[QString::fromLatin1(tick.Key)] = box.isChecked() ? QStringLiteral("1") : QStringLiteral("0");
        }
        Run.Scope.Answers.Next.emplace_back(QStringLiteral("/usr/bin/paint"));
        Click(window, "cmdGetImageEditor");
        Part<QComboBox>(window, "cmbScreenReader").setCurrentIndex(2);
        EXPECT_EQ(Run.UserIni(), before) << "nothing is written before Apply";
        Click(window, "cmblApply2");
    });
    for (const auto& [key, value] : wanted)
        EXPECT_EQ(Ini("Misc", key.toLatin1().constData()), value) << key.toStdString();
    EXPECT_EQ(Ini("Misc", "ScreenReader"), QStringLiteral("2"));
    EXPECT_EQ(Frame.Settings.ImageEditor, QStringLiteral("/usr/bin/paint"));
    EXPECT_FALSE(MenuOf("mnuViewLineNums")->isChecked());
    EXPECT_TRUE(MenuOf("mnuSuperTab")->isChecked());
}
