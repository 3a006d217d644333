#include "decoder/film_protocol.h"

#include "decoder/words.h"

namespace film {

namespace {

using decoder::ToBytes;
using decoder::ToWords;

constexpr std::uint32_t FilmRequestMark = 0x47464631, FactsMark = 0x47464632, FrameMark = 0x47464633;

bool Plausible(const Facts& facts)
{
    if (facts.How == Outcome::NotOpened || facts.How == Outcome::NoDecoder)
        return facts == Facts{.How = facts.How};
    return WithinLimits(facts.Width, facts.Height) && facts.RateSeconds > 0;
}

} // namespace

RequestBytes Pack(const Request& request)
{
    return ToBytes<6>(
        {FilmRequestMark, std::uint32_t(request.How), request.X, request.Y, request.Width, request.Height});
}

FactsBytes Pack(const Facts& facts)
{
    return ToBytes<8>({FactsMark, std::uint32_t(facts.How), facts.Width, facts.Height, facts.Length, facts.Counted,
                       facts.RateCount, facts.RateSeconds});
}

FrameBytes Pack(const Frame& frame)
{
    return ToBytes<3>({FrameMark, std::uint32_t(frame.What), frame.Number});
}

std::optional<Request> UnpackRequest(decoder::Bytes bytes)
{
    const auto words = ToWords<6>(bytes, FilmRequestMark);
    if (!words || (*words)[1] > std::uint32_t(Fit::Part))
        return {};
    const auto [mark, how, x, y, width, height] = *words;
    const Request request{.How = Fit(how), .X = x, .Y = y, .Width = width, .Height = height};
    const bool sized = x < LongestSide && y < LongestSide && width >= 1 && width <= LongestSide && height >= 1 &&
                       height <= LongestSide;
    return sized ? std::optional(request) : std::nullopt;
}

std::optional<Facts> UnpackFacts(decoder::Bytes bytes)
{
    const auto words = ToWords<8>(bytes, FactsMark);
    if (!words || (*words)[1] > std::uint32_t(Outcome::WrongSize))
        return {};
    const auto [mark, how, width, height, length, counted, count, seconds] = *words;
    if (counted > 1)
        return {};
    const Facts facts{.How = Outcome(how),
                      .Width = width,
                      .Height = height,
                      .Length = length,
                      .Counted = counted == 1,
                      .RateCount = count,
                      .RateSeconds = seconds};
    return Plausible(facts) ? std::optional(facts) : std::nullopt;
}

std::optional<Frame> UnpackFrame(decoder::Bytes bytes)
{
    const auto words = ToWords<3>(bytes, FrameMark);
    if (!words || (*words)[1] > std::uint32_t(Step::End))
        return {};
    return Frame{.What = Step((*words)[1]), .Number = (*words)[2]};
}

bool WithinLimits(std::int64_t width, std::int64_t height)
{
    return width >= 1 && width <= LongestSide && height >= 1 && height <= LongestSide &&
           width * height <= MostFramePixels;
}

} // namespace film
