#pragma once

#include <QString>
#include <optional>

struct CommandWord;

/// What is told of a word of the language.
struct WordFacts
{
    QString Form; ///< the word with what stands behind it
    QString Meaning;
    QString HelpId;
};

/// Of a command, or of a tag in its brackets, with or without arguments; nothing for any other word.
std::optional<WordFacts> FactsOfWord(const QString& word);

/// Both for a tool tip, which wraps nothing: in lines of moderate length.
QString TipOf(const WordFacts& facts);

/// A command with what stands behind it.
QString FormOf(const CommandWord& command);

/// The word of a line that stands at a column or ends there: a tag with its brackets, a value without its operator.
QString WordAt(const QString& line, int column);
