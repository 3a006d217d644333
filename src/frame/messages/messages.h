#pragma once

#include "frame/messages/message_numbers.h"
#include "platform/result.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <span>

/// One numbered message. To add one: its name in message_numbers.h, its row in message_table.cpp, in number order; a
/// way out if no button is "Cancel" or "Break" and the first button would lose something.
struct MessageRow
{
    message::Number Number;
    int Nag; ///< index in Nags, -1: always shown
    const char* Title;
    int Icon;
    const char* Colour;
    const char* Buttons; ///< captions joined with "_"
    int WayOut;          ///< as MessageRecord's
    const char* Text;    ///< "^" breaks the line, %1 and %2 the texts
};
std::span<const MessageRow> Messages();

/// The call record: what the message window shows and what it answered.
struct MessageRecord
{
    message::Number Number = message::CallersOwn;
    QString MessageTitle, MessageText;
    int MessageIcon = 1;
    QString MessageButtons = QStringLiteral("OK");
    QString MessageColour = QStringLiteral("whi");
    int WayOut = 0;        ///< place of the button that closing answers with; 0: see WayOutOf
    QString MessageResult; ///< caption pressed; "" when the message was not shown
    int MessageButtonIndex = 0;
};

/// The record of a numbered message.
MessageRecord RecordOf(message::Number number, const QString& text = {}, const QString& text2 = {});
/// The same; nothing if the message's nag flag is off.
std::optional<MessageRecord> NumberedMessage(message::Number number, const QString& text = {},
                                             const QString& text2 = {});

/// Fills the call record (Frame.Message) from the table and asks. Gives back the place of the button pressed, from 1;
/// 0 at once if the message's nag flag is off (a suppressed question counts as confirmed).
int ShowMessage(message::Number number, const QString& text = {}, const QString& text2 = {});

/// Asks a numbered question. False if the answer was its way out.
bool Confirmed(message::Number number, const QString& text = {}, const QString& text2 = {});

/// Shows what an operation failed at, path first.
void ShowFailure(const Failure& failure);

/// Shows Frame.Message as a caller has filled it. Gives back the place of the button pressed.
int ShowRecord();

/// Shows what waits in Frame.HeldMessages, and from now on every message at once.
void ShowHeldMessages();

/// The captions that a list of buttons gives: split at "_", up to the first empty one; at least "OK".
QStringList ButtonCaptions(const QString& buttons);

/// The place of the button that closing without one answers with: the record's own, else that of "Cancel" or "Break",
/// else the first.
int WayOutOf(const MessageRecord& record);
