#pragma once

#include "platform/files/name_swap.h"

/// Tells what was put back after a fast test that had not ended properly, under which names foreign texts were kept,
/// and what could not be put back yet. Nothing if all is as it should be.
void TellPutBack(const name_swap::PutBack& found);

/// What is told of a test that ended in order: nothing, unless somebody wrote into its files or it could not be undone.
void TellEndOfSwap(name_swap::PutBack found);

/// Puts back what an ended run has left in a folder ("/" at the end), and tells it. Costs one look at the folder.
void PutBackIn(const QString& folder);
