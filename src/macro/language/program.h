#pragma once

#include "macro/language/symbols.h"
#include "macro/language/token.h"

#include <QStringList>
#include <memory>
#include <vector>

/// What a command keeps with a line of its own.
struct LineData
{
    virtual ~LineData() = default;
};

/// A line of the program. It is cut and looked up when it runs for the first time.
struct ProgramLine
{
    void (*Run)(RunState&, ProgramLine&) = nullptr;
    const CommandWord* Word = nullptr; ///< null: none of the language's words
    std::unique_ptr<LineData> Data;
    std::vector<Token> Tokens; ///< the word first, then the arguments
    QString Written;
    QString ShapeFault; ///< what is wrong with the number or the length of the arguments

    /// Where a search for the end of this line's block led.
    struct Search
    {
        bool Done = false;
        int Line = 0; ///< the line in front of the one found
        QString Fault;
    };
    Search BlockEnd;
};

/// A CommandWord's Prepare for what runs most: lines of the right shape run without the detour over its handler.
template <void (*Direct)(RunState&, ProgramLine&)>
void PrepareDirect(RunState&, ProgramLine& line)
{
    if (line.ShapeFault.isEmpty())
        line.Run = Direct;
}

/// The lines of a macro and what is known of them before they run.
struct Program
{
    std::vector<ProgramLine> Lines;
    int LastLine = -1;
    std::vector<int>
        NextFrom; ///< for each line the first from it on that is neither empty nor a comment; LastLine: none
    LabelTable Labels;

    void Take(const QStringList& lines);
};

/// What the pre-pass says of a program that must not run.
struct ProgramFault
{
    QString Text; ///< empty: none
    int Line = 0;
};

/// Checks every line and collects labels and subs.
ProgramFault PrePass(Program& program);

/// The same for one line, after those in front of it; empty: nothing is wrong.
QString PrePassLine(LabelTable& labels, const QString& line, int index);
bool IsLabelLine(const QString& line); ///< by its first letters, as the pre-pass takes it

/// The test of a line's tokens; empty: nothing is wrong.
QString ShapeFault(const QStringList& tokens, const Shape& shape);

/// The name of a label or sub must begin with "@"; empty: it does.
QString LabelNameFault(const QString& token);

/// A variable's or a group's name must begin with "$" or "?"; a tag in brackets passes if `allowTag` is set.
QString VariableNameFault(const QString& token, bool allowTag);

inline bool IsBlankLine(const QString& line)
{
    return line.isEmpty() || line.front() == u'#';
}
