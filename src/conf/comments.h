#pragma once

#include "conf/line_pass.h"

#include <QString>
#include <vector>

/// Comment separators and commenting of lines.
struct SeparatorMarks
{
    QString SearchChar = QStringLiteral("~");
    QString LineChar = QStringLiteral("-");
    int SpacerWidth = 43;

    /// "#", search character, line character: a line is a separator exactly if it begins so.
    QString Marker() const { return QLatin1Char('#') + SearchChar + LineChar; }
};
/// As the settings have them now.
SeparatorMarks CurrentMarks();

/// Positions of the icon grid.
constexpr int IconCount = 63;

/// Code character of a grid index; empty for 0.
QString IconCode(int gridIndex);
/// Image number (1 to 63) that the last character of a separator line stands for.
int ImageOfSeparator(QStringView line);

/// The separator line for a title; the code character, or nothing, ends it.
QString SeparatorLine(const QString& title, const QString& code, const SeparatorMarks& marks);

/// Writes a separator at the selection's start line; an empty title does nothing.
void InsertCommentSeparator(DocumentText& pane, const QString& title, const QString& code);

/// A node of the comment tree.
struct SeparatorNode
{
    QString Text, Line; ///< Line: the whole separator
    int Image = 1;
};
std::vector<SeparatorNode> FindSeparators(QByteArrayView lines, const SeparatorMarks& marks, bool sorted);

/// First line equal to a separator; -1 if it is no longer there.
int LineOfSeparator(QByteArrayView lines, const QString& separator);

/// "#" in front of each line.
QByteArray CommentLines(QByteArrayView lines, const PassProgress& progress = {});
/// One "#" taken from each line that begins with one.
QByteArray UncommentLines(QByteArrayView lines, const PassProgress& progress = {});
/// The one or the other, as ToggleComment does.
QByteArray ToggleLines(QByteArrayView lines, const PassProgress& progress = {});

void CommentSelected();
void UncommentSelected();
/// Comment or, if each of its lines is one, uncomment: the selected lines, else the element block at the caret, else
/// its line. Blank lines stay as they are; caret and selection stay on their lines.
void ToggleComment();
/// "Select Between Comments": from the separator at or above the caret to the next one below.
void SelectBetweenComments();
/// "Goto Next Comment" and "Goto Previous Comment".
void GotoComment(bool forward);
