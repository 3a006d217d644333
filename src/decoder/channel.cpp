#include "decoder/channel.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace decoder {

namespace {

/// Room for one open file beside a message.
struct Beside
{
    alignas(cmsghdr) char Room[CMSG_SPACE(sizeof(int))] = {};

    void Attach(msghdr& message)
    {
        message.msg_control = Room;
        message.msg_controllen = sizeof(Room);
    }
};

msghdr MessageOver(iovec& part)
{
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    return message;
}

void PutFile(msghdr& message, int file)
{
    cmsghdr* const header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &file, sizeof(file));
}

/// The one that came first stays, any other is closed.
void TakeFile(msghdr& message, int& file)
{
    for (cmsghdr* header = CMSG_FIRSTHDR(&message); header; header = CMSG_NXTHDR(&message, header)) {
        if (header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS)
            continue;
        int came = -1;
        std::memcpy(&came, CMSG_DATA(header), sizeof(came));
        if (file < 0)
            file = came;
        else
            close(came);
    }
}

template <class Call>
ssize_t Persist(Call call)
{
    ssize_t result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

bool SendAll(int socket, Bytes bytes, int file)
{
    while (!bytes.empty()) {
        iovec part{const_cast<std::byte*>(bytes.data()), bytes.size()};
        msghdr message = MessageOver(part);
        Beside beside;
        if (file >= 0) {
            beside.Attach(message);
            PutFile(message, file);
        }
        const ssize_t sent = Persist([&] { return sendmsg(socket, &message, MSG_NOSIGNAL); });
        if (sent <= 0)
            return false;
        file = -1;
        bytes = bytes.subspan(std::size_t(sent));
    }
    return true;
}

bool ReceiveAll(int socket, std::span<std::byte> bytes, int& file)
{
    file = -1;
    while (!bytes.empty()) {
        iovec part{bytes.data(), bytes.size()};
        msghdr message = MessageOver(part);
        Beside beside;
        beside.Attach(message);
        const ssize_t got = Persist([&] { return recvmsg(socket, &message, MSG_CMSG_CLOEXEC); });
        if (got <= 0) {
            if (file >= 0)
                close(file);
            file = -1;
            return false;
        }
        TakeFile(message, file);
        bytes = bytes.subspan(std::size_t(got));
    }
    return true;
}

} // namespace decoder
