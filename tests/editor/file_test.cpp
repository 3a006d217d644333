#include "either_text.h"
#include "platform/files/file_steps.h"

#include <cerrno>
#include <unistd.h>

namespace {

struct FileTest : EitherTextTest
{
    TestFolder folder;
};

ON_EITHER_TEXT(FileTest);

// Catches: a save that changes bytes nobody touched: mixed line ends, a missing last one, a mark, odd codes.
TEST_P(FileTest, OnlyTheChangedLineChanges)
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
        ASSERT_TRUE(subject->OpenFile(path));
        ASSERT_TRUE(subject->SaveFile(path, false));
        EXPECT_EQ(folder.Read(u"some.conf"_s), before);
        subject->InsertText(u"!"_s, {1, 1, 1, 1});
        EXPECT_TRUE(subject->Modified());
        ASSERT_TRUE(subject->SaveFile(path, false));
        EXPECT_FALSE(subject->Modified());
        EXPECT_EQ(folder.Read(u"some.conf"_s), after);
    }
}

// Catches: line ends of another kind than the document's from any of the ways that insert lines.
TEST_P(FileTest, InsertedLinesTakeTheDocumentsLineEnd)
{
    EXPECT_EQ(subject->LineEnd(), LineBreak::CrLf);
    subject->LoadBytes("a\nb\nc\r\n");
    EXPECT_EQ(subject->LineEnd(), LineBreak::Lf);
    subject->InsertLine(0, u"1\r\n2"_s);
    subject->SetSel({0, 0, 0, 0}, false);
    subject->ExecuteCmd(CmdOpenLineAbove);
    subject->ExecuteCmd(CmdBreakLine);
    subject->ExecuteCmd(CmdBreakLine);
    ASSERT_TRUE(subject->InsertFile(folder.Write(u"x"_s, "\xEF\xBB\xBF"
                                                         "x\r\n"),
                                    {0, 0, 0, 0}));
    EXPECT_EQ(subject->FileBytes(), "x\n\n\n\n1\n2\na\nb\nc\r\n");
    EXPECT_EQ(subject->Text().count(u"\r\n"_s), 9);
}

TEST_F(PaneTest, ReturnTakesTheDocumentsLineEnd)
{
    pane->LoadBytes("a\nb\nc\r\n");
    Component()->show();
    Press(Qt::Key_Return);
    EXPECT_EQ(pane->FileBytes(), "\na\nb\nc\r\n");
}

// Catches: text or flags lost for a file that cannot be read or written, a "?" written for a character.
TEST_P(FileTest, FailuresChangeNothingAndTellThePath)
{
    subject->SetText(u"mine"_s);
    for (const QString& path : {folder.Path(u"none"_s), folder.Path()}) {
        const Result<> opened = subject->OpenFile(path);
        ASSERT_FALSE(opened);
        EXPECT_TRUE(opened.error().Text().contains(folder.Path().chopped(1)));
        EXPECT_FALSE(subject->InsertFile(path, {}));
    }
    EXPECT_EQ(subject->Text(), u"mine"_s);
    EXPECT_TRUE(subject->Modified());

    const QString path = folder.Write(u"old.conf"_s, "\xE9");
    ASSERT_TRUE(subject->OpenFile(path));
    EXPECT_EQ(subject->Encoding(), FileEncoding::Windows1252);
    subject->AddText(u"€"_s);
    EXPECT_TRUE(subject->FitsEncoding());
    subject->AddText(u"日"_s);
    EXPECT_FALSE(subject->FitsEncoding());
    EXPECT_FALSE(subject->SaveFile(path, false));
    EXPECT_TRUE(subject->Modified());
    EXPECT_EQ(folder.Read(u"old.conf"_s), "\xE9");
    subject->SetEncoding(FileEncoding::Utf8);
    ASSERT_TRUE(subject->SaveFile(path, false));
    EXPECT_EQ(folder.Read(u"old.conf"_s), "\xC3\xA9\xE2\x82\xAC\xE6\x97\xA5");
}

