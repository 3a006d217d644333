#include "macro/commands/families.h"
#include "macro/language/program.h"
#include "macro/language/word_tables.h"
#include "macro_scope.h"

#include "frame/frame_state.h"
#include "frame/settings/settings.h"
#include "frame/vocabulary.h"
#include "level/level_record.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// One example of the handbook.
struct Example
{
    QStringList Words, On, Answers, Files, Lines, Gives, Tells;
    QString Needs;
};

QString ReadProjectFile(const QString& name)
{
    QFile file(ProjectFile(name));
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll());
}

std::vector<Example> Examples()
{
    std::vector<Example> found;
    Example one;
    const auto end = [&] {
        if (!one.Words.isEmpty())
            found.push_back(std::exchange(one, {}));
    };
    for (const QString& line : ReadProjectFile(u"tools/word_examples.txt"_s).split(u'\n')) {
        const QString key = line.section(u' ', 0, 0), rest = line.section(u' ', 1);
        if (line.isEmpty())
            end();
        else if (line.startsWith(u"    "_s))
            one.Lines << line.sliced(4);
        else if (key == u"word")
            one.Words << rest.split(u' ');
        else if (key == u"on")
            one.On << rest;
        else if (key == u"answer")
            one.Answers << rest;
        else if (key == u"file")
            one.Files << rest;
        else if (key == u"gives")
            one.Gives << QString(rest).replace(u"\\b"_s, QString(QChar(8)));
        else if (key == u"tells")
            one.Tells << u"MESSAGE "_s + rest;
        else if (key == u"needs")
            one.Needs = rest;
        else
            EXPECT_TRUE(line.startsWith(u'#')) << line;
    }
    end();
    return found;
}

struct HandbookTest : testing::Test
{
    ~HandbookTest() override { ResetLevel(); }

    void Run(const Example& example)
    {
        MacroScope scope;
        Frame.DataFolder = ProjectFile(u"data/"_s);
        Frame.Settings.SpacerWidth = 43;
        Frame.Settings.SuperTab = 0;
        Frame.Settings.LineCommentLineChar = u"-"_s;
        Frame.Settings.LineCommentSearchChar = u"~"_s;
        if (example.Lines.join(u' ').contains(u"element"_s))
            MakeLanguages();
        scope.AllowFiles = true;
        scope.Path = scope.Folder.Path(u"example.gfb"_s);
        for (const QString& file : example.Files)
            scope.Folder.Write(file.section(u' ', 0, 0), file.section(u' ', 1).toUtf8());
        QStringList answers = example.Answers;
        for (QString& answer : answers) // a file that is chosen is named in full
            if (answer.contains(u'.'))
                answer = example.Lines.first().startsWith(u"zip"_s) ? answer : scope.Folder.Path(answer);
        scope.Text().LoadBytes(example.On.join(u'\n').toUtf8());
        scope.Text().SetSel({0, 0, 0, 0}, false);
        const MacroTrial trial = scope.Run(example.Lines.join(u'\n'), answers);
        EXPECT_FALSE(trial.Error) << trial.Error->Line << ": " << trial.Error->Text;
        EXPECT_EQ(trial.Told, example.Tells);
        EXPECT_EQ(scope.Text().Text().remove(u'\r'), example.Gives.join(u'\n'));
    }
};

} // namespace

// Catches: an example of the handbook that does something else than its page says, or that is not even a macro.
TEST_F(HandbookTest, ExamplesDoWhatTheirPageSays)
{
    for (const Example& example : Examples()) {
        SCOPED_TRACE(example.Words.join(u' ').toStdString());
        for (const QString& word : example.Words) {
            const QString used = word.startsWith(u'[') ? QString(word).remove(u']') : word;
            EXPECT_TRUE(example.Lines.join(u'\n').contains(used)) << word;
        }
        if (example.Needs.isEmpty()) {
            Run(example);
            continue;
        }
        const PreparedSource source = PrepareSource(example.Lines.join(u'\n'));
        Program program;
        program.Take(source.Lines);
        EXPECT_EQ(source.ErrorText + PrePass(program).Text, QString());
        for (const QString& line : source.Lines)
            EXPECT_TRUE(line.isEmpty() || FindCommand(line.section(u' ', 0, 0))) << line;
    }
}

// Catches: a word whose page has no example, or one that is not what the test above ran.
TEST_F(HandbookTest, EveryWordHasAnExample)
{
    QStringList have;
    for (const Example& example : Examples())
        have << example.Words;
    for (const auto& family : CommandFamilies())
        for (const CommandWord& row : family)
            EXPECT_EQ(have.count(QLatin1StringView(row.Word)), 1) << row.Word;
    const QString page = ReadProjectFile(u"help/words_gemforge_basic.html"_s);
    for (const Example& example : Examples()) {
        const QString shown = example.Lines.join(u'\n').toHtmlEscaped().replace(u"'"_s, u"&#x27;"_s);
        EXPECT_EQ(page.count(u"<pre>"_s + shown + u"</pre>"_s), example.Words.size()) << shown;
    }
}

// Catches: a macro of the tutorial that fails when somebody types it.
TEST_F(HandbookTest, TheTutorialsMacrosRun)
{
    const QRegularExpression blocks(u"<pre>(.*?)</pre>"_s, QRegularExpression::DotMatchesEverythingOption);
    QStringList texts;
    for (const auto& block : blocks.globalMatch(ReadProjectFile(u"help/macro_tutorial.html"_s))) {
        QString source = block.captured(1);
        source.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&amp;"_s, u"&"_s);
        MacroScope scope;
        scope.Text().LoadBytes("# one\nsand: a\nsand.xpos: 1\nsandy: b\n#two");
        scope.Text().SetSel({0, 0, 0, 0}, false);
        const bool asks = source.contains(u"ask "_s);
        const MacroTrial trial = scope.Run(source, asks ? QStringList{u"sand"_s} : QStringList());
        EXPECT_FALSE(trial.Error) << trial.Error->Text << '\n' << source;
        texts << scope.Text().Text().remove(u'\r');
    }
    ASSERT_EQ(texts.size(), 7);
    EXPECT_TRUE(texts.at(2).startsWith(u"Gems: 14"_s)) << texts.at(2);
    EXPECT_TRUE(texts.at(4).endsWith(u"\nComments: 2"_s)) << texts.at(4);
    EXPECT_EQ(texts.last(), u"# one\n#sand: a\n#sand.xpos: 1\nsandy: b\n#two"_s);
}
