#include "platform/files/beside_folder.h"

#include "platform/files/file_steps.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace {

/// A folder "old" that stands, and one beside it with "new" in it.
class BesideFolders : public testing::Test
{
protected:
    BesideFolders()
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(State.Path()));
        Place.Write(QStringLiteral("set/file"), "old");
    }
    ~BesideFolders() override { qunsetenv("XDG_STATE_HOME"); }

    Result<BesideFolder> Make() const
    {
        Result<BesideFolder> beside = BesideFolder::Make(Place.Path());
        if (beside)
            Place.Write(QDir(Place.Path()).relativeFilePath(beside->Path()) + QStringLiteral("/new/file"), "new");
        return beside;
    }
    QByteArray Stands() const { return Place.Read(QStringLiteral("set/file")); }
    QStringList Hidden() const
    {
        QStringList names = QDir(Place.Path()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
        names.removeAll(QStringLiteral("set"));
        return names;
    }

    const TestFolder Place, State;
    const QString Set = Place.Path(QStringLiteral("set"));
};

} // namespace

// Catches: a folder that is overwritten where it has to be free, one that stays beside, a swap without the system's
// help that loses both when its second half fails.
TEST_F(BesideFolders, TakeTheirPlaceAndGoWithTheirScope)
{
    {
        const auto beside = Make();
        ASSERT_TRUE(beside);
        EXPECT_FALSE(beside->MoveToNew(QStringLiteral("new"), Set));
        EXPECT_EQ(Stands(), "old");
        EXPECT_EQ(Hidden().size(), 1);
    }
    EXPECT_EQ(Hidden(), QStringList());
    FileSteps steps = FileSteps::OfSystem();
    steps.Exchange = [](const char*, const char*) {
        errno = EINVAL;
        return -1;
    };
    for (const bool fails : {true, false}) {
        FileSteps now = steps;
        if (fails)
            now.RenameNew = [inner = steps.RenameNew, refused = std::make_shared<bool>(false)](auto from, auto to) {
                if (std::exchange(*refused, true))
                    return inner(from, to);
                errno = EIO;
                return -1;
            };
        const auto beside = Make();
        const FileStepsScope scope(now);
        EXPECT_EQ(beside->MoveOver(QStringLiteral("new"), Set).has_value(), !fails);
        EXPECT_EQ(Stands(), fails ? "old" : "new");
    }
    EXPECT_EQ(Hidden(), QStringList());
    const auto beside = Make();
    EXPECT_TRUE(beside->MoveOver(QStringLiteral("new"), Set));
    EXPECT_TRUE(beside->Take(Set));
    EXPECT_FALSE(QFileInfo::exists(Set));
}

// Catches: a removal that goes where a link leads, of what is in the folder or of the folder itself.
TEST_F(BesideFolders, RemoveTreeFollowsNoLink)
{
    const QString kept = Place.Write(QStringLiteral("kept/file"), "kept");
    QFile::link(Place.Path(QStringLiteral("kept")), Set + QStringLiteral("/inner"));
    const QString link = Place.Path(QStringLiteral("link"));
    QFile::link(Place.Path(QStringLiteral("kept")), link);
    EXPECT_FALSE(RemoveTree(link));
    EXPECT_TRUE(RemoveTree(Set));
    EXPECT_FALSE(QFileInfo::exists(Set));
    EXPECT_TRUE(QFileInfo::exists(kept));
    EXPECT_FALSE(RemoveTree(Set));
}
