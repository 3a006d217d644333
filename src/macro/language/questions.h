#pragma once

#include "macro/language/value.h"

#include <QString>
#include <optional>

struct MessageAnswer;
struct MessageRecord;
struct RunState;

// What a run asks a person. Each shows the target first and hides it again afterwards.

MessageAnswer AskMessage(RunState& run, const MessageRecord& record);
std::optional<QString> AskInput(RunState& run, const QString& title, const QString& prompt, const QString& preset);

/// One of the run's list; its place from 0. `popup`: as a menu at the pointer.
std::optional<int> AskListItem(RunState& run, const QString& title, bool popup);

/// What lists of the graphics words a person picks from.
enum class ElementPick { All, Element, Action };
std::optional<QString> AskElement(RunState& run, ElementPick what, const QString& title);

/// Tiles of a sheet, into run.Element. False: cancelled.
bool AskTiles(RunState& run, const QString& file, const QString& title);

/// Shows a text until it is clicked away, or for so many milliseconds.
void AskPause(RunState& run, const QString& text, std::optional<int> milliseconds);

/// Lets milliseconds go by with nothing on show; Esc ends it.
void Wait(RunState& run, int milliseconds);

/// May the target's text go? Asks message 8 in the run of a file if it is not saved. False: the run has failed.
bool ConfirmCloseChanged(RunState& run);
