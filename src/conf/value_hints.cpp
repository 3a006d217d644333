#include "conf/value_hints.h"

#include "conf/line_hints.h"
#include "conf/line_pass.h"

#include <QHash>
#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

struct ParameterRow
{
    const char* Word;
    ParameterKind Kind;
};

/// The parameters that every graphic may have. "x", "y" and the like of the game's windows are numbers as well.
constexpr ParameterRow Parameters[] = {
    {"x", ParameterKind::Number},
    {"y", ParameterKind::Number},
    {"xpos", ParameterKind::Number},
    {"ypos", ParameterKind::Number},
    {"width", ParameterKind::Number},
    {"height", ParameterKind::Number},
    {"vertical", ParameterKind::Truth},
    {"offset", ParameterKind::Number},
    {"xoffset", ParameterKind::Number},
    {"yoffset", ParameterKind::Number},
    {"2nd_movement_tile", ParameterKind::Number},
    {"2nd_vertical", ParameterKind::Truth},
    {"2nd_offset", ParameterKind::Number},
    {"2nd_xoffset", ParameterKind::Number},
    {"2nd_yoffset", ParameterKind::Number},
    {"2nd_swap_tiles", ParameterKind::Truth},
    {"frames", ParameterKind::Number},
    {"frames_per_line", ParameterKind::Number},
    {"start_frame", ParameterKind::Number},
    {"delay", ParameterKind::Number},
    {"anim_mode", ParameterKind::Mode},
    {"global_sync", ParameterKind::Truth},
    {"global_anim_sync", ParameterKind::Truth},
    {"crumbled_like", ParameterKind::Element},
    {"diggable_like", ParameterKind::Element},
    {"border_size", ParameterKind::Number},
    {"step_offset", ParameterKind::Number},
    {"step_delay", ParameterKind::Number},
    {"draw_xoffset", ParameterKind::Number},
    {"draw_yoffset", ParameterKind::Number},
    {"draw_masked", ParameterKind::Truth},
    {"draw_order", ParameterKind::Number},
    {"scale_up_factor", ParameterKind::Number},
    {"tile_size", ParameterKind::Number},
    {"clone_from", ParameterKind::Element},
    {"fade_delay", ParameterKind::Number},
    {"post_delay", ParameterKind::Number},
    {"auto_delay", ParameterKind::Number},
};

const QStringList ModeWords = {
    QStringLiteral("default"),  QStringLiteral("none"),          QStringLiteral("loop"),
    QStringLiteral("linear"),   QStringLiteral("pingpong"),      QStringLiteral("pingpong2"),
    QStringLiteral("random"),   QStringLiteral("random_static"), QStringLiteral("ce_value"),
    QStringLiteral("ce_score"), QStringLiteral("ce_delay"),      QStringLiteral("horizontal"),
    QStringLiteral("vertical"), QStringLiteral("centered"),      QStringLiteral("all"),
    QStringLiteral("tiled"),    QStringLiteral("level_nr"),      QStringLiteral("reverse"),
    QStringLiteral("once"),     QStringLiteral("opaque_player"), QStringLiteral("static_panel"),
};
constexpr qsizetype BesideModes = 4; ///< the last of them stand beside a mode and are none
const QStringList TruthWords = {QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("yes"),
                                QStringLiteral("no"),   QStringLiteral("on"),    QStringLiteral("off"),
                                QStringLiteral("1"),    QStringLiteral("0")};

QString Plain(QByteArrayView value)
{
    return QString::fromUtf8(value.first(value.contains('#') ? value.indexOf('#') : value.size())).trimmed();
}

/// `message`, with the known word that is near to `word` as it stands in the value.
ValueSaying Said(const QString& message, const QString& word, const QStringList& known)
{
    const QString near = NearestWord(word.toLower(), known);
    if (near.isEmpty())
        return {message};
    return {message + QStringLiteral(" Did you mean \"") + near + QStringLiteral("\"?"), word, near};
}

/// Words of truth are numbers too; of anything else the digits in front count.
long TakenNumber(const QString& value)
{
    const int truth = int(TruthWords.indexOf(value.toLower()));
    return truth >= 0 ? 1 - truth % 2 : std::strtol(value.toUtf8().constData(), nullptr, 10);
}

