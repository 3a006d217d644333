#pragma once

#include "platform/images/image_kinds.h"
#include "platform/processes/turn.h"
#include "platform/result.h"

#include <QImage>
#include <functional>
#include <optional>

class QObject;

/// Images of strangers. They are decoded by a helper process under limits; a file that crashes, hangs or swells its
/// decoder "cannot be read" and leaves this process alone. Pictures are kept by path, time and size of their file, so
/// that one not changed since costs nothing. Every routine may be called from the main thread only.
namespace images {

struct Picture
{
    QImage Pixels;          ///< Format_RGB32, or Format_ARGB32 if some pixels are see-through
    int Kind = -1;          ///< of ImageKinds()
    int Bits = 0;           ///< of a pixel in the file: 1, 4, 8, 24, 32 ...
    int ColoursUsed = 0;    ///< length of the file's palette, 0 without one
    bool EndsEarly = false; ///< a PCX whose data ends before its last line: the rest is black

    QSize Size() const { return Pixels.size(); }
};

/// What can be told without the pixels.
struct Header
{
    QSize Size;
    int Kind = -1;
    int Bits = 0;
};

using PictureReady = std::function<void(const Result<Picture>& picture)>;

/// The image, decoded as `kind` or, without one, as a sheet: what its bytes say. Waits for it: a few milliseconds for a
/// sheet. From a fifth of a second on `turn` is called again and again; when it says no, the wait ends with a failure.
/// Without one the windows repaint and timers fire, while keys, mouse and signals wait. Failure: path, and the system's
/// reason or why it cannot be read.
[[nodiscard]] Result<Picture> Load(const QString& path, int kind = -1, const Turn& turn = {});

/// The same; a file whose ending no kind has is told by its bytes.
[[nodiscard]] Result<Picture> LoadAny(const QString& path, const Turn& turn = {});

/// Load without waiting: calls `ready` from the event loop, always later, unless `context` is gone by then.
void LoadLater(const QString& path, QObject* context, PictureReady ready, int kind = -1);

/// The image if it is kept and its file has not changed; touches the file's facts only.
std::optional<Picture> Kept(const QString& path, int kind = -1);

/// Size, kind and depth, for tips; waits as Load does. Pixels are not decoded unless the kind needs it.
[[nodiscard]] Result<Header> ReadHeader(const QString& path, int kind = -1, const Turn& turn = {});

/// Starts the helper in the background, so that the first image need not wait for it.
void Warm();

/// Ends the helper and forgets every picture; whoever waits is told a failure, what was asked for later
/// is dropped. The next call starts afresh.
void Stop();

} // namespace images
