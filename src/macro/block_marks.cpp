#include "macro/block_marks.h"

#include <QHash>

/// What a word is to a kind of block, and what is said where that does not fit.
struct BlockWord
{
    const char* Word;
    BlockMarks::Kind Kind;
    BlockMarks::Step Step;
    const char* Fault; ///< of a word that opens: where one is open; else: where none is
};

namespace {

using enum BlockMarks::Step;
constexpr BlockWord BlockWords[] = {
    {"if", BlockMarks::If, Open, "Can't have an If statement embedded in another If statement!"},
    {"and", BlockMarks::If, Inside, "And without If statement"},
    {"else", BlockMarks::If, Inside, "Else without If statement"},
    {"endif", BlockMarks::If, Close, "EndIf without If statement"},
    {"caseselect", BlockMarks::Case, Open,
     "Can't have a CaseSelect statement embedded in another CaseSelect statement!"},
    {"case", BlockMarks::Case, Inside, "Case without CaseSelect"},
    {"endcase", BlockMarks::Case, Close, "CaseEnd without CaseSelect"},
    {"loop", BlockMarks::Loop, Open,
     "Can't embed Loops inside Loops! If you need a loop in a loop then gosub to a sub, which can contain another "
     "loop"},
    {"exitloop", BlockMarks::Loop, Inside, "ExitLoop without Loop"},
    {"endloop", BlockMarks::Loop, Close, "EndLoop without Loop"},
    {"group", BlockMarks::Group, Open, "Can't have Groups inside other Groups!"},
    {"endgroup", BlockMarks::Group, Close, "EndGroup without Group."},
};

/// What is said of a block without an end, and whether a run fails for it.
constexpr struct
{
    const char* Text;
    bool Strong;
} NoEnd[BlockMarks::KindCount] = {{"If statement without EndIf", true},
                                  {"CaseSelect statement without EndCase", true},
                                  {"Loop without EndLoop", false},
                                  {"Group without EndGroup", false}};

const BlockWord* FindBlockWord(const QString& word)
{
    static const QHash<QString, const BlockWord*> rows = [] {
        QHash<QString, const BlockWord*> all;
        for (const BlockWord& row : BlockWords)
            all.insert(QLatin1String(row.Word), &row);
        return all;
    }();
    return rows.value(word);
}

} // namespace

void BlockMarks::Mark(int line, const char* message, bool strong)
{
    marks.push_back({line, strong, QString::fromLatin1(message)});
}

void BlockMarks::Take(int line, const QString& word)
{
    if (const BlockWord* row = FindBlockWord(word)) {
        TakeStep(line, *row);
        TakeBranch(word);
    } else if (word == QLatin1String("dim")) {
        TakeDim(line);
    } else {
        TakeSub(line, word);
    }
}

void BlockMarks::TakeStep(int line, const BlockWord& row)
{
    const bool fits = IsOpen(row.Kind) != (row.Step == Step::Open);
    if (!fits)
        Mark(line, row.Fault);
    if (row.Step == Step::Open)
        open[row.Kind] = line;
    else if (row.Step == Step::Close)
        open[row.Kind] = -1;
}

/// A loop may begin in both branches of an if.
void BlockMarks::TakeBranch(const QString& word)
{
    if (word == QLatin1String("if"))
        loopAtIf = open[Loop];
    else if (word == QLatin1String("else"))
        open[Loop] = loopAtIf;
}

void BlockMarks::TakeDim(int line)
{
    if (inSub)
        Mark(line, "Can't have Dims inside subs");
    else if (IsOpen(If))
        MarkDim(line, open[If], "Can't have this command inside an If statement");
    else if (IsOpen(Case))
        MarkDim(line, open[Case], "Can't have this command inside a Case statement");
    else if (IsOpen(Loop))
        MarkDim(line, open[Loop], "Can't have Dims inside Loops!");
}

/// Once a block: an end that is yet to be typed would mark them all.
void BlockMarks::MarkDim(int line, int block, const char* message)
{
    if (std::exchange(dimTold, block) != block)
        Mark(line, message);
}

/// Labels and subs stand outside every block; a run may come to them from anywhere.
void BlockMarks::TakeSub(int line, const QString& word)
{
    const bool begins = word == QLatin1String("sub");
    if (begins || word == QLatin1String("label")) {
        Unclosed();
        inSub = begins;
        anySub = true;
        sub = begins ? line : sub;
        subLeft = subLeft && !begins;
    } else if (word == QLatin1String("endsub")) {
        Unclosed();
        if (!anySub)
            Mark(line, "EndSub without Sub");
        inSub = false;
        sub = -1;
    } else if (word == QLatin1String("exitsub")) {
        if (!anySub)
            Mark(line, "ExitSub without Sub");
    } else if (word == QLatin1String("stop") || word == QLatin1String("gotolabel") ||
               word == QLatin1String("gotocodeline")) {
        subLeft = true;
    }
}

void BlockMarks::Unclosed()
{
    for (const Kind kind : {If, Case, Loop})
        if (const int line = std::exchange(open[kind], -1); line >= 0)
            Mark(line, NoEnd[kind].Text, NoEnd[kind].Strong);
}

void BlockMarks::End()
{
    Unclosed();
    if (IsOpen(Group))
        Mark(open[Group], NoEnd[Group].Text, NoEnd[Group].Strong);
    if (sub >= 0 && !subLeft)
        Mark(sub, "Sub statement without EndSub", false);
}
