#include "services/file_associations.h"

#include "services/registry.h"
#include "services/registry_store.h"
#include "test_support.h"

#include <QStandardPaths>
#include <gtest/gtest.h>

// Catches: a file type that stays in the registry in one of its views, one of another program that goes with ours, an
// undo that stops where there is nothing.
TEST(FileAssociations, AreTakenBackFromTheRegistryToo)
{
    if (QStandardPaths::findExecutable(QStringLiteral("update-mime-database")).isEmpty() ||
        QStandardPaths::findExecutable(QStringLiteral("update-desktop-database")).isEmpty())
        GTEST_SKIP() << "no tools of a desktop";
    const TestFolder home;
    const file_types::Places places{home.Path(QStringLiteral("share/")), home.Path(QStringLiteral("config/")),
                                    home.Path(QStringLiteral("bin/"))};
    home.Write(QStringLiteral("bin/gemforge"), "");
    home.Write(QStringLiteral("bin/Mapglass"), "");
    RegistryStore store(home.Path(QStringLiteral("registry.json")));
    const QByteArray empty = JsonOf(store.Root());
    ASSERT_TRUE(TakeBackFiles(places, store));
    EXPECT_EQ(JsonOf(store.Root()), empty);

    for (const file_types::Group group : {file_types::Group::Confs, file_types::Group::Levels}) {
        const auto made = AssociateFiles(group, places, store);
        ASSERT_TRUE(made) << made.error().Text();
    }
    cRegistry position(store);
    position.ClassKey = registry::ClassesRoot;
    position.SectionKey = QStringLiteral("Gemforge.StartUpFile\\shell\\open\\command");
    EXPECT_EQ(position.Value().toString(),
              u'"' + home.Path(QStringLiteral("bin/gemforge")) + QStringLiteral("\" \"%1\""));
    position.SectionKey = QStringLiteral(".LEVEL");
    position.ValueType = registry::Text;
    ASSERT_TRUE(position.SetValue(QStringLiteral("Other.Viewer")));

    ASSERT_TRUE(TakeBackFiles(places, store));
    EXPECT_FALSE(file_types::Associated(places));
    EXPECT_EQ(position.Value().toString(), QStringLiteral("Other.Viewer"));
    const QByteArray left = JsonOf(store.Root());
    EXPECT_FALSE(left.contains("Gemforge") || left.contains(".CONF")) << left.toStdString();
}
