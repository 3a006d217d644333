#pragma once

#include <functional>

/// Called again and again by what takes time, so that windows live on. False: a stop is wanted.
using Turn = std::function<bool()>;
