#include "frame/media/media_lists.h"
#include "frame/program_scope.h"

using MediaListsTest = FrameTest;

namespace {

QStringList NamesOf(const MediaListModel& list)
{
    QStringList names;
    for (int row = 0; row < list.rowCount(); ++row)
        names << list.data(list.index(row), Qt::DisplayRole).toString();
    return names;
}

} // namespace

// Catches: an order by character codes ("10" before "2", capitals first), folders and other files among the entries.
TEST_F(MediaListsTest, EntriesStandInTheOrderPeopleCount)
{
    for (const char* name : {"tiles10.pcx", "Tiles2.PCX", "tiles1.png", "aaa.txt", "tiles01.pcx", "alpha.png"})
        Run.Work.Write(QString::fromLatin1(name), "");
    Run.Work.Write(QStringLiteral("folder.pcx/inner.pcx"), "");
    MediaListModel list;
    list.Show(Run.Work.Path(), QStringLiteral("*.pcx;*.png"));
    EXPECT_EQ(NamesOf(list),
              (QStringList{QStringLiteral("alpha.png"), QStringLiteral("tiles01.pcx"), QStringLiteral("tiles1.png"),
                           QStringLiteral("Tiles2.PCX"), QStringLiteral("tiles10.pcx")}));
    EXPECT_EQ(list.Find(QStringLiteral("TILES1")), 2);
    EXPECT_EQ(list.Find(QString()), -1);
    Run.Work.Write(QStringLiteral("zeta.pcx"), "");
    EXPECT_EQ(list.rowCount(), 5) << "read again without being asked";
    list.Refresh();
    EXPECT_EQ(list.Name(5), QStringLiteral("zeta.pcx"));
    list.Show(Run.Work.Path(QStringLiteral("none/")), QStringLiteral("*.pcx"));
    EXPECT_EQ(list.rowCount(), 0);
}

// Catches: entries mixed up where some came and some went, a place in the list lost by a refresh, a change that the
// folder's time hides.
TEST_F(MediaListsTest, ARefreshKeepsWhatStays)
{
    for (const char* name : {"b.pcx", "c.pcx", "f.pcx", "g.pcx"})
        Run.Work.Write(QString::fromLatin1(name), "");
    MediaListModel list;
    list.Show(Run.Work.Path(), QStringLiteral("*.pcx"));
    ASSERT_EQ(list.rowCount(), 4);
    const QPersistentModelIndex kept = list.index(2), gone = list.index(3);
    const auto now = [&] { return NamesOf(list).join(u' ').remove(QStringLiteral(".pcx")); };
    QFile::remove(Run.Work.Path(QStringLiteral("b.pcx")));
    QFile::remove(Run.Work.Path(QStringLiteral("g.pcx")));
    for (const char* name : {"a.pcx", "d.pcx", "e.pcx", "z.pcx"})
        Run.Work.Write(QString::fromLatin1(name), "");
    EXPECT_TRUE(list.Refresh());
    EXPECT_EQ(now(), QStringLiteral("a c d e f z"));
    EXPECT_EQ(kept.row(), 4);
    EXPECT_FALSE(gone.isValid());
    EXPECT_FALSE(list.Refresh());
    for (int i = 0; i < 300; i += 2)
        Run.Work.Write(QStringLiteral("c%1.pcx").arg(i), "");
    EXPECT_TRUE(list.Refresh());
    for (int i = 1; i < 300; i += 2)
        Run.Work.Write(QStringLiteral("c%1.pcx").arg(i), "");
    EXPECT_TRUE(list.Refresh());
    EXPECT_EQ(list.rowCount(), 306);
    EXPECT_EQ(list.Name(300), QStringLiteral("c298.pcx"));
}

// Catches: an order that is no order (sort would run wild): equal names, digits against letters, leading zeros.
TEST_F(MediaListsTest, TheOrderIsStrict)
{
    const QStringList names = {QStringLiteral("a"),   QStringLiteral("A"),  QStringLiteral("a1"), QStringLiteral("a01"),
                               QStringLiteral("a10"), QStringLiteral("ab"), QStringLiteral("1a"), QString(),
                               QStringLiteral("0"),   QStringLiteral("00")};
    for (const QString& a : names)
        for (const QString& b : names) {
            EXPECT_FALSE(NaturallyBefore(a, b) && NaturallyBefore(b, a)) << a << " " << b;
            EXPECT_EQ(a != b, NaturallyBefore(a, b) || NaturallyBefore(b, a)) << a << " " << b;
            for (const QString& c : names)
                EXPECT_TRUE(!NaturallyBefore(a, b) || !NaturallyBefore(b, c) || NaturallyBefore(a, c));
        }
}

// Catches: a sheet of the document's folder hidden by one of the game, and a ".pcx" in a conf whose sheet is a ".png".
TEST_F(MediaListsTest, ImagesAreLookedForInTheOrderOfTheLists)
{
    Run.Start();
    Run.Work.Write(QStringLiteral("extra/Both.pcx"), "");
    Run.Work.Write(QStringLiteral("extra/Alone.png"), "");
    Run.Work.Write(QStringLiteral("set/both.pcx.bak.pcx"), "");
    const QString conf = Run.Work.Write(QStringLiteral("set/graphicsinfo.conf"), "name: x\n");
    SetExtraFolder(Run.Work.Path(QStringLiteral("extra/")));
    ASSERT_TRUE(OpenDocument(conf, false));
    const auto both = FindImageInLists(QStringLiteral("BOTH.pcx"));
    ASSERT_TRUE(both);
    EXPECT_EQ(both->Source, MediaSource::PCXBrowser);
    EXPECT_EQ(both->Name, QStringLiteral("both.pcx.bak.pcx"));
    const auto twin = FindImageInLists(QStringLiteral("alone.pcx"));
    ASSERT_TRUE(twin);
    EXPECT_EQ(twin->Source, MediaSource::Extra);
    EXPECT_EQ(twin->Name, QStringLiteral("Alone.png"));
    EXPECT_FALSE(FindImageInLists(QString()));
    SetMode(ModeSfx);
    EXPECT_EQ(Lists().Extra.rowCount(), 0) << "sounds have no images";
}
