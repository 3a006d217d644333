#include "batch/conf_verbs.h"

#include "conf/check.h"
#include "conf/comments.h"
#include "conf/tidy_up.h"
#include "frame/frame_state.h"
#include "platform/files/paths.h"
#include "text/encoding.h"

#include <QDir>

namespace {

/// A conf file as the passes take it: its byte order mark stands apart and is written back.
struct ConfFile
{
    QByteArray Mark, Text;
    bool SingleByteText = false;
};

Result<ConfFile> ReadConf(const QString& path)
{
    Result<QByteArray> bytes = paths::ReadWhole(path, paths::LargestDocument);
    if (!bytes)
        return tl::unexpected(bytes.error());
    for (const char* wide : {"\xFF\xFE", "\xFE\xFF"})
        if (bytes->startsWith(wide))
            return tl::unexpected(Failure{path, QStringLiteral("the file is UTF-16; the game reads no such files")});
    const FileEncoding encoding = EncodingOf(*bytes);
    if (encoding != FileEncoding::Utf8Bom)
        return ConfFile{{}, std::move(*bytes), encoding == FileEncoding::Windows1252};
    constexpr qsizetype MarkSize = 3;
    return ConfFile{bytes->first(MarkSize), bytes->sliced(MarkSize), false};
}

/// Lower-cased names of the files in a folder.
void AddNames(const QString& folder, QSet<QString>& names)
{
    const QString existing = paths::Existing(folder);
    if (existing.isEmpty())
        return;
    for (const QString& name : QDir(existing).entryList(QDir::Files))
        names.insert(name.toLower());
}

/// The folder that a first line "#!*..." names, as a path; empty if there is none.
QString InjectFolder(const QByteArray& bytes)
{
    if (!bytes.startsWith("#!*"))
        return {};
    qsizetype from = 0;
    QString named = QString::fromUtf8(TakeLine(bytes, from).Text.sliced(3));
    return paths::Inside(named.replace(QLatin1Char('*'), QLatin1Char('/')));
}

CheckContext ContextFor(const QString& path, const QByteArray& bytes)
{
    CheckContext context;
    context.SheetKinds = Frame.Settings.SheetKinds;
    context.LookForImages = ModeFromFileName(paths::FileNameOfPath(path).toLower()) == ModeGfx;
    if (!context.LookForImages)
        return context;
    AddNames(QFileInfo(path).absolutePath(), context.Images);
    AddNames(InjectFolder(bytes), context.Images);
    AddNames(Frame.Settings.RndFolder.isEmpty() ? QString()
                                                : Frame.Settings.RndFolder + Frame.Settings.RndGfxFolderName,
             context.Images);
    return context;
}

/// Writes a pass's result if it differs.
VerbResult WriteBack(const QString& path, const ConfFile& before, const QByteArray& after, VerbStreams& streams)
{
    if (after == before.Text)
        return VerbDone;
    const Result<> written = paths::WriteWhole(path, before.Mark.isEmpty() ? after : QByteArray(before.Mark + after));
    return written ? VerbDone : Failed(written.error(), streams);
}

std::optional<int> LineNumber(const QString& word)
{
    bool fine = false;
    const int number = word.toInt(&fine);
    return fine && number > 0 ? std::optional(number) : std::nullopt;
}

/// Where lines first to last (from 1) stand, without the break after the last one; nothing if the file is shorter.
std::optional<std::pair<qsizetype, qsizetype>> FindLines(QByteArrayView bytes, int first, int last)
{
    qsizetype from = 0;
    qsizetype start = -1;
    for (int number = 1;; ++number) {
        if (number == first)
            start = from;
        const ByteLine line = TakeLine(bytes, from);
        if (number == last)
            return std::pair(start, from - line.Break.size());
        if (line.Break.isEmpty())
            return std::nullopt;
    }
}

VerbResult PassOnLines(const char* verb, const QStringList& arguments, VerbStreams& streams,
                       QByteArray (*pass)(QByteArrayView, const PassProgress&))
{
    if (arguments.size() != 3)
        return WrongUsage(verb, QStringLiteral("a file and two line numbers are wanted"), streams);
    const auto first = LineNumber(arguments.at(1));
    const auto last = LineNumber(arguments.at(2));
    if (!first || !last || *last < *first)
        return WrongUsage(verb, QStringLiteral("A and B are line numbers from 1, A not above B"), streams);
    const QString& path = arguments.first();
    const Result<ConfFile> file = ReadConf(path);
    if (!file)
        return Failed(file.error(), streams);
    const auto lines = FindLines(file->Text, *first, *last);
    if (!lines)
        return Failed({path, QStringLiteral("the file has fewer than %1 lines").arg(*last)}, streams);
    const auto [start, end] = *lines;
    const QByteArray changed = pass(QByteArrayView(file->Text).sliced(start, end - start), {});
    return WriteBack(path, *file, file->Text.first(start) + changed + file->Text.sliced(end), streams);
}

VerbResult CheckOne(const QString& path, VerbStreams& streams)
{
    const Result<ConfFile> file = ReadConf(path);
    if (!file)
        return Failed(file.error(), streams);
    const QByteArray text = file->SingleByteText ? FromFile(file->Text, FileEncoding::Windows1252) : file->Text;
    const auto found = FirstBadLine(text, ContextFor(path, text));
    if (!found)
        return VerbDone;
    for (const QString& message : found->Messages)
        streams.Out << path << ':' << found->Line + 1 << ": " << message << '\n';
    return VerbFound;
}

VerbResult TidyOne(const QString& path, VerbStreams& streams)
{
    const Result<ConfFile> file = ReadConf(path);
    if (!file)
        return Failed(file.error(), streams);
    ValueColumn column = CurrentValueColumn();
    column.SingleByteText = file->SingleByteText;
    return WriteBack(path, *file, TidyLines(file->Text, column), streams);
}

/// Runs on every file; the worst result counts.
VerbResult OnEachFile(const char* verb, const QStringList& files, VerbStreams& streams,
                      VerbResult (*one)(const QString&, VerbStreams&))
{
    if (files.isEmpty())
        return WrongUsage(verb, QStringLiteral("a file is wanted"), streams);
    VerbResult worst = VerbDone;
    for (const QString& file : files)
        worst = qMax(worst, one(file, streams));
    return worst;
}

} // namespace

VerbResult CheckVerb(const QStringList& arguments, VerbStreams& streams)
{
    return OnEachFile("check", arguments, streams, CheckOne);
}

VerbResult TidyVerb(const QStringList& arguments, VerbStreams& streams)
{
    return OnEachFile("tidy", arguments, streams, TidyOne);
}

VerbResult CommentVerb(const QStringList& arguments, VerbStreams& streams)
{
    return PassOnLines("comment", arguments, streams, CommentLines);
}

VerbResult UncommentVerb(const QStringList& arguments, VerbStreams& streams)
{
    return PassOnLines("uncomment", arguments, streams, UncommentLines);
}
