#pragma once

#include "macro/recorded_steps.h"

class DocumentText;

/// A text at one moment of a recording: line breaks are "\n", the selection runs from its anchor to the caret.
struct TextMoment
{
    QString Text;
    Range Selection;
};
TextMoment MomentOf(const DocumentText& text);

/// Turns what a person does to a text into the source of a macro that does the same again. It is told of each deed
/// with the text as it is then; the text before is the one of the last deed.
class MacroRecorder
{
public:
    explicit MacroRecorder(TextMoment start) : now(std::move(start)) {}

    /// A numbered command has run; searches with what they looked for and what they put in its place.
    void Command(int number, const TextMoment& after, const QString& find = {}, const QString& replace = {});
    /// Something was typed, pasted by a tool, clicked or selected: what it did is what is recorded.
    void Changed(const TextMoment& after);
    /// Something that the language has no word for; it becomes a comment.
    void CannotReplay(const QString& name, const TextMoment& after);

    const TextMoment& Now() const { return now; }
    QString Source() const;          ///< lines with "\n"
    QStringList NotReplayed() const; ///< what became comments, in order

private:
    void Add(RecordedStep step);
    void AddCommand(int number, int count = 1);
    void AddSearch(int number, const TextMoment& after, const QString& find);
    bool AddTyped(const TextMoment& after);
    void AddEffect(const TextMoment& after);
    void MoveOn(const TextMoment& from, qsizetype to);
    bool TakeBack(const TextMoment& after);

    TextMoment now;
    std::vector<RecordedStep> steps;
};
