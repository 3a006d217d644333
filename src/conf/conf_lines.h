#pragma once

#include <QByteArray>
#include <QString>

/// How values line up after their key.
struct ValueColumn
{
    int SpacerWidth = 43;
    bool SuperTab = false;
    bool SingleByteText = false; ///< bytes of a pass are Windows-1252, a character each, and not UTF-8
};
/// As the settings have it now.
ValueColumn CurrentValueColumn();

/// Every character with a code below 33 or above 125 becomes a blank, then blanks at both ends go. For judging a
/// line; never for text that is written back or names a file.
QString CleanText(const QString& text);

/// The twin for text that is written back or names a file: only codes below 33 become blanks, so that letters beyond
/// ASCII survive.
QString CleanValue(const QString& text);

/// What stands in front of a note: the game cuts a line at "#" wherever it stands.
QString WithoutNote(const QString& text);

/// The filler after a key that ends in its colon: one tab with SuperTab, else up to the value column.
QString PadAfterKey(const QString& key, const ValueColumn& column);
QString PadAfterKey(const QString& key);

/// Number of a field: 8 characters or more give `high`, an empty text `low`, else the leading number rounded to the
/// nearest whole one and held within the bounds.
int ClampNumber(const QString& text, int low, int high);

struct AnimModeText
{
    QString AnimMode;
    bool HasReverse = false;
};
/// The value of an anim_mode in lower case, the word reverse taken out; a mode of reverse alone is "loop".
AnimModeText ParseAnimMode(const QString& text);

/// The text in front of the first colon; the whole line if there is none.
QString KeyOfLine(const QString& line);

/// Does a file end marker or empty line stand here? Empty: nothing but characters that CleanText removes.
bool IsEmptyLine(const QString& line);
