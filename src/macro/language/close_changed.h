#pragma once

struct RunState;

/// May the target's text go? In the run of a file a person is asked (message 8) if it is not saved. False: the run has
/// failed.
bool ConfirmCloseChanged(RunState& run);
