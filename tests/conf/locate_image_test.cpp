#include "conf/locate_image.h"

#include "conf/element_blocks.h"
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
    }

    /// The line of the main line that is found at a line of a text; -1 for none.
    int MainLineAt(const QByteArray& text, int line)
    {
        Load(text, line);
        const auto found = LocateElementImage(Pane());
        return found ? found->Block->MainLine : -1;
    }

    TestFolder Files;
};

} // namespace

// Catches: lists asked in another order, a name that must be whole, a twin of the other sheet kind not found, a place
// that is not the block's, a caret that stays within its line.
TEST_F(LocateImage, FindsTheFirstListsEntryAndItsBlock)
{
    const struct
    {
        const char *Value, *File;
        MediaSource Source;
    } cases[] = {
        {"zip.pcx", "zip.pcx", MediaSource::PCXBrowser}, {"zip.pcx  # see: x", "zip.pcx", MediaSource::PCXBrowser},
        {"Rocks.png", nullptr, MediaSource::None},       {"rocksdoor.PNG", "RocksDoor.pcx", MediaSource::PCXBrowser},
        {"far.pcx", "far.PNG", MediaSource::Extra},      {"game.pc", nullptr, MediaSource::None},
        {"C:game.pcx", "game.pcx", MediaSource::Rnd}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Value);
        Load(QByteArray("zip: ") + one.Value + "\nzip.xpos: 4\n", 1);
        const auto found = LocateElementImage(Pane());
        ASSERT_EQ(found.has_value(), one.File != nullptr);
        if (!found)
            continue;
        EXPECT_EQ(found->Entry.Name, QLatin1String(one.File));
        EXPECT_EQ(found->Entry.Source, one.Source);
        EXPECT_EQ(Lists().List(one.Source).Name(found->Entry.Row), found->Entry.Name);
        ASSERT_TRUE(found->Block);
        EXPECT_EQ(std::pair(found->Block->MainLine, found->Block->CaretLine), std::pair(0, 1));
        EXPECT_EQ(Pane().GetSel(true), (Range{.StartLine = 1, .EndLine = 1}));
    }
}

// Catches: a sub group's image opened from outside the group, or passed over from within; a reach other than 20.
TEST_F(LocateImage, LooksForTheMainLineUpward)
{
    const QByteArray text = "zip: zip.pcx\nzip.EDITOR: far.png\nzip.EDITOR.xpos: 3\nzip.xpos: 1\n";
    EXPECT_EQ(MainLineAt(text, 3), 0);
    EXPECT_EQ(MainLineAt(text, 2), 1);
    QByteArray lines = "zip: zip.pcx\n";
    for (int line = 1; line <= 21; ++line)
        lines += "zip.xpos: 1\n";
    EXPECT_EQ(MainLineAt(lines, 20), 0);
    EXPECT_EQ(MainLineAt(lines, 21), -1);
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
    QStringList opened;
    Scope.Host.OnPreview = [&](const MediaRequest& request) {
        EXPECT_EQ(Scope.Host.ShownEntry.Name, request.Entry.Name);
        opened << request.Entry.Name + (request.Quick ? u" quick" : u" full");
    };
    Load("zip: zip.pcx\n");
    Select(0, 0, 2);
    QuickPreview();
    EXPECT_TRUE(opened.isEmpty());
    Load("zip: zip.pcx\n");
    QuickPreview();
    EditAnimation();
    EXPECT_EQ(opened, (QStringList{QStringLiteral("zip.pcx quick"), QStringLiteral("zip.pcx full")}));
}

// Catches: a sound looked for in the lines above.
TEST_F(LocateImage, OtherModesTakeTheCaretsLine)
{
    Files.Write(QStringLiteral("base/bang.wav"), "x");
    Frame.CurrentMode = ModeSfx;
    ShowMedia();
    Load("zip: zip.pcx\nzip.xpos: bang.wav\n", 1);
    const auto found = LocateElementImage(Pane());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Entry.Name, QStringLiteral("bang.wav"));
}

// Catches: a command that does nothing and says nothing.
TEST_F(LocateImage, SaysWhyNothingOpens)
{
    const auto noticed = [this](void (*command)()) {
        const qsizetype before = Scope.Host.Notices.size();
        command();
        return Scope.Host.Notices.mid(before).join(u'|');
    };
    Load("zip: zip.pcx\nzip.xpos: 4\n", 1);
    Select(1, 0, 3);
    EXPECT_TRUE(noticed(EditAnimation).contains(QStringLiteral("nothing is selected")));
    Load("\nno key", 1);
    EXPECT_TRUE(noticed(QuickPreview).contains(QStringLiteral("no key")));
    EXPECT_TRUE(noticed(SelectElementBlock).contains(QStringLiteral("No element block")));
    EXPECT_EQ(Shown(), 0) << "none of them is worth a window";
}
