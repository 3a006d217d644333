#include "platform/screen/key_notation.h"

#include <QStringList>

namespace {

constexpr size_t MostStrokes = 100'000;
constexpr int LastFunctionKey = 16;

struct NamedKey
{
    QLatin1StringView Name, Key;
};

constexpr NamedKey NamedKeys[] = {
    {QLatin1StringView("BACKSPACE"), QLatin1StringView("BackSpace")},
    {QLatin1StringView("BKSP"), QLatin1StringView("BackSpace")},
    {QLatin1StringView("BS"), QLatin1StringView("BackSpace")},
    {QLatin1StringView("BREAK"), QLatin1StringView("Break")},
    {QLatin1StringView("CAPSLOCK"), QLatin1StringView("Caps_Lock")},
    {QLatin1StringView("CLEAR"), QLatin1StringView("Clear")},
    {QLatin1StringView("DEL"), QLatin1StringView("Delete")},
    {QLatin1StringView("DELETE"), QLatin1StringView("Delete")},
    {QLatin1StringView("DOWN"), QLatin1StringView("Down")},
    {QLatin1StringView("END"), QLatin1StringView("End")},
    {QLatin1StringView("ENTER"), QLatin1StringView("Return")},
    {QLatin1StringView("ESC"), QLatin1StringView("Escape")},
    {QLatin1StringView("ESCAPE"), QLatin1StringView("Escape")},
    {QLatin1StringView("HELP"), QLatin1StringView("Help")},
    {QLatin1StringView("HOME"), QLatin1StringView("Home")},
    {QLatin1StringView("INS"), QLatin1StringView("Insert")},
    {QLatin1StringView("INSERT"), QLatin1StringView("Insert")},
    {QLatin1StringView("LEFT"), QLatin1StringView("Left")},
    {QLatin1StringView("NUMLOCK"), QLatin1StringView("Num_Lock")},
    {QLatin1StringView("PGDN"), QLatin1StringView("Next")},
    {QLatin1StringView("PGUP"), QLatin1StringView("Prior")},
    {QLatin1StringView("PRTSC"), QLatin1StringView("Print")},
    {QLatin1StringView("RETURN"), QLatin1StringView("Return")},
    {QLatin1StringView("RIGHT"), QLatin1StringView("Right")},
    {QLatin1StringView("SCROLLLOCK"), QLatin1StringView("Scroll_Lock")},
    {QLatin1StringView("TAB"), QLatin1StringView("Tab")},
    {QLatin1StringView("UP"), QLatin1StringView("Up")},
};

/// Line breaks and tabs are keys; anything else is its character.
QByteArray CharacterKey(char32_t character)
{
    switch (character) {
    case U'\n':
    case U'\r':
        return QByteArrayLiteral("Return");
    case U'\t':
        return QByteArrayLiteral("Tab");
    default:
        return 'U' + QByteArray::number(quint32(character), 16).toUpper().rightJustified(4, '0');
    }
}

/// Empty if there is no such key.
QByteArray KeyOfName(const QString& name)
{
    const QList<uint> characters = name.toUcs4();
    if (characters.size() == 1)
        return CharacterKey(characters.first());
    for (const NamedKey& key : NamedKeys)
        if (name.compare(key.Name, Qt::CaseInsensitive) == 0)
            return QByteArray(key.Key.data(), key.Key.size());
    bool isNumber = false;
    const int function = name.startsWith(QLatin1Char('F'), Qt::CaseInsensitive) ? name.mid(1).toInt(&isNumber) : 0;
    return isNumber && function >= 1 && function <= LastFunctionKey ? 'F' + QByteArray::number(function) : QByteArray();
}

class NotationReader
{
public:
    explicit NotationReader(const QString& told) : text(told), characters(told.toUcs4()) {}

    Result<std::vector<KeyStroke>> Read()
    {
        while (at < characters.size())
            if (!Take(characters[at++]))
                return Fail({}, QStringLiteral("This is no text for keys: ") + text);
        if (!groups.empty())
            return Fail({}, QStringLiteral("A bracket is not closed: ") + text);
        return strokes;
    }

private:
    bool Take(char32_t character)
    {
        switch (character) {
        case U'+':
            return held.Shift = true;
        case U'^':
            return held.Control = true;
        case U'%':
            return held.Alt = true;
        case U'~':
            return Add(QByteArrayLiteral("Return"), 1);
        case U'(':
            groups.push_back(std::exchange(ofGroup, held));
            return true;
        case U')':
            return CloseGroup();
        case U'{':
            return TakeBraces();
        case U'}':
            return false;
        case U'\r':
            if (at < characters.size() && characters[at] == U'\n')
                ++at;
            [[fallthrough]];
        default:
            return Add(CharacterKey(character), 1);
        }
    }
    bool CloseGroup()
    {
        if (groups.empty())
            return false;
        held = ofGroup = groups.back();
        groups.pop_back();
        return true;
    }
    /// A brace itself may stand in braces.
    bool TakeBraces()
    {
        const qsizetype from = at;
        const qsizetype end = at < characters.size() ? characters.indexOf(U'}', at + 1) : -1;
        if (end < 0)
            return false;
        at = end + 1;
        const QString inner =
            QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.data() + from), end - from);
        const qsizetype blank = inner.indexOf(QLatin1Char(' '), 1);
        bool isNumber = blank < 0;
        const int count = blank < 0 ? 1 : inner.mid(blank + 1).trimmed().toInt(&isNumber);
        const QByteArray key = KeyOfName(blank < 0 ? inner : inner.left(blank));
        return isNumber && count >= 0 && !key.isEmpty() && Add(key, size_t(count));
    }
    bool Add(const QByteArray& key, size_t count)
    {
        if (count > MostStrokes - strokes.size())
            return false;
        KeyStroke stroke = held;
        stroke.Key = key;
        strokes.insert(strokes.end(), count, stroke);
        held = ofGroup;
        return true;
    }

    const QString text;
    const QList<uint> characters;
    qsizetype at = 0;
    KeyStroke held;    ///< what the next key is held with
    KeyStroke ofGroup; ///< what all of the group in work is held with
    std::vector<KeyStroke> groups;
    std::vector<KeyStroke> strokes;
};

} // namespace

Result<std::vector<KeyStroke>> ReadKeyNotation(const QString& text)
{
    return NotationReader(text).Read();
}
