#include "windows/game/words_panel.h"

#include "frame/frame_events.h"
#include "game/game_state.h"
#include "game/game_words.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int FirstRows = 8; ///< of the list when it is first shown

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

QToolButton* BarButton(QWidget* bar, const char* name)
{
    auto* button = new QToolButton(bar);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

WordsPanel::WordsPanel(QWidget* parent)
    : QWidget(parent),
      bar(new QWidget(this)),
      picture(new QLabel(bar)),
      text(new QLabel(bar)),
      cmdShow(BarButton(bar, "cmdShowWords")),
      cmdClose(BarButton(bar, "cmdCloseWords")),
      list(new QTreeView(this))
{
    setObjectName(QStringLiteral("WordsPanel"));
    SetHelpSubject(this, HelpIdFor("game_words"));
    const int icon = Pixels(*this, 16);
    picture->setPixmap(CommandIcon(QStringLiteral("game_words")).pixmap(icon, icon));
    text->setTextFormat(Qt::PlainText);
    cmdShow->setToolButtonStyle(Qt::ToolButtonTextOnly);
    cmdShow->setCheckable(true);
    cmdClose->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    cmdClose->setToolTip(QStringLiteral("Close"));
    cmdClose->setAccessibleName(QStringLiteral("Close the game's words"));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 1, 1, 1);
    row->setSpacing(6);
    row->addWidget(picture);
    row->addWidget(text, 1);
    row->addWidget(cmdShow);
    row->addWidget(cmdClose);

    list->setObjectName(QStringLiteral("lstWords"));
    list->setAccessibleName(QStringLiteral("What the game complains about"));
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setTextElideMode(Qt::ElideMiddle); // the line stands at the end
    list->setModel(&Words());
    list->setItemDelegateForColumn(GameWords::KeyColumn, new SeverityMarks(list));
    list->header()->setStretchLastSection(false); // see FitText
    list->viewport()->installEventFilter(this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(list, 1);

    connect(list, &QTreeView::activated, this, [](const QModelIndex& index) { GoToGameWord(index.row()); });
    connect(list->header(), &QHeaderView::sectionResized, this, [this](int resized) {
        if (resized != GameWords::TextColumn)
            FitText();
    });
    connect(cmdShow, &QToolButton::toggled, this, &WordsPanel::SetListVisible);
    connect(cmdClose, &QToolButton::clicked, this, [this] {
        hide();
        emit Left();
    });
    connect(&Words(), &GameWords::Spoken, this, &WordsPanel::Spoken);
    SetListVisible(false);
    hide();
}

void WordsPanel::Spoken(int all, int fresh)
{
    text->setText(CountText(all, fresh));
    if (all == 0) {
        const bool keyboard = HasKeyboard();
        hide();
        if (keyboard)
            emit Left();
        return;
    }
    ShowColumns();
    if (fresh > 0)
        show();
}

/// Keys and files as wide as they need, as far as the text keeps half the room.
void WordsPanel::ShowColumns()
{
    const int most = qMax(width(), Pixels(*this, 600)) / 4;
    for (int column = 0; column + 1 < GameWords::ColumnCount; ++column) {
        list->resizeColumnToContents(column);
        list->setColumnWidth(column, qMin(list->columnWidth(column), most));
    }
    FitText();
}

/// The text takes the room that is left; where that is too little, one scrolls to it.
void WordsPanel::FitText()
{
    const int all = list->viewport()->width();
    const int room = all - list->header()->sectionPosition(GameWords::TextColumn);
    if (room >= all / 3)
        list->setColumnWidth(GameWords::TextColumn, room);
    else
        list->resizeColumnToContents(GameWords::TextColumn);
}

bool WordsPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == list->viewport() && event->type() == QEvent::Resize)
        FitText();
    return QWidget::eventFilter(watched, event);
}

void WordsPanel::ShowList()
{
    if (Words().rowCount() == 0) {
        ShowNotice(QStringLiteral("The game has complained about nothing in its last run."));
        return;
    }
    text->setText(CountText(Words().rowCount(), Words().rowCount()));
    show();
    SetListVisible(true);
    if (!list->currentIndex().isValid())
        list->setCurrentIndex(Words().index(0, 0));
    list->setFocus(Qt::ShortcutFocusReason);
}

void WordsPanel::SetListVisible(bool visible)
{
    const QSignalBlocker quiet(cmdShow);
    if (!visible && list->isVisible())
        listHeight = height();
    cmdShow->setChecked(visible);
    cmdShow->setText(visible ? QStringLiteral("Hide") : QStringLiteral("Show"));
    list->setVisible(visible);
    const int barHeight = bar->sizeHint().height();
    setMaximumHeight(visible ? QWIDGETSIZE_MAX : barHeight);
    if (!visible)
        return;
    ShowColumns();
    const int rows = list->fontMetrics().height() * (FirstRows + 2); // the header is one of them
    const int wanted = listHeight > 0 ? listHeight : barHeight + rows;
    if (auto* around = qobject_cast<QSplitter*>(parentWidget()))
        around->setSizes({around->height() - wanted, wanted});
}

bool WordsPanel::HasKeyboard() const
{
    return isVisible() && (isAncestorOf(window()->focusWidget()));
}

bool WordsPanel::ListShows() const
{
    return list->isVisible();
}

QString WordsPanel::BarText() const
{
    return text->text();
}
