#pragma once

#include "batch/verbs.h"

VerbResult PcxVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult FilmVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult SheetVerb(const QStringList& arguments, VerbStreams& streams);
