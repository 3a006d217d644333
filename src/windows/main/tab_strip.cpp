#include "windows/main/tab_strip.h"

#include "frame/documents/documents.h"
#include "windows/main/command_table.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QToolTip>
#include <algorithm>
#include <utility>
#include <vector>

namespace {

const QColor UnsavedDot(0xE0, 0x6C, 0x00);
constexpr int LongestFile = 10; ///< characters
constexpr int LeastTab = 64;    ///< pixels at 96 dpi: picture, a letter or two, close button

/// Tabs give way to each other, the longest first, until all are in sight; only where even that is too little the bar
/// scrolls.
class TightTabBar : public QTabBar
{
public:
    using QTabBar::QTabBar;

    /// Pixels for all tabs.
    void SetRoom(int pixels)
    {
        if (std::exchange(room, pixels) != pixels)
            setElideMode(Qt::ElideLeft); // has them laid out anew
    }

protected:
    QSize tabSizeHint(int tab) const override
    {
        QSize size = QTabBar::tabSizeHint(tab);
        size.setWidth(qMin(size.width(), qMax(Widest(), Pixels(*this, LeastTab))));
        return size;
    }

private:
    int Widest() const
    {
        std::vector<int> widths;
        for (int tab = 0; tab < count(); ++tab)
            if (isTabVisible(tab))
                widths.push_back(QTabBar::tabSizeHint(tab).width());
        std::ranges::sort(widths);
        int left = room;
        for (size_t done = 0; done < widths.size(); ++done) {
            const int share = left / int(widths.size() - done);
            if (widths[done] > share)
                return share;
            left -= widths[done];
        }
        return room;
    }

    int room = QWIDGETSIZE_MAX;
};

} // namespace

TabStrip::TabStrip(QWidget* parent) : QWidget(parent), bar(new TightTabBar(this))
{
    setObjectName(QStringLiteral("ssTxtWindows"));
    SetHelpSubject(this, HelpIdFor("tabs"));
    bar->setAccessibleName(QStringLiteral("Documents"));
    bar->setExpanding(false);
    bar->setDocumentMode(true);
    bar->setDrawBase(false);
    bar->setElideMode(Qt::ElideLeft);
    bar->setUsesScrollButtons(true);
    bar->setTabsClosable(true);
    for (int tab = 0; tab < int(faces.size()); ++tab) {
        bar->addTab(EmptyCaption);
        bar->setTabVisible(tab, tab == 0);
        bar->setTabEnabled(tab, tab == 0);
    }
    faces[0].Visible = true;
    NameCloseButtons();
    bar->installEventFilter(this);
    connect(bar, &QTabBar::tabCloseRequested, this, &TabStrip::CloseByMouse);
    connect(bar, &QTabBar::currentChanged, this, &TabStrip::CurrentChanged);

    plus = new QToolButton(this);
    plus->setAutoRaise(true);
    plus->setFocusPolicy(Qt::NoFocus);
    plus->setIcon(CommandIcon(QStringLiteral("open_tab")));
    plus->setToolTip(QStringLiteral("Open Tab"));
    plus->setAccessibleName(plus->toolTip());
    connect(plus, &QToolButton::clicked, this, &TabStrip::NewWanted);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addWidget(bar);
    row->addWidget(plus);
    row->addStretch();
}

void TabStrip::NameCloseButtons()
{
    for (int tab = 0; tab < bar->count(); ++tab) {
        for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) {
            if (QWidget* button = bar->tabButton(tab, side)) {
                button->setToolTip(QStringLiteral("Close Tab"));
                button->setAccessibleName(button->toolTip());
            }
        }
    }
}

void TabStrip::SetTab(int tab, const TabFace& face)
{
    faces.at(tab) = face;
    // The component would pick a neighbour of its own; the tab to the left is always one that shows.
    if (!face.Visible && tab == bar->currentIndex()) {
        const QScopedValueRollback code(byCode, true);
        SelectNext(-1);
    }
    for (int each = 0; each < bar->count(); ++each)
        bar->setTabText(each, TextOf(each));
    ShowPicture(tab);
    // A disabled tab could not stay selected, and the flash dims the selected one: only its looks change.
    bar->setTabTextColor(tab, face.Enabled ? QColor() : palette().color(QPalette::Disabled, QPalette::WindowText));
    bar->setTabEnabled(tab, face.Visible); // else the wheel and the arrow keys would select what does not show
    bar->setTabVisible(tab, face.Visible);
}

