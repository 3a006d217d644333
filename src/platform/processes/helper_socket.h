#pragma once

#include <cstddef>
#include <functional>
#include <span>

enum class Received {
    All,
    Gone,   ///< the other side has ended
    GivenUp ///< `goesOn` said no
};

/// Waits for exactly so many bytes from a helper. While nothing comes, `goesOn` is asked every `glance` ms.
Received ReceiveFrom(int socket, std::span<std::byte> bytes, int glance, const std::function<bool()>& goesOn);
