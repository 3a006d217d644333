#include "frame/messages/messages.h"

#include "frame/frame_state.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"

#include <algorithm>
#include <utility>

namespace {

/// %1 and %2 in one pass, so that a "%2" inside the first text stays what it is.
QString Filled(const char* form, const QString& text, const QString& text2)
{
    QString filled;
    const QString whole = QString::fromUtf8(form);
    for (qsizetype i = 0; i < whole.size(); ++i) {
        const bool place = whole[i] == u'%' && i + 1 < whole.size();
        if (place && (whole[i + 1] == u'1' || whole[i + 1] == u'2'))
            filled += whole[++i] == u'1' ? text : text2;
        else
            filled += whole[i];
    }
    return filled;
}

bool IsSuppressed(const MessageRow& row)
{
    return row.Nag >= 0 && Frame.Settings.Nags.at(row.Nag) == 0;
}

const MessageRow& RowOf(message::Number number)
{
    const auto rows = Messages();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [number](const MessageRow& r) { return r.Number == number; });
    Q_ASSERT_X(row != rows.end(), "RowOf", qPrintable(QString::number(number)));
    return *row;
}

} // namespace

MessageRecord RecordOf(message::Number number, const QString& text, const QString& text2)
{
    const MessageRow& row = RowOf(number);
    const bool unknown = number == message::FileConsent && text.isEmpty();
    MessageRecord record;
    record.Number = number;
    record.MessageTitle = Filled(row.Title, text, text2);
    record.MessageText = Filled(row.Text, unknown ? QStringLiteral("UNKNOWN!") : text, text2);
    record.MessageIcon = row.Icon;
    record.MessageButtons = QString::fromUtf8(row.Buttons);
    record.MessageColour = QString::fromUtf8(row.Colour);
    record.WayOut = row.WayOut;
    return record;
}

std::optional<MessageRecord> NumberedMessage(message::Number number, const QString& text, const QString& text2)
{
    if (IsSuppressed(RowOf(number)))
        return std::nullopt;
    return RecordOf(number, text, text2);
}

int ShowMessage(message::Number number, const QString& text, const QString& text2)
{
    const std::optional<MessageRecord> record = NumberedMessage(number, text, text2);
    if (!record) {
        Frame.Message.MessageResult.clear();
        return 0;
    }
    Frame.Message = *record;
    return ShowRecord();
}

bool Confirmed(message::Number number, const QString& text, const QString& text2)
{
    const int place = ShowMessage(number, text, text2);
    return place == 0 || place != WayOutOf(Frame.Message);
}

void ShowFailure(const Failure& failure)
{
    ShowMessage(message::PathError, failure.Text());
}

int ShowRecord()
{
    const QStringList captions = ButtonCaptions(Frame.Message.MessageButtons);
    if (Frame.HoldMessages && captions.size() == 1) {
        Frame.HeldMessages.push_back(Frame.Message);
        Frame.Message.MessageResult = captions.first();
        Frame.Message.MessageButtonIndex = 1;
        return 1;
    }
    Frame.Message.MessageResult.clear();
    Frame.Message.MessageButtonIndex = 0;
    // A copy: while the message is open a timer may show another one.
    MessageRecord shown = Frame.Message;
    const Answer answer = Ask(MessageQuestion{shown});
    shown.MessageButtonIndex = std::get<Pressed>(answer).Place;
    shown.MessageResult = captions.at(shown.MessageButtonIndex - 1);
    Frame.Message = shown;
    return shown.MessageButtonIndex;
}

void ShowHeldMessages()
{
    Frame.HoldMessages = false;
    for (const MessageRecord& record : std::exchange(Frame.HeldMessages, {})) {
        Frame.Message = record;
        ShowRecord();
    }
}

QStringList ButtonCaptions(const QString& buttons)
{
    QStringList captions = buttons.split(u'_');
    const qsizetype end = captions.indexOf(QString());
    if (end >= 0)
        captions.resize(end);
    return captions.isEmpty() ? QStringList{QStringLiteral("OK")} : captions;
}

int WayOutOf(const MessageRecord& record)
{
    if (record.WayOut > 0)
        return record.WayOut;
    const QStringList captions = ButtonCaptions(record.MessageButtons);
    for (const QLatin1StringView caption : {QLatin1StringView("Cancel"), QLatin1StringView("Break")})
        if (const qsizetype at = captions.indexOf(caption); at >= 0)
            return int(at) + 1;
    return 1;
}
