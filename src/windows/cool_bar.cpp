#include "windows/cool_bar.h"

#include "frame/settings.h"
#include "platform/ini_file.h"
#include "windows/command_set.h"
#include "windows/find_box.h"
#include "windows/help_subject.h"
#include "windows/menu_tree.h"

#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <set>

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

QString BandValue(const char* letter, int band)
{
    return ReadIni(QStringLiteral("Coolbar Bands"), QString::fromLatin1(letter) + QString::number(band));
}

} // namespace

std::vector<CoolBarBand> StoredBands(int count)
{
    std::vector<CoolBarBand> bands;
    for (int band = 1; band <= count; ++band) {
        CoolBarBand stored{BandValue("T", band), BandValue("C", band), BandValue("W", band).toInt(), false};
        stored.NewRow = band > 1 && BandValue("N", band).compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
        bands.push_back(stored);
    }
    return bands;
}

CoolBar::CoolBar(QMainWindow* owner, const CommandSet& commands, const MenuTree& menus)
    : window(owner), findBox(new FindBox(owner))
{
    for (const BarRow& row : Bars) {
        auto* bar = new QToolBar(QString::fromLatin1(row.Title), window);
        bar->setObjectName(QString::fromLatin1(row.Control));
        bar->setIconSize({IconPixels, IconPixels});
        bar->setFloatable(false);
        SetHelpSubject(bar, HelpIdFor(""));
        bars[row.Strip] = bar;
        order.push_back(bar);
        window->addToolBar(bar);
    }
    for (const MenuRow& menu : MainMenus())
        FillBar(menu, commands, menus);
    bars[ToolStrip::tbFind]->addWidget(findBox);
    for (QToolBar* bar : order)
        bar->setVisible(!bar->actions().isEmpty());
}

void CoolBar::FillBar(const MenuRow& menu, const CommandSet& commands, const MenuTree& menus)
{
    std::set<ToolStrip> separate; // bars whose next button stands apart
    for (const CommandRow& row : menu.Rows) {
        if (row.Strip == ToolStrip::None)
            continue;
        QToolBar* bar = bars[row.Strip];
        if (separate.erase(row.Strip))
            bar->addSeparator();
        QAction* action = commands.Button(QString::fromLatin1(row.Control));
        bar->addAction(action);
        auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
        SetHelpSubject(button, HelpIdOf(row));
        if (row.Flags & OpensMenu) {
            button->setMenu(menus.Find(QString::fromLatin1(row.Control)));
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
        if (row.Flags & SeparatorBehind)
            separate.insert(row.Strip);
    }
}

QToolBar* CoolBar::Bar(ToolStrip strip) const
{
    return bars.at(strip);
}

void CoolBar::Load()
{
    const std::vector<CoolBarBand> bands = StoredBands(int(order.size()));
    for (size_t band = 0; band < bands.size(); ++band) {
        // The named bar and the one that stood here change places, so that none is lost or shown twice.
        const auto named = std::ranges::find(order, bands[band].Control, &QToolBar::objectName);
        if (named != order.end())
            std::iter_swap(named, order.begin() + std::ptrdiff_t(band));
    }
    for (QToolBar* bar : order) {
        window->removeToolBarBreak(bar);
        window->removeToolBar(bar);
    }
    for (size_t band = 0; band < bands.size(); ++band) {
        QToolBar* bar = order[band];
        if (bands[band].NewRow)
            window->addToolBarBreak();
        window->addToolBar(bar);
        bar->setVisible(!bar->actions().isEmpty());
        if (bands[band].Tag != IniFile::NotFound)
            bar->setWindowTitle(bands[band].Tag);
        if (bar == Bar(ToolStrip::tbFind))
            FitFindBox(bands[band].Width);
    }
}

void CoolBar::FitFindBox(int bandWidth)
{
    const int beside = Bar(ToolStrip::tbFind)->sizeHint().width() - findBox->sizeHint().width();
    const int least = findBox->minimumSizeHint().width();
    if (bandWidth > 0)
        findBox->setFixedWidth(std::clamp(bandWidth - beside, least, 3 * findBox->sizeHint().width()));
}
