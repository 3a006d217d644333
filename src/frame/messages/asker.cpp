#include "frame/messages/asker.h"

#include "frame/frame_state.h"
#include "frame/run_scope.h"

#include <algorithm>

namespace {

constexpr int LongestAuthor = 40;

/// Is `text` made of items of the lists from `first` on, at most one a list, joined with "."?
bool IsChosenFrom(QStringView text, const std::vector<ChoiceQuestion::List>& lists, std::size_t first = 0)
{
    if (first == lists.size())
        return false;
    for (const QString& item : lists[first].Items) {
        if (text == item)
            return true;
        const bool goesOn = text.startsWith(item) && text.mid(item.size()).startsWith(u'.');
        if (goesOn && IsChosenFrom(text.mid(item.size() + 1), lists, first + 1))
            return true;
    }
    return IsChosenFrom(text, lists, first + 1);
}

bool IsButton(const Answer& answer, qsizetype buttons)
{
    const auto* pressed = std::get_if<Pressed>(&answer);
    return pressed && pressed->Place >= 1 && pressed->Place <= buttons;
}

bool IsPath(const Answer& answer)
{
    const auto* path = std::get_if<QString>(&answer);
    return path && !path->isEmpty();
}

struct FitsKind
{
    const Answer& Given;

    bool operator()(const MessageQuestion& question) const
    {
        return IsButton(Given, ButtonCaptions(question.Record.MessageButtons).size());
    }
    bool operator()(const SafetyQuestion&) const { return IsButton(Given, message::Refuse); }
    bool operator()(const InputQuestion&) const { return std::holds_alternative<QString>(Given); }
    bool operator()(const FileQuestion& question) const
    {
        const auto* several = std::get_if<QStringList>(&Given);
        return question.For == FileQuestion::OpenMany ? several && !several->isEmpty() : IsPath(Given);
    }
    bool operator()(const FolderQuestion&) const { return IsPath(Given); }
    bool operator()(const ChoiceQuestion& question) const
    {
        if (question.Lists.size() != 1)
            return IsPath(Given) && IsChosenFrom(std::get<QString>(Given), question.Lists);
        const int* place = std::get_if<int>(&Given);
        return place && *place >= 1 && *place <= question.Lists.front().Items.size();
    }
    bool operator()(const ZipEntryQuestion& question) const
    {
        if (!IsPath(Given))
            return false;
        const QString& path = std::get<QString>(Given);
        return std::any_of(question.Entries.begin(), question.Entries.end(), [&](const QString& entry) {
            return entry == path || (entry.startsWith(path) && entry.mid(path.size()).startsWith(u'/'));
        });
    }
    bool operator()(const PauseQuestion&) const { return IsButton(Given, 1); }
    bool operator()(const KeysQuestion&) const { return std::holds_alternative<KeySet>(Given); }
};

struct WayOutOfKind
{
    Answer operator()(const MessageQuestion& question) const { return Pressed{WayOutOf(question.Record)}; }
    Answer operator()(const SafetyQuestion&) const { return Pressed{message::Refuse}; }
    template <class Kind>
    Answer operator()(const Kind&) const
    {
        return Cancelled{};
    }
};

} // namespace

Answer Ask(const Question& question)
{
    if (Frame.Ending || Frame.Closing)
        return WayOutOf(question);
    Q_ASSERT(Frame.Ask);
    const WorkScope open;
    Answer answer = Frame.Ask->Ask(question);
    Q_ASSERT(Fits(question, answer));
    return answer;
}

std::optional<QString> AskText(const Question& question)
{
    Answer answer = Ask(question);
    auto* text = std::get_if<QString>(&answer);
    return text ? std::optional(std::move(*text)) : std::nullopt;
}

QStringList AskFiles(FileQuestion question)
{
    question.For = FileQuestion::OpenMany;
    const Answer answer = Ask(question);
    const auto* paths = std::get_if<QStringList>(&answer);
    return paths ? *paths : QStringList();
}

bool Fits(const Question& question, const Answer& answer)
{
    if (std::holds_alternative<Cancelled>(answer))
        return !std::holds_alternative<MessageQuestion>(question) && !std::holds_alternative<SafetyQuestion>(question);
    return std::visit(FitsKind{answer}, question);
}

Answer WayOutOf(const Question& question)
{
    return std::visit(WayOutOfKind{}, question);
}

MessageRecord RecordOf(const SafetyQuestion& question)
{
    const QString author = QString(question.Author).remove(u'^').left(LongestAuthor);
    MessageRecord record = RecordOf(message::FileConsent, author);
    record.MessageText += QStringLiteral("^^") + question.Command + u' ' + question.Path;
    return record;
}