ValueSaying NumberHint(const QString& value)
{
    bool isNumber = false;
    value.toInt(&isNumber);
    if (isNumber)
        return {};
    return {QStringLiteral("\"%1\" is no number; the game takes %2.").arg(value).arg(int(TakenNumber(value)))};
}

ValueSaying TruthHint(const QString& value)
{
    if (TruthWords.contains(value.toLower()))
        return {};
    return Said(QStringLiteral("\"%1\" is neither true nor false; the game takes it for false.").arg(value), value,
                TruthWords);
}

ValueSaying ModeHint(const QString& value)
{
    QStringList unknown;
    bool plays = false; // one of the words is a mode
    for (const QString& part : value.split(u',')) {
        const qsizetype row = ModeWords.indexOf(part.trimmed().toLower());
        plays = plays || (row >= 0 && row < ModeWords.size() - BesideModes);
        if (row < 0)
            unknown << part.trimmed();
    }
    if (unknown.isEmpty())
        return {};
    return Said(QStringLiteral("The mode \"%1\" is not known; the game ").arg(unknown.first()) +
                    (plays ? QStringLiteral("passes it over.") : QStringLiteral("plays loop.")),
                unknown.first(), ModeWords);
}

/// A graphic is cloned from any key; what can be told is its element.
ValueSaying ElementHint(const QString& value, const QStringList& elements)
{
    const QString element = value.section(u'.', 0, 0);
    if (elements.isEmpty() || elements.contains(element))
        return {};
    return Said(QStringLiteral("There is no \"%1\" to take this from.").arg(value), element, elements);
}

constexpr int Largest = std::numeric_limits<qint16>::max(); ///< of a number: no sheet is larger
constexpr int Reach = 200;                                  ///< lines below the main line that are looked at

/// The parameters of a block as numbers; what is not there is its default.
class BlockNumbers
{
public:
    explicit BlockNumbers(QByteArrayView block)
    {
        qsizetype from = 0;
        const ByteLine main = TakeLine(block, from);
        const QByteArrayView key = main.Text.first(qMax<qsizetype>(main.Text.indexOf(':'), 0)).trimmed();
        for (int number = 1; from < block.size() && number <= Reach; ++number) {
            const ByteLine line = TakeLine(block, from);
            if (key.isEmpty() || !line.Text.startsWith(key))
                return;
            const qsizetype colon = line.Text.indexOf(':');
            if (colon <= key.size() || line.Text[key.size()] != '.')
                continue;
            const QByteArrayView word = line.Text.sliced(key.size() + 1, colon - key.size() - 1);
            if (!word.contains('.'))
                values.insert(word, {number, Plain(line.Text.sliced(colon + 1))});
        }
    }

    int LineOf(const char* word) const { return values.value(QByteArrayView(word)).Line; }
    bool Has(const char* word) const { return values.contains(QByteArrayView(word)); }
    bool True(const char* word) const
    {
        const QString value = values.value(QByteArrayView(word)).Text.toLower();
        return value == QLatin1String("true") || value == QLatin1String("yes") || value == QLatin1String("on") ||
               value == QLatin1String("1");
    }
    int Number(const char* word, int standard) const
    {
        bool isNumber = false;
        const int number = values.value(QByteArrayView(word)).Text.toInt(&isNumber);
        return isNumber ? std::clamp(number, -Largest, Largest) : standard;
    }

private:
    struct Value
    {
        int Line = 0;
        QString Text;
    };
    QHash<QByteArrayView, Value> values;
};

/// A place on a sheet, or a way over it, in pixels. What a conf tells may lie far outside of both.
struct SheetPlace
{
    qint64 X = 0, Y = 0;
};

/// Where frames lie on their sheet.
struct FrameRun
{
    QSize Frame;
    SheetPlace Start, Offset;
    int Frames = 1, PerLine = 1;
};

