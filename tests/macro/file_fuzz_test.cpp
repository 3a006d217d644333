#include "frame/run_scope.h"
#include "macro_scope.h"
#include "platform/archives/zip_writer.h"
#include "platform/files/file_steps.h"

#include <QDir>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* FileWords[] = {
    "fileset",  "dir",       "openfileload", "openfileinsert", "openfilesave", "filekill", "dirkill", "dirmake",
    "filecopy", "filemove",  "dircopy",      "dirmove",        "fileattrib",   "peek",     "poke",    "pokeadd",
    "pkoffset", "resunpack", "zip",          "unzip",          "ziplist",      "regwrite", "regread", "regdelete",
    "askload",  "asksave",   "askdir",       "fileprotection", "clear"};

/// Names in the sandbox and others that lead nowhere, to the root, or to what must not be taken for a name.
constexpr const char* FileArguments[] = {"Plain.txt",
                                         "plain.TXT",
                                         "Sub",
                                         "Sub\\",
                                         "Sub\\Deep",
                                         "Sub/Inner.txt",
                                         "\\Sub",
                                         "\\",
                                         "\\\\",
                                         ".",
                                         "..",
                                         "./",
                                         "*.*",
                                         "*",
                                         "Sub\\*",
                                         "?",
                                         "evil.zip",
                                         "a.zip",
                                         "\\new",
                                         "new\\",
                                         "[dir:1]",
                                         "[dir:2]",
                                         "[dir:3]",
                                         "[dir:4]",
                                         "[chr:0]",
                                         "[null]",
                                         "[lastdir]",
                                         "[chr:255]",
                                         "2bit",
                                         "4bit",
                                         "-1",
                                         "=1",
                                         "-4",
                                         "99999999",
                                         "2147483647",
                                         "on",
                                         "off",
                                         "rhsan",
                                         "$v",
                                         "$none",
                                         "New.conf",
                                         "Sub\\New.txt",
                                         "a\\b\\c\\d",
                                         "con:",
                                         "C:\\x",
                                         "~",
                                         "|",
                                         "a|b",
                                         "name",
                                         "[currentpath]",
                                         "[lastdirfull]"};

QString RandomFileProgram(QRandomGenerator& random)
{
    QString program = u"dim $v\nset $v =Plain.txt\n"_s;
    for (int line = random.bounded(3, 14); line > 0; --line) {
        program += QLatin1String(FileWords[random.bounded(int(std::size(FileWords)))]);
        for (int argument = random.bounded(4); argument > 0; --argument)
            program += u' ' + QLatin1String(FileArguments[random.bounded(int(std::size(FileArguments)))]);
        program += u'\n';
    }
    return program;
}

/// An archive whose names lead out of wherever it is unpacked.
void WriteEvilArchive(const QString& path)
{
    std::vector<ZipPart> parts;
    for (const char* name :
         {"../../outside/keep.txt", "/outside.txt", "Sub/../../../outside/keep.txt", "ok.txt", "C:/x.txt"})
        parts.push_back({QLatin1String(name), QByteArray("evil")});
    ASSERT_TRUE(WriteZip(path, parts));
}

} // namespace

// Catches: a file outside the macro's folder that is made, changed or removed by way of a link, an archive, an entry of
// dir or the folder's own name; a crash or a hang by hostile arguments.
TEST(FuzzMacro, FileCommandsStayInTheirFolder)
{
    TestFolder ground;
    ground.Write(u"outside/keep.txt"_s, "keep");
    FileSteps steps = FileSteps::OfSystem();
    steps.Sync = steps.SyncAll = [](int) { return 0; }; // what is safe on the disk does not matter here
    const FileStepsScope quick(steps);
    QRandomGenerator random(20250310);
    const QStringList root = QDir(u"/"_s).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (int round = 0; round < 400; ++round) {
        ground.Write(u"yard/box/Plain.txt"_s, "12345");
        ground.Write(u"yard/box/Sub/Deep/x.txt"_s, "x");
        ground.Write(u"yard/box/Sub/Inner.txt"_s, "inner");
        QFile::link(u"../../../../outside"_s, ground.Path(u"yard/box/Sub/Deep/out"_s));
        QFile::link(u"."_s, ground.Path(u"yard/box/Sub/circle"_s));
        WriteEvilArchive(ground.Path(u"yard/box/evil.zip"_s));
        MacroScope scope;
        scope.AllowFiles = true;
        scope.Deadline = 2'000;
        scope.Path = ground.Path(u"yard/box/evil.zip"_s);
        scope.Home = ground.Path(u"yard/box"_s);
        const QString program = RandomFileProgram(random);
        SCOPED_TRACE(program.toStdString());
        const MacroTrial trial = scope.Run(program, {u"Continue"_s, u"Plain.txt"_s, u"Sub"_s});
        ASSERT_FALSE(trial.Error && trial.Error->Text.isEmpty());
        ASSERT_EQ(ground.Read(u"outside/keep.txt"_s), "keep");
        QStringList there = QDir(ground.Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        there.removeOne(u"yard"_s); // which the macro may well kill, by ".."
        ASSERT_EQ(there, QStringList{u"outside"_s});
        ASSERT_EQ(QDir(ground.Path(u"outside"_s)).entryList(QDir::Files | QDir::Hidden), QStringList{u"keep.txt"_s});
        if (round % 40 == 39)
            QDir(ground.Path(u"yard"_s)).removeRecursively();
    }
    EXPECT_EQ(QDir(u"/"_s).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), root);
}