/// Texts of one folder have one caption, so each tells its conf too.
QString TabStrip::TextOf(int tab) const
{
    const TabFace& face = faces.at(tab);
    const auto alike = std::ranges::count_if(
        faces, [&face](const TabFace& other) { return other.Visible && other.Caption == face.Caption; });
    QString file = alike > 1 && face.Caption != EmptyCaption && FileOf ? FileOf(tab) : QString();
    file.truncate(file.lastIndexOf(u'.') > 0 ? file.lastIndexOf(u'.') : file.size());
    if (file.endsWith(QLatin1StringView("info"), Qt::CaseInsensitive) && file.size() > 4)
        file.chop(4);
    const QString told = file.isEmpty() ? QString() : u' ' + file.left(LongestFile);
    return WithoutMnemonic(face.Caption + told);
}

void TabStrip::SetUnsaved(int tab, bool now)
{
    if (std::exchange(unsaved.at(tab), now) != now)
        ShowPicture(tab);
}

void TabStrip::ShowPicture(int tab)
{
    const TabFace& face = faces.at(tab);
    const QIcon icon = ListImage(QStringLiteral("mode"), face.Picture);
    QPixmap picture = icon.pixmap(bar->iconSize(), devicePixelRatio(), face.Enabled ? QIcon::Normal : QIcon::Disabled);
    if (unsaved.at(tab) && !picture.isNull()) {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal side = picture.deviceIndependentSize().width();
        painter.setPen(QPen(palette().color(QPalette::Window), side / 16));
        painter.setBrush(UnsavedDot);
        painter.drawEllipse(QRectF(side * 0.55, side * 0.05, side * 0.4, side * 0.4));
    }
    bar->setTabIcon(tab, picture);
}

void TabStrip::Select(int tab)
{
    if (tab == bar->currentIndex()) {
        emit Changed(tab);
        return;
    }
    const QScopedValueRollback code(byCode, true);
    bar->setCurrentIndex(tab);
}

void TabStrip::SelectNext(int step)
{
    int tab = bar->currentIndex();
    do {
        tab = (tab + step + bar->count()) % bar->count();
    } while (!faces.at(tab).Visible && tab != bar->currentIndex());
    bar->setCurrentIndex(tab);
}

void TabStrip::CurrentChanged(int tab)
{
    const bool byKey = bar->hasFocus() && !byCode && !leftDown;
    emit Changed(tab);
    if (!byCode && !leftDown)
        emit Activated();
    if (byKey)
        bar->setFocus(Qt::OtherFocusReason); // the next key goes on in the strip
}

void TabStrip::CloseByMouse(int tab)
{
    bar->setCurrentIndex(tab);
    emit CloseWanted();
}

void TabStrip::Released(Qt::MouseButton button, int tab)
{
    if (button == Qt::RightButton)
        emit NewWanted();
    else if (button == Qt::MiddleButton && tab >= 0)
        CloseByMouse(tab);
}

/// Beside the arrows, which the component knows.
bool TabStrip::KeyPressed(int key)
{
    const auto shows = [](const TabFace& face) { return face.Visible; };
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        emit Activated();
        return true;
    case Qt::Key_Home:
        bar->setCurrentIndex(int(std::ranges::find_if(faces, shows) - faces.begin()));
        return true;
    case Qt::Key_End:
        bar->setCurrentIndex(int(std::find_if(faces.rbegin(), faces.rend(), shows).base() - faces.begin()) - 1);
        return true;
    default:
        return false;
    }
}

bool TabStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != bar)
        return false;
    if (event->type() == QEvent::ToolTip && TipOf) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int tab = bar->tabAt(help->pos());
        QToolTip::showText(help->globalPos(), tab < 0 ? QString() : TipOf(tab), bar);
        return true;
    }
    if (event->type() == QEvent::KeyPress)
        return KeyPressed(static_cast<QKeyEvent*>(event)->key());
    if (event->type() == QEvent::MouseButtonPress)
        leftDown = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton) {
            // Wherever it is let go: the press has changed the selected tab already.
            leftDown = false;
            emit Activated();
            return false;
        }
        const Qt::MouseButton button = mouse->button();
        const int tab = bar->tabAt(mouse->position().toPoint());
        // Behind this event: a question may come, and the tab may go.
        QMetaObject::invokeMethod(
            this, [this, button, tab] { Released(button, tab); }, Qt::QueuedConnection);
        return true;
    }
    return false;
}

void TabStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    static_cast<TightTabBar*>(bar)->SetRoom(width() - plus->sizeHint().width() - layout()->spacing());
}

void TabStrip::mouseReleaseEvent(QMouseEvent* event)
{
    Released(event->button(), -1);
}
