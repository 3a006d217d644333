#include "decoder/fuzz_decoder.h"

#include "decoder/bmp_header.h"
#include "decoder/dds_blocks.h"
#include "decoder/header_peek.h"
#include "decoder/kind_of_bytes.h"
#include "decoder/pcx_walk.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace decoder;

constexpr quint64 FewPixels = 1 << 20;

/// What is taken must say the same when it is said again, and promise no more than the limits allow.
QString FuzzMessages(Bytes bytes)
{
    if (const auto request = UnpackRequest(bytes); request && !std::ranges::equal(Pack(*request), bytes))
        return QStringLiteral("a request was taken for another");
    const auto answer = UnpackAnswer(bytes);
    if (!answer)
        return {};
    if (!std::ranges::equal(Pack(*answer), bytes))
        return QStringLiteral("an answer was taken for another");
    const bool sized = WithinLimits(answer->Width, answer->Height);
    if (answer->How == Outcome::Done ? !sized : PayloadBytes(*answer) != 0 || answer->Width != 0)
        return QStringLiteral("an answer promises too much");
    return {};
}

/// Straightened once, nothing is left to straighten, and the image is as large as before.
QString FuzzPcx(Bytes bytes)
{
    const PcxFacts facts = WalkPcx(bytes);
    if (!facts.Readable || quint64(facts.Width) * facts.Height > FewPixels)
        return {};
    const std::vector<std::byte> straight = StraightPcx(bytes);
    const PcxFacts again = WalkPcx(straight);
    if (!again.Readable || again.EndsEarly || again.MisreadByLibrary)
        return QStringLiteral("a straightened PCX is not straight");
    const bool planes = facts.Bits > 1 && facts.Bits <= 4;
    const bool column = facts.Width == 1 || (planes && facts.Width % 2 == 1), row = facts.Height == 1;
    if (again.Width != facts.Width + column || again.Height != facts.Height + row ||
        again.Bits != (planes ? 4 : facts.Bits))
        return QStringLiteral("a straightened PCX has another size");
    return {};
}

/// Plain once, plain for good, with the pixels inside and no more bytes than promised.
QString FuzzBmp(Bytes bytes)
{
    if (!NeedsPlainBmp(bytes))
        return {};
    const std::vector<std::byte> plain = PlainBmp(bytes);
    if (NeedsPlainBmp(plain))
        return QStringLiteral("a plain bitmap is not plain");
    if (plain.size() > bytes.size() * 2)
        return QStringLiteral("a plain bitmap has grown");
    quint32 offset = 0;
    std::memcpy(&offset, plain.data() + 10, sizeof(offset));
    return offset <= plain.size() ? QString() : QStringLiteral("a plain bitmap has its pixels outside");
}

} // namespace

QString FuzzDecoder(const QByteArray& bytes)
{
    // A copy of the exact size, so that a read behind its end is seen.
    const std::vector<std::byte> exact(reinterpret_cast<const std::byte*>(bytes.begin()),
                                       reinterpret_cast<const std::byte*>(bytes.end()));
    if (const auto kind = KindOfBytes(exact, exact); kind && *kind >= Kinds)
        return QStringLiteral("a kind that there is not");
    for (quint32 kind = 0; kind < Kinds; ++kind)
        if (const auto extent = PeekExtent(kind, exact); extent && !PeeksAt(kind))
            return QStringLiteral("a size of a kind that is not looked at");
    if (const auto width = OddBlockWidth(exact); width && (OddBlockWidth(WholeBlocks(exact)) || *width > LongestSide))
        return QStringLiteral("whole blocks are not whole");
    for (const auto fuzz : {FuzzMessages, FuzzPcx, FuzzBmp})
        if (const QString fault = fuzz(exact); !fault.isEmpty())
            return fault;
    return {};
}
