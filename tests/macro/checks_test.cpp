#include "check_cases.h"
#include "frame/vocabulary.h"
#include "macro_scope.h"
#include "services/archive_tool.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

QStringList Done(const CheckCase& one)
{
    MacroScope scope;
    Frame.DataFolder = ProjectFile(QStringLiteral("data/"));
    scope.Folder.Write(QStringLiteral("Plain.txt"), "12345");
    scope.Folder.Write(QStringLiteral("Sub/Inner.txt"), "");
    QDir(scope.Folder.Path()).mkpath(QStringLiteral("Sub/Deep"));
    Frame.Settings.LineCommentSearchChar = QStringLiteral("~");
    Frame.Settings.LineCommentLineChar = QStringLiteral("-");
    if (one.Name.contains(QLatin1String("[saved]"))) {
        scope.Path = scope.Folder.Path(QStringLiteral("Saved.gfb"));
        for (const char* name : {"basic.txt", "Note.txt"})
            EXPECT_TRUE(AddBytesToResource(QLatin1String(name), "a note", scope.Path));
    }
    scope.AllowFiles = one.Name.contains(QLatin1String("[files]"));
    Frame.WordLists[ModeGfx][KindElements] = {QStringLiteral("bd_wall"), QStringLiteral("yamyam")};
    Frame.WordLists[ModeGfx][KindActions] = {QStringLiteral("left"), QStringLiteral("right"), QStringLiteral("up"),
                                             QStringLiteral("down"), QStringLiteral("moving")};
    if (!one.Text.isEmpty())
        scope.Text().SetText(one.Text.join(QLatin1String("\r\n")));
    scope.Text().SetModified(one.Name.contains(QLatin1String("[unsaved]")));
    const QString folder = scope.Folder.Path();
    const QString source = one.Source.join(QLatin1String("\r\n")).replace(QLatin1String("{folder}"), folder);
    const MacroTrial trial = scope.Run(source, one.Answers);
    QStringList done = trial.Told;
    if (scope.Text().LineCount() > 0)
        for (const QString& line : scope.Text().Text().split(QLatin1String("\r\n")))
            done << QStringLiteral("> ") + line;
    if (trial.Error)
        done << QStringLiteral("ERROR %1: %2").arg(trial.Error->Line).arg(trial.Error->Text);
    return done.replaceInStrings(folder, QStringLiteral("{folder}"))
        .replaceInStrings(folder.toLower(), QStringLiteral("{folder}"));
}

std::string Joined(const QStringList& lines)
{
    return lines.join(u'\n').toStdString();
}

} // namespace

TEST(MacroChecks, EveryFileDoesWhatItSays)
{
    const QDir folder(ProjectFile(QStringLiteral("tests/macro/checks")));
    const QStringList files = folder.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    EXPECT_GT(files.size(), 5);
    for (const QString& file : files) {
        const std::vector<CheckCase> cases = CheckCasesOf(folder.filePath(file));
        EXPECT_FALSE(cases.empty()) << file;
        for (const CheckCase& one : cases) {
            SCOPED_TRACE(QString(file + QStringLiteral(": ") + one.Name));
            EXPECT_EQ(Joined(Done(one)), Joined(one.Wanted));
        }
    }
}
