#include "conf/block_commands.h"

#include "conf/conf_lines.h"

#include <limits>

namespace {

constexpr int Largest = std::numeric_limits<qint16>::max(), LargestDelay = 5'000'000;

constexpr BlockCommand Number(const char* word, const char* standard, int ElementRecord::*place, int low,
                              int high = Largest)
{
    return {.Word = word,
            .Default = standard,
            .Group = InjectGroup::Common,
            .Kind = ValueKind::Number,
            .Number = place,
            .Low = low,
            .High = high};
}

constexpr BlockCommand Rare(const char* word, const char* standard, InjectUse use = InjectUse::NotCrumbled)
{
    return {.Word = word, .Default = standard, .Group = InjectGroup::Rare, .Use = use};
}

constexpr BlockCommand Group(SubGroup group, size_t fields)
{
    return {.Word = SubGroupWords.at(size_t(group)),
            .Default = nullptr,
            .Group = InjectGroup::SubCommands,
            .Use = InjectUse::NotCrumbled,
            .GroupFields = fields};
}

} // namespace

using R = ElementRecord;
constexpr std::array<BlockCommand, KnownCommands> BlockCommands = {{
    Number("xpos", "0", &R::XPos, 0),
    Number("ypos", "0", &R::YPos, 0),
    Number("frames", "1", &R::Frames, 1),
    Number("delay", "1", &R::Delay, 1, LargestDelay),
    {.Word = "anim_mode",
     .Default = "loop",
     .Group = InjectGroup::Common,
     .Kind = ValueKind::Mode,
     .Text = &R::AnimMode},
    Number("start_frame", "0", &R::StartFrame, 0),
    {.Word = "global_sync",
     .Default = "true",
     .Group = InjectGroup::Common,
     .Kind = ValueKind::Flag,
     .Number = &R::GlobalSync},
    Number("offset", "32", &R::Offset, 0),
    {.Word = "name",
     .Default = "Element's Full Name",
     .Group = InjectGroup::Common,
     .Use = InjectUse::NotCrumbled,
     .Kind = ValueKind::Text,
     .Text = &R::ElementName},
    Rare("crumbled_like", "sand"),
    Rare("diggable_like", "sand"),
    Rare("anim_delay_fixed", "0"),
    Rare("anim_delay_random", "0"),
    Rare("post_delay_fixed", "0"),
    Rare("post_delay_random", "0"),
    Group(SubGroup::Editor, 2),
    Group(SubGroup::Preview, 2),
    Group(SubGroup::Crumbled, 5),
    Rare("border_size", "4", InjectUse::OnlyCrumbled),
}};
static_assert(BlockCommands[NameField].Kind == ValueKind::Text && BlockCommands[EditorCommand].GroupFields == 2);

void ReadField(size_t field, const QString& value, ElementRecord& record)
{
    const BlockCommand& row = BlockCommands.at(field);
    const QString plain = CleanText(WithoutNote(value));
    switch (row.Kind) {
    case ValueKind::Number:
        record.*row.Number = ClampNumber(plain, row.Low, row.High);
        break;
    case ValueKind::Mode: {
        const AnimModeText mode = ParseAnimMode(plain);
        record.*row.Text = mode.AnimMode;
        record.Reverse = mode.HasReverse;
        break;
    }
    case ValueKind::Flag:
        record.*row.Number = plain.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ? 1 : 0;
        break;
    case ValueKind::Text: // a name may hold a "#"
        record.*row.Text = CleanValue(value);
        break;
    case ValueKind::None:
        break;
    }
}

QString FieldText(size_t field, const ElementRecord& record)
{
    const BlockCommand& row = BlockCommands.at(field);
    switch (row.Kind) {
    case ValueKind::Number:
        return QString::number(record.*row.Number);
    case ValueKind::Flag:
        return record.*row.Number == 1 ? QStringLiteral("true") : QStringLiteral("false");
    case ValueKind::Mode:
    case ValueKind::Text:
        return record.*row.Text;
    case ValueKind::None:
        break;
    }
    return {};
}
