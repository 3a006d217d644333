#pragma once

#include "frame/editor_operations.h"

#include <QStringList>
#include <array>

enum WordKind : int { KindElements, KindActions, KindGraphicComs, KindSpecial, WordKindCount };

/// Word lists by mode and kind. Index 0 is the first word.
using WordListTable = std::array<std::array<QStringList, WordKindCount>, 8>;

inline const QString NoWords = QStringLiteral("*:none:*");

/// Reads all tables into Frame.WordLists and registers the eight languages with Frame.Globals.
void MakeLanguages();

/// One section of its table file: the words 1 to Count; a missing key gives "[NOT FOUND]".
QStringList ReadWordList(const QString& section);

/// What the code list offers now, in the order of the lists ticked in AutoCompleteTemplate. Empty in mode 0.
QStringList CodeListWords(int mode);

/// The item to select: the first that begins with `word`, case ignored; 0 if none does.
int CodeListChoice(const QStringList& items, const QString& word);

/// Puts a chosen item into the text; false: the pane must insert nothing itself.
bool PickCodeListItem(EditorPane& pane, const QString& item);
