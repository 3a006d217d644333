#pragma once

#include "frame/messages/asker.h"
#include "frame/messages/messages.h"

#include <QString>
#include <optional>

struct ElementRecord;
class RunScope;

/// Which lists of the graphics words a person picks from.
enum class ElementPick { All, Element, Action };

/// What a message of a run is about, for askers that answer some of them by themselves.
enum class MessagePurpose {
    OfMacro,     ///< the command `message`
    CloseChanged, ///< may a text that is not saved go?
    Safety       ///< may a command work with files or programs?
};

/// Everything that a run asks a person.
class RunAsker
{
public:
    virtual ~RunAsker() = default;
    virtual MessageAnswer Message(const MessageRecord& record, MessagePurpose purpose) = 0;
    virtual std::optional<QString> Input(const QString& title, const QString& prompt, const QString& preset) = 0;
    /// One of the items: its place from 0. `popup`: as a menu at the pointer.
    virtual std::optional<int> ListItem(const QStringList& items, const QString& title, bool popup) = 0;
    virtual std::optional<QString> Element(ElementPick what, const QString& title) = 0;
    virtual std::optional<ElementRecord> Tiles(const QString& file, const QString& title) = 0;
    /// Shows a text until it is clicked away, or for so many milliseconds at most.
    virtual void Pause(const QString& text, std::optional<int> milliseconds, RunScope& scope) = 0;
};
