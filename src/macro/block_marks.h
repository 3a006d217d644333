#pragma once

#include "frame/editor_pane.h"

#include <array>

/// Follows the blocks of a source line by line and marks those that do not fit into each other or do not end.
class BlockMarks
{
public:
    explicit BlockMarks(std::vector<LineMark>& wanted) : marks(wanted) {}

    void Take(int line, const QString& word); ///< the word in lower case
    void End();                               ///< the source ends

    bool InGroup() const { return IsOpen(Group); } ///< lines that are no commands are items of a group

    enum Kind { If, Case, Loop, Group, KindCount };
    enum class Step { Open, Inside, Close };

private:
    bool IsOpen(Kind kind) const { return open[kind] >= 0; }
    void Mark(int line, const char* message, bool strong = true);
    void TakeStep(int line, const struct BlockWord& row);
    void TakeBranch(const QString& word);
    void TakeSub(int line, const QString& word);
    void TakeDim(int line);
    void MarkDim(int line, int block, const char* message);
    void Unclosed();

    std::vector<LineMark>& marks;
    std::array<int, KindCount> open = {-1, -1, -1, -1}; ///< line where each begins; -1: none
    int loopAtIf = -1;                                  ///< each branch begins as the if was reached
    int dimTold = -1;                                   ///< line of the block whose first dim was told
    int sub = -1;                                       ///< line of the sub whose end is not seen yet
    bool inSub = false, anySub = false, subLeft = false;
};
