#include "fault_steps.h"
#include "platform/files/ini_file.h"
#include "platform/files/ini_text.h"
#include "test_support.h"

#include <QFile>
#include <QThread>
#include <gtest/gtest.h>
#include <random>

namespace {

const QString Name = QStringLiteral("user.ini");

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

QString Items(const QStringList& items)
{
    QString text;
    for (const QString& item : items)
        text += item + QChar(u'\0');
    return text;
}

} // namespace

// What a person or another program wrote into the file must outlive a write of one key, byte for byte.
TEST(IniFile, WriteChangesItsLineAlone)
{
    const TestFolder folder;
    const QByteArray before = "\xEF\xBB\xBF; head\r\nloose=1\r\n\r\n[Misc] ; all of it\r\n; about Tab\r\n  Tab = 4 \r\n"
                              "a plain line\r\n\r\n# next\r\n[Other]\r\nlatin=\xE9\r\n[misc]\r\nLate=x=y\r\n; tail";
    IniFile ini(folder.Write(Name, before));
    EXPECT_EQ(ini.Read(Text("MISC"), Text("tab")), Text("4"));
    EXPECT_EQ(ini.Read(Text("Misc"), Text("late")), Text("x=y")) << "a section that stands twice";
    EXPECT_EQ(ini.Read(Text("other"), Text("LATIN")), Text("é"));
    EXPECT_EQ(ini.Read(QString(), Text("loose")), Text("1"));
    EXPECT_EQ(ini.Read(Text("Misc"), Text("None")), Text("[NOT FOUND]"));
    ASSERT_TRUE(ini.Write(Text("misc"), Text("tAB"), Text("8 ü")));
    QByteArray after = before;
    after.replace("  Tab = 4 \r\n", "Tab=8 ü\r\n");
    EXPECT_EQ(folder.Read(Name), after);
    ASSERT_TRUE(ini.Write(Text("misc"), Text("New"), Text("")));
    after.replace("Tab=8 ü\r\n", "Tab=8 ü\r\nNew=\r\n");
    // The last line gets its end, since an edit may put a line behind it.
    EXPECT_EQ(folder.Read(Name), after + "\r\n");
    EXPECT_EQ(ini.Read(Text("Misc"), Text("new")), QString());
    ASSERT_TRUE(ini.Write(Text("prj_[a]"), Text("1"), Text("/x;y")));
    EXPECT_EQ(folder.Read(Name), after + "\r\n\r\n[prj_[a]]\r\n1=/x;y\r\n");
    EXPECT_EQ(IniFile(folder.Path(Name)).Read(Text("PRJ_[A]"), Text("1")), Text("/x;y"));
}

// Sections as a whole: what ReadSection gives must go back in by WriteSection, with one item less or with none.
TEST(IniFile, SectionsInRawForm)
{
    const TestFolder folder;
    IniFile ini(folder.Write(Name, "[Projects]\n; mine\n1 = a\n\n2=b=c\n1=twice\n\n[Next]\nk=v\n"));
    EXPECT_EQ(ini.ReadSection(Text("projects")), Items({Text("1=a"), Text("2=b=c"), Text("1=twice")}));
    EXPECT_EQ(ini.ReadSection(Text("none")), QString());
    ASSERT_TRUE(ini.WriteSection(Text("PROJECTS"), Items({Text("2=b=c"), Text("3=\xC3\xBC")})));
    EXPECT_EQ(folder.Read(Name), "[Projects]\n; mine\n2=b=c\n3=\xC3\xBC\n\n\n[Next]\nk=v\n");
    EXPECT_EQ(ini.Read(Text("Projects"), Text("1")), IniFile::NotFound);
    ASSERT_TRUE(ini.WriteSection(Text("Projects"), QString()));
    EXPECT_EQ(ini.ReadSection(Text("Projects")), QString());
    const QByteArray emptied = folder.Read(Name);
    ASSERT_TRUE(ini.WriteSection(Text("Unknown"), QString()));
    EXPECT_EQ(folder.Read(Name), emptied);
    ASSERT_TRUE(ini.WriteSection(Text("Made"), Items({Text("1=x")})));
    EXPECT_EQ(folder.Read(Name), emptied + "\n[Made]\n1=x\n");
}

