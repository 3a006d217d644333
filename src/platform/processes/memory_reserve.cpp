#include "platform/processes/memory_reserve.h"

#include "platform/platform_state.h"

#include <new>
#include <sys/mman.h>

namespace {

constexpr size_t ReserveBytes = size_t(64) << 20; // addresses; no page of them is ever touched

void GiveOrFail()
{
    if (!memory_reserve::Spend())
        throw std::bad_alloc();
}

} // namespace

namespace memory_reserve {

void Lay()
{
    void* const block = mmap(nullptr, ReserveBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    Platform.Reserve = block == MAP_FAILED ? nullptr : block;
    std::set_new_handler(GiveOrFail);
}

bool IsSpent()
{
    return Platform.ReserveSpent;
}

bool Spend()
{
    if (Platform.ReserveSpent.exchange(true))
        return false;
    if (Platform.Reserve)
        munmap(Platform.Reserve, ReserveBytes);
    return true;
}

} // namespace memory_reserve
