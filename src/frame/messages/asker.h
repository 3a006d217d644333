#pragma once

#include "frame/messages/messages.h"

#include <optional>
#include <variant>
#include <vector>

/// A message with buttons. Answer: Pressed.
struct MessageQuestion
{
    MessageRecord Record;
};

/// A line of text. Answer: the text, which may be empty.
struct InputQuestion
{
    QString Title, Prompt, Preset;
};

/// A file to open, several, or a name to save under; whether a file of that name may be overwritten is the caller's to
/// ask. Answer: its path; of several, a list of paths.
struct FileQuestion
{
    enum Use { Open, OpenMany, Save } For = Open;
    QString Title, Filter, Folder, Preset;
    int Selected = 0;       ///< entry of the filter, -1: the last
    bool Completes = false; ///< a name to save under that has no ending gets that of the chosen entry
};

/// Answer: the folder's path.
struct FolderQuestion
{
    QString Title, Folder;
};

/// One of a list's items, or some of several lists' side by side. Answer with one list: the item's place from 1 (two
/// may have the same text); with several: the items chosen, at most one a list, in the lists' order, joined with ".".
struct ChoiceQuestion
{
    struct List
    {
        QString Caption;
        QStringList Items;
    };
    QString Title;
    std::vector<List> Lists;
    bool AsMenu = false; ///< a menu at the pointer; of one list only
};

/// An entry of an archive, or a folder of its entries. Answer: its path, pieces joined with "/", none after the last.
struct ZipEntryQuestion
{
    QString Title;
    QStringList Entries; ///< paths with "/"
};

/// A small window until it is clicked, or until the time is over. Answer: Pressed with a click, else Cancelled.
struct PauseQuestion
{
    QString Text;
    std::optional<qint64> Milliseconds;
};

/// The keys and mouse buttons that a macro can ask for, in the order in which the last one held counts.
enum class WatchedKey {
    Up,
    Down,
    Left,
    Right,
    Control,
    Shift,
    Return,
    Space,
    Tab,
    LeftButton,
    RightButton,
    MiddleButton
};

/// Which of them are held now? Answer: a KeySet.
struct KeysQuestion
{
};

/// May a macro go on with a command that works with files? Answer: Pressed, message::SafetyButton.
struct SafetyQuestion
{
    QString Author;  ///< as the macro names him, may be empty
    QString Command; ///< the command's word
    QString Path;    ///< what it works with
};

using Question = std::variant<MessageQuestion, InputQuestion, FileQuestion, FolderQuestion, ChoiceQuestion,
                              ZipEntryQuestion, PauseQuestion, KeysQuestion, SafetyQuestion>;

struct Cancelled
{
    bool operator==(const Cancelled&) const = default;
};
struct Pressed
{
    int Place = 1; ///< of the button, from 1
    bool operator==(const Pressed&) const = default;
};
struct KeySet
{
    unsigned Bits = 0; ///< 1 << WatchedKey
    bool operator==(const KeySet&) const = default;
};
using Answer = std::variant<Cancelled, Pressed, QString, QStringList, int, KeySet>;

/// Who answers: windows/ with dialogs, batch and tests with a list of prepared answers.
class Asker
{
public:
    virtual ~Asker() = default;
    /// Waits for the answer, which Fits. A question that can not be put is Cancelled, a message or a consent answered
    /// with its way out.
    virtual Answer Ask(const Question& question) = 0;
};

/// Asks whoever is installed. The question counts as running work while it is open. When the program ends or a
/// close unwinds what runs, nothing is asked any more, and each question has its way out for an answer.
Answer Ask(const Question& question);

/// The text of an answer; nothing if the question was cancelled.
std::optional<QString> AskText(const Question& question);

/// The paths of a question for several files; none if it was cancelled.
QStringList AskFiles(FileQuestion question);

/// Is that an answer to this question: of its kind, and one that it offers?
bool Fits(const Question& question, const Answer& answer);

/// What nobody answers: a message and a consent with the button that loses nothing, anything else Cancelled.
Answer WayOutOf(const Question& question);

/// The message that a consent is asked with.
MessageRecord RecordOf(const SafetyQuestion& question);
