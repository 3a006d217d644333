#include "windows/macro/jump_list.h"

#include "frame/editor_pane.h"
#include "macro/word_facts.h"
#include "windows/macro/live_marks.h"

#include <algorithm>

namespace {

constexpr int FewestLetters = 12;

} // namespace

JumpList::JumpList(EditorPane& ofWorkbench, QWidget* parent) : QComboBox(parent), code(ofWorkbench)
{
    setObjectName(QStringLiteral("cboPlaces"));
    setAccessibleName(QStringLiteral("Labels and subs"));
    setToolTip(QStringLiteral("Labels and subs of the code (F12)"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(FewestLetters);
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (index > 0)
            GoTo(places[size_t(index) - 1].Line);
    });
    connect(&code, &DocumentText::SelectionChanged, this, &JumpList::FollowCaret);
    Refresh();
}

void JumpList::Refresh()
{
    std::vector<SourcePlace> found = NamesOfSource(LinesOfText(code)).Places;
    const bool same = std::ranges::equal(found, places, [](const SourcePlace& a, const SourcePlace& b) {
        return a.Name == b.Name && a.IsSub == b.IsSub;
    });
    places = std::move(found);
    if (!same || count() == 0) {
        QStringList names = {QStringLiteral("(top)")};
        for (const SourcePlace& place : places)
            names << (place.IsSub ? QStringLiteral("sub ") : QStringLiteral("label ")) + place.Name;
        clear();
        addItems(names);
    }
    setEnabled(!places.empty());
    FollowCaret();
}

void JumpList::FollowCaret()
{
    const auto behind = std::ranges::upper_bound(places, code.CaretLine(), {}, &SourcePlace::Line);
    setCurrentIndex(int(behind - places.begin()));
}

void JumpList::GoTo(int line)
{
    code.FocusPane();
    code.ExecuteCmd(CmdGotoLine, line);
}

const SourcePlace* JumpList::PlaceAtCaret() const
{
    QString word = WordAt(code.GetLine(code.CaretLine()), code.CaretColumn());
    if (!word.startsWith(u'@'))
        word.prepend(u'@');
    const auto place = std::ranges::find_if(
        places, [&](const SourcePlace& one) { return one.Name.compare(word, Qt::CaseInsensitive) == 0; });
    return place == places.end() || place->Line == code.CaretLine() ? nullptr : &*place;
}

void JumpList::GoOrAsk()
{
    Refresh();
    if (const SourcePlace* place = PlaceAtCaret())
        GoTo(place->Line);
    else if (isEnabled()) {
        setFocus();
        showPopup();
    }
}
