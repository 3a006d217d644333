#pragma once

#include "macro/language/value.h"

#include <QStringList>
#include <span>

class Arguments;
class TagArguments;
struct ProgramLine;
struct RunState;

/// How many arguments a command takes, and how long each must be at least.
struct Shape
{
    int Least = 0;
    int Most = -1;            ///< -1: no limit
    int ShortestArgument = 2; ///< in characters; 0: any
};
constexpr Shape Exactly(int count)
{
    return {count, count, 2};
}
constexpr Shape ExactlyAny(int count)
{
    return {count, count, 0};
}
constexpr Shape AtLeast(int count)
{
    return {count, -1, 2};
}
constexpr Shape AtLeastAny(int count)
{
    return {count, -1, 0};
}

enum WordFlags : quint8 {
    NoWordFlags = 0,
    SafeGate = 1, ///< asks first while the setting SafeSystemBASIC is on
    OwnFrame = 2, ///< makes the tests in front of its work itself: live branch, shape
    TakesTime = 4 ///< may run long: events get their turn right behind it
};

/// One command word. To add one: a row at the end of its family's source; then make tables and help pages again. To add
/// a family: a source in commands/ with its table, a line in commands/families.cpp and one in tools/basic_words.py.
struct CommandWord
{
    const char* Word; ///< lower case
    Shape Form;
    quint8 Flags;
    const char* Usage; ///< what stands behind the word
    const char* Help;  ///< a line for the help pages
    void (*Run)(RunState&, Arguments&);
    /// Reads a line of this word once, before it runs for the first time, and gives it a faster Run; null: none.
    void (*Prepare)(RunState&, ProgramLine&) = nullptr;
};

/// A tag without arguments.
struct PlainTag
{
    const char* Name; ///< lower case, without brackets
    const char* Help;
    Value (*Read)(RunState&);
};

/// A tag with a name of three letters and arguments behind ":".
struct FunctionTag
{
    const char* Name; ///< lower case
    const char* Usage;
    const char* Help;
    bool Parted; ///< arguments are parted by ":"; else all behind the first ":" is one
    Value (*Read)(RunState&, TagArguments&);
};

/// Everything that the language knows, family by family.
std::span<const std::span<const CommandWord>> CommandFamilies();
std::span<const std::span<const PlainTag>> PlainTagFamilies();
std::span<const std::span<const FunctionTag>> FunctionTagFamilies();

/// Null for a word that is none. Letter case does not count.
const CommandWord* FindCommand(QStringView word);
const PlainTag* FindPlainTag(QStringView token);       ///< of a whole token, brackets included
const FunctionTag* FindFunctionTag(QStringView token); ///< by a token's first five characters
