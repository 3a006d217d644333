#include "conf/value_list.h"

#include "conf/sub_groups.h"
#include "conf/value_hints.h"
#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "frame/vocabulary.h"

#include <algorithm>

namespace {

bool IsTicked(WordKind kind)
{
    return Frame.Settings.AutoCompleteTemplate.at(kind) == 1;
}

QStringList ModeWordsOfGame()
{
    return Frame.Settings.AnimModes + ReadWordList(QStringLiteral("AnimModifiers"));
}

/// Does the game look for a file in the line of this key? Keys that say something of the set itself have no element.
bool NamesFile(const QString& key)
{
    const auto& words = Frame.WordLists.at(Frame.CurrentMode);
    if (!words[KindElements].contains(key.section(u'.', 0, 0)))
        return false;
    const QString last = key.section(u'.', -1);
    return Frame.CurrentMode != ModeGfx || last == key || GroupAtEnd(key) || !words[KindGraphicComs].contains(last);
}

/// Of the document's folder and of the game.
QStringList FilesOfLists()
{
    QStringList names;
    for (const MediaSource source : {MediaSource::PCXBrowser, MediaSource::Rnd}) {
        const MediaListModel& list = Lists().List(source);
        for (int row = 0; row < list.rowCount(); ++row)
            names << list.Name(row);
    }
    names.removeDuplicates();
    return names;
}

struct Offer
{
    QStringList Items;
    bool Several = false; ///< words with commas between
    bool Files = false;
};

Offer OfferFor(const QString& key)
{
    const int mode = Frame.CurrentMode;
    const auto& ticks = Frame.Settings.AutoCompleteTemplate;
    if (std::all_of(ticks.begin(), ticks.end(), [](int tick) { return tick != 1; }))
        return {};
    switch (mode == ModeGfx ? KindOfParameter(key.toUtf8()) : ParameterKind::Other) {
    case ParameterKind::Truth:
        if (IsTicked(KindGraphicComs))
            return {{QStringLiteral("true"), QStringLiteral("false")}};
        break;
    case ParameterKind::Mode:
        if (IsTicked(KindGraphicComs))
            return {.Items = ModeWordsOfGame(), .Several = true};
        break;
    case ParameterKind::Element:
        if (IsTicked(KindElements))
            return {Frame.WordLists.at(mode)[KindElements]};
        break;
    case ParameterKind::Number:
        break;
    case ParameterKind::Other:
        if ((mode == ModeGfx || mode == ModeSfx || mode == ModeMus) && NamesFile(key))
            return {.Items = FilesOfLists(), .Files = true};
        break;
    }
    return {};
}

} // namespace

OfferedValues ValuesAt(const QString& line, int number, int column)
{
    const qsizetype colon = line.indexOf(u':'), note = line.indexOf(u'#');
    if (colon < 0 || column <= colon || (note >= 0 && note < column))
        return {};
    const Offer offer = OfferFor(line.left(colon).trimmed());
    if (offer.Items.isEmpty())
        return {};
    qsizetype from = colon + 1, until = note < 0 ? line.size() : note;
    if (offer.Several) {
        from = qMax(from, line.lastIndexOf(u',', column - 1) + 1);
        const qsizetype comma = line.indexOf(u',', column);
        until = comma < 0 ? until : qMin(until, comma);
    }
    while (from < until && line.at(from).isSpace())
        ++from;
    while (until > qMax<qsizetype>(from, column) && line.at(until - 1).isSpace())
        --until;
    if (from > column && from < until)
        return {}; // in front of a value that stands there
    from = qMin<qsizetype>(from, column);
    OfferedValues offered{offer.Items, {}, line.mid(from, column - from), offer.Files};
    offered.Place = {
        .StartLine = number, .StartCol = int(from), .EndLine = number, .EndCol = int(qMax<qsizetype>(until, column))};
    return offered;
}

OfferedValues ValuesAtCaret(EditorPane& pane)
{
    const int line = pane.CaretLine();
    return ValuesAt(pane.GetLine(line), line, pane.CaretColumn());
}
