#include "game/game_messages.h"

#include "conf/line_pass.h"
#include "frame/settings/settings.h"
#include "platform/files/ini_file.h"
#include "text/encoding.h"

#include <algorithm>

namespace {

/// What a message line adds to the finding it belongs to.
enum class Adds {
    Nothing,     ///< known, and nothing of it is wanted
    Block,       ///< the first line of a block
    File,        ///< the block's conf file
    Key,         ///< the block's key
    Picture,     ///< the block's image
    Wrong,       ///< what is wrong in the block, all that is left of the line
    UnknownKey,  ///< a finding of its own in the block
    NoValue,     ///< the same
    LoneKey,     ///< a finding without a block, by its key
    LoneFile,    ///< the same, by its file
    LonePicture, ///< the same, by its image or sound
};

/// A form of message line: what stands in front of its word, and what behind (sought from the line's end, since paths
/// may hold apostrophes too).
struct LineForm
{
    const char* Before;
    Adds What;
    const char* Behind = "'";
};

// Told line by line, since blocks share the rules of hyphens between them. The first form that fits counts.
constexpr LineForm LineForms[] = {
    {"---", Adds::Block},
    {"unknown token(s) found in config file:", Adds::Block},
    {"undefined values found in config file:", Adds::Block},
    {"error found in config file:", Adds::Block},
    {"- config file: '", Adds::File},
    {"- config token: '", Adds::Key},
    {"- image file: '", Adds::Picture},
    {"- frame size: ", Adds::Nothing},
    {"- dynamic token: '", Adds::UnknownKey},
    {"- token: '", Adds::UnknownKey},
    {"- undefined value for token: '", Adds::NoValue},
    {"error: ", Adds::Wrong},
    {"custom graphic rejected for this element/action", Adds::Nothing},
    {"fallback done to ", Adds::Nothing},
    {"trying default artwork file '", Adds::Nothing},
    {"cannot find artwork file '", Adds::LonePicture},
    {"IMG_Load('", Adds::LonePicture, "') failed"},
    {"invalid value 0 for '", Adds::LoneKey, "' ("},
    {"configuration file '", Adds::LoneFile},
    {"cannot read level '", Adds::LoneFile},
    {"unknown format of level file '", Adds::LoneFile},
    {"unsupported version of level file '", Adds::LoneFile},
    {"aborting", Adds::Nothing},
    {"try option '", Adds::Nothing},
};

const LineForm* FormOf(const QString& line)
{
    const auto* found = std::find_if(std::begin(LineForms), std::end(LineForms),
                                     [&](const LineForm& form) { return line.startsWith(QLatin1String(form.Before)); });
    return found == std::end(LineForms) ? nullptr : found;
}

QString WordOf(const QString& line, const LineForm& form)
{
    const qsizetype from = qsizetype(qstrlen(form.Before));
    const qsizetype end = line.lastIndexOf(QLatin1String(form.Behind));
    return end < from ? line.mid(from) : line.mid(from, end - from);
}

/// The game writes "FOLDER/./FILE" now and then.
QString CleanPath(QString path)
{
    return path.replace(QLatin1String("/./"), QLatin1String("/"));
}

/// The path has a place of its own.
QString Without(QString line, const QString& word)
{
    return line.remove(QLatin1String(" '") + word + u'\'');
}

/// The mark that a line begins with; a blank follows it.
const QByteArray* MarkOf(QByteArrayView line, const GameMarks& marks)
{
    for (const QByteArray* mark : {&marks.Warning, &marks.Error, &marks.Fatal})
        if (line.startsWith(*mark) && line.size() > mark->size() && line.at(mark->size()) == ' ')
            return mark;
    return nullptr;
}

GameSeverity SeverityOf(const QByteArray* mark, const GameMarks& marks)
{
    if (mark == &marks.Fatal)
        return GameSeverity::Fatal;
    return mark == &marks.Error ? GameSeverity::Error : GameSeverity::Warning;
}

template <class Visit>
void ForEachMessage(QByteArrayView printed, const GameMarks& marks, Visit visit)
{
    qsizetype from = 0;
    while (from < printed.size()) {
        const QByteArrayView line = TakeLine(printed, from).Text;
        if (const QByteArray* mark = MarkOf(line, marks))
            visit(SeverityOf(mark, marks), line.sliced(mark->size() + 1));
    }
}

QByteArray Mark(int number, const QByteArray& shipped)
{
    const QString told = ReadIni(QStringLiteral("RND Compatibility"), QStringLiteral("MessageMark%1").arg(number),
                                 QStringLiteral("compat"));
    return told == IniFile::NotFound || told.isEmpty() ? shipped : told.toLatin1();
}

} // namespace

