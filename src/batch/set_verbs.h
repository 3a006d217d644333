#pragma once

#include "batch/verbs.h"

VerbResult SetNewVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult SetListVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult SetZipVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult SetUnzipVerb(const QStringList& arguments, VerbStreams& streams);
