#include "windows/parts/lower_list.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int FirstRows = 8; ///< of the list when it is first shown

QToolButton* BarButton(QWidget* bar, const QString& name)
{
    auto* button = new QToolButton(bar);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

LowerList::LowerList(const LowerListLook& look, QWidget* parent)
    : QWidget(parent),
      bar(new QWidget(this)),
      picture(new QLabel(bar)),
      text(new QLabel(bar)),
      cmdShow(BarButton(bar, QStringLiteral("cmdShow") + QLatin1StringView(look.Name))),
      cmdClose(BarButton(bar, QStringLiteral("cmdClose") + QLatin1StringView(look.Name))),
      list(new QTreeView(this))
{
    setObjectName(QLatin1StringView(look.Name) + QStringLiteral("Panel"));
    SetHelpSubject(this, HelpIdFor(look.Icon));
    const int icon = Pixels(*this, 16);
    picture->setPixmap(CommandIcon(QString::fromLatin1(look.Icon)).pixmap(icon, icon));
    text->setTextFormat(Qt::PlainText);
    cmdShow->setToolButtonStyle(Qt::ToolButtonTextOnly);
    cmdShow->setCheckable(true);
    cmdClose->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    cmdClose->setToolTip(QStringLiteral("Close"));
    cmdClose->setAccessibleName(QStringLiteral("Close ") + look.Whose);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 1, 1, 1);
    row->setSpacing(6);
    row->addWidget(picture);
    row->addWidget(text, 1);
    row->addWidget(cmdShow);
    row->addWidget(cmdClose);

    list->setObjectName(QStringLiteral("lst") + QLatin1StringView(look.Name));
    list->setAccessibleName(look.What);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setTextElideMode(Qt::ElideMiddle);      // the line stands at the end
    list->header()->setStretchLastSection(false); // see FitText
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(list, 1);

    connect(cmdShow, &QToolButton::toggled, this, &LowerList::SetListVisible);
    connect(cmdClose, &QToolButton::clicked, this, [this] {
        hide();
        emit Left();
    });
    SetListVisible(false);
    hide();
}

void LowerList::SetModel(QAbstractItemModel& model)
{
    list->setModel(&model);
    list->viewport()->installEventFilter(this);
    connect(list->header(), &QHeaderView::sectionResized, this, [this](int resized) {
        if (resized + 1 < list->model()->columnCount())
            FitText();
    });
}

void LowerList::SetBarText(const QString& said)
{
    text->setText(said);
}

void LowerList::Leave()
{
    const bool keyboard = HasKeyboard();
    hide();
    if (keyboard)
        emit Left();
}

void LowerList::ShowColumns()
{
    const int columns = list->model()->columnCount();
    const int most = qMax(width(), Pixels(*this, 600)) / columns;
    for (int column = 0; column + 1 < columns; ++column) {
        list->resizeColumnToContents(column);
        list->setColumnWidth(column, qMin(list->columnWidth(column), most));
    }
    FitText();
}

/// The last column takes the room that is left; where that is too little, one scrolls to it.
void LowerList::FitText()
{
    const int all = list->viewport()->width(), last = list->model()->columnCount() - 1;
    const int room = all - list->header()->sectionPosition(last);
    if (room >= all / 3)
        list->setColumnWidth(last, room);
    else
        list->resizeColumnToContents(last);
}

bool LowerList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == list->viewport() && event->type() == QEvent::Resize)
        FitText();
    return QWidget::eventFilter(watched, event);
}

void LowerList::ShowList()
{
    show();
    SetListVisible(true);
    if (!list->currentIndex().isValid())
        list->setCurrentIndex(list->model()->index(0, 0));
    list->setFocus(Qt::ShortcutFocusReason);
}

void LowerList::SetListVisible(bool visible)
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
    auto* around = qobject_cast<QSplitter*>(parentWidget());
    if (!around)
        return;
    QList<int> sizes = around->sizes();
    const int place = around->indexOf(this);
    sizes[0] = qMax(0, sizes[0] + sizes[place] - wanted);
    sizes[place] = wanted;
    around->setSizes(sizes);
}

bool LowerList::HasKeyboard() const
{
    return isVisible() && (isAncestorOf(window()->focusWidget()));
}

bool LowerList::ListShows() const
{
    return list->isVisible();
}

QString LowerList::BarText() const
{
    return text->text();
}
