#pragma once

class RunScope;

/// Lets milliseconds go by. Events run meanwhile, and a wish to stop ends it.
void WaitFor(RunScope& scope, int milliseconds);
