#include "decoder/protocol.h"

#include <cstring>

namespace decoder {

namespace {

constexpr std::uint32_t RequestMark = 0x47464431, AnswerMark = 0x47464132;
constexpr std::uint32_t EndsEarlyFlag = 1, AlphaFlag = 2, PixelsFlag = 4, KnownFlags = 7;
constexpr std::uint32_t MostBits = 128, MostColours = 256;

template <std::size_t Size>
using Words = std::array<std::uint32_t, Size>;

template <std::size_t Size>
std::array<std::byte, Size * 4> ToBytes(const Words<Size>& words)
{
    std::array<std::byte, Size * 4> bytes;
    std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

template <std::size_t Size>
std::optional<Words<Size>> ToWords(Bytes bytes, std::uint32_t mark)
{
    Words<Size> words;
    if (bytes.size() != sizeof(words))
        return {};
    std::memcpy(words.data(), bytes.data(), bytes.size());
    if (words[0] != mark)
        return {};
    return words;
}

bool Plausible(const Answer& answer)
{
    if (answer.How != Outcome::Done)
        return answer == Answer{.Serial = answer.Serial, .How = answer.How};
    return WithinLimits(answer.Width, answer.Height) && answer.Bits >= 1 && answer.Bits <= MostBits &&
           answer.ColoursUsed <= MostColours;
}

} // namespace

RequestBytes Pack(const Request& request)
{
    return ToBytes<4>({RequestMark, request.Serial, request.Kind, std::uint32_t(request.What)});
}

AnswerBytes Pack(const Answer& answer)
{
    const std::uint32_t flags =
        (answer.EndsEarly ? EndsEarlyFlag : 0) | (answer.Alpha ? AlphaFlag : 0) | (answer.Pixels ? PixelsFlag : 0);
    return ToBytes<9>({AnswerMark, answer.Serial, std::uint32_t(answer.How), answer.Width, answer.Height, answer.Bits,
                       answer.ColoursUsed, flags, std::uint32_t(PixelBytes(answer))});
}

std::optional<Request> UnpackRequest(Bytes bytes)
{
    const auto words = ToWords<4>(bytes, RequestMark);
    if (!words || (*words)[2] >= Kinds || (*words)[3] > std::uint32_t(Task::Pixels))
        return {};
    return Request{.Serial = (*words)[1], .Kind = (*words)[2], .What = Task((*words)[3])};
}

std::optional<Answer> UnpackAnswer(Bytes bytes)
{
    const auto words = ToWords<9>(bytes, AnswerMark);
    if (!words || (*words)[2] > std::uint32_t(Outcome::TooLarge) || ((*words)[7] & ~KnownFlags) != 0)
        return {};
    const std::uint32_t flags = (*words)[7];
    const Answer answer{.Serial = (*words)[1],
                        .How = Outcome((*words)[2]),
                        .Width = (*words)[3],
                        .Height = (*words)[4],
                        .Bits = (*words)[5],
                        .ColoursUsed = (*words)[6],
                        .EndsEarly = (flags & EndsEarlyFlag) != 0,
                        .Alpha = (flags & AlphaFlag) != 0,
                        .Pixels = (flags & PixelsFlag) != 0};
    if (!Plausible(answer) || (*words)[8] != PixelBytes(answer))
        return {};
    return answer;
}

bool WithinLimits(std::uint64_t width, std::uint64_t height)
{
    return width >= 1 && width <= LongestSide && height >= 1 && height <= LongestSide && width * height <= MostPixels;
}

std::size_t PixelBytes(const Answer& answer)
{
    return answer.Pixels ? std::size_t(answer.Width) * answer.Height * 4 : 0;
}

} // namespace decoder
