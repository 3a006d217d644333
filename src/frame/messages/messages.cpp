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
    const QString told = QString::fromUtf8(form);
    for (qsizetype i = 0; i < told.size(); ++i) {
        const bool place = told[i] == u'%' && i + 1 < told.size();
        if (place && (told[i + 1] == u'1' || told[i + 1] == u'2'))
            filled += told[++i] == u'1' ? text : text2;
        else
            filled += told[i];
    }
    return filled;
}

bool IsSuppressed(const MessageRow& row)
{
    return row.Nag >= 0 && Frame.Settings.Nags.at(row.Nag) == 0;
}

MessageRecord RecordOf(const MessageRow& row, const QString& text, const QString& text2)
{
    constexpr int ConsentForFiles = 58;
    const bool unknown = row.Code == ConsentForFiles && text.isEmpty();
    MessageRecord record;
    record.MessageTitle = Filled(row.Title, text, text2);
    record.MessageText = Filled(row.Text, unknown ? QStringLiteral("UNKNOWN!") : text, text2);
    record.MessageIcon = row.Icon;
    record.MessageButtons = QString::fromUtf8(row.Buttons);
    record.MessageColour = QString::fromUtf8(row.Colour);
    record.WayOut = QString::fromUtf8(row.WayOut);
    return record;
}

} // namespace

std::optional<MessageRecord> NumberedMessage(int code, const QString& text, const QString& text2)
{
    const auto rows = Messages();
    const auto row = std::find_if(rows.begin(), rows.end(), [code](const MessageRow& r) { return r.Code == code; });
    Q_ASSERT_X(row != rows.end(), "NumberedMessage", qPrintable(QString::number(code)));
    if (row == rows.end() || IsSuppressed(*row))
        return std::nullopt;
    return RecordOf(*row, text, text2);
}

QString ShowMessage(int code, const QString& text, const QString& text2)
{
    const std::optional<MessageRecord> record = NumberedMessage(code, text, text2);
    if (!record) {
        Frame.Message.MessageResult.clear();
        return {};
    }
    Frame.Message = *record;
    return ShowRecord();
}

QString ShowRecord()
{
    const QStringList captions = ButtonCaptions(Frame.Message.MessageButtons);
    if (Frame.HoldMessages && captions.size() == 1) {
        Frame.HeldMessages.push_back(Frame.Message);
        Frame.Message.MessageResult = captions.first();
        Frame.Message.MessageButtonIndex = 1;
        return captions.first();
    }
    const WorkScope modal;
    Frame.Message.MessageResult.clear();
    Frame.Message.MessageButtonIndex = 0;
    // A copy: while the message is open a timer may show another one.
    MessageRecord shown = Frame.Message;
    const MessageAnswer answer = Ask().Message(shown);
    shown.MessageResult = answer.Caption;
    shown.MessageButtonIndex = answer.Index;
    Frame.Message = shown;
    return answer.Caption;
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

QString WayOutOf(const MessageRecord& record)
{
    if (!record.WayOut.isEmpty())
        return record.WayOut;
    const QStringList captions = ButtonCaptions(record.MessageButtons);
    for (const QString& caption : {QStringLiteral("Cancel"), QStringLiteral("Break")})
        if (captions.contains(caption))
            return caption;
    return captions.first();
}
