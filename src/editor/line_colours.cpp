#include "editor/line_colours.h"

#include "text/text_form.h"

#include <algorithm>

namespace {

bool IsBlank(char byte)
{
    return uchar(byte) <= ' ';
}

bool IsDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// Digits with a sign or in the form 0x1F.
bool IsNumber(std::string_view text)
{
    if (!text.empty() && (text[0] == '-' || text[0] == '+'))
        text.remove_prefix(1);
    if (text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x')
        return std::all_of(text.begin() + 2, text.end(),
                           [](char c) { return IsDigit(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f'); });
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

} // namespace

LineColours::LineColours(const LanguageObject& language) : comment(language.SingleLineComments.trimmed().toStdString())
{
    for (const char byte : language.Operators.toLatin1())
        operators[uchar(byte)] = byte != '\n' && byte != '\r';
    for (const char byte : language.StringDelims.toLatin1())
        delimiters[uchar(byte)] = byte != '\n' && byte != '\r';
    AddWords(language.Keywords, StyleElement); // a word of two lists keeps the first one's kind
    AddWords(language.TagEntities, StyleAction);
    AddWords(language.TagElementNames, StyleCommand);
    AddWords(language.TagAttributeNames, StyleSpecial);
}

void LineColours::AddWords(const QString& list, PaneStyle style)
{
    const QByteArray bytes = list.toUtf8();
    for (const QByteArray& word : bytes.split('\n')) {
        if (word.isEmpty())
            continue;
        const auto inside = std::count_if(word.begin(), word.end(), [this](char byte) { return IsOperator(byte); });
        mostParts = std::max(mostParts, int(inside) + 1);
        words.try_emplace(word.toStdString(), style);
    }
}

char LineColours::StyleOf(std::string_view word) const
{
    const auto found = words.find(word);
    if (found != words.end())
        return found->second;
    return IsNumber(word) ? StyleNumber : StyleNormal;
}

void LineColours::Colour(std::string_view line, char* styles) const
{
    std::fill_n(styles, line.size(), StyleNormal);
    const size_t remark = comment.empty() ? line.npos : line.find(comment);
    const size_t end = std::min(remark, line.size());
    std::fill(styles + end, styles + line.size(), StyleComment);
    for (size_t at = 0; at < end;) {
        if (IsBlank(line[at]) && !delimiters[uchar(line[at])]) {
            ++at;
            continue;
        }
        at += ColourRun(line.substr(at, end - at), styles + at);
    }
}

/// Colours what begins at the run's start: a string, an operator, a word or a part. Gives back its length.
size_t LineColours::ColourRun(std::string_view run, char* styles) const
{
    if (delimiters[uchar(run[0])]) {
        const size_t close = run.find(run[0], 1);
        const size_t size = close == run.npos ? run.size() : close + 1;
        std::fill_n(styles, size, StyleString);
        return size;
    }
    run = run.substr(0, size_t(std::find_if(run.begin(), run.end(), IsBlank) - run.begin()));
    if (const size_t size = LongestWord(run, styles))
        return size;
    if (IsOperator(run[0])) {
        styles[0] = StyleOperator;
        return 1;
    }
    const auto end = std::find_if(run.begin(), run.end(), [this](char byte) { return IsOperator(byte); });
    const std::string_view part = run.substr(0, size_t(end - run.begin()));
    ColourPart(part, styles);
    return part.size();
}

/// The longest word of the language that begins the run and ends at an operator or at its end; 0 if there is none.
size_t LineColours::LongestWord(std::string_view run, char* styles) const
{
    std::array<size_t, 8> ends{};
    size_t count = 0;
    for (size_t at = 1; at <= run.size() && count < std::min<size_t>(ends.size(), size_t(mostParts)); ++at)
        if (at == run.size() || IsOperator(run[at]))
            ends[count++] = at;
    while (count > 0) {
        const size_t size = ends[--count];
        const char style = StyleOf(run.substr(0, size));
        if (style != StyleNormal) {
            std::fill_n(styles, size, style);
            return size;
        }
    }
    return 0;
}

/// A part that is no word itself may hold some: "linear,reverse", "boring[1]".
void LineColours::ColourPart(std::string_view part, char* styles) const
{
    for (size_t at = 0; at < part.size();) {
        if (!IsWordByte(part[at])) {
            ++at;
            continue;
        }
        const auto end = std::find_if_not(part.begin() + at, part.end(), IsWordByte);
        const size_t size = size_t(end - part.begin()) - at;
        std::fill_n(styles + at, size, StyleOf(part.substr(at, size)));
        at += size;
    }
}
