#include "frame/media/sheet_endings.h"

#include <algorithm>

namespace {

/// One rule for text and for bytes, since a whole file is searched as it lies.
template <class View, class Dot, class Ending>
bool NamesOneOf(View line, Dot dot, const QList<Ending>& endings)
{
    for (qsizetype at = line.indexOf(dot); at >= 0; at = line.indexOf(dot, at + 1)) {
        const View rest = line.sliced(at + 1);
        for (const Ending& ending : endings)
            if (rest.size() >= ending.size() &&
                rest.first(ending.size()).compare(View(ending), Qt::CaseInsensitive) == 0)
                return true;
    }
    return false;
}

} // namespace

SheetEndings::SheetEndings(QStringList endings) : words(std::move(endings))
{
    for (const QString& word : words)
        bytes << word.toUtf8();
}

int SheetEndings::Of(const QString& name) const
{
    const auto own = std::find_if(words.begin(), words.end(),
                                  [&](const QString& word) { return name.endsWith(u'.' + word, Qt::CaseInsensitive); });
    return own == words.end() ? -1 : int(own - words.begin());
}

QStringList SheetEndings::Twins(const QString& name) const
{
    const int own = Of(name);
    QStringList twins;
    for (int other = 0; own >= 0 && other < words.size(); ++other)
        if (other != own)
            twins << name.chopped(words.at(own).size()) + words.at(other);
    return twins;
}

bool SheetEndings::StandsFor(const QString& value, const QString& name) const
{
    const QStringList values = QStringList(value) + Twins(value);
    return !value.isEmpty() && std::any_of(values.begin(), values.end(), [&](const QString& start) {
        return name.startsWith(start, Qt::CaseInsensitive);
    });
}

QString SheetEndings::Patterns() const
{
    QStringList patterns;
    for (const QString& word : words)
        patterns << QStringLiteral("*.") + word;
    return patterns.join(u';');
}

bool HasSheetName(QStringView line, const SheetEndings& endings)
{
    return NamesOneOf(line, u'.', endings.Words());
}

bool HasSheetName(QByteArrayView line, const SheetEndings& endings)
{
    return NamesOneOf(line, '.', endings.bytes);
}
