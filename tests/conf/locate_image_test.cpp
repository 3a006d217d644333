#include "conf/locate_image.h"

#include "conf_fixture.h"
#include "frame/media/media_lists.h"

namespace {

class LocateImage : public ConfTest
{
protected:
    LocateImage()
    {
        for (const char* name :
             {"base/zip.pcx", "base/RocksDoor.pcx", "extra/far.PNG", "extra/zip.pcx", "rnd/game.pcx"})
            Files.Write(QLatin1String(name), "x");
        Frame.Media.ExtraFolder = Files.Path(QStringLiteral("extra/"));
        Frame.Media.RndFolder = Files.Path(QStringLiteral("rnd/"));
        Frame.CurrentFolder = Files.Path(QStringLiteral("base/"));
        ShowMedia();
        Scope.Host.OnPreview = [this] { Opened << Conf.MediaFile; };
    }

    TestFolder Files;
    QStringList Opened;
};

} // namespace

// Catches: lists asked in another order, a name that must be whole, a twin of the other sheet kind not found, a block
// that is not read before its window opens.
TEST_F(LocateImage, OpensTheFirstListsEntryWithItsBlock)
{
    const struct
    {
        const char *Value, *File;
        int Source;
    } cases[] = {{"zip.pcx", "zip.pcx", 1}, {"Rocks.png", nullptr, 0}, {"rocksdoor.PNG", "RocksDoor.pcx", 1},
                 {"far.pcx", "far.PNG", 2}, {"game.pc", nullptr, 0},   {"C:game.pcx", "game.pcx", 3}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Value);
        Opened.clear();
        Conf.Element.ElementOpen = false;
        Load(QByteArray("zip: ") + one.Value + "\nzip.xpos: 4\n", 1);
        if (!one.File) {
            EXPECT_LT(LocateElementImage(), 0);
            continue;
        }
        EXPECT_EQ(LocateElementImage(), ImageOpened);
        EXPECT_EQ(Opened, QStringList(QLatin1String(one.File)));
        EXPECT_EQ(Scope.Host.ShownEntry.first, one.Source);
        EXPECT_EQ(Conf.MediaSource, one.Source);
        EXPECT_EQ(Conf.Element.XPos, 4);
        EXPECT_TRUE(Conf.Element.ElementOpen);
        EXPECT_EQ(Pane().GetSel(true), (Range{.StartLine = 1, .EndLine = 1}));
    }
}

// Catches: a sub group's image opened from outside the group, or passed over from within; a reach other than 20.
TEST_F(LocateImage, LooksForTheMainLineUpward)
{
    const QByteArray text = "zip: zip.pcx\nzip.EDITOR: far.png\nzip.EDITOR.xpos: 3\nzip.xpos: 1\n";
    Load(text, 3);
    EXPECT_EQ(LocateElementImage(), ImageOpened);
    EXPECT_EQ(Conf.MainLine, 0);
    Load(text, 2);
    EXPECT_EQ(LocateElementImage(), ImageOpened);
    EXPECT_EQ(Conf.MainLine, 1);
    EXPECT_EQ(Conf.Element.XPos, 3);
    EXPECT_EQ(Opened, (QStringList{QStringLiteral("zip.pcx"), QStringLiteral("far.PNG")}));
    QByteArray lines = "zip: zip.pcx\n";
    for (int line = 1; line <= 21; ++line)
        lines += "zip.xpos: 1\n";
    Load(lines, 20);
    EXPECT_EQ(LocateElementImage(), ImageOpened);
    Load(lines, 21);
    EXPECT_EQ(LocateElementImage(), NoMainLine);
}

// Catches: a message missing or another one's, a message where nothing should happen, quick and full mixed up.
TEST_F(LocateImage, TellsWhatItLacks)
{
    const struct
    {
        const char *Text, *Title;
    } cases[] = {{"zip.xpos: 1\n", "Couldn't Locate Reference to A PCX"},
                 {"zip: none.pcx\n", "PCX Filename Error"},
                 {"a.pcx:  \t \n", "Missing Colon"},
                 {"a.pcx\n", ""},
                 {": zip.pcx\n", ""}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Text);
        Scope.Answers.Asked.clear();
        Load(one.Text);
        EditAnimation();
        EXPECT_EQ(Title(), QLatin1String(one.Title));
    }
    Load("zip: zip.pcx\n");
    Select(0, 0, 2);
    QuickPreview();
    EXPECT_TRUE(Opened.isEmpty());
    Load("zip: zip.pcx\n");
    QuickPreview();
    EXPECT_TRUE(Conf.QuickPreview);
    EditAnimation();
    EXPECT_FALSE(Conf.QuickPreview);
    EXPECT_EQ(Opened.size(), 2);
}

// Catches: a sound looked for in the lines above, or a block read from a sounds document.
TEST_F(LocateImage, OtherModesTakeTheCaretsLine)
{
    Files.Write(QStringLiteral("base/bang.wav"), "x");
    Frame.CurrentMode = ModeSfx;
    ShowMedia();
    Load("zip: zip.pcx\nzip.xpos: bang.wav\n", 1);
    EXPECT_EQ(LocateElementImage(), ImageOpened);
    EXPECT_EQ(Opened, QStringList(QStringLiteral("bang.wav")));
    EXPECT_EQ(Conf.FieldFound, (std::array<int, 9>{}));
}
