#include "windows/game/words_panel.h"

#include "frame/frame_events.h"
#include "game/game_state.h"
#include "game/game_words.h"

#include <QStyle>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace {

QString CountText(int all, int fresh)
{
    const QString count = QStringLiteral("The game complains about ") + CountOf(size_t(all));
    if (fresh == all)
        return count + u'.';
    return count + (fresh == 0 ? QStringLiteral(", nothing new.") : QStringLiteral(", %1 of them new.").arg(fresh));
}

/// A mark in front of each row for how bad it is.
class SeverityMarks : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const PlacedFinding* row = Words().At(index.row());
        if (!row)
            return;
        const bool warns = row->Finding.Severity == GameSeverity::Warning;
        const QStyle& style = *option->widget->style();
        option->icon = style.standardIcon(warns ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxCritical);
        const int side = qMin(option->fontMetrics.height(), style.pixelMetric(QStyle::PM_SmallIconSize));
        option->decorationSize = QSize(side, side);
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
};

} // namespace

WordsPanel::WordsPanel(QWidget* parent)
    : LowerList({.Name = "Words",
                 .Icon = "game_words",
                 .What = QStringLiteral("What the game complains about"),
                 .Whose = QStringLiteral("the game's words")},
                parent)
{
    SetModel(Words());
    List()->setItemDelegateForColumn(GameWords::KeyColumn, new SeverityMarks(List()));
    connect(List(), &QTreeView::activated, this, [](const QModelIndex& index) { GoToGameWord(index.row()); });
    connect(&Words(), &GameWords::Spoken, this, &WordsPanel::Spoken);
}

void WordsPanel::Spoken(int all, int fresh)
{
    SetBarText(CountText(all, fresh));
    if (all == 0)
        return Leave();
    ShowColumns();
    if (fresh > 0)
        show();
}

void WordsPanel::ShowList()
{
    const int all = Words().rowCount();
    if (all == 0)
        return ShowNotice(QStringLiteral("The game has complained about nothing in its last run."));
    SetBarText(CountText(all, all));
    LowerList::ShowList();
}
