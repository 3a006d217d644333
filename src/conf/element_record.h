#pragma once

#include <QString>
#include <array>
#include <memory>
#include <optional>

class DocumentHints;

/// An element block.
struct ElementRecord
{
    QString ImageFile = QStringLiteral("Your.PCX");
    int XPos = 0, YPos = 0, Frames = 1, Delay = 1;
    int StartFrame = 0; ///< -1: not given
    QString AnimMode = QStringLiteral("loop");
    int GlobalSync = 0, Offset = 0;
    QString ElementName = QStringLiteral("Element's Full Name");
    QString BlockKey; ///< what stands in front of ".xpos:" on the block's xpos line
    bool Reverse = false;
    bool ElementOpen = false; ///< opened from a block in the text, so that it can be written back

    bool operator==(const ElementRecord&) const = default;
};

/// The fields of a block that the record holds: the first rows of BlockCommands (block_commands.h).
enum BlockField : size_t {
    XPosField,
    YPosField,
    FramesField,
    DelayField,
    AnimModeField,
    StartFrameField,
    GlobalSyncField,
    OffsetField,
    NameField,
    RecordFields ///< how many
};
using FieldFlags = std::array<int, RecordFields>; ///< 1: there

/// The element block in work: one instance. It stays as the last tool left it until the next one takes another.
struct ElementState
{
    ElementRecord Element;
    FieldFlags FieldFound{};
    std::shared_ptr<DocumentHints> Hints;
    std::optional<QString> UnknownMode; ///< the block's anim_mode that "loop" stands in for until the user picks one
};
extern ElementState Conf;
void ResetConf();
