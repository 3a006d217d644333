#include "frame/frame_state.h"
#include "frame/messages/asker.h"
#include "graphics/picks.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/language/seen_target.h"
#include "macro/language/waiting.h"
#include "platform/files/paths.h"

#include <QDeadlineTimer>
#include <QEventLoop>

#include <QFileInfo>
#include <QThread>
#include <QTimer>

namespace {

/// Each argument that is given takes the place of a default.
void Message(RunState& run, Arguments& in)
{
    MessageRecord record;
    record.MessageText = QStringLiteral("Pause");
    record.MessageTitle = QStringLiteral("Gemforge Basic");
    record.MessageColour = QStringLiteral("blu");
    QString MessageRecord::*const texts[] = {&MessageRecord::MessageText, &MessageRecord::MessageTitle,
                                             &MessageRecord::MessageButtons};
    constexpr int IconArgument = 4, ColourArgument = 5;
    for (int i = 1; i <= in.Count() && i < IconArgument; ++i)
        record.*texts[i - 1] = in.Text(i);
    if (in.Count() >= IconArgument)
        record.MessageIcon = in.Number(IconArgument);
    if (in.Count() >= ColourArgument)
        record.MessageColour = in.Text(ColourArgument);
    if (run.Failed())
        return;
    const SeenTarget seen(run);
    const int place = std::get<Pressed>(Ask(MessageQuestion{record})).Place;
    run.Last.MessageResult = Value(ButtonCaptions(record.MessageButtons).at(place - 1));
    run.Last.MessageNumber = Value(qint32(place));
}

void AskCommand(RunState& run, Arguments& in)
{
    run.SetOutcome(true);
    const QString prompt = in.Text(1), title = in.Text(2);
    if (run.Failed())
        return;
    const SeenTarget seen(run);
    const Value answer(AskText(InputQuestion{title, prompt, run.Last.Ask.Text()}).value_or(QString()));
    if (answer.IsEmpty())
        run.SetOutcome(false);
    run.Last.Ask = answer.IsNumeric() ? Value(TextToLong(run, answer)) : answer;
}

void ShowPause(RunState& run, const QString& text, std::optional<qint64> milliseconds)
{
    const SeenTarget seen(run);
    Ask(PauseQuestion{text, milliseconds});
}

void Pause(RunState& run, Arguments& in)
{
    if (in.Count() == 0) {
        ShowPause(run, QStringLiteral("Paused"), std::nullopt);
    } else if (in.Count() == 1 && IsNumeric(in.Written(1))) {
        const qint32 milliseconds = in.Number(1);
        if (!run.Failed())
            WaitFor(run.Scope, milliseconds);
    } else if (in.Count() == 1) {
        const QString text = in.Text(1);
        if (!run.Failed())
            ShowPause(run, text, std::nullopt);
    } else if (in.Count() == 2) {
        const qint32 milliseconds = in.Number(1);
        const QString text = in.Text(2);
        if (!run.Failed())
            ShowPause(run, text, qMax(milliseconds, 0));
    }
}

void ListShow(RunState& run, Arguments& in)
{
    const QString title = in.Text(1);
    if (run.Failed())
        return;
    if (run.ListItems.isEmpty()) {
        run.Fail("List is empty!");
        return;
    }
    run.ListTitle = title;
    ChoiceQuestion question{title, {{{}, {}}}, title.compare(QLatin1String("popup"), Qt::CaseInsensitive) == 0};
    for (const Value& item : std::as_const(run.ListItems))
        question.Lists.front().Items << item.Text();
    const SeenTarget seen(run);
    const Answer answer = Ask(question);
    const int* place = std::get_if<int>(&answer);
    run.SetOutcome(place);
    if (!place)
        return;
    run.Last.ListChoiceNumber = Value(qint32(*place));
    run.Last.ListChoice = Value(SpaceToPipe(run.ListItems.at(*place - 1).Text()));
}

/// The lists of graphics words that a mode of pickelement shows. The actions' table begins with the directions.
enum ElementLists : int { OfElements = 1, OfActions = 2, OfDirections = 4 };

ChoiceQuestion ElementQuestion(int lists, const QString& title)
{
    constexpr qsizetype DirectionCount = 4;
    const QStringList& elements = Frame.WordLists[ModeGfx][KindElements];
    const QStringList& actions = Frame.WordLists[ModeGfx][KindActions];
    ChoiceQuestion question{title, {}, false};
    if (lists & OfElements)
        question.Lists.push_back({QStringLiteral("Element"), elements});
    if (lists & OfActions)
        question.Lists.push_back({QStringLiteral("Action"), actions.mid(DirectionCount)});
    if (lists & OfDirections)
        question.Lists.push_back({QStringLiteral("Direction"), actions.mid(0, DirectionCount)});
    return question;
}

std::optional<QString> AskElement(const ChoiceQuestion& question)
{
    const Answer answer = Ask(question);
    if (const auto* joined = std::get_if<QString>(&answer))
        return *joined;
    const int* place = std::get_if<int>(&answer);
    return place ? std::optional(question.Lists.front().Items.at(*place - 1)) : std::nullopt;
}

void PickElement(RunState& run, Arguments& in)
{
    constexpr std::pair<const char*, int> Modes[] = {
        {"pickall", OfElements | OfActions | OfDirections}, {"pickelement", OfElements}, {"pickaction", OfActions}};
    const QString mode = in.Word(1), title = in.Text(2);
    if (run.Failed())
        return;
    for (const auto& [word, lists] : Modes) {
        if (mode != QLatin1String(word))
            continue;
        run.ListTitle = title;
        const SeenTarget seen(run);
        const std::optional<QString> picked = AskElement(ElementQuestion(lists, title));
        run.SetOutcome(picked.has_value());
        if (picked)
            run.Last.PickElement = Value(SpaceToPipe(*picked));
        return;
    }
    run.Fail("PickElement uses the format: mode,title.   Modes are: PickAll,PickElement or PickAction.");
}

void PickTiles(RunState& run, const QString& path, const QString& title)
{
    const SeenTarget seen(run);
    const SheetAnswer answer = PickFromSheet(MacroSheet(path, title));
    const bool shown = answer.Outcome != SheetOutcome::NotShown;
    run.SetOutcome(shown);
    if (shown)
        run.Element = answer.Element;
}

void PickFromPcx(RunState& run, Arguments& in)
{
    const QString file = in.Text(1), title = in.Text(2);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(file);
    if (!paths::FileExists(path))
        run.Fail(QStringLiteral("File doesn't exist:-^^") + file);
    else if (QFileInfo(path).suffix().compare(QLatin1String("pcx"), Qt::CaseInsensitive) != 0)
        run.Fail(QStringLiteral("Not a PCX image or missing file:-^^") + file);
    else
        PickTiles(run, path, title);
}

void SetAuthor(RunState& run, Arguments& in)
{
    if (!in.CheckShape())
        return;
    const QString author = in.Text(1);
    if (!run.Failed())
        run.Author = author;
}

constexpr CommandWord DialogRows[] = {
    {"message", AtLeastAny(0), TakesTime, "[TEXT [TITLE [BUTTONS [ICON [COLOUR]]]]]",
     "Shows a message; ^ breaks a line, _ parts the buttons. [lastmessageresult] is the caption of the button pressed, "
     "[lastmessagenumber] its number.",
     Message},
    {"ask", Exactly(2), TakesTime, "PROMPT TITLE", "Asks for a text: [lastask]. [lastmessageresult] is ok or cancel.",
     AskCommand},
    {"pause", AtLeastAny(0), TakesTime, "[MILLISECONDS] [TEXT]",
     "Waits: for a click on the text, or so many milliseconds, or for what comes first.", Pause},
    {"listshow", Exactly(1), TakesTime, "TITLE | popup",
     "Lets a person choose from the list: [lastlistchoice], [lastlistchoicenum]. [lastmessageresult] is ok or cancel.",
     ListShow},
    {"pickelement", Exactly(2), TakesTime, "pickall | pickelement | pickaction TITLE",
     "Lets a person pick from the graphics words: [lastpickelement]. [lastmessageresult] is ok or cancel.",
     PickElement},
    {"pickfrompcx", Exactly(2), TakesTime, "FILE TITLE",
     "Lets a person pick tiles of a sheet; the tags [ele...] tell what was picked.", PickFromPcx},
    {"setauthor", Exactly(1), OwnFrame, "NAME", "Names the macro's author, whom the questions about files show.",
     SetAuthor},
};

} // namespace

std::span<const CommandWord> DialogCommands()
{
    return DialogRows;
}
