#include "editor/code_list.h"

#include <QListView>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>
#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

namespace {

constexpr int PictureSide = 24; // pixels
constexpr int RowsShown = 12, FewestTyped = 2, FewestColumns = 16, MostColumns = 60;

/// What a command of the pane means to the list, in rows.
constexpr struct
{
    int Command, Rows;
} Moves[] = {{CmdLineUp, -1}, {CmdLineDown, 1}, {CmdPageUp, -RowsShown}, {CmdPageDown, RowsShown}};

QListView* MakeView(QWidget* parent)
{
    auto* view = new QListView(parent);
    view->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    view->setAttribute(Qt::WA_ShowWithoutActivating);
    view->setFocusPolicy(Qt::NoFocus);
    view->setUniformItemSizes(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setAccessibleName(QStringLiteral("Words"));
    QPalette palette = view->palette(); // its window is never the active one
    palette.setBrush(QPalette::Inactive, QPalette::Highlight, palette.brush(QPalette::Active, QPalette::Highlight));
    palette.setBrush(QPalette::Inactive, QPalette::HighlightedText,
                     palette.brush(QPalette::Active, QPalette::HighlightedText));
    view->setPalette(palette);
    return view;
}

} // namespace

QVariant CodeListModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DecorationRole && PictureOf)
        return PictureOf(QStringListModel::data(index, Qt::DisplayRole).toString());
    return QStringListModel::data(index, role);
}

CodeListBox::CodeListBox(EditorPane& owner, Component& component) : pane(owner), text(component) {}

bool CodeListBox::IsOpen() const
{
    return view && view->isVisible();
}

bool CodeListBox::Ask(bool typing)
{
    words = pane.CodeList ? pane.CodeList(pane, typing) : QStringList();
    Narrow();
    return !items.isEmpty();
}

/// The values that begin with what is typed, then those that hold it.
void CodeListBox::Narrow()
{
    values = pane.CodeValues ? pane.CodeValues(pane) : OfferedValues();
    QStringList begin, hold;
    for (const QString& item : values.Items) {
        if (item.startsWith(values.Typed, Qt::CaseInsensitive))
            begin << item;
        else if (item.contains(values.Typed, Qt::CaseInsensitive))
            hold << item;
    }
    beginners = begin.size();
    valueCount = begin.size() + hold.size();
    items = begin + hold + words;
}

std::optional<qsizetype> CodeListBox::RowFor(const QString& word) const
{
    if (valueCount > 0 && !values.Typed.isEmpty())
        return beginners > 0 ? std::max<qsizetype>(items.first(beginners).indexOf(values.Typed), 0) : -1;
    const qsizetype found = FirstFor(word);
    return found < 0 || word.isEmpty() ? std::nullopt : std::optional(found);
}

void CodeListBox::Open()
{
    if (Ask(false))
        Show(valueCount > 0 ? 0 : std::max<qsizetype>(FirstFor(pane.CurrentWord()), 0));
}

void CodeListBox::Typed(int character)
{
    if (IsOpen() || (character < 0x80 && !IsWordByte(char(character))))
        return;
    const qsizetype caret = text.Selection().Caret;
    if (text.Piece(text.LineStart(text.LineOf(caret)), caret).contains('#'))
        return; // a comment is prose: Enter would take a word that nobody asked for
    const QString word = pane.CurrentWord();
    if (word.size() < FewestTyped || !Ask(true))
        return;
    const auto row = RowFor(word);
    if (row && *row >= 0)
        Show(*row);
}