// What would come back as something else must be refused before it breaks the file.
TEST(IniFile, RefusesWhatAnIniCannotHold)
{
    const TestFolder folder;
    IniFile ini(folder.Path(Name));
    for (const char* key : {"", " ", "a=b", "[a", ";a", "#a", "a\nb"})
        EXPECT_FALSE(ini.Write(Text("s"), Text(key), Text("v"))) << key;
    EXPECT_FALSE(ini.Write(Text("s\n"), Text("k"), Text("v")));
    EXPECT_FALSE(ini.Write(Text("s"), Text("k"), Text("two\nlines")));
    EXPECT_FALSE(ini.Write(Text("s"), Text("k"), QString(QChar(u'\0'))));
    EXPECT_FALSE(ini.WriteSection(Text("s"), Items({Text("1=a"), Text("no sign")})));
    EXPECT_EQ(folder.Read(Name), "<no such file>");
    EXPECT_TRUE(ini.Write(Text("s"), Text("k"), Text("v")));
    EXPECT_EQ(folder.Read(Name), "[s]\nk=v\n");
}

// A batch must write once, keep what another program wrote meanwhile, and lose nothing when the write fails.
TEST(IniFile, BatchesAndChangesByOthers)
{
    const TestFolder folder;
    IniFile ini(folder.Write(Name, "[a]\nx=1\n"));
    const auto renames = std::make_shared<int>(0);
    FileSteps steps = FileSteps::OfSystem();
    steps.Rename = [renames, rename = steps.Rename](auto from, auto to) { return ++*renames, rename(from, to); };
    const FileStepsScope scope(steps);
    ini.OpenBatch();
    ini.OpenBatch();
    for (int i = 0; i < 2000; ++i)
        ASSERT_TRUE(ini.Write(Text("list"), QString::number(i), Text("v")));
    ASSERT_TRUE(ini.Write(Text("a"), Text("x"), Text("2")));
    EXPECT_EQ(ini.Read(Text("A"), Text("X")), Text("2"));
    ASSERT_TRUE(ini.CloseBatch());
    EXPECT_EQ(*renames, 0);
    folder.Write(Name, "[a]\nx=1\nforeign=7\n");
    ASSERT_TRUE(ini.CloseBatch());
    EXPECT_EQ(*renames, 1);
    EXPECT_TRUE(folder.Read(Name).startsWith("[a]\nx=2\nforeign=7\n\n[list]\n0=v\n1=v\n"));
    EXPECT_EQ(ini.Read(Text("List"), Text("1999")), Text("v"));
    ASSERT_TRUE(ini.Write(Text("a"), Text("x"), Text("2")));
    EXPECT_EQ(*renames, 1) << "nothing to write";

    QThread::msleep(110);
    folder.Write(Name, "[a]\nx=9\n");
    EXPECT_EQ(ini.Read(Text("a"), Text("x")), Text("9"));
    folder.Write(Name, "[a]\nx=9\ny=8\n"); // seen before the write though no pause has passed
    {
        FileSteps full = steps;
        full.Rename = [](auto, auto) { return errno = ENOSPC, -1; };
        const FileStepsScope fullDisk(full);
        const auto failed = ini.Write(Text("a"), Text("z"), Text("7"));
        ASSERT_FALSE(failed);
        EXPECT_EQ(failed.error().Reason, qt_error_string(ENOSPC));
    }
    EXPECT_EQ(ini.Read(Text("a"), Text("z")), Text("7"));
    EXPECT_EQ(folder.Read(Name), "[a]\nx=9\ny=8\n");
    ASSERT_TRUE(ini.Write(Text("a"), Text("w"), Text("6")));
    EXPECT_EQ(folder.Read(Name), "[a]\nx=9\ny=8\nz=7\nw=6\n");
}

