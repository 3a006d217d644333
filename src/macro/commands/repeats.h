#pragma once

class Arguments;
struct RunState;

/// The count of a repeated command, from 1; 0 after failing.
int RepeatCount(RunState& run, Arguments& in);

/// Runs a numbered command of the target `count` times, as far as it goes. Events get their turns in between.
void RepeatOnTarget(RunState& run, int number, int count);
