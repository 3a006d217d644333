#include "platform/files/ini_text.h"

#include <algorithm>

namespace {

/// A file from elsewhere may hold single lines in another encoding; those read as Latin-1.
QString Decoded(QByteArrayView text)
{
    return text.isValidUtf8() ? QString::fromUtf8(text) : QString::fromLatin1(text);
}

QString KeyOf(QByteArrayView raw, qsizetype equals)
{
    return Decoded(raw.first(equals).trimmed());
}

QString ValueOf(QByteArrayView raw, qsizetype equals)
{
    const QString value = Decoded(raw.sliced(equals + 1).trimmed());
    return value.isNull() ? QLatin1String("") : value;
}

bool IsRemark(QByteArrayView trimmed)
{
    return trimmed.startsWith(';') || trimmed.startsWith('#');
}

/// Name in the brackets. The last bracket of the line closes it, so that a name may hold one; behind it only a remark
/// may stand. Null: no head.
QString HeadName(QByteArrayView trimmed)
{
    if (!trimmed.startsWith('['))
        return {};
    const qsizetype end = trimmed.endsWith(']') ? trimmed.size() - 1 : trimmed.indexOf(']');
    if (end < 0)
        return {};
    const QString name = Decoded(trimmed.sliced(1, end - 1).trimmed());
    return name.isNull() ? QLatin1String("") : name;
}

/// Place of the sign of an entry; -1 if the line is none.
qsizetype EqualsOf(QByteArrayView raw)
{
    const QByteArrayView trimmed = raw.trimmed();
    const qsizetype equals = raw.indexOf('=');
    const bool none =
        equals < 0 || IsRemark(trimmed) || trimmed.startsWith('=') || trimmed.startsWith('[') || raw.contains('\0');
    return none ? -1 : equals;
}

bool IsBlank(QByteArrayView raw)
{
    return raw.trimmed().isEmpty();
}

bool FitsOneLine(const QString& text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c == u'\n' || c.isNull(); });
}

QString Folded(const QString& name)
{
    return name.trimmed().toCaseFolded();
}

} // namespace

bool IniText::MayBeSection(const QString& name)
{
    return FitsOneLine(name);
}

bool IniText::MayBeKey(const QString& key)
{
    const QString name = key.trimmed();
    return FitsOneLine(name) && !name.isEmpty() && !name.contains(u'=') && !QStringView(u"[;#").contains(name.front());
}

bool IniText::MayBeValue(const QString& value)
{
    return FitsOneLine(value);
}

IniText::IniText(QByteArray text) : bytes(std::move(text))
{
    QByteArrayView rest(bytes);
    if (rest.startsWith("\xEF\xBB\xBF")) {
        mark = rest.first(3);
        rest = rest.sliced(3);
    }
    const qsizetype firstEnd = rest.indexOf('\n');
    if (firstEnd > 0 && rest.at(firstEnd - 1) == '\r')
        lineEnd = "\r\n";
    blocks.emplace_back();
    while (!rest.isEmpty()) {
        const qsizetype end = rest.indexOf('\n');
        const qsizetype size = end < 0 ? rest.size() : end + 1;
        TakeLine(rest.first(size));
        rest = rest.sliced(size);
    }
    sections[QString()].Blocks.insert(sections[QString()].Blocks.begin(), 0);
    for (Section& section : sections)
        Index(section);
}

void IniText::TakeLine(QByteArrayView raw)
{
    const QString head = raw.contains('\0') ? QString() : HeadName(raw.trimmed());
    if (head.isNull()) {
        blocks.back().Lines.push_back({raw, EqualsOf(raw)});
        return;
    }
    sections[Folded(head)].Blocks.push_back(blocks.size());
    blocks.push_back({raw, {}});
}

void IniText::Index(Section& section)
{
    section.Keys.clear();
    for (const size_t block : section.Blocks) {
        const std::vector<Line>& lines = blocks[block].Lines;
        for (size_t line = 0; line < lines.size(); ++line) {
            if (!IsEntry(lines[line]))
                continue;
            const QString key = Folded(KeyOf(lines[line].Raw, lines[line].Equals));
            if (!section.Keys.contains(key))
                section.Keys.insert(key, {block, line});
        }
    }
}

const IniText::Place* IniText::Find(const QString& sectionName, const QString& key) const
{
    const auto section = sections.constFind(Folded(sectionName));
    if (section == sections.cend())
        return nullptr;
    const auto place = section->Keys.constFind(Folded(key));
    return place == section->Keys.cend() ? nullptr : &*place;
}

