#include "decoder/protocol.h"

#include "decoder/words.h"

namespace decoder {

namespace {

constexpr std::uint32_t RequestMark = 0x47464433, AnswerMark = 0x47464134;
constexpr std::uint32_t EndsEarlyFlag = 1, AlphaFlag = 2, KnownFlags = 3;
constexpr std::uint32_t MostBits = 128;

bool Plausible(const Answer& answer)
{
    if (answer.How != Outcome::Done)
        return answer == Answer{.Serial = answer.Serial, .How = answer.How};
    return WithinLimits(answer.Width, answer.Height) && answer.Bits >= 1 && answer.Bits <= MostBits &&
           answer.ColoursUsed <= MostColours &&
           (answer.Behind == Payload::File ? answer.FileBytes <= MostFileBytes : answer.FileBytes == 0);
}

bool Plausible(const Reduction& how)
{
    return how.Colours >= LeastColours && how.Colours <= MostColours && how.Method <= Quantizer::NeuQuant;
}

} // namespace

RequestBytes Pack(const Request& request)
{
    return ToBytes<7>({RequestMark, request.Serial, request.Kind, std::uint32_t(request.What), request.How.Colours,
                       std::uint32_t(request.How.Method), request.How.KeepBlack});
}

AnswerBytes Pack(const Answer& answer)
{
    const std::uint32_t flags = (answer.EndsEarly ? EndsEarlyFlag : 0) | (answer.Alpha ? AlphaFlag : 0);
    return ToBytes<10>({AnswerMark, answer.Serial, std::uint32_t(answer.How), answer.Width, answer.Height, answer.Bits,
                        answer.ColoursUsed, flags, std::uint32_t(answer.Behind), answer.FileBytes});
}

std::optional<Request> UnpackRequest(Bytes bytes)
{
    const auto words = ToWords<7>(bytes, RequestMark);
    if (!words || (*words)[2] >= Kinds || (*words)[3] > std::uint32_t(Task::Gif) || (*words)[6] > 1)
        return {};
    const Request request{
        .Serial = (*words)[1],
        .Kind = (*words)[2],
        .What = Task((*words)[3]),
        .How = {.Colours = (*words)[4], .Method = Quantizer((*words)[5]), .KeepBlack = (*words)[6] == 1}};
    return Plausible(request.How) ? std::optional(request) : std::nullopt;
}

std::optional<Answer> UnpackAnswer(Bytes bytes)
{
    const auto words = ToWords<10>(bytes, AnswerMark);
    if (!words || (*words)[2] > std::uint32_t(Outcome::TooLarge) || ((*words)[7] & ~KnownFlags) != 0 ||
        (*words)[8] > std::uint32_t(Payload::File))
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
                        .Behind = Payload((*words)[8]),
                        .FileBytes = (*words)[9]};
    return Plausible(answer) ? std::optional(answer) : std::nullopt;
}

bool WithinLimits(std::uint64_t width, std::uint64_t height)
{
    return width >= 1 && width <= LongestSide && height >= 1 && height <= LongestSide && width * height <= MostPixels;
}

std::size_t NumberRow(std::uint32_t width)
{
    return (std::size_t(width) + 3) & ~std::size_t(3);
}

std::size_t PayloadBytes(const Answer& answer)
{
    switch (answer.Behind) {
    case Payload::Words:
        return std::size_t(answer.Width) * answer.Height * 4;
    case Payload::Numbers:
        return std::size_t(MostColours) * 4 + NumberRow(answer.Width) * answer.Height;
    case Payload::File:
        return answer.FileBytes;
    case Payload::None:
        break;
    }
    return 0;
}

} // namespace decoder