// A file that is no ini, is too large or is a folder reads without harm and is left as it is.
TEST(IniFile, BrokenFilesAreNotWritten)
{
    const TestFolder folder;
    const QByteArray zeroed = QByteArray("[a]\nx=1\n") + QByteArray(5000, '\0') + "\ny=2\n";
    IniFile broken(folder.Write(Name, zeroed));
    EXPECT_EQ(broken.Read(Text("a"), Text("x")), Text("1"));
    EXPECT_EQ(broken.Read(Text("a"), Text("y")), Text("2"));
    EXPECT_FALSE(broken.Write(Text("a"), Text("x"), Text("3")));
    EXPECT_FALSE(broken.WriteSection(Text("a"), QString()));
    EXPECT_EQ(folder.Read(Name), zeroed);

    IniFile huge(folder.Write(QStringLiteral("huge.ini"), "[a]\nx=1\n"));
    QFile(folder.Path(QStringLiteral("huge.ini"))).resize(100 << 20);
    EXPECT_EQ(huge.Read(Text("a"), Text("x")), IniFile::NotFound);
    EXPECT_FALSE(huge.Write(Text("a"), Text("x"), Text("3")));
    EXPECT_EQ(QFile(folder.Path(QStringLiteral("huge.ini"))).size(), 100 << 20);

    IniFile inFolder(folder.Path());
    EXPECT_EQ(inFolder.Read(Text("a"), Text("x")), IniFile::NotFound);
    EXPECT_FALSE(inFolder.Write(Text("a"), Text("x"), Text("3")));
}

// Mutated texts: no crash, a key that was written reads back, and nothing else in the text has moved.
TEST(IniFile, FuzzedTextsKeepTheirLines)
{
    const QByteArray seed = "; c\n[a]\nx=1\n[b] ; r\r\ny = 2\n\n=\n[\n]\n[]\nz=\xC3\xBC\n[a]\nx=3";
    const QByteArray spice = QByteArray("[]=;#\n\r \t\xFF\xC3x1", 13) + '\0';
    std::mt19937 random(20240607);
    const auto below = [&](qsizetype n) { return qsizetype(random() % size_t(n)); };
    for (int round = 0; round < 5000; ++round) {
        QByteArray text = seed;
        for (qsizetype edits = 1 + below(8); edits > 0; --edits) {
            const qsizetype at = below(text.size());
            if (below(3) == 0)
                text.remove(at, 1 + below(4));
            else if (below(2) == 0)
                text.insert(at, spice.mid(below(spice.size()), 1));
            else
                text[at] = spice[below(spice.size())];
            text += '\n';
        }
        SCOPED_TRACE(text.toPercentEncoding().toStdString());
        IniText ini(text);
        ASSERT_EQ(ini.Bytes(), text);
        const QString raw = ini.Items(Text("a"));
        ini.Set(Text("a"), Text("x"), Text("new"));
        const QByteArray now = ini.Bytes();
        IniText again(now);
        ASSERT_EQ(again.Value(Text("a"), Text("x")), Text("new"));
        const QByteArrayList was = text.split('\n'), is = now.split('\n');
        const qsizetype shorter = std::min(was.size(), is.size());
        qsizetype front = 0, back = 0;
        while (front < shorter && was[front] == is[front])
            ++front;
        while (back < shorter - front && was[was.size() - 1 - back] == is[is.size() - 1 - back])
            ++back;
        ASSERT_LE(was.size() - front - back, 1);
        ASSERT_LE(is.size() - front - back, 3);
        again.SetItems(Text("a"), raw);
        ASSERT_EQ(again.Items(Text("a")), raw);
        ASSERT_EQ(IniText(again.Bytes()).Items(Text("a")), raw);
    }
}
