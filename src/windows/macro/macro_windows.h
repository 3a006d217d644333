#pragma once

class QWidget;
class WindowAsker;

/// Brings the windows that macros ask with: the list and element picker, the pause, the question about a new macro and
/// the comparison behind a run on a copy. Dialogs stand above `owner`.
void BringMacroWindows(WindowAsker& asker, QWidget* owner);