/// A placeholder while it is read, so that all rows begin alike.
QVariant CodeListBox::PictureOf(const QString& item)
{
    const auto known = pictures.constFind(item);
    if (known != pictures.constEnd())
        return *known;
    QPixmap blank(PictureSide, PictureSide);
    blank.fill(Qt::transparent);
    if (!values.Files || !values.Items.contains(item) || awaited.contains(item))
        return blank;
    awaited << item;
    const QPointer<QListView> shown = view;
    const QImage picture = pane.CodePicture(pane, item, [this, shown, item] {
        if (!shown)
            return; // and with it this list
        awaited.remove(item);
        shown->viewport()->update();
    });
    if (picture.isNull())
        return blank;
    awaited.remove(item);
    const QImage small = picture.scaled(PictureSide, PictureSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap whole(blank);
    QPainter(&whole).drawImage((PictureSide - small.width()) / 2, (PictureSide - small.height()) / 2, small);
    return *pictures.insert(item, whole);
}

void CodeListBox::Show(qsizetype selected)
{
    if (!view) {
        view = MakeView(text.Widget());
        view->setModel(&model);
        QObject::connect(view, &QListView::clicked, view, [this](const QModelIndex& index) { Pick(index.row()); });
        const auto follow = [this] {
            if (IsOpen())
                Place();
        };
        if (const QWindow* window = text.Widget()->window()->windowHandle()) {
            QObject::connect(window, &QWindow::xChanged, view, follow);
            QObject::connect(window, &QWindow::yChanged, view, follow);
        }
    }
    if (!view->isVisible()) { // files may have changed
        pictures.clear();
        awaited.clear();
    }
    model.PictureOf = nullptr;
    if (valueCount > 0 && values.Files && pane.CodePicture)
        model.PictureOf = [this](const QString& item) { return PictureOf(item); };
    view->setIconSize(model.PictureOf ? QSize(PictureSide, PictureSide) : QSize());
    if (model.stringList() != items)
        model.setStringList(items);
    Place();
    view->show();
    Select(selected);
}

/// Below the word, or above where the screen ends.
void CodeListBox::Place()
{
    const qsizetype caret = text.Selection().Caret;
    const qsizetype wordStart = valueCount > 0
                                    ? text.Position(values.Place.StartLine, values.Place.StartCol)
                                    : caret - qMin<qsizetype>(pane.CurrentWord().size(), text.ColumnOf(caret));
    const int lineHeight = int(text.Send(Sci::SCI_TEXTHEIGHT, 0L));
    const QWidget* viewport = text.Widget()->viewport();
    const QPoint top = viewport->mapToGlobal(QPoint(int(text.Send(Sci::SCI_POINTXFROMPOSITION, 0, long(wordStart))),
                                                    int(text.Send(Sci::SCI_POINTYFROMPOSITION, 0, long(caret)))));
    QFont font(pane.FontName());
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(pane.FontSize());
    view->setFont(font);
    const auto longest = std::max_element(items.begin(), items.end(),
                                          [](const QString& a, const QString& b) { return a.size() < b.size(); });
    const int columns = int(std::clamp<qsizetype>(longest->size() + 2, FewestColumns, MostColumns));
    const int rows = int(std::min<qsizetype>(items.size(), RowsShown));
    const int frame = 2 * view->frameWidth();
    const QSize size(columns * view->fontMetrics().averageCharWidth() + view->verticalScrollBar()->sizeHint().width() +
                         (model.PictureOf ? PictureSide : 0) + frame,
                     rows * std::max(view->sizeHintForRow(0), 1) + frame);
    const QRect screen = text.Widget()->screen()->availableGeometry();
    QRect place(top + QPoint(0, lineHeight), size);
    if (place.bottom() > screen.bottom())
        place.moveBottom(top.y() - 1);
    place.moveRight(std::min(place.right(), screen.right()));
    view->setGeometry(place);
}

qsizetype CodeListBox::Selected() const
{
    return view->currentIndex().row();
}

void CodeListBox::Select(qsizetype row)
{
    const QModelIndex index = model.index(int(row));
    view->setCurrentIndex(index);
    view->scrollTo(index, QAbstractItemView::PositionAtTop);
}

qsizetype CodeListBox::FirstFor(const QString& word) const
{
    const auto first = [this](const QString& start) {
        const auto found = std::find_if(items.begin(), items.end(), [&](const QString& item) {
            return item.startsWith(start, Qt::CaseInsensitive);
        });
        return found == items.end() ? -1 : found - items.begin();
    };
    const QString sign = SignBefore();
    const qsizetype signedOne = sign.isEmpty() ? -1 : first(sign + word);
    return signedOne < 0 ? first(word) : signedOne;
}

/// Some items begin with a bracket or another sign, which is no part of a word.
QString CodeListBox::SignBefore() const
{
    constexpr QByteArrayView Signs("[$@?");
    const qsizetype caret = text.Selection().Caret;
    QByteArrayView before = text.Piece(text.LineStart(text.LineOf(caret)), caret);
    while (!before.isEmpty() && IsWordByte(before.back())) // the caret may stand inside the word
        before.chop(1);
    return !before.isEmpty() && Signs.contains(before.back()) ? QString(QLatin1Char(before.back())) : QString();
}

/// Is the word at the caret the item, or what stands in front of the item's form?
bool CodeListBox::Stands(qsizetype row) const
{
    if (row < valueCount)
        return items[row] == values.Typed;
    const QString word = pane.CurrentWord();
    const QString item = items[row].section(u' ', 0, 0);
    return item == word || item == QString(SignBefore() + word);
}

void CodeListBox::Follow()
{
    if (!IsOpen())
        return;
    Narrow();
    const auto row = RowFor(pane.CurrentWord());
    if (row)
        Show(*row);
    else
        Close();
}

void CodeListBox::Close()
{
    if (view)
        view->hide();
}

bool CodeListBox::TakeMove(int command)
{
    const auto move =
        std::find_if(std::begin(Moves), std::end(Moves), [command](const auto& m) { return m.Command == command; });
    if (!IsOpen() || move == std::end(Moves))
        return false;
    const QModelIndex index = model.index(int(std::clamp<qsizetype>(Selected() + move->Rows, 0, items.size() - 1)));
    view->setCurrentIndex(index);
    view->scrollTo(index);
    return true;
}

bool CodeListBox::TakeAccept(bool always)
{
    const qsizetype row = IsOpen() ? Selected() : -1;
    Close();
    if (row < 0 || (!always && Stands(row)))
        return false;
    Pick(row);
    return true;
}

void CodeListBox::Pick(qsizetype row)
{
    Close();
    const QString item = items[row];
    if (row < valueCount) {
        const UndoGroup step(pane);
        pane.SetSel(values.Place, false);
        pane.ReplaceSel(item);
        return;
    }
    if (pane.CodeListPick && !pane.CodeListPick(pane, item))
        return;
    const UndoGroup step(pane);
    const QString word = pane.CurrentWord();
    if (!word.isEmpty() && item.startsWith(word, Qt::CaseInsensitive))
        pane.ExecuteCmd(CmdWordLeftExtend);
    pane.ReplaceSel(item);
}
