#include "editor/looks.h"

#include "editor/line_colours.h"
#include "platform/images/contrast.h"
#include "platform/screen/text_family.h"

#include <QFontDatabase>
#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

namespace {

constexpr int WindowSlot = 0, NormalSlot = 4, NormalBackSlot = 5, HighlightSlot = 30;
constexpr int HighlightMarker = 0, LineNumberMargin = 0, SymbolMargin = 1, FoldMargin = 2;
constexpr int FewestDigits = 3, LeftGap = 4;
constexpr size_t MostPrintStyles = 200;

int Mixed(int a, int b)
{
    return ((a >> 1) & 0x7F7F7F) + ((b >> 1) & 0x7F7F7F);
}

} // namespace

int Looks::SelectionBack(int window)
{
    return IsDarkColour(FromBgr(window)) ? 0x6B4621 : 0xFFD6AD;
}

/// One kind of text a row: its style in the component, its colour slots and its font slot.
struct Looks::Kind
{
    int Style, Fore, Back, Font;
};

const Looks::Kind Looks::Kinds[] = {
    {StyleNormal, NormalSlot, NormalBackSlot, 0},
    {StyleNumber, 6, 7, 1},
    {StyleElement, 8, 9, 2},
    {StyleOperator, 10, 11, 3},
    {StyleComment, 14, 15, 5},
    {StyleString, 16, 17, 6},
    {StyleAction, 20, 21, 8},
    {StyleCommand, 22, 23, 9},
    {StyleSpecial, 24, 25, 10},
    {Sci::STYLE_LINENUMBER, 26, 27, 11},
};

Looks::Looks(Component& component)
    : text(component), fontName(QFontDatabase::systemFont(QFontDatabase::FixedFont).family())
{
    colors.fill(0);
    for (const Kind& kind : Kinds)
        colors[size_t(kind.Back)] = -1;
    colors[WindowSlot] = 0xFFFFFF;
    colors[HighlightSlot] = 0xD4D4D4;
    text.Send(Sci::SCI_SETMARGINTYPEN, LineNumberMargin, Sci::SC_MARGIN_NUMBER);
    for (const int margin : {LineNumberMargin, SymbolMargin, FoldMargin})
        text.Send(Sci::SCI_SETMARGINWIDTHN, margin, 0L);
    text.Send(Sci::SCI_SETMARGINLEFT, 0, long(LeftGap));
    text.Send(Sci::SCI_MARKERDEFINE, HighlightMarker, Sci::SC_MARK_BACKGROUND);
    text.Send(Sci::SCI_SETCARETLINEVISIBLEALWAYS, 1);
    ApplyAll();
}

void Looks::SetColor(int slot, int bgr)
{
    if (slot < 0 || slot >= int(colors.size()) || colors[size_t(slot)] == bgr)
        return;
    colors[size_t(slot)] = bgr;
    if (slot == WindowSlot || slot == NormalSlot || slot == NormalBackSlot || slot == HighlightSlot)
        ApplyPlain();
    for (const Kind& kind : Kinds)
        if (slot == WindowSlot || slot == kind.Fore || slot == kind.Back)
            Apply(kind);
}

int Looks::GetColor(int slot) const
{
    return slot < 0 || slot >= int(colors.size()) ? -1 : colors[size_t(slot)];
}

void Looks::SetFontStyle(int slot, int style)
{
    if (slot < 0 || slot >= int(fontStyles.size()))
        return;
    fontStyles[size_t(slot)] = style & 3;
    for (const Kind& kind : Kinds)
        if (slot == kind.Font)
            Apply(kind);
}

int Looks::GetFontStyle(int slot) const
{
    return slot < 0 || slot >= int(fontStyles.size()) ? 0 : fontStyles[size_t(slot)];
}

void Looks::SetFont(const QString& name, double points)
{
    fontName = name;
    if (points > 0)
        fontPoints = points;
    ApplyAll();
}

int Looks::BackOf(int slot) const
{
    const int back = colors[size_t(slot)];
    return back < 0 ? colors[WindowSlot] : back;
}

/// Font and plain colours for all styles, then what each kind has of its own.
void Looks::ApplyAll()
{
    const QByteArray family = TextFamily(fontName).toUtf8();
    text.Send(Sci::SCI_STYLESETFONT, Sci::STYLE_DEFAULT, family.constData());
    text.Send(Sci::SCI_STYLESETSIZEFRACTIONAL, Sci::STYLE_DEFAULT,
              long(fontPoints * double(Sci::SC_FONT_SIZE_MULTIPLIER)));
    ApplyPlain();
    text.Send(Sci::SCI_STYLECLEARALL);
    text.Send(Sci::SCI_STYLESETVISIBLE, long(StyleUnseen), 0L);
    for (const Kind& kind : Kinds)
        Apply(kind);
    for (size_t i = 0; i < printColors.size(); ++i) {
        text.Send(Sci::SCI_STYLESETFORE, long(StyleFirstPrint + i), long(printColors[i].first));
        text.Send(Sci::SCI_STYLESETBACK, long(StyleFirstPrint + i), long(printColors[i].second));
    }
    marginDigits = 0;
    FitMargin();
}

