#pragma once

#include "frame/editor_pane.h"

class QWidget;

/// Shows the find, replace or go-to-line dialog beside the pane and gives back at once. One find and one go-to-line
/// dialog an owner; a second call turns it to the new pane and kind. Called for the pane of the current tab, the
/// dialog follows the user to other tabs; for any other pane it stays with that one.
void ShowFindDialog(QWidget* owner, EditorPane& pane, FindKind kind);
