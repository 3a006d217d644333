#include "macro/prepared_answers.h"

#include "conf/element_record.h"
#include "macro/element_lists.h"
#include "macro/language/waiting.h"

void PreparedAnswers::Misfit(const QString& answer, const QString& dialog)
{
    if (OnMisfit)
        OnMisfit(QStringLiteral("The answer \"%1\" does not fit %2").arg(answer, dialog));
}

MessageAnswer PreparedAnswers::Safety(const MessageRecord& record)
{
    const QString go = QStringLiteral("Continue");
    if (AllowFiles)
        return {go, 1};
    if (!left.isEmpty() && left.first() == go)
        return {left.takeFirst(), 1};
    if (OnRefused)
        OnRefused();
    const QStringList captions = ButtonCaptions(record.MessageButtons);
    return {captions.last(), int(captions.size())};
}

MessageAnswer PreparedAnswers::Message(const MessageRecord& record, MessagePurpose purpose)
{
    if (purpose == MessagePurpose::Safety)
        return Safety(record);
    if (purpose == MessagePurpose::OfMacro && OnMessage)
        OnMessage(record);
    const QStringList captions = ButtonCaptions(record.MessageButtons);
    if (left.isEmpty())
        return {captions.first(), 1};
    const QString answer = left.takeFirst();
    const qsizetype at = captions.indexOf(answer);
    if (at >= 0)
        return {answer, int(at) + 1};
    Misfit(answer, QStringLiteral("the buttons ") + record.MessageButtons);
    return {captions.last(), int(captions.size())};
}

std::optional<QString> PreparedAnswers::Input(const QString&, const QString&, const QString&)
{
    if (left.isEmpty())
        return std::nullopt;
    return left.takeFirst();
}

std::optional<int> PreparedAnswers::ListItem(const QStringList& items, const QString& title, bool)
{
    if (left.isEmpty())
        return std::nullopt;
    const QString answer = left.takeFirst();
    if (answer.isEmpty())
        return std::nullopt;
    const qsizetype at = items.indexOf(answer);
    if (at >= 0)
        return int(at);
    Misfit(answer, QStringLiteral("the list ") + title);
    return std::nullopt;
}

std::optional<QString> PreparedAnswers::Element(ElementPick what, const QString& title)
{
    if (left.isEmpty())
        return std::nullopt;
    const QString answer = left.takeFirst();
    if (answer.isEmpty())
        return std::nullopt;
    if (IsElementPick(what, answer))
        return answer;
    Misfit(answer, QStringLiteral("the lists of ") + title);
    return std::nullopt;
}

/// Nobody is there to see a sheet.
std::optional<ElementRecord> PreparedAnswers::Tiles(const QString&, const QString&)
{
    return std::nullopt;
}

void PreparedAnswers::Pause(const QString&, std::optional<int> milliseconds, RunScope& scope)
{
    if (milliseconds)
        WaitFor(scope, *milliseconds);
}