void Looks::Apply(const Kind& kind)
{
    const int font = fontStyles[size_t(kind.Font)];
    text.Send(Sci::SCI_STYLESETFORE, kind.Style, long(colors[size_t(kind.Fore)]));
    text.Send(Sci::SCI_STYLESETBACK, kind.Style, long(BackOf(kind.Back)));
    text.Send(Sci::SCI_STYLESETBOLD, kind.Style, long(font & 1));
    text.Send(Sci::SCI_STYLESETITALIC, kind.Style, long(font >> 1));
}

void Looks::ApplyPlain()
{
    const int window = colors[WindowSlot], normal = colors[NormalSlot];
    text.Send(Sci::SCI_STYLESETFORE, Sci::STYLE_DEFAULT, long(normal));
    text.Send(Sci::SCI_STYLESETBACK, Sci::STYLE_DEFAULT, long(window));
    text.Send(Sci::SCI_SETCARETFORE, normal);
    text.Send(Sci::SCI_SETSELFORE, 0L); // selected words keep their colours
    text.Send(Sci::SCI_SETSELBACK, 1, long(SelectionBack(window)));
    text.Send(Sci::SCI_SETWHITESPACEFORE, 1, long(Mixed(normal, window)));
    text.Send(Sci::SCI_SETCARETLINEBACK, colors[HighlightSlot]);
    text.Send(Sci::SCI_MARKERSETBACK, HighlightMarker, long(colors[HighlightSlot]));
}

void Looks::SetDisplayWhitespace(bool on)
{
    text.Send(Sci::SCI_SETVIEWWS, on ? Sci::SCWS_VISIBLEALWAYS : Sci::SCWS_INVISIBLE);
}

void Looks::SetLineNumbering(bool on)
{
    lineNumbers = on;
    marginDigits = 0;
    FitMargin();
}

void Looks::Zoomed()
{
    marginDigits = 0;
    FitMargin();
}

void Looks::FitMargin()
{
    int digits = FewestDigits;
    for (int lines = text.Lines(); lines >= 1000; lines /= 10)
        ++digits;
    if (digits == marginDigits)
        return;
    marginDigits = digits;
    const QByteArray widest(digits + 1, '9');
    const long width = text.Send(Sci::SCI_TEXTWIDTH, Sci::STYLE_LINENUMBER, widest.constData());
    text.Send(Sci::SCI_SETMARGINWIDTHN, LineNumberMargin, lineNumbers ? width : 0);
}

void Looks::SetHighlightedLine(int line)
{
    highlighted = line;
    ShowHighlight();
}

/// The component draws its caret's line by itself; a mark is set only where the highlighted line is another, since
/// marks cost memory for each line of the text.
void Looks::ShowHighlight()
{
    const bool atCaret = highlighted == text.LineOf(text.Send(Sci::SCI_GETCURRENTPOS));
    if (bool(text.Send(Sci::SCI_GETCARETLINEVISIBLE)) != atCaret)
        text.Send(Sci::SCI_SETCARETLINEVISIBLE, atCaret);
    const int wanted = atCaret || highlighted >= text.Lines() ? -1 : highlighted;
    if (marked == wanted)
        return;
    Unmark();
    if (wanted >= 0)
        text.Send(Sci::SCI_MARKERADD, wanted, long(HighlightMarker));
    marked = wanted;
}

void Looks::BeforeEdit()
{
    Unmark();
}

void Looks::Unmark()
{
    if (marked >= 0)
        text.Send(Sci::SCI_MARKERDELETE, marked, long(HighlightMarker));
    marked = -1;
}

char Looks::PrintStyle(int fore, int back)
{
    const std::pair<int, int> colours{fore, back < 0 ? colors[WindowSlot] : back};
    size_t index = 0;
    while (index < printColors.size() && printColors[index] != colours)
        ++index;
    if (index == printColors.size()) {
        if (index == MostPrintStyles)
            return char(StyleFirstPrint + index - 1);
        printColors.push_back(colours);
        text.Send(Sci::SCI_STYLESETFORE, long(StyleFirstPrint + index), long(fore));
        text.Send(Sci::SCI_STYLESETBACK, long(StyleFirstPrint + index), long(colours.second));
    }
    return char(StyleFirstPrint + index);
}
