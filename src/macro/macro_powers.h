#pragma once

#include <QStringList>

/// What the lines of a macro can do, of MacroPower. Words that are looked at are the commands of its lines: the
/// language has no way to run a text as a command.
int PowersOf(const QStringList& lines);

/// May the macro run on a copy of the text? Only if it does nothing that a copy cannot hold back.
bool CanRunOnCopy(int powers);
