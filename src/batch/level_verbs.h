#pragma once

#include "batch/verbs.h"

// Verbs on level files. None of them changes a level.

VerbResult LevelInfoVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelMapVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelVerifyVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelPictureVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelListVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult LevelDiffVerb(const QStringList& arguments, VerbStreams& streams);
