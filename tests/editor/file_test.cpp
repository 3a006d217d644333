#include "pane_fixture.h"
#include "platform/files/file_steps.h"

#include <cerrno>
#include <unistd.h>

namespace {

struct FileTest : PaneTest
{
    TestFolder folder;
};

// Catches: a save that changes bytes nobody touched: mixed line ends, a missing last one, a mark, odd codes.
TEST_F(FileTest, OnlyTheChangedLineChanges)
{
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"a\r\nb\nc\rd", "a\r\nb!\nc\rd"},
        {"\xEF\xBB\xBF"
         "a\nb\n",
         "\xEF\xBB\xBF"
         "a\nb!\n"},
        {"\x81\x8D\xE9\r\nb\r\n\x9D", "\x81\x8D\xE9\r\nb!\r\n\x9D"},
        {QByteArray("\0\0\nb\n\0", 6), QByteArray("\0\0\nb!\n\0", 7)},
    };
    for (const auto& [before, after] : cases) {
        const QString path = folder.Write(u"some.conf"_s, before);
        ASSERT_TRUE(pane->OpenFile(path));
        ASSERT_TRUE(pane->SaveFile(path, false));
        EXPECT_EQ(folder.Read(u"some.conf"_s), before);
        pane->InsertText(u"!"_s, {1, 1, 1, 1});
        EXPECT_TRUE(pane->Modified());
        ASSERT_TRUE(pane->SaveFile(path, false));
        EXPECT_FALSE(pane->Modified());
        EXPECT_EQ(folder.Read(u"some.conf"_s), after);
    }
}

// Catches: line ends of another kind than the document's from any of the ways that insert lines.
TEST_F(FileTest, InsertedLinesTakeTheDocumentsLineEnd)
{
    EXPECT_EQ(pane->LineEnd(), LineBreak::CrLf);
    pane->LoadBytes("a\nb\nc\r\n");
    EXPECT_EQ(pane->LineEnd(), LineBreak::Lf);
    pane->InsertLine(0, u"1\r\n2"_s);
    pane->SetSel({0, 0, 0, 0}, false);
    pane->ExecuteCmd(CmdOpenLineAbove);
    pane->ExecuteCmd(CmdBreakLine);
    Component()->show();
    Press(Qt::Key_Return);
    ASSERT_TRUE(pane->InsertFile(folder.Write(u"x"_s, "\xEF\xBB\xBF"
                                                      "x\r\n"),
                                 {0, 0, 0, 0}));
    EXPECT_EQ(pane->FileBytes(), "x\n\n\n\n1\n2\na\nb\nc\r\n");
    EXPECT_EQ(pane->Text().count(u"\r\n"_s), 9);
}

// Catches: text or flags lost for a file that cannot be read or written, a "?" written for a character.
TEST_F(FileTest, FailuresChangeNothingAndTellThePath)
{
    pane->SetText(u"mine"_s);
    for (const QString& path : {folder.Path(u"none"_s), folder.Path()}) {
        const Result<> opened = pane->OpenFile(path);
        ASSERT_FALSE(opened);
        EXPECT_TRUE(opened.error().Text().contains(folder.Path().chopped(1)));
        EXPECT_FALSE(pane->InsertFile(path, {}));
    }
    EXPECT_EQ(pane->Text(), u"mine"_s);
    EXPECT_TRUE(pane->Modified());

    const QString path = folder.Write(u"old.conf"_s, "\xE9");
    ASSERT_TRUE(pane->OpenFile(path));
    EXPECT_EQ(pane->Encoding(), FileEncoding::Windows1252);
    pane->AddText(u"€"_s);
    EXPECT_TRUE(pane->FitsEncoding());
    pane->AddText(u"日"_s);
    EXPECT_FALSE(pane->FitsEncoding());
    EXPECT_FALSE(pane->SaveFile(path, false));
    EXPECT_TRUE(pane->Modified());
    EXPECT_EQ(folder.Read(u"old.conf"_s), "\xE9");
    pane->SetEncoding(FileEncoding::Utf8);
    ASSERT_TRUE(pane->SaveFile(path, false));
    EXPECT_EQ(folder.Read(u"old.conf"_s), "\xC3\xA9\xE2\x82\xAC\xE6\x97\xA5");
}

// Catches: bytes lost or doubled where a large file is cut in pieces; half a file left when the disk fails in between.
TEST_F(FileTest, LargeFilesComeInPieces)
{
    const QByteArray large = QByteArray("a\xE2\x82\xAC\r\n").repeated(500'001); // 6 bytes: cut inside each kind
    const QString path = folder.Write(u"large.conf"_s, large);
    for (const char* end : {"", "\xE9"}) { // the last byte decides that all of it is Windows-1252
        folder.Write(u"large.conf"_s, large + end);
        ASSERT_TRUE(pane->OpenFile(path));
        EXPECT_EQ(pane->LineCount(), 500'002);
        EXPECT_EQ(pane->Encoding(), *end ? FileEncoding::Windows1252 : FileEncoding::Utf8);
        EXPECT_EQ(pane->FileBytes(), large + end);
        EXPECT_FALSE(pane->Modified());
    }
    pane->SetText(u"mine"_s);
    pane->SetSel({0, 1, 0, 3}, false);
    FileSteps steps = FileSteps::OfSystem();
    steps.Read = [calls = 0](int file, void* to, size_t size) mutable {
        errno = EIO;
        return ++calls < 3 ? read(file, to, size) : -1;
    };
    const FileStepsScope scope(steps);
    EXPECT_FALSE(pane->OpenFile(path));
    EXPECT_EQ(pane->Text(), u"mine"_s);
    EXPECT_EQ(pane->SelText(), u"in"_s);
    EXPECT_TRUE(pane->Modified());
}

// Catches: a hang or a crash on what is no usual text, and a byte of it lost.
TEST_F(FileTest, AnyBytesLoadAndSave)
{
    QByteArray binary;
    for (int i = 0; i < 100'000; ++i)
        binary += char((i * 7919) >> 3);
    const QByteArray longLine = "yamyam.left: " + QByteArray(1'000'000, 'x') + "\nnext";
    Component()->show();
    for (const QByteArray& bytes : {binary, longLine, QByteArray(50'000, '\0'), QByteArray(50'000, '\r')}) {
        pane->LoadBytes(bytes);
        QCoreApplication::processEvents();
        EXPECT_EQ(pane->FileBytes(), bytes);
        pane->ExecuteCmd(CmdDocumentEnd);
        pane->ExecuteCmd(CmdLineUp);
        pane->SetFindText(u"\\d+z"_s);
        pane->SetFindOptions({.RegularExpression = true});
        pane->ExecuteCmd(CmdFindPrevious);
        pane->ExecuteCmd(CmdSelectAll);
        EXPECT_EQ(pane->SelLength(), pane->Text().size());
        pane->ExecuteCmd(CmdDeleteLeft);
        pane->ExecuteCmd(CmdUndo);
        EXPECT_EQ(pane->FileBytes(), bytes);
    }
}

// Catches: many hits in one long line that cost the line each.
TEST_F(FileTest, ManyHitsInOneLongLine)
{
    pane->LoadBytes(QByteArray("ab \xC3\xA4 ").repeated(100'000));
    pane->SetFindText(u"(a)b"_s);
    pane->SetReplaceText(u"$1"_s);
    pane->SetFindOptions({.RegularExpression = true});
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(pane->ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(pane->LastReplaceCount(), 100'000);
    EXPECT_LT(timer.elapsed(), 10'000);
    EXPECT_EQ(pane->Bytes().size(), 500'000);
}

} // namespace
