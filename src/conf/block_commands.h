#pragma once

#include "conf/element_record.h"
#include "conf/sub_groups.h"

/// How the value of a field is read and written.
enum class ValueKind { None, Number, Mode, Flag, Text };

/// The group box that the inject window has a command in.
enum class InjectGroup { Common, SubCommands, Rare };

/// The blocks that a command can be added to: those of a CRUMBLED group have fewer, and one of their own.
enum class InjectUse { Every, NotCrumbled, OnlyCrumbled };

/// One command of an element block.
struct BlockCommand
{
    const char* Word;    ///< after the key and a dot; as in the game's list GraphicComs
    const char* Default; ///< value of a line that is added; null: the block's own image
    InjectGroup Group;
    InjectUse Use = InjectUse::Every;
    size_t GroupFields = 0; ///< of a sub group: so many of the first fields are added with it

    // Where ElementRecord holds the value; only for fields.
    ValueKind Kind = ValueKind::None;
    int ElementRecord::*Number = nullptr; ///< of a number or flag
    int Low = 0, High = 0;                ///< bounds of a number
    QString ElementRecord::*Text = nullptr;

    bool IsSubGroup() const { return GroupFields > 0; }
};

/// All commands that the program knows, in the order of GraphicComs, which may have more. Reading and writing of
/// blocks, the inject and the sheet window, the outline and the batch verbs go by these rows.
constexpr size_t KnownCommands = 19;
extern const std::array<BlockCommand, KnownCommands> BlockCommands;
constexpr size_t EditorCommand = 15;

/// The commands of a new block in the order of the quick element settings. EditorCommand stands for its three lines.
constexpr std::array<size_t, 10> QuickFields = {XPosField,     YPosField,       FramesField, DelayField,
                                                AnimModeField, StartFrameField, NameField,   GlobalSyncField,
                                                OffsetField,   EditorCommand};

/// Takes the value of a field, a note after it left out, into a record; held within the field's bounds.
void ReadField(size_t field, const QString& value, ElementRecord& record);

/// What is written for a field of a record.
QString FieldText(size_t field, const ElementRecord& record);
