#include "platform/sound/player/wishes.h"

#include "decoder/channel.h"

#include <cerrno>
#include <poll.h>

bool Wishes::Receive(int patience)
{
    for (;; patience = 0) {
        pollfd wait{socket, POLLIN, 0};
        const int ready = poll(&wait, 1, patience);
        if (ready < 0 && errno != EINTR)
            return false;
        if (ready <= 0)
            return true;
        if (!ReceiveOne())
            return false;
    }
}

bool Wishes::ReceiveOne()
{
    player::Request request;
    int file = -1;
    if (!decoder::ReceiveAll(socket, std::as_writable_bytes(std::span(&request, 1)), file))
        return false;
    HandedFile handed(file);
    const bool plays = request.What == player::Task::Play;
    if (std::uint32_t(request.Of) >= player::Voices || plays != (file >= 0))
        return false;
    serial = request.Serial;
    last[std::size_t(request.Of)] = Wish{request.What, std::move(handed)};
    return true;
}
