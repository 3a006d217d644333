#pragma once

#include <cstdint>

/// How much a helper process may use. Set after start-up, when the libraries have been loaded.
namespace limits {

/// Memory (`mostMemory` bytes of addresses) and open files for good; no file grows, no core is left.
void Set(std::uint64_t mostMemory);

/// Processor time for what comes now, an image of so many pixels; the process ends when it is used up.
void StartClock(std::uint64_t pixels);

} // namespace limits
