#pragma once

#include "decoder/film_protocol.h"
#include "platform/processes/turn.h"

#include <QString>

/// Films of strangers. They are read by a helper process under limits, which makes a tile of each frame; a film that
/// crashes or hangs it ends early or "was not opened" and leaves this process alone.
namespace films {

using film::Facts;
using film::Fit;
using Plan = film::Request;
using TileView = std::span<const std::byte, film::TileBytes>;

struct Listener
{
    std::function<void(const Facts& facts)> Begins; ///< before the first frame; only for a film that is read
    /// Frame `number` from 0, three bytes a pixel (blue, green, red), rows from below. False: no more are wanted.
    std::function<bool(int number, TileView pixels)> Shows;
    Turn Goes; ///< may be empty
};

enum class End {
    Whole,     ///< or as far as it was wanted
    Broken,    ///< the helper ended in the middle
    NotOpened, ///< no film, or one without pictures
    NoDecoder,
    WrongSize,
    Stopped ///< by Goes
};

struct Reading
{
    End How = End::NotOpened;
    QString Reason; ///< of NotOpened: the system's, where it is known
    Facts Told;     ///< of a film that was opened
};

/// Reads a film from its first frame on. Returns when it is over; meanwhile Goes is called.
Reading Read(const QString& path, const Plan& plan, const Listener& listener);

/// The same with another helper, for tests. `patience`: ms without a word from it.
Reading ReadWith(const QString& helper, int patience, const QString& path, const Plan& plan, const Listener& listener);

} // namespace films
