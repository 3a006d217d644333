#include "conf/inject.h"

#include "conf/block_commands.h"
#include "conf/conf_lines.h"

#include <algorithm>
#include <span>
#include <vector>

namespace {

constexpr size_t Slots = 201, FirstFree = 100, SubGroupStep = 50;
const QString Break = QStringLiteral("\r\n");
QString OrNone(const QString& part)
{
    const QLatin1String crumbled(SubGroupWords.at(size_t(SubGroup::Crumbled)));
    return part.isEmpty() || part.compare(crumbled, Qt::CaseInsensitive) == 0 ? NoPart : part;
}

/// One rebuild: the places that give the block its order.
class Rebuild
{
public:
    Rebuild(const InjectBlock& oldBlock, const KeyParts& newParts, const ValueColumn& valueColumn)
        : block(oldBlock), parts(newParts), column(valueColumn), places(Slots)
    {
    }

    void Keep(qsizetype number, bool ofSubGroup)
    {
        Put(size_t(number) + (ofSubGroup ? SubGroupStep : 0), RenameKey(block.Lines.at(number), block, parts));
    }

    void Add(const QString& command, const BlockCommand& row)
    {
        const size_t slot = nextFree++;
        const QString start = block.Key + QLatin1Char('.') + command;
        Put(slot, Line(start, row.Default ? QLatin1String(row.Default) : block.MainValue));
        for (const BlockCommand& field : std::span(BlockCommands).first(row.GroupFields))
            Put(slot, Line(start + QLatin1Char('.') + QLatin1String(field.Word), QLatin1String(field.Default)));
    }

    QString Text() const
    {
        QString text = RenameKey(block.Lines.value(0), block, parts) + Break;
        for (const QString& filled : places)
            text += filled;
        return text;
    }

private:
    void Put(size_t slot, const QString& line) { places.at(qMin(slot, places.size() - 1)) += line + Break; }

    QString Line(const QString& key, const QString& value) const
    {
        const QString renamed = RenameKey(key + QLatin1Char(':'), block, parts);
        return renamed + PadAfterKey(renamed, column) + value;
    }

    const InjectBlock& block;
    const KeyParts& parts;
    const ValueColumn& column;
    std::vector<QString> places;
    size_t nextFree = FirstFree;
};

} // namespace

QString KeyParts::Key() const
{
    QStringList present;
    for (const QString& part : {Element, Action, Direction})
        if (part != NoPart)
            present << part;
    return present.join(QLatin1Char('.'));
}

InjectBlock ParseBlock(const QString& text, const QStringList& directions)
{
    InjectBlock block;
    block.Lines = text.split(QLatin1Char('\n'));
    for (QString& line : block.Lines)
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    const QString& main = block.Lines.constFirst();
    block.Key = KeyOfLine(main);
    block.MainValue = CleanValue(WithoutNote(main.mid(block.Key.size() + 1)));
    QStringList parts = block.Key.split(QLatin1Char('.')).mid(0, 3);
    if (parts.size() > 1 && directions.contains(parts.at(1).toLower()))
        parts = {parts.at(0), parts.at(1)};
    const bool directed = parts.size() == 2 && directions.contains(parts.at(1).toLower());
    // A sub group ends what the lists show.
    for (qsizetype part = 1; part < parts.size(); ++part)
        if (OrNone(parts.at(part)) == NoPart && !parts.at(part).isEmpty())
            parts = parts.mid(0, part);
    block.Shown = parts.join(QLatin1Char('.')).size();
    if (directed)
        parts.insert(1, QString());
    block.Parts = {OrNone(parts.value(0)), OrNone(parts.value(1)), OrNone(parts.value(2))};
    return block;
}

int CommandOfLine(const QString& line, const QString& key, const QStringList& commands)
{
    if (!line.startsWith(key + QLatin1Char('.'), Qt::CaseInsensitive))
        return -1;
    const QString rest = line.mid(key.size() + 1);
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](QChar c) { return c == u'.' || c == u':' || c.isSpace(); });
    const QString part = rest.left(end - rest.begin());
    const auto first = [&](auto&& fits) {
        const auto found = std::find_if(commands.begin(), commands.end(), fits);
        return found == commands.end() ? -1 : int(found - commands.begin());
    };
    const int whole = first([&](const QString& entry) { return part.compare(entry, Qt::CaseInsensitive) == 0; });
    return whole >= 0 ? whole : first([&](const QString& entry) {
        return entry.size() > 1 && part.startsWith(entry, Qt::CaseInsensitive);
    });
}

QString RenameKey(const QString& line, const InjectBlock& block, const KeyParts& parts)
{
    return parts.Key() + line.mid(block.Shown);
}

QString RebuildBlock(const InjectBlock& block, const KeyParts& parts, const QList<bool>& wanted,
                     const QStringList& commands, const ValueColumn& column)
{
    QList<int> ofLine(1, -1);
    for (const QString& line : block.Lines.mid(1))
        ofLine << CommandOfLine(line, block.Key, commands);
    Rebuild rebuild(block, parts, column);
    for (int command = 0; command < commands.size(); ++command) {
        const BlockCommand* row = size_t(command) < KnownCommands ? &BlockCommands.at(size_t(command)) : nullptr;
        if (row && !wanted.value(command))
            continue;
        bool found = false;
        for (qsizetype number = 1; number < ofLine.size(); ++number) {
            if (ofLine.at(number) != command)
                continue;
            rebuild.Keep(number, row && row->IsSubGroup());
            found = true;
        }
        if (row && !found)
            rebuild.Add(commands.at(command), *row);
    }
    return rebuild.Text();
}

int ForeignLines(const InjectBlock& block, const QStringList& commands)
{
    const QStringList below = block.Lines.mid(1);
    return int(std::count_if(below.begin(), below.end(), [&](const QString& line) {
        return !IsEmptyLine(line) && CommandOfLine(line, block.Key, commands) < 0;
    }));
}
