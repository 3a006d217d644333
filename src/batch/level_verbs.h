#pragma once

#include "batch/verbs.h"

// Verbs on level files. None of them changes a file.

VerbResult LevelInfoVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelMapVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelVerifyVerb(const QStringList& arguments, VerbStreams& streams);
