#pragma once

#include "decoder/protocol.h"

#include <QImage>
#include <QString>
#include <atomic>
#include <sys/types.h>

/// The helper process that decodes images, and the socket to it. Used by one thread; what comes from it is believed
/// only as far as it can be checked.
class DecoderProcess
{
public:
    enum class Fate {
        Answered,
        Fault,   ///< it ended, or said what nobody may say
        TimedOut ///< or the wait was given up
    };
    struct Reply
    {
        Fate How = Fate::Fault;
        decoder::Answer Answer;
        QImage Pixels;   ///< null unless asked for and there; of a reduced image numbers with their colours
        QByteArray File; ///< of a picture that was made a file
    };

    /// `givenUp` may be set by another thread; a running Ask then ends soon.
    DecoderProcess(QString program, const std::atomic<bool>& givenUp);
    ~DecoderProcess();
    DecoderProcess(const DecoderProcess&) = delete;
    DecoderProcess& operator=(const DecoderProcess&) = delete;

    /// 0 or the error number. Nothing happens if it runs already.
    int Start();

    /// Sends a request with the open `file` beside it and waits for the answer, `patience` ms at most. After anything
    /// but an answer the process must be stopped.
    Reply Ask(const decoder::Request& request, int file, int patience);

    /// Ends it by force.
    void Stop();

    bool Runs() const { return child > 0; }

    /// Whether it has answered nothing yet, so that a fault is not what an earlier image left behind.
    bool IsFresh() const { return fresh; }

private:
    class Deadline;
    Fate Receive(std::span<std::byte> bytes, const Deadline& deadline) const;
    Reply Unpacked(const decoder::AnswerBytes& bytes, const decoder::Request& request, const Deadline& deadline) const;
    Fate ReceivePayload(Reply& reply, const Deadline& deadline) const;

    QString program;
    const std::atomic<bool>& givenUp;
    pid_t child = 0;
    int socket = -1;
    bool fresh = true;
};
