#pragma once

#include "batch/verbs.h"

/// Element blocks of conf files. Changes no file.
VerbResult BlocksVerb(const QStringList& arguments, VerbStreams& streams);
