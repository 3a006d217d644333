#include "conf/block_outline.h"

#include "conf/conf_lines.h"
#include "conf/line_pass.h"
#include "conf/sub_groups.h"

#include <algorithm>

namespace {

bool IsComment(const QString& line)
{
    return line.startsWith(QLatin1Char('#'));
}

/// Key of a main line; empty for any other line.
QString MainKey(const QString& line, const SheetEndings& endings)
{
    const qsizetype colon = line.indexOf(QLatin1Char(':'));
    const bool isMain = colon > 0 && !IsComment(line) && HasSheetName(QStringView(line).mid(colon), endings);
    return isMain ? line.left(colon).trimmed() : QString();
}

QString ValueOf(const QString& line)
{
    const QString plain = WithoutNote(line);
    return CleanValue(plain.mid(plain.lastIndexOf(QLatin1Char(':')) + 1));
}

/// The key of a line with what may be its field; empty for a line without one.
QString KeyLineKey(const QString& line)
{
    return IsComment(line) || !line.contains(QLatin1Char(':')) ? QString() : KeyOfLine(line).trimmed();
}

bool Belongs(const QString& key, const QString& mainKey)
{
    return key == mainKey || key.startsWith(mainKey + QLatin1Char('.'));
}

/// Where a main line is searched for, and whether those of sub groups are passed over.
struct UpwardSearch
{
    const LineReader& Lines;
    const SheetEndings& Endings;
    int Reach;
    bool PassGroups;
};

/// The nearest main line upward that the key of `line` belongs to.
std::optional<int> MainLineOf(int line, const UpwardSearch& search)
{
    const LineReader& lines = search.Lines;
    const QString key = KeyLineKey(lines(line).value_or(QString()));
    if (key.isEmpty())
        return std::nullopt;
    for (int above = line; above >= qMax(0, line - search.Reach); --above) {
        const QString main = MainKey(lines(above).value_or(QString()), search.Endings);
        if (main.isEmpty() || (search.PassGroups && IsInGroup(main)))
            continue;
        return Belongs(key, main) ? std::optional(above) : std::nullopt;
    }
    return std::nullopt;
}

/// The fields that a block has, in words.
QString FieldsInWords(const BlockReading& read)
{
    const ElementRecord& element = read.Element;
    const auto has = [&](size_t field) { return read.FieldFound.at(field) == 1; };
    QString words;
    if (has(XPosField) || has(YPosField))
        words += QStringLiteral(", tile %1,%2").arg(element.XPos).arg(element.YPos);
    if (has(FramesField))
        words += element.Frames == 1 ? QStringLiteral(", 1 frame") : QStringLiteral(", %1 frames").arg(element.Frames);
    if (has(DelayField))
        words += QStringLiteral(", delay %1").arg(element.Delay);
    if (has(AnimModeField))
        words += QStringLiteral(", ") + element.AnimMode + (element.Reverse ? QStringLiteral(" reversed") : QString());
    if (has(StartFrameField))
        words += QStringLiteral(", starts at %1").arg(element.StartFrame);
    if (has(GlobalSyncField) && element.GlobalSync == 1)
        words += QStringLiteral(", in step with all others");
    if (has(OffsetField))
        words += QStringLiteral(", offset %1").arg(element.Offset);
    if (has(NameField) && !element.ElementName.isEmpty())
        words += QStringLiteral(", \"") + element.ElementName + QLatin1Char('"');
    return words;
}

} // namespace

std::vector<OutlineBlock> FindBlocks(QByteArrayView text, const SheetEndings& endings)
{
    std::vector<OutlineBlock> blocks;
    int number = -1;
    ForEachLine(text, {}, [&](const ByteLine& line) {
        ++number;
        const qsizetype colon = line.Text.indexOf(':');
        if (colon <= 0 || line.Text.front() == '#' || !HasSheetName(line.Text.sliced(colon), endings))
            return;
        const QString whole = QString::fromUtf8(line.Text);
        const QString key = KeyOfLine(whole).trimmed();
        if (!key.isEmpty())
            blocks.push_back({number, key, ValueOf(whole)});
    });
    return blocks;
}

std::optional<BlockLines> BlockAround(const LineReader& lines, int line, const SheetEndings& endings, BlockReach reach)
{
    std::optional<int> main = MainLineOf(line, {lines, endings, reach.Up, true});
    if (!main)
        main = MainLineOf(line, {lines, endings, reach.Up, false});
    if (!main)
        return std::nullopt;
    const QString key = MainKey(*lines(*main), endings);
    int last = *main;
    while (last < *main + reach.Down) {
        const QString next = lines(last + 1).value_or(QString());
        const QString nextMain = MainKey(next, endings);
        if (!Belongs(KeyLineKey(next), key) || (!nextMain.isEmpty() && !IsInGroup(nextMain)))
            break;
        ++last;
    }
    return last >= line ? std::optional(BlockLines{*main, last}) : std::nullopt;
}

std::optional<HoveredBlock> BlockUnder(const LineReader& lines, int line, int column, const SheetEndings& endings,
                                       BlockReach reach)
{
    const QString hovered = lines(line).value_or(QString());
    if (column >= hovered.indexOf(QLatin1Char(':')))
        return std::nullopt;
    const std::optional<int> main = MainLineOf(line, {lines, endings, reach.Up, !IsInGroup(KeyLineKey(hovered))});
    if (!main)
        return std::nullopt;
    const QString text = *lines(*main);
    return HoveredBlock{MainKey(text, endings), ValueOf(text), ReadBlock({lines, *main, endings}, ValueOf(text))};
}

QString BlockSummary(const LineReader& lines, int line, int column, const SheetEndings& endings)
{
    const std::optional<HoveredBlock> block = BlockUnder(lines, line, column, endings);
    return block ? block->Key + QStringLiteral(": ") + block->Image + FieldsInWords(block->Read) : QString();
}
