#pragma once

#include <QByteArray>

/// Lets the game print its default conf of a dump command (1 to 6), and shows it as live entries in the current pane.
/// The pane stays as it is if nothing was printed.
void ExtractFromGame(int dumpIndex);

/// A printed conf with its entries live: every "# " from the line with index 3 on goes.
QByteArray LiveEntries(const QByteArray& printed);

/// Shows what the game complained about in its last run in the current pane.
void ViewErrorLog();
