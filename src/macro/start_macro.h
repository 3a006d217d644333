#pragma once

#include <QString>

/// Runs a macro's file on the current document, as from the macro list: the game must be set, a macro that is new here
/// is asked about, the main window is disabled meanwhile, and all that the macro does to the text is one undo step.
/// Does nothing while another piece of work is under way.
void StartMacro(const QString& path);

/// The first of the macro list whose name begins with "$" and this character, which Alt starts; empty if there is none.
QString MacroOfKey(QChar key);
