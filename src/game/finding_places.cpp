#include "game/finding_places.h"

#include "conf/line_pass.h"
#include "platform/files/paths.h"

#include <algorithm>
#include <map>

namespace {

constexpr const char* SetConfs[] = {"graphics/graphicsinfo.conf", "sounds/soundsinfo.conf", "music/musicinfo.conf"};

struct KeyValue
{
    QString Key, Value;
};

KeyValue Cut(QByteArrayView line)
{
    if (const qsizetype note = line.indexOf('#'); note >= 0)
        line = line.first(note);
    line = line.trimmed();
    const auto isEnd = [](char c) { return c == ':' || c == '='; };
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    const char* end = std::find_if(line.begin(), line.end(), isEnd);
    if (end == line.end())
        end = std::find_if(line.begin(), line.end(), isBlank);
    const qsizetype size = end - line.begin();
    return {QString::fromUtf8(line.first(size).trimmed()),
            QString::fromUtf8(line.sliced(qMin(size + 1, line.size())).trimmed())};
}

class Placer
{
public:
    Placer(const QString& setFolder, const ConfText& confText) : folder(setFolder), text(confText) {}

    PlacedFinding Place(GameFinding finding)
    {
        PlacedFinding placed{std::move(finding), -1};
        if (!placed.Finding.File.isEmpty() && placed.Finding.Key.isEmpty())
            FindClone(placed);
        else if (!placed.Finding.File.isEmpty())
            placed.Line = IndexOf(placed.Finding.File).LineOfKey(placed.Finding.Key);
        else if (!placed.Finding.Key.isEmpty())
            FindInSet(placed, [&](const ConfIndex& index) { return index.LineOfKey(placed.Finding.Key); });
        else if (!placed.Finding.Picture.isEmpty())
            FindInSet(placed, [&](const ConfIndex& index) {
                const int line = index.LineOfValue(placed.Finding.Picture);
                return line >= 0 ? line : index.LineOfValue(paths::FileNameOfPath(placed.Finding.Picture));
            });
        return placed;
    }

private:
    const ConfIndex& IndexOf(const QString& path)
    {
        auto found = indexes.find(path);
        if (found == indexes.end())
            found = indexes.emplace(path, ConfIndex(text(path))).first;
        return found->second;
    }

    /// A graphic that is cloned from nothing is told by what it was to be cloned from.
    void FindClone(PlacedFinding& placed)
    {
        const QString& wrong = placed.Finding.Text;
        const qsizetype from = wrong.indexOf(u'\'') + 1, end = wrong.lastIndexOf(u'\'');
        if (!wrong.startsWith(QLatin1String("invalid ")) || end < from)
            return;
        const ConfIndex& index = IndexOf(placed.Finding.File);
        placed.Line = index.LineOfValue(wrong.mid(from, end - from), QStringLiteral(".clone_from"));
        placed.Finding.Key = index.KeyOf(placed.Line);
    }

    template <class Find>
    void FindInSet(PlacedFinding& placed, Find find)
    {
        for (const char* conf : SetConfs) {
            const QString path = folder + QLatin1String(conf);
            const ConfIndex& index = IndexOf(path);
            const int line = find(index);
            if (line < 0)
                continue;
            placed.Line = line;
            placed.Finding.File = path;
            placed.Finding.Key = index.KeyOf(line);
            return;
        }
    }

    QString folder;
    const ConfText& text;
    std::map<QString, ConfIndex> indexes;
};

} // namespace

ConfIndex::ConfIndex(QByteArrayView utf8)
{
    qsizetype from = 0;
    for (int number = 0;; ++number) {
        const ByteLine line = TakeLine(utf8, from);
        const KeyValue cut = Cut(line.Text);
        if (!cut.Key.isEmpty()) {
            keys.insert(cut.Key, number);
            keyOfLine.insert(number, cut.Key);
            valueOfKey.insert(cut.Key, cut.Value);
            values.insert(cut.Value, {number, cut.Key});
        }
        if (line.Break.isEmpty())
            return;
    }
}

int ConfIndex::LineOfKey(const QString& key) const
{
    return keys.value(key, -1);
}

QString ConfIndex::ValueOfKey(const QString& key) const
{
    return valueOfKey.value(key);
}

int ConfIndex::LineOfValue(const QString& value, const QString& ending) const
{
    int first = -1;
    for (auto [at, end] = values.equal_range(value); at != end; ++at)
        if (at->Key.endsWith(ending) && (first < 0 || at->Line < first))
            first = at->Line;
    return first;
}

QString ConfIndex::KeyOf(int line) const
{
    return keyOfLine.value(line);
}

std::vector<PlacedFinding> PlaceFindings(std::vector<GameFinding> findings, const QString& setFolder,
                                         const ConfText& text)
{
    Placer placer(setFolder, text);
    std::vector<PlacedFinding> placed;
    placed.reserve(findings.size());
    for (GameFinding& finding : findings)
        placed.push_back(placer.Place(std::move(finding)));
    return placed;
}
