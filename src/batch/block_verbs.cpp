#include "batch/block_verbs.h"

#include "conf/block_commands.h"
#include "conf/block_outline.h"
#include "conf/conf_lines.h"
#include "conf/line_pass.h"
#include "frame/frame_state.h"
#include "platform/files/paths.h"
#include "text/encoding.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

/// A conf file in lines, and its blocks.
struct BlockFile
{
    QStringList Lines;
    std::vector<OutlineBlock> Blocks;

    BlockSource Source(const OutlineBlock& block) const
    {
        return {LinesOf(Lines), block.Line, Frame.Settings.SheetKinds};
    }
};

Result<BlockFile> ReadBlocks(const QString& path)
{
    const Result<QByteArray> bytes = paths::ReadWhole(path, paths::LargestDocument);
    if (!bytes)
        return tl::unexpected(bytes.error());
    const QByteArray text = FromFile(*bytes, EncodingOf(*bytes));
    BlockFile file;
    ForEachLine(text, {}, [&](const ByteLine& line) { file.Lines << QString::fromUtf8(line.Text); });
    file.Blocks = FindBlocks(text, Frame.Settings.SheetKinds);
    return file;
}

ElementRecord ElementOf(const BlockFile& file, const OutlineBlock& block)
{
    ElementRecord fresh;
    fresh.ImageFile = block.Image;
    return ReadBlock(file.Source(block), block.Image, fresh).Element;
}

/// A JSON object whose members keep their order.
QByteArray JsonLine(const std::vector<std::pair<const char*, QJsonValue>>& members)
{
    QByteArray line;
    for (const auto& [name, value] : members) {
        const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        line += QByteArray(line.isEmpty() ? "{\"" : ",\"") + name + "\":" + list.sliced(1, list.size() - 2);
    }
    return line + '}';
}

QJsonValue JsonValue(const BlockCommand& field, const ElementRecord& element)
{
    switch (field.Kind) {
    case ValueKind::Number:
        return element.*field.Number;
    case ValueKind::Flag:
        return element.*field.Number == 1;
    default:
        return element.*field.Text;
    }
}

QByteArray JsonOf(const OutlineBlock& block, const ElementRecord& element)
{
    std::vector<std::pair<const char*, QJsonValue>> members{
        {"key", block.Key}, {"line", block.Line + 1}, {"image", block.Image}};
    for (size_t field = 0; field < RecordFields; ++field)
        members.emplace_back(BlockCommands.at(field).Word, JsonValue(BlockCommands.at(field), element));
    members.emplace_back("reverse", element.Reverse);
    return JsonLine(members);
}

VerbResult PrintBlocks(const QString& path, VerbStreams& streams)
{
    const Result<BlockFile> file = ReadBlocks(path);
    if (!file)
        return Failed(file.error(), streams);
    for (const OutlineBlock& block : file->Blocks)
        streams.Out << QString::fromUtf8(JsonOf(block, ElementOf(*file, block))) << '\n';
    return VerbDone;
}

/// A line without what aligns its value.
QString Unaligned(const QString& line)
{
    const qsizetype colon = line.indexOf(QLatin1Char(':'));
    return colon < 0 ? line : line.left(colon + 1).trimmed() + CleanValue(line.mid(colon + 1));
}

struct Verified
{
    qsizetype Blocks = 0, Same = 0;
};

/// Reads every block, writes it back in memory and compares all lines.
Result<Verified> VerifyFile(const QString& path, VerbStreams& streams)
{
    const Result<BlockFile> file = ReadBlocks(path);
    if (!file)
        return tl::unexpected(file.error());
    Verified counts;
    for (const OutlineBlock& block : file->Blocks) {
        ElementRecord element = ElementOf(*file, block);
        bool same = true;
        for (const LineChange& change : UpdatedLines(file->Source(block), element, CurrentValueColumn())) {
            const QString before = Unaligned(file->Lines.at(change.Line)), after = Unaligned(change.Text);
            if (before == after)
                continue;
            same = false;
            streams.Out << path << ':' << change.Line + 1 << ": " << before << " became " << after << '\n';
        }
        ++counts.Blocks;
        counts.Same += same ? 1 : 0;
    }
    return counts;
}

VerbResult VerifyFiles(const QStringList& files, VerbStreams& streams)
{
    Verified all;
    VerbResult worst = VerbDone;
    for (const QString& path : files) {
        const Result<Verified> counts = VerifyFile(path, streams);
        if (!counts) {
            worst = Failed(counts.error(), streams);
            continue;
        }
        all.Blocks += counts->Blocks;
        all.Same += counts->Same;
    }
    streams.Out << all.Blocks << " blocks: " << all.Same << " the same, " << all.Blocks - all.Same << " different\n";
    return qMax(worst, all.Same == all.Blocks ? VerbDone : VerbFound);
}

} // namespace

VerbResult BlocksVerb(const QStringList& arguments, VerbStreams& streams)
{
    QStringList files = arguments;
    const bool verify = files.removeAll(QStringLiteral("--verify")) > 0;
    if (files.isEmpty() || (!verify && files.size() > 1))
        return WrongUsage("blocks", QStringLiteral("a file is wanted"), streams);
    return verify ? VerifyFiles(files, streams) : PrintBlocks(files.constFirst(), streams);
}
