#pragma once

#include "batch/verbs.h"

/// Runs a macro on a text, without a window.
VerbResult RunMacroVerb(const QStringList& arguments, VerbStreams& streams);
