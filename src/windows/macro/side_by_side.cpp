#include "windows/macro/side_by_side.h"

#include "frame/recovery/line_diff.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {

constexpr qsizetype LongestLine = 1000, MostRows = 5000;

QString Shown(QByteArrayView line)
{
    return QString::fromUtf8(line.first(qMin(line.size(), LongestLine)));
}

/// Lines that were taken out and put in at one place, paired as far as they go.
class Pairs
{
public:
    explicit Pairs(std::vector<ComparedRow>& into) : rows(into) {}

    void Take(const DiffLine& line)
    {
        if (line.Kind == DiffKind::Old)
            old << Shown(line.Text);
        else if (line.Kind == DiffKind::New)
            added << Shown(line.Text);
        else
            Flush();
        if (line.Kind == DiffKind::Gap)
            rows.push_back({{}, {}, true, true, true});
        if (line.Kind == DiffKind::Same)
            rows.push_back({Shown(line.Text), Shown(line.Text)});
    }
    void Flush()
    {
        for (qsizetype i = 0; i < qMax(old.size(), added.size()); ++i)
            rows.push_back({old.value(i), added.value(i), i < old.size(), i < added.size(), false});
        old.clear();
        added.clear();
    }

private:
    std::vector<ComparedRow>& rows;
    QStringList old, added;
};

/// Colour of a line that differs, for a light or a dark desktop.
QColor GroundOf(int side, bool dark)
{
    if (dark)
        return side == 0 ? QColor(100, 30, 30) : QColor(20, 75, 30);
    return side == 0 ? QColor(255, 215, 215) : QColor(205, 245, 210);
}

void ColourRows(QPlainTextEdit& view, int side, const std::vector<ComparedRow>& rows)
{
    const bool dark = view.palette().color(QPalette::Base).lightness() < 128;
    QList<QTextEdit::ExtraSelection> marks;
    QTextBlock block = view.document()->firstBlock();
    for (const ComparedRow& row : rows) {
        if (row.Differs()) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = QTextCursor(block);
            const bool missing = side == 0 ? !row.HasLeft : !row.HasRight;
            mark.format.setBackground(missing ? view.palette().color(QPalette::AlternateBase) : GroundOf(side, dark));
            mark.format.setForeground(dark ? Qt::white : Qt::black);
            mark.format.setProperty(QTextFormat::FullWidthSelection, true);
            marks.append(mark);
        }
        block = block.next();
    }
    view.setExtraSelections(marks);
}

} // namespace

std::optional<std::vector<ComparedRow>> CompareSideBySide(QByteArrayView before, QByteArrayView after)
{
    const auto lines = CompareLines(before, after);
    if (!lines)
        return std::nullopt;
    std::vector<ComparedRow> rows;
    Pairs pairs(rows);
    for (const DiffLine& line : *lines)
        pairs.Take(line);
    pairs.Flush();
    return rows;
}

SideBySide::SideBySide(QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    const char* const captions[] = {"&Before", "&After"};
    for (int side = 0; side < 2; ++side) {
        auto* view = new QPlainTextEdit(this);
        view->setReadOnly(true);
        view->setLineWrapMode(QPlainTextEdit::NoWrap);
        view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        auto* caption = new QLabel(QString::fromLatin1(captions[side]), this);
        caption->setBuddy(view);
        auto* column = new QVBoxLayout;
        column->addWidget(caption);
        column->addWidget(view, 1);
        row->addLayout(column, 1);
        sides[side] = view;
    }
    ScrollTogether();
}

void SideBySide::ScrollTogether()
{
    for (int side = 0; side < 2; ++side)
        for (QScrollBar* (QAbstractScrollArea::*bar)() const :
             {&QAbstractScrollArea::verticalScrollBar, &QAbstractScrollArea::horizontalScrollBar})
            connect((sides[side]->*bar)(), &QScrollBar::valueChanged, (sides[1 - side]->*bar)(), &QScrollBar::setValue);
}

void SideBySide::Show(const std::vector<ComparedRow>& rows)
{
    QStringList left, right;
    for (const ComparedRow& row : rows) {
        if (left.size() >= MostRows)
            break;
        left << (row.Gap ? QStringLiteral("...") : row.Left);
        right << (row.Gap ? QStringLiteral("...") : row.Right);
    }
    sides[0]->setPlainText(left.join(u'\n'));
    sides[1]->setPlainText(right.join(u'\n'));
    for (int side = 0; side < 2; ++side)
        ColourRows(*sides[side], side, rows);
}
