#pragma once

#include <QByteArrayView>
#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

enum class GameSeverity { Warning, Error, Fatal };

/// One thing that the game complained about. What it does not tell is empty.
struct GameFinding
{
    GameSeverity Severity = GameSeverity::Warning;
    QString Key;     ///< of the conf line
    QString File;    ///< conf or level file, absolute
    QString Picture; ///< image or sound, a bare name or a path
    QString Text;    ///< what is wrong

    bool operator==(const GameFinding&) const = default;
};

/// How the lines of the game's output begin that are messages: of warnings, errors, and of what ends it.
struct GameMarks
{
    QByteArray Warning = "[WARN]", Error = "[ERROR]", Fatal = "[FATAL]";
};
GameMarks CurrentGameMarks(); ///< as compat.ini tells them

/// Is a line (without its break) a message?
bool IsGameMessage(QByteArrayView line, const GameMarks& marks);

/// Reads what the game complains about while it prints: in its order, nothing twice, up to a limit. Lines of another
/// kind are passed over.
class FindingReader
{
public:
    explicit FindingReader(GameMarks gameMarks = {});

    /// Reads on in all that was printed so far, by whole lines, about `most` bytes at a time. True: nothing is left.
    bool Read(QByteArrayView printed, qsizetype most);
    void ReadPiece(QByteArrayView piece); ///< lines that stand behind those read before
    std::vector<GameFinding> Findings() const;

private:
    bool IsFull() const { return all.size() >= MostFindings; }
    void Take(GameSeverity severity, const QString& line);
    void EndBlock();
    void Add(GameFinding finding);

    static constexpr size_t MostFindings = 20'000;

    GameMarks marks;
    qsizetype read = 0;
    std::vector<GameFinding> all;
    QSet<QString> seen;
    GameFinding block;
};

/// Everything that a run complained about.
std::vector<GameFinding> FindingsOf(QByteArrayView printed, const GameMarks& marks = {});

/// Has the game come to an end that waits for a key on its screen?
bool HasGivenUp(QByteArrayView printed, const GameMarks& marks = {});

/// What the game printed, parted into its messages and the rest, both with line feeds.
struct GameOutput
{
    QByteArray Printed, Messages;
};
GameOutput PartedOutput(QByteArrayView printed, const GameMarks& marks);

/// The last whole line that is no rule, cut where it is long, for the run panel.
QString LastLineOf(const QByteArray& printed);