// Catches: bytes lost or doubled where a large file is cut in pieces; half a file left when the disk fails in between.
TEST_P(FileTest, LargeFilesComeInPieces)
{
    const QByteArray large = QByteArray("a\xE2\x82\xAC\r\n").repeated(500'001); // 6 bytes: cut inside each kind
    const QString path = folder.Write(u"large.conf"_s, large);
    for (const char* end : {"", "\xE9"}) { // the last byte decides that all of it is Windows-1252
        folder.Write(u"large.conf"_s, large + end);
        ASSERT_TRUE(subject->OpenFile(path));
        EXPECT_EQ(subject->LineCount(), 500'002);
        EXPECT_EQ(subject->Encoding(), *end ? FileEncoding::Windows1252 : FileEncoding::Utf8);
        EXPECT_EQ(subject->FileBytes(), large + end);
        EXPECT_FALSE(subject->Modified());
    }
    subject->SetText(u"mine"_s);
    subject->SetSel({0, 1, 0, 3}, false);
    FileSteps steps = FileSteps::OfSystem();
    steps.Read = [calls = 0](int file, void* to, size_t size) mutable {
        errno = EIO;
        return ++calls < 3 ? read(file, to, std::min(size, size_t(1) << 20)) : -1;
    };
    const FileStepsScope scope(steps);
    EXPECT_FALSE(subject->OpenFile(path));
    EXPECT_EQ(subject->Text(), u"mine"_s);
    EXPECT_EQ(subject->SelText(), u"in"_s);
    EXPECT_TRUE(subject->Modified());
}

// Catches: a hang or a crash on what is no usual text, and a byte of it lost.
TEST_P(FileTest, AnyBytesLoadAndSave)
{
    QByteArray binary;
    for (int i = 0; i < 100'000; ++i)
        binary += char((i * 7919) >> 3);
    const QByteArray longLine = "yamyam.left: " + QByteArray(1'000'000, 'x') + "\nnext";
    WidgetOf(*pane)->show();
    for (const QByteArray& bytes : {binary, longLine, QByteArray(50'000, '\0'), QByteArray(50'000, '\r')}) {
        subject->LoadBytes(bytes);
        QCoreApplication::processEvents();
        EXPECT_EQ(subject->FileBytes(), bytes);
        subject->ExecuteCmd(CmdDocumentEnd);
        subject->ExecuteCmd(CmdLineUp);
        subject->SetFindText(u"\\d+z"_s);
        subject->SetFindOptions({.RegularExpression = true});
        subject->ExecuteCmd(CmdFindPrevious);
        subject->ExecuteCmd(CmdSelectAll);
        EXPECT_EQ(subject->SelLength(), subject->Text().size());
        subject->ExecuteCmd(CmdDeleteLeft);
        EXPECT_EQ(subject->FileBytes(), QByteArray());
        EXPECT_EQ(subject->ExecuteCmd(CmdUndo), OnPane());
        EXPECT_EQ(subject->FileBytes(), OnPane() ? bytes : QByteArray());
    }
}

// Catches: the unseen part of a very long line that no key takes out or types over.
TEST_F(PaneTest, TheUnseenPartOfALongLineCanBeEdited)
{
    const QByteArray line = "a" + QByteArray(400'000, 'x');
    Component()->show();
    for (const bool typed : {false, true}) {
        pane->LoadBytes(line + "yz");
        QCoreApplication::processEvents();
        pane->ExecuteCmd(CmdDocumentEnd);
        Press(Qt::Key_Backspace);
        EXPECT_EQ(pane->FileBytes(), line + "y");
        pane->SetSel({0, 1, 0, 400'002}, false);
        if (typed)
            Type(u"b"_s);
        else
            pane->ExecuteCmd(CmdCut);
        EXPECT_EQ(pane->FileBytes(), typed ? "ab" : "a");
        pane->ExecuteCmd(CmdUndo);
        EXPECT_EQ(pane->FileBytes(), line + "y");
    }
}

// Catches: hits whose places drift by the width of what stands between them.
TEST_P(FileTest, ManyHitsInOneLongLine)
{
    subject->LoadBytes(QByteArray("ab \xC3\xA4 ").repeated(1'000));
    subject->SetFindText(u"(a)b"_s);
    subject->SetReplaceText(u"$1"_s);
    subject->SetFindOptions({.RegularExpression = true});
    EXPECT_TRUE(subject->ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(subject->LastReplaceCount(), 1'000);
    EXPECT_EQ(subject->Bytes(), QByteArray("a \xC3\xA4 ").repeated(1'000));
}

} // namespace
