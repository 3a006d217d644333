#pragma once

#include "conf/check.h"

/// What the check of the current document needs to know: its mode and what the media lists hold now.
CheckContext CurrentCheckContext();

/// "Check For Errors": from the first line to the first that the game would not read properly. Tells what is wrong
/// there (message 121) with the caret on the line, or that all is well (message 120).
void CheckForErrors();