FrameRun RunOf(const BlockNumbers& block, QSize sheet)
{
    FrameRun run;
    const int tile = block.Number("tile_size", 32);
    run.Frame = QSize(qMax(1, block.Number("width", tile)), qMax(1, block.Number("height", tile)));
    run.Start = {block.Number("x", block.Number("xpos", 0) * run.Frame.width()),
                 block.Number("y", block.Number("ypos", 0) * run.Frame.height())};
    const bool vertical = block.True("vertical");
    const int offset = block.Number("offset", vertical ? run.Frame.height() : run.Frame.width());
    run.Offset = vertical ? SheetPlace{0, offset} : SheetPlace{offset, 0};
    if (block.Has("xoffset") || block.Has("yoffset"))
        run.Offset = {block.Number("xoffset", 0), block.Number("yoffset", 0)};
    run.Frames = qMax(1, block.Number("frames", 1));
    const int fits = vertical ? sheet.height() / run.Frame.height() : sheet.width() / run.Frame.width();
    run.PerLine = qMax(1, block.Number("frames_per_line", qMax(1, fits)));
    return run;
}

/// Frames in rows go on in the next row, those in columns in the next column.
SheetPlace LastFrame(const FrameRun& run)
{
    const qint64 width = run.Frame.width(), height = run.Frame.height();
    const SheetPlace place{run.Start.X + (run.Frames - 1) * run.Offset.X,
                           run.Start.Y + (run.Frames - 1) * run.Offset.Y};
    if (run.Offset.Y == 0) {
        const qint64 row = run.PerLine * width;
        const qint64 along = run.Start.Y / height * row + place.X;
        return {along % row, run.Start.Y % height + along / row * height};
    }
    if (run.Offset.X == 0) {
        const qint64 column = run.PerLine * height;
        const qint64 along = run.Start.X / width * column + place.Y;
        return {run.Start.X % width + along / column * width, along % column};
    }
    return place;
}

bool LiesOn(QSize sheet, SheetPlace place, QSize frame)
{
    return place.X >= 0 && place.Y >= 0 && place.X + frame.width() <= sheet.width() &&
           place.Y + frame.height() <= sheet.height();
}

} // namespace

ParameterKind KindOfParameter(QByteArrayView key)
{
    const QByteArrayView word = key.sliced(key.lastIndexOf('.') + 1);
    const auto* row = std::find_if(std::begin(Parameters), std::end(Parameters),
                                   [&](const ParameterRow& one) { return word == QByteArrayView(one.Word); });
    return row == std::end(Parameters) || word.size() == key.size() ? ParameterKind::Other : row->Kind;
}

ValueSaying ValueHint(QByteArrayView key, QByteArrayView value, const QStringList& elements)
{
    const QString text = Plain(value);
    if (text.isEmpty() || text.startsWith(u'['))
        return {};
    switch (KindOfParameter(key)) {
    case ParameterKind::Number:
        return NumberHint(text);
    case ParameterKind::Truth:
        return TruthHint(text);
    case ParameterKind::Mode:
        return ModeHint(text);
    case ParameterKind::Element:
        return ElementHint(text, elements);
    case ParameterKind::Other:
        break;
    }
    return {};
}

std::vector<BlockHint> BlockHints(QByteArrayView block, QSize sheet)
{
    std::vector<BlockHint> said;
    const BlockNumbers numbers(block);
    if (numbers.Number("offset", 1) == 0 && numbers.Number("frames", 1) > 1)
        said.push_back(
            {numbers.LineOf("offset"), QStringLiteral("With an offset of 0 the game shows the first frame for ever.")});
    const bool placed = numbers.Has("xpos") || numbers.Has("ypos") || numbers.Has("x") || numbers.Has("y");
    if (sheet.isEmpty() || !placed || numbers.Has("scale_up_factor"))
        return said;
    const FrameRun run = RunOf(numbers, sheet);
    const QString outside =
        QStringLiteral(" outside the sheet of %1 by %2 pixels.").arg(sheet.width()).arg(sheet.height());
    if (!LiesOn(sheet, run.Start, run.Frame))
        said.push_back({0, QStringLiteral("The first frame lies") + outside});
    else if (!LiesOn(sheet, LastFrame(run), run.Frame))
        said.push_back({0, QStringLiteral("The last of %1 frames lies").arg(run.Frames) + outside});
    return said;
}
