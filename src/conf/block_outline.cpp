#include "conf/block_outline.h"

#include "conf/conf_lines.h"
#include "conf/line_pass.h"
#include "frame/frame_state.h"

#include <algorithm>

namespace {

constexpr int ReachUp = 100, ReachDown = 200;
constexpr std::array<const char*, 3> SubGroups = {"EDITOR", "PREVIEW", "CRUMBLED"};

/// As HasSheetName, on bytes.
bool NamesSheet(QByteArrayView text, const QList<QByteArray>& kinds)
{
    for (qsizetype dot = text.indexOf('.'); dot >= 0; dot = text.indexOf('.', dot + 1))
        for (const QByteArray& kind : kinds)
            if (text.size() - dot > kind.size() &&
                text.sliced(dot + 1, kind.size()).compare(kind, Qt::CaseInsensitive) == 0)
                return true;
    return false;
}

QList<QByteArray> KindsAsBytes()
{
    QList<QByteArray> kinds;
    for (const QString& kind : Frame.Settings.SheetKinds)
        kinds << kind.toUtf8();
    return kinds;
}

bool IsComment(const QString& line)
{
    return line.startsWith(QLatin1Char('#'));
}

/// Key of a main line; empty for any other line.
QString MainKey(const QString& line)
{
    const qsizetype colon = line.indexOf(QLatin1Char(':'));
    return colon > 0 && !IsComment(line) && HasSheetName(QStringView(line).mid(colon)) ? line.left(colon).trimmed()
                                                                                       : QString();
}

QString ValueOf(const QString& line)
{
    return CleanValue(line.mid(line.lastIndexOf(QLatin1Char(':')) + 1));
}

/// The key of a line with what may be its field; empty for a line without one.
QString KeyLineKey(const QString& line)
{
    return IsComment(line) || !line.contains(QLatin1Char(':')) ? QString() : KeyOfLine(line).trimmed();
}

bool IsInGroup(const QString& key)
{
    const QStringList parts = key.split(QLatin1Char('.'));
    return std::any_of(SubGroups.begin(), SubGroups.end(),
                       [&](const char* group) { return parts.contains(QLatin1String(group), Qt::CaseInsensitive); });
}

bool Belongs(const QString& key, const QString& mainKey)
{
    return key == mainKey || key.startsWith(mainKey + QLatin1Char('.'));
}

/// The nearest main line upward that the key of `line` belongs to; those of sub groups are passed over if told so.
std::optional<int> MainLineOf(const LineReader& lines, int line, bool passGroups)
{
    const QString key = KeyLineKey(lines(line).value_or(QString()));
    if (key.isEmpty())
        return std::nullopt;
    for (int above = line; above >= qMax(0, line - ReachUp); --above) {
        const QString main = MainKey(lines(above).value_or(QString()));
        if (main.isEmpty() || (passGroups && IsInGroup(main)))
            continue;
        return Belongs(key, main) ? std::optional(above) : std::nullopt;
    }
    return std::nullopt;
}

/// The fields that a block has, as one would tell them.
QString ToldFields(const BlockReading& read)
{
    const ElementRecord& element = read.Element;
    const auto has = [&](size_t field) { return read.FieldFound.at(field) == 1; };
    QString told;
    if (has(0) || has(1))
        told += QStringLiteral(", tile %1,%2").arg(element.XPos).arg(element.YPos);
    if (has(2))
        told += element.Frames == 1 ? QStringLiteral(", 1 frame") : QStringLiteral(", %1 frames").arg(element.Frames);
    if (has(3))
        told += QStringLiteral(", delay %1").arg(element.Delay);
    if (has(4))
        told += QStringLiteral(", ") + element.AnimMode + (element.Reverse ? QStringLiteral(" reversed") : QString());
    if (has(5))
        told += QStringLiteral(", starts at %1").arg(element.StartFrame);
    if (has(6) && element.GlobalSync == 1)
        told += QStringLiteral(", in step with all others");
    if (has(7))
        told += QStringLiteral(", offset %1").arg(element.Offset);
    if (has(8) && !element.ElementName.isEmpty())
        told += QStringLiteral(", \"") + element.ElementName + QLatin1Char('"');
    return told;
}

} // namespace

std::vector<OutlineBlock> FindBlocks(QByteArrayView text)
{
    const QList<QByteArray> kinds = KindsAsBytes();
    std::vector<OutlineBlock> blocks;
    int number = -1;
    ForEachLine(text, {}, [&](const ByteLine& line) {
        ++number;
        const qsizetype colon = line.Text.indexOf(':');
        if (colon <= 0 || line.Text.front() == '#' || !NamesSheet(line.Text.sliced(colon), kinds))
            return;
        const QString whole = QString::fromUtf8(line.Text);
        const QString key = KeyOfLine(whole).trimmed();
        if (!key.isEmpty())
            blocks.push_back({number, key, ValueOf(whole)});
    });
    return blocks;
}

std::optional<BlockLines> BlockAround(const LineReader& lines, int line)
{
    std::optional<int> main = MainLineOf(lines, line, true);
    if (!main)
        main = MainLineOf(lines, line, false);
    if (!main)
        return std::nullopt;
    const QString key = MainKey(*lines(*main));
    int last = *main;
    while (last < *main + ReachDown) {
        const QString next = lines(last + 1).value_or(QString());
        const QString nextMain = MainKey(next);
        if (!Belongs(KeyLineKey(next), key) || (!nextMain.isEmpty() && !IsInGroup(nextMain)))
            break;
        ++last;
    }
    return last >= line ? std::optional(BlockLines{*main, last}) : std::nullopt;
}

std::optional<HoveredBlock> BlockUnder(const LineReader& lines, int line, int column)
{
    const QString hovered = lines(line).value_or(QString());
    if (column >= hovered.indexOf(QLatin1Char(':')))
        return std::nullopt;
    const std::optional<int> main = MainLineOf(lines, line, !IsInGroup(KeyLineKey(hovered)));
    if (!main)
        return std::nullopt;
    const QString text = *lines(*main);
    return HoveredBlock{MainKey(text), ValueOf(text), ReadBlock(lines, *main, {}, ValueOf(text))};
}

QString BlockSummary(const LineReader& lines, int line, int column)
{
    const std::optional<HoveredBlock> block = BlockUnder(lines, line, column);
    return block ? block->Key + QStringLiteral(": ") + block->Image + ToldFields(block->Read) : QString();
}
