#include "windows/main/cool_bar.h"

#include "windows/find/find_box.h"
#include "windows/main/command_set.h"
#include "windows/main/menu_tree.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/extension_arrow.h"
#include "windows/parts/help_subject.h"

#include <QEvent>
#include <QMainWindow>
#include <QMenu>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace {

struct BarRow
{
    ToolStrip Strip;
    const char* Control;
    const char* Title;
};
constexpr BarRow Bars[] = {
    {ToolStrip::tbFile, "tbFile", "File"}, {ToolStrip::tbEdit, "tbEdit", "Edit"},
    {ToolStrip::tbFind, "tbFind", "Find"}, {ToolStrip::tbView, "tbView", "View"},
    {ToolStrip::tbRnD, "tbRnD", "RnD"},    {ToolStrip::tbExtra, "tbExtra", "Extra"},
};
constexpr int IconPixels = 20;
constexpr int SettleMs = 400; ///< the toolkit's bars glide into their place

} // namespace

CoolBar::CoolBar(QMainWindow* owner, const CommandSet& commands, const MenuTree& menus)
    : window(owner), findBox(new FindBox(owner))
{
    for (const BarRow& row : Bars) {
        auto* bar = new QToolBar(QString::fromLatin1(row.Title), window);
        bar->setObjectName(QString::fromLatin1(row.Control));
        bar->setIconSize({IconPixels, IconPixels});
        bar->setFloatable(false);
        bar->setAllowedAreas(Qt::TopToolBarArea);
        SetHelpSubject(bar, HelpIdFor(""));
        bars[row.Strip] = bar;
        order.push_back(bar);
        window->addToolBar(bar);
        bar->installEventFilter(this);
        ColourExtensionArrow(*bar);
    }
    for (const BarRow& row : Bars)
        FillBar(row.Strip, commands, menus);
    bars[ToolStrip::tbFind]->addWidget(findBox);
    for (QToolBar* bar : order)
        bar->setVisible(!bar->actions().isEmpty());
}

void CoolBar::FillBar(ToolStrip strip, const CommandSet& commands, const MenuTree& menus)
{
    QToolBar* bar = bars[strip];
    for (const MenuRow& menu : MainMenus()) {
        bool first = !bar->actions().isEmpty(); // buttons of another menu stand apart
        for (const auto& [row, apart] : ShownRows(menu, strip)) {
            if (apart || first)
                bar->addSeparator();
            first = false;
            QAction* action = commands.Button(QString::fromLatin1(row->Control));
            bar->addAction(action);
            auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
            SetHelpSubject(button, HelpIdOf(*row));
            if (row->Flags & OpensMenu) {
                button->setMenu(menus.Find(QString::fromLatin1(row->Control)));
                button->setPopupMode(row->Flags & MenuOnly ? QToolButton::InstantPopup : QToolButton::MenuButtonPopup);
            }
        }
    }
}

void CoolBar::SetEnabled(bool enabled)
{
    for (const auto& [strip, bar] : bars)
        bar->setEnabled(enabled);
}

QToolBar* CoolBar::Bar(ToolStrip strip) const
{
    return bars.at(strip);
}

void CoolBar::Load(const std::vector<CoolBarBand>& bands)
{
    const size_t count = std::min(bands.size(), order.size());
    for (size_t band = 0; band < count; ++band) {
        // The named bar and the one that stood here change places, so that none is lost or shown twice.
        const auto named = std::ranges::find(order, bands[band].Control, &QToolBar::objectName);
        if (named != order.end())
            std::iter_swap(named, order.begin() + std::ptrdiff_t(band));
    }
    for (QToolBar* bar : order) {
        window->removeToolBarBreak(bar);
        window->removeToolBar(bar);
    }
    for (size_t band = 0; band < count; ++band) {
        QToolBar* bar = order[band];
        if (bands[band].NewRow)
            window->addToolBarBreak();
        window->addToolBar(bar);
        bar->setVisible(!bar->actions().isEmpty());
        bar->setWindowTitle(bands[band].Tag);
        if (bar == Bar(ToolStrip::tbFind))
            FitFindBox(Pixels(*bar, bands[band].Width));
    }
}

std::vector<QToolBar*> CoolBar::PresentOrder() const
{
    std::vector<QToolBar*> shown, present;
    std::ranges::copy_if(order, std::back_inserter(shown), [](const QToolBar* bar) { return bar->isVisible(); });
    std::ranges::stable_sort(shown, {}, [](const QToolBar* bar) { return std::pair(bar->y(), bar->x()); });
    present = shown;
    for (size_t band = 0; band < order.size(); ++band) {
        if (std::ranges::find(present, order[band]) != present.end())
            continue;
        const auto before = band == 0 ? present.end() : std::ranges::find(present, order[band - 1]);
        present.insert(before == present.end() ? present.begin() : before + 1, order[band]);
    }
    return present;
}

std::vector<CoolBarBand> CoolBar::Bands() const
{
    std::vector<CoolBarBand> bands;
    const QToolBar* last = nullptr; // that shows
    for (const QToolBar* bar : PresentOrder()) {
        const bool newRow = bar->isVisible() && last && bar->y() > last->y();
        const int width = qRound(bar->width() * 96.0 / bar->logicalDpiX());
        bands.push_back({bar->windowTitle(), bar->objectName(), width, newRow});
        if (bar->isVisible())
            last = bar;
    }
    return bands;
}

/// Which bar follows which, and where a row begins.
QStringList CoolBar::Places() const
{
    QStringList now;
    for (const CoolBarBand& band : Bands())
        now << (band.NewRow ? QStringLiteral("/") : QString()) + band.Control;
    return now;
}

void CoolBar::StoreIfMoved()
{
    if (const QStringList now = Places(); std::exchange(places, now) != now)
        SaveCoolbar();
}

/// A bar that the user lets go may stand elsewhere; the window has laid it out behind the release.
bool CoolBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        places = Places();
    if (event->type() == QEvent::MouseButtonRelease)
        QTimer::singleShot(SettleMs, this, &CoolBar::StoreIfMoved);
    return QObject::eventFilter(watched, event);
}

void CoolBar::FitFindBox(int bandWidth)
{
    const int beside = Bar(ToolStrip::tbFind)->sizeHint().width() - findBox->sizeHint().width();
    const int least = findBox->minimumSizeHint().width();
    if (bandWidth > 0)
        findBox->setFixedWidth(std::clamp(bandWidth - beside, least, 3 * findBox->sizeHint().width()));
}
