#pragma once

/// What this process may use. Set after start-up, when the libraries have been loaded.
namespace limits {

/// Memory, files, new programs: for good. A file that is handed over can be read, none can be opened.
void Set();

/// Processor time for what comes now; the process ends when it is used up.
void StartClock();

} // namespace limits
