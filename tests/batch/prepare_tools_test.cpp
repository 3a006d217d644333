#include "batch/prepare_tools.h"

#include "host_scope.h"

#include <QDir>
#include <gtest/gtest.h>

// Catches: relative paths of a call that mean another folder, a tool that writes settings, tables of another folder,
// a column out of bounds.
TEST(PrepareTools, ReadsWhatToolsNeedAndLeavesTheRestAlone)
{
    HostScope scope;
    const TestFolder folder;
    StartFolders folders;
    folders.ProgramFolder = folder.Path();
    const QByteArray user = "[Misc]\nSpacerWidth=9999\nSuperTab=1\n";
    folder.Write(QStringLiteral("data/user.ini"), user);
    folder.Write(QStringLiteral("data/compat.ini"), "[RND Compatibility]\nSheetKinds=pcx,xyz\n");
    const QString here = QDir::currentPath();
    const Result<> without = PrepareTools(folders);
    ASSERT_FALSE(without);
    EXPECT_TRUE(without.error().Path.endsWith(QStringLiteral("levelheader.ini")));
    folder.Write(QStringLiteral("data/levelheader.ini"), "[RND1]\n");
    ASSERT_TRUE(PrepareTools(folders));
    EXPECT_EQ(Frame.Settings.SpacerWidth, 200);
    EXPECT_EQ(Frame.Settings.SuperTab, 1);
    EXPECT_EQ(Frame.Settings.SheetKinds.Words(), QStringList({QStringLiteral("pcx"), QStringLiteral("xyz")}));
    EXPECT_EQ(QDir::currentPath(), here);
    WriteIni(1, QStringLiteral("Misc"), QStringLiteral("SuperTab"));
    EXPECT_EQ(folder.Read(QStringLiteral("data/user.ini")), user);
}
