#pragma once

#include <cstdint>

/// What this process may use. Set after start-up, when the libraries have been loaded.
namespace limits {

/// Memory, files, new programs: for good. A file that is handed over can be read, none can be opened.
void Set();

/// Processor time for what comes now, an image of so many pixels; the process ends when it is used up.
void StartClock(std::uint64_t pixels);

} // namespace limits
