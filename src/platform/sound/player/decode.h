#pragma once

/// The other half of this program: the process that makes sound of a stranger's file. What it plays for and the open
/// file come over its standard input, and the sound goes back there, at the device's rate. It can do nothing else. The
/// process's exit code: 0 when all has been sent, else the file is no sound or a broken one.
int DecodeForPlayer();
