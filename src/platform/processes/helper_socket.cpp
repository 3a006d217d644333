#include "platform/processes/helper_socket.h"

#include "platform/files/file_steps.h"

#include <poll.h>
#include <sys/socket.h>

Received ReceiveFrom(int socket, std::span<std::byte> bytes, int glance, const std::function<bool()>& goesOn)
{
    while (!bytes.empty()) {
        const ssize_t got = Persist([&] { return recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT); });
        if (got > 0) {
            bytes = bytes.subspan(std::size_t(got));
            continue;
        }
        if (got == 0 || errno != EAGAIN)
            return Received::Gone;
        pollfd wait{socket, POLLIN, 0};
        if (!goesOn())
            return Received::GivenUp;
        Persist([&] { return poll(&wait, 1, glance); });
    }
    return Received::All;
}
