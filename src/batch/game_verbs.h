#pragma once

#include "batch/verbs.h"

VerbResult GameInfoVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult GameExtractVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult GameCheckVerb(const QStringList& arguments, VerbStreams& streams);