GameMarks CurrentGameMarks()
{
    const GameMarks shipped;
    return {Mark(1, shipped.Warning), Mark(2, shipped.Error), Mark(3, shipped.Fatal)};
}

bool IsGameMessage(QByteArrayView line, const GameMarks& marks)
{
    return MarkOf(line, marks) != nullptr;
}

FindingReader::FindingReader(GameMarks gameMarks) : marks(std::move(gameMarks)) {}

bool FindingReader::Read(QByteArrayView printed, qsizetype most)
{
    const qsizetype lines = printed.lastIndexOf('\n') + 1;
    qsizetype until = lines;
    if (most < lines - read)
        until = printed.indexOf('\n', read + most) + 1;
    ReadPiece(printed.first(until).sliced(read));
    read = until;
    return read == lines || IsFull();
}

void FindingReader::ReadPiece(QByteArrayView piece)
{
    ForEachMessage(piece, marks, [&](GameSeverity severity, QByteArrayView line) {
        if (!IsFull())
            Take(severity, QString::fromUtf8(FromFile(line, EncodingOf(line))));
    });
}

void FindingReader::Take(GameSeverity severity, const QString& line)
{
    const LineForm* form = FormOf(line);
    if (!form || form->What >= Adds::LoneKey)
        EndBlock();
    if (!form) {
        Add({severity, {}, {}, {}, line});
        return;
    }
    const QString word = WordOf(line, *form);
    switch (form->What) {
    case Adds::Nothing:
        break;
    case Adds::Block:
        EndBlock();
        block.Severity = severity;
        break;
    case Adds::File:
        block.File = CleanPath(word);
        break;
    case Adds::Key:
        block.Key = word;
        break;
    case Adds::Picture:
        block.Picture = CleanPath(word);
        break;
    case Adds::Wrong:
        block.Text = line.mid(qsizetype(qstrlen(form->Before)));
        break;
    case Adds::UnknownKey:
        Add({severity, word, block.File, {}, QStringLiteral("unknown key")});
        break;
    case Adds::NoValue:
        Add({severity, word, block.File, {}, QStringLiteral("no value behind the key")});
        break;
    case Adds::LoneKey:
        Add({severity, word, {}, {}, line});
        break;
    case Adds::LoneFile:
        Add({severity, {}, CleanPath(word), {}, Without(line, word)});
        break;
    case Adds::LonePicture:
        Add({severity, {}, {}, word, line});
        break;
    }
}

std::vector<GameFinding> FindingReader::Findings() const
{
    FindingReader whole(*this);
    whole.EndBlock();
    if (IsFull())
        whole.all.push_back(
            {GameSeverity::Warning, {}, {}, {}, QStringLiteral("the game complains about more than this")});
    return std::move(whole.all);
}

void FindingReader::EndBlock()
{
    if (!block.Text.isEmpty())
        Add(std::exchange(block, {}));
}

void FindingReader::Add(GameFinding finding)
{
    const QString place = finding.File + u'\0' + finding.Key + u'\0' + finding.Picture + u'\0' + finding.Text;
    if (seen.contains(place))
        return;
    seen.insert(place);
    all.push_back(std::move(finding));
}

std::vector<GameFinding> FindingsOf(QByteArrayView printed, const GameMarks& marks)
{
    FindingReader reader(marks);
    reader.Read(printed, printed.size());
    reader.ReadPiece(printed.sliced(printed.lastIndexOf('\n') + 1));
    return reader.Findings();
}

bool HasGivenUp(QByteArrayView printed, const GameMarks& marks)
{
    bool given = false;
    ForEachMessage(printed, marks,
                   [&](GameSeverity severity, QByteArrayView) { given = given || severity == GameSeverity::Fatal; });
    return given;
}

GameOutput PartedOutput(QByteArrayView printed, const GameMarks& marks)
{
    GameOutput parted;
    qsizetype from = 0;
    while (from < printed.size()) {
        const ByteLine line = TakeLine(printed, from);
        (IsGameMessage(line.Text, marks) ? parted.Messages : parted.Printed).append(line.Text).append('\n');
    }
    return parted;
}

QString LastLineOf(const QByteArray& printed)
{
    constexpr qsizetype Most = 200;
    for (qsizetype end = printed.lastIndexOf('\n'); end > 0;) {
        const qsizetype from = printed.lastIndexOf('\n', end - 1) + 1;
        const QString line = QString::fromUtf8(printed.mid(from, qMin(end - from, Most))).trimmed();
        if (!line.isEmpty() && !line.endsWith(QLatin1String("---")))
            return line;
        end = from - 1;
    }
    return {};
}
