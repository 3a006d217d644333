#include "batch/run_verb.h"

#include "batch/macro_answers.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "macro/plain_stage.h"
#include "macro/run_macro.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// What the command line asks for.
struct RunCall
{
    QString Macro, On, Save;
    QStringList Answers;
    bool AllowFiles = false, Log = false;
    std::optional<quint32> Seed;
    std::optional<qint64> LimitMs;
};

/// An option with a value and how it is taken. False: the value is none.
struct ValueOption
{
    const char* Name;
    bool (*Take)(RunCall& call, const QString& value);
};
constexpr ValueOption ValueOptions[] = {
    {"--on",
     [](RunCall& call, const QString& value) {
         call.On = value;
         return !value.isEmpty();
     }},
    {"--save",
     [](RunCall& call, const QString& value) {
         call.Save = value;
         return !value.isEmpty();
     }},
    {"--answer",
     [](RunCall& call, const QString& value) {
         call.Answers << value;
         return true;
     }},
    {"--seed",
     [](RunCall& call, const QString& value) {
         bool fine = false;
         call.Seed = quint32(value.toLongLong(&fine));
         return fine;
     }},
    {"--max-seconds",
     [](RunCall& call, const QString& value) {
         constexpr double LongestSeconds = 1e9, Milliseconds = 1000;
         bool fine = false;
         const double seconds = value.toDouble(&fine);
         fine = fine && seconds >= 0 && seconds <= LongestSeconds;
         call.LimitMs = fine ? qint64(seconds * Milliseconds) : 0;
         return fine;
     }},
};

/// What is wrong with the arguments; empty: nothing.
QString TakeArguments(const QStringList& arguments, RunCall& call)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments.at(i);
        const auto option = std::find_if(std::begin(ValueOptions), std::end(ValueOptions),
                                         [&word](const ValueOption& row) { return word == QLatin1String(row.Name); });
        if (option != std::end(ValueOptions)) {
            if (++i >= arguments.size())
                return QStringLiteral("%1 wants a value").arg(word);
            if (!option->Take(call, arguments.at(i)))
                return QStringLiteral("%1 cannot be %2").arg(word, arguments.at(i));
        } else if (word == QLatin1String("--allow-files")) {
            call.AllowFiles = true;
        } else if (word == QLatin1String("--log")) {
            call.Log = true;
        } else if (word.startsWith(QLatin1String("--"))) {
            return QStringLiteral("there is no option %1").arg(word);
        } else if (call.Macro.isEmpty()) {
            call.Macro = word;
        } else {
            return QStringLiteral("one macro is wanted");
        }
    }
    return call.Macro.isEmpty() ? QStringLiteral("a macro is wanted") : QString();
}

/// A text on one line: "^" for its breaks.
QString OnOneLine(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("^")).replace(u'\n', u'^').replace(u'\r', u'^');
}

QString MessagePart(QString text)
{
    return OnOneLine(std::move(text)).replace(u'|', QLatin1String("\\|"));
}

/// One run and how it ends: of an error, a deadline, a refused question and an answer that does not fit the first
/// counts.
class BatchRun
{
public:
    BatchRun(const RunCall& asked, VerbStreams& told)
        : call(asked),
          streams(told),
          scope(RunKind::Macro, QFileInfo(asked.Macro).fileName(), asked.LimitMs),
          asker(asked.Answers)
    {
        asker.AllowFiles = call.AllowFiles;
        Frame.Ask = &asker;
        asker.OnMessage = [this](const MessageRecord& record) {
            Tell(QStringLiteral("MESSAGE %1|%2|%3")
                     .arg(MessagePart(record.MessageTitle), MessagePart(record.MessageText),
                          MessagePart(record.MessageButtons)));
        };
        asker.OnRefused = [this] { EndWith(VerbStopped); };
        asker.OnMisfit = [this](const QString& text) {
            Tell(text);
            EndWith(VerbFailed);
            scope.Stop(StopReason::Break);
        };
        stage.OnError = [this](const MacroError& error) {
            Tell(QStringLiteral("BASIC Error In Line %1: %2").arg(error.Line).arg(OnOneLine(error.Text)));
            EndWith(VerbFound);
        };
        if (call.Log)
            stage.OnPrint = [this](const QString& text) { Tell(QStringLiteral("PRINT ") + OnOneLine(text)); };
    }

    ~BatchRun() { Frame.Ask = before; }
    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    VerbResult Run(const QByteArray& source)
    {
        MacroRequest request;
        request.Source = PrepareSource(SourceFromBytes(source));
        request.Path = QFileInfo(call.Macro).absoluteFilePath();
        request.Folder = Frame.CurrentFolder;
        request.Seed = call.Seed;
        RunMacro(request, stage, scope);
        if (scope.Stopped())
            EndWith(VerbStopped);
        return ended.value_or(VerbDone);
    }
    LineText& Text() { return stage.TargetLines(); }

private:
    void EndWith(VerbResult result) { ended = ended.value_or(result); }
    void Tell(const QString& line)
    {
        streams.Err << line << '\n';
        streams.Err.flush();
    }

    const RunCall& call;
    VerbStreams& streams;
    RunScope scope;
    MacroAnswers asker;
    Asker* const before = Frame.Ask;
    OwnClipboard clipboard;
    PlainStage stage{clipboard, call.AllowFiles ? RegistryStore::Keeping::File : RegistryStore::Keeping::Memory};
    std::optional<VerbResult> ended;
};

/// The file of --on becomes the open document; without one the caller's folder holds an empty one.
Result<> OpenTarget(const RunCall& call, LineText& text)
{
    Frame.CurrentMode = ModeGfx;
    Frame.CurrentFolder = paths::Closed(QDir::currentPath());
    Frame.CurrentFile.clear();
    if (call.On.isEmpty())
        return {};
    const QFileInfo file(call.On);
    Frame.CurrentFolder = paths::Closed(file.absolutePath());
    Frame.CurrentFile = file.fileName();
    Frame.CurrentMode = ModeFromFileName(file.fileName().toLower());
    return text.OpenFile(file.absoluteFilePath());
}

void PrintText(const LineText& text, QTextStream& out)
{
    for (int line = 0; line < text.LineCount(); ++line) {
        if (line > 0)
            out << '\n';
        out << text.GetLine(line);
    }
}

} // namespace

VerbResult RunMacroVerb(const QStringList& arguments, VerbStreams& streams)
{
    RunCall call;
    if (const QString fault = TakeArguments(arguments, call); !fault.isEmpty())
        return WrongUsage("run", fault, streams);
    const Result<QByteArray> source = ReadMacroSource(call.Macro);
    if (!source)
        return Failed(source.error(), streams);
    Frame.Settings.SafeSystemBASIC = 1;
    // Most macros do without the words of the game, and start sooner without them.
    if (source->toLower().contains("element"))
        MakeLanguages();
    BatchRun run(call, streams);
    if (const Result<> opened = OpenTarget(call, run.Text()); !opened)
        return Failed(opened.error(), streams);
    const VerbResult result = run.Run(*source);
    PrintText(run.Text(), streams.Out);
    if (call.Save.isEmpty() || result != VerbDone)
        return result;
    const Result<> saved = run.Text().SaveFile(call.Save, false);
    return saved ? result : Failed(saved.error(), streams);
}