QString IniText::Value(const QString& sectionName, const QString& key) const
{
    const Place* const place = Find(sectionName, key);
    if (!place)
        return {};
    const Line& line = blocks[place->Block].Lines[place->Line];
    return ValueOf(line.Raw, line.Equals);
}

QString IniText::Items(const QString& sectionName) const
{
    QString items;
    const auto section = sections.constFind(Folded(sectionName));
    if (section == sections.cend())
        return items;
    for (const size_t block : section->Blocks) {
        for (const Line& line : blocks[block].Lines) {
            if (IsEntry(line))
                items += KeyOf(line.Raw, line.Equals) + u'=' + ValueOf(line.Raw, line.Equals) + QChar(u'\0');
        }
    }
    return items;
}

QByteArrayView IniText::Added(const QString& line)
{
    return added.emplace_back(line.toUtf8() + lineEnd);
}

IniText::Line IniText::NewEntry(const QString& key, const QString& value)
{
    const QByteArrayView raw = Added(key.trimmed() + u'=' + value);
    return {raw, raw.indexOf('=')};
}

/// The file's last line may have no end; one that gets a line behind it needs one.
void IniText::EndLastLine()
{
    Block& block = blocks.back();
    QByteArrayView& last = block.Lines.empty() ? block.Head : block.Lines.back().Raw;
    if (!last.isEmpty() && !last.endsWith('\n'))
        last = added.emplace_back(last.toByteArray() + lineEnd);
}

IniText::Section& IniText::SectionToWrite(const QString& name)
{
    EndLastLine();
    Section& section = sections[Folded(name)];
    if (!section.Blocks.empty())
        return section;
    const Block& last = blocks.back();
    const bool empty = blocks.size() == 1 && last.Lines.empty();
    if (!empty && (last.Lines.empty() || !IsBlank(last.Lines.back().Raw)))
        blocks.back().Lines.push_back({Added({}), -1});
    section.Blocks.push_back(blocks.size());
    blocks.push_back({Added(u'[' + name.trimmed() + u']'), {}});
    return section;
}

bool IniText::IsEntry(const Line& line)
{
    return line.Equals >= 0;
}

/// Behind the last entry; where there is none, behind the remarks that follow the head.
std::vector<IniText::Line>::iterator IniText::PlaceForNew(std::vector<Line>& lines)
{
    const auto at = std::find_if(lines.rbegin(), lines.rend(), IsEntry).base();
    const auto isRemark = [](const Line& line) { return IsRemark(line.Raw.trimmed()); };
    return at != lines.begin() ? at : std::find_if_not(lines.begin(), lines.end(), isRemark);
}

void IniText::Set(const QString& sectionName, const QString& key, const QString& value)
{
    if (const Place* const place = Find(sectionName, key)) {
        Line& line = blocks[place->Block].Lines[place->Line];
        line = NewEntry(KeyOf(line.Raw, line.Equals), value);
        return;
    }
    Section& section = SectionToWrite(sectionName);
    // In its first block behind all entries, so that no known place moves.
    const size_t block = section.Blocks.front();
    std::vector<Line>& lines = blocks[block].Lines;
    const auto line = lines.insert(PlaceForNew(lines), NewEntry(key, value));
    section.Keys.insert(Folded(key), {block, size_t(line - lines.begin())});
}

void IniText::SetItems(const QString& sectionName, const QString& items)
{
    if (items.isEmpty() && !sections.contains(Folded(sectionName)))
        return;
    Section& section = SectionToWrite(sectionName);
    std::vector<Line> entries;
    for (const QString& item : items.split(QChar(u'\0'), Qt::SkipEmptyParts))
        entries.push_back(NewEntry(item.section(u'=', 0, 0), item.section(u'=', 1)));
    for (const size_t block : section.Blocks)
        std::erase_if(blocks[block].Lines, IsEntry);
    std::vector<Line>& lines = blocks[section.Blocks.front()].Lines;
    lines.insert(PlaceForNew(lines), entries.begin(), entries.end());
    Index(section);
}

QByteArray IniText::Bytes() const
{
    QByteArray text = mark.toByteArray();
    for (const Block& block : blocks) {
        text += block.Head;
        for (const Line& line : block.Lines)
            text += line.Raw;
    }
    return text;
}
