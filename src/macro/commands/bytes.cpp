#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "platform/files/byte_file.h"
#include "platform/files/paths.h"

namespace {

/// What differs between reading and writing bytes.
struct ByteWords
{
    const char *NotSet, *Form, *Bounds, *Locked;
};
constexpr ByteWords PeekWords = {"You need to use FileSet,AskLoad or AskSave to 'set' the file before Peeking at it.",
                                 "Peek uses the format: Address, 2bit or 4bit",
                                 "Peek went out of bounds!^^Filesize = %1^Peek address = %2",
                                 "Couldn't Peek at file, it's possibly locked or shared."};
constexpr ByteWords PokeWords = {"You need to use FileSet,AskLoad or AskSave to 'set' the file before Poking it.",
                                 "Poke uses the format: Address,Value, 2bit or 4bit",
                                 "Poke went out of bounds!^^Filesize = %1^Poke address = %2",
                                 "Couldn't Poke at file, it's possibly locked or shared."};

constexpr int OneByte = 1, TwoBytes = 2, ByteValues = 256;

void FailBytes(RunState& run, const QString& text)
{
    run.Last.Peek = Value(qint32(-1));
    run.Fail(text);
}

/// The set file, open; null: the run has failed.
ByteFile* SetFileBytes(RunState& run, const ByteWords& words)
{
    const QString& path = run.Last.Folder;
    if (path.isEmpty()) {
        FailBytes(run, QLatin1String(words.NotSet));
        return nullptr;
    }
    if (!paths::FileExists(path)) {
        FailBytes(run, QStringLiteral("Can't find the file:-^^") + path);
        return nullptr;
    }
    if (!run.SetBytes || run.SetBytesPath != path) {
        run.SetBytes = std::make_unique<ByteFile>(path);
        run.SetBytesPath = path;
    }
    return run.SetBytes.get();
}

/// Bytes that a size stands for; 0: the run has failed.
int ByteCount(RunState& run, Arguments& in, int index, const ByteWords& words)
{
    const QString size = in.Word(index);
    const int count = size == QLatin1String("2bit") ? OneByte : size == QLatin1String("4bit") ? TwoBytes : 0;
    if (count == 0 && !run.Failed())
        FailBytes(run, QLatin1String(words.Form));
    return run.Failed() ? 0 : count;
}

/// Size of the file if `count` bytes from `at` on lie in it; else the run has failed.
std::optional<qint64> SizeAround(RunState& run, ByteFile& file, qint64 at, int count, const ByteWords& words)
{
    const Result<qint64> size = file.Size();
    if (!size)
        FailBytes(run, QLatin1String(words.Locked));
    else if (at < 0 || at + count > *size)
        FailBytes(run, QString(QLatin1String(words.Bounds)).arg(*size).arg(at));
    else
        return *size;
    return std::nullopt;
}

void Peek(RunState& run, Arguments& in)
{
    ByteFile* const file = SetFileBytes(run, PeekWords);
    const int count = file ? ByteCount(run, in, 2, PeekWords) : 0;
    const qint64 at = count ? in.Number(1) + count * run.PeekOffset : 0;
    if (run.Failed() || !SizeAround(run, *file, at, count, PeekWords))
        return;
    const Result<QByteArray> bytes = file->Read(at, count);
    if (!bytes || bytes->size() != count) {
        FailBytes(run, QLatin1String(PeekWords.Locked));
        return;
    }
    qint32 value = 0;
    for (const char byte : *bytes)
        value = value * ByteValues + uchar(byte);
    run.Last.Peek = Value(value);
}

/// `address`: -1 is behind the end.
void PokeAt(RunState& run, Arguments& in, ByteFile& file, qint64 address, int valueIndex, int count)
{
    const qint32 value = in.Number(valueIndex);
    if (run.Failed())
        return;
    const qint32 limit = count == OneByte ? ByteValues : ByteValues * ByteValues;
    if (value < 0 || value >= limit) {
        FailBytes(run, QStringLiteral("The value you are Poking is larger than 2bits (0-255), use 4bit (0-65535)"
                                      "^^Poke = %1")
                           .arg(value));
        return;
    }
    const std::optional<qint64> size =
        address == -1 ? file.Size().map([](qint64 end) { return std::optional(end); }).value_or(std::nullopt)
                      : SizeAround(run, file, address, count, PokeWords);
    if (run.Failed())
        return;
    const QByteArray bytes = count == OneByte ? QByteArray(1, char(value))
                                              : QByteArray(1, char(value / ByteValues)) + char(value % ByteValues);
    if (!size || !file.Write(address == -1 ? *size : address, bytes))
        FailBytes(run, QLatin1String(PokeWords.Locked));
}

void Poke(RunState& run, Arguments& in)
{
    ByteFile* const file = SetFileBytes(run, PokeWords);
    const int count = file ? ByteCount(run, in, 3, PokeWords) : 0;
    const qint64 at = count ? in.Number(1) + count * run.PeekOffset : 0;
    if (!run.Failed())
        PokeAt(run, in, *file, at, 2, count);
}

void PokeAdd(RunState& run, Arguments& in)
{
    ByteFile* const file = SetFileBytes(run, PokeWords);
    const int count = file ? ByteCount(run, in, 2, PokeWords) : 0;
    if (!run.Failed())
        PokeAt(run, in, *file, -1 + count * run.PeekOffset, 1, count);
}

void PkOffset(RunState& run, Arguments& in)
{
    const QString& told = in.Written(1);
    if (told.isEmpty()) {
        run.Fail("Missing command on this line");
        return;
    }
    const Value value = EvaluateText(run, told.sliced(1));
    const qint32 offset = run.Failed() ? 0 : TextToLong(run, value);
    if (run.Failed())
        return;
    if (told.front() == u'=')
        run.PeekOffset = offset;
    else if (told.front() == u'-')
        run.PeekOffset = -qint64(offset);
    else
        run.Fail("Expected = or - in PKOffset's value");
}

constexpr CommandWord ByteRows[] = {
    {"peek", ExactlyAny(2), NoWordFlags, "ADDRESS 2bit | 4bit",
     "Reads one byte of the set file, or two, the first high: [lastpeek].", Peek},
    {"poke", ExactlyAny(3), SafeGate, "ADDRESS VALUE 2bit | 4bit",
     "Writes one byte into the set file, or two. Address -1 is behind its end.", Poke},
    {"pokeadd", ExactlyAny(2), SafeGate, "VALUE 2bit | 4bit", "Appends one byte to the set file, or two.", PokeAdd},
    {"pkoffset", ExactlyAny(1), NoWordFlags, "=N | -N",
     "Sets what is added to every address of peek and poke; for 4bit twice.", PkOffset},
};

} // namespace

std::span<const CommandWord> ByteCommands()
{
    return ByteRows;
}
