#pragma once

#include "frame/editor_pane.h"

#include <QStringList>
#include <array>

enum WordKind : int { KindElements, KindActions, KindGraphicComs, KindSpecial, WordKindCount };

/// Word lists by mode and kind. Index 0 is the first word.
using WordListTable = std::array<std::array<QStringList, WordKindCount>, 8>;

inline const QString NoWords = QStringLiteral("*:none:*");

/// What a key of graphics mode is made of: "element.action.direction".
struct KeyWords
{
    QStringList Elements, Actions, Directions;
};
KeyWords GraphicsKeyWords();

/// Reads all tables into Frame.WordLists and registers the eight languages with Frame.Globals.
void MakeLanguages();

/// One section of its table file: the words 1 to Count; a missing key gives "[NOT FOUND]".
QStringList ReadWordList(const QString& section);

/// The words of the lists ticked in AutoCompleteTemplate. After a dot those that can follow there stand first, else
/// the lists keep their order. Empty in mode 0. `before` is the line up to the word that is being completed.
QStringList CodeListWords(int mode, const QString& before = {});

/// What the code list offers at the caret. The prose of a help text asks for none while it is typed.
QStringList OfferedWords(EditorPane& pane, bool typing);

/// Puts a chosen item into the text; false: the pane must insert nothing itself.
bool PickCodeListItem(EditorPane& pane, const QString& item);
