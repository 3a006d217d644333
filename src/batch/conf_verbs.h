#pragma once

#include "batch/verbs.h"

// Verbs on conf files. They work on the files' bytes and open no pane.

VerbResult CheckVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult TidyVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult CommentVerb(const QStringList& arguments, VerbStreams& streams);
VerbResult UncommentVerb(const QStringList& arguments, VerbStreams& streams);
