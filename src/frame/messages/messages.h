#pragma once

#include <QString>
#include <optional>
#include <span>

/// One numbered message. To add one: add its row in messages.cpp, in number order; a number from 300 to 349 for our
/// own messages; give it a way out if no button is "Cancel" or "Break" and the first button would lose something.
struct MessageRow
{
    int Code;
    int Nag; ///< index in Nags, -1: always shown
    const char* Title;
    int Icon;
    const char* Colour;
    const char* Buttons; ///< captions joined with "_"
    const char* WayOut;  ///< caption that closing without a button answers with
    const char* Text;    ///< "^" breaks the line, %1 and %2 the texts
};
std::span<const MessageRow> Messages();

/// The call record: what the message window shows and what it answered.
struct MessageRecord
{
    QString MessageTitle, MessageText;
    int MessageIcon = 1;
    QString MessageButtons = QStringLiteral("OK");
    QString MessageColour = QStringLiteral("whi");
    QString WayOut;        ///< empty: "Cancel" or "Break" where the list has one, else its first caption
    QString MessageResult; ///< caption pressed; "" when the message was not shown
    int MessageButtonIndex = 0;
};

/// A row of the table with its texts; nothing if the message's nag flag is off.
std::optional<MessageRecord> NumberedMessage(int code, const QString& text = {}, const QString& text2 = {});

/// Fills the call record (Frame.Message) from the table and asks. Gives back MessageResult, "" at once if the
/// message's nag flag is off (a suppressed question counts as confirmed).
QString ShowMessage(int code, const QString& text = {}, const QString& text2 = {});

/// Shows Frame.Message as a caller has filled it.
QString ShowRecord();

/// Shows what waits in Frame.HeldMessages, and from now on every message at once.
void ShowHeldMessages();

/// The captions that a list of buttons gives: split at "_", up to the first empty one; at least "OK".
QStringList ButtonCaptions(const QString& buttons);
QString WayOutOf(const MessageRecord& record);

/// Our own questions.
enum OwnMessage : int {
    MessagePathError = 105,
    MessageChangedOutside = 300, ///< text: the files; "Load Again_Keep Mine"
    MessageChangeToUtf8 = 301,   ///< text: the file; "Save As UTF-8_Cancel"
    MessageSettingsBroken = 302, ///< text: keys that took the shipped default
    MessageFolderReadOnly = 303, ///< text: path and reason; settings stay in memory
    MessageFileVanished = 304,   ///< text: the files
    MessageTextNotKept = 306,    ///< text: path and reason; "Cancel_Close Anyway"
    MessageNoBackup = 305,       ///< text: path and reason; "Save Without Backup_Cancel"
    MessageOverChanged = 307,    ///< text: the file, changed since it was loaded; "Cancel_Overwrite"
};
