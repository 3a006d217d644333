#include "windows/media/media_tabs.h"

#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "windows/media/extra_page.h"
#include "windows/media/macro_tree.h"
#include "windows/media/media_view.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QMouseEvent>
#include <QProxyStyle>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

constexpr int MacroPage = 3;
constexpr int Edge = 5; // around the controls of a page, pixels at 96 dpi

/// Tabs as narrow as their captions allow: all of them show in a narrow window too.
class NarrowTabs : public QProxyStyle
{
public:
    explicit NarrowTabs(QObject* owner) { setParent(owner); }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        return metric == PM_TabBarTabHSpace ? qMin(usual, widget ? Pixels(*widget, 2 * Edge) : usual) : usual;
    }
};

/// A page that is one list.
QWidget* PageOf(QWidget* view)
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    const int edge = Pixels(*page, Edge);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->addWidget(view);
    return page;
}

QString NoteFor(MediaSource source)
{
    if (source == MediaSource::Rnd && Frame.Media.RndFolder.isEmpty())
        return QStringLiteral("The game's folder is not known");
    const QString& pattern = source == MediaSource::PCXBrowser ? Frame.Media.BasePattern : Frame.Media.ListPattern;
    return IsMediaName(pattern.mid(1)) ? QStringLiteral("Nothing here") : QString();
}

} // namespace

MediaTabs::MediaTabs(QWidget* parent)
    : QTabWidget(parent),
      views{new MediaView(MediaSource::PCXBrowser, "PCXBrowser", nullptr),
            new MediaView(MediaSource::Extra, "extraFileList", nullptr),
            new MediaView(MediaSource::Rnd, "rndFileList", nullptr)},
      extra(new ExtraPage(*views[1])),
      macros(new MacroTree)
{
    setObjectName(QStringLiteral("ssML"));
    setAccessibleName(QStringLiteral("Media lists"));
    tabBar()->setFocusPolicy(Qt::TabFocus);
    tabBar()->setAccessibleName(accessibleName());
    tabBar()->setStyle(new NarrowTabs(this));
    tabBar()->setUsesScrollButtons(false);
    AddPage(PageOf(views[0]), "Base", "ml_base");
    AddPage(extra, "Extra", "ml_extra");
    AddPage(PageOf(views[2]), "RnD", "ml_rnd");
    AddPage(PageOf(macros), "GFB", "ml_gfb");
    views[0]->setAccessibleName(QStringLiteral("Files beside the document"));
    views[1]->setAccessibleName(QStringLiteral("Files of the extra folder"));
    views[2]->setAccessibleName(QStringLiteral("Files of the game"));
    for (MediaView* view : views)
        ConnectView(*view);
    const auto followSubject = [this] { SetHelpSubject(this, HelpSubjectOf(currentWidget())); };
    connect(this, &QTabWidget::currentChanged, this, followSubject);
    connect(this, &QTabWidget::tabBarClicked, this, &MediaTabs::Clicked, Qt::QueuedConnection);
    followSubject();
}

void MediaTabs::AddPage(QWidget* page, const char* caption, const char* helpKey)
{
    SetHelpSubject(page, HelpIdFor(helpKey));
    addTab(page, QString::fromLatin1(caption));
}

void MediaTabs::ConnectView(MediaView& view)
{
    const MediaSource source = view.Source();
    connect(&view, &MediaView::Pressed, this, [=, this, &view](bool insert) {
        awaited.at(size_t(source)) = false;
        if (insert)
            emit Inserted(view.Selected());
        else
            emit Clicked();
    });
    connect(&view, &MediaView::Opened, this, [this, &view] { emit Opened(view.Entry()); });
    connect(&view, &MediaView::Inserted, this, [this, &view] { emit Inserted(view.Selected()); });
    connect(&view, &MediaView::MenuWanted, this, [=, this](QPoint at) { emit MenuWanted(source, at); });
}

void MediaTabs::ShowLists()
{
    extra->ShowFolder(Frame.Media.ExtraFolder);
    View(MediaSource::Rnd).setEnabled(!Frame.Media.RndFolder.isEmpty());
    for (MediaView* view : views)
        view->Follow(NoteFor(view->Source()));
    macros->BuildMacroTree();
}

void MediaTabs::ShowList(MediaSource source)
{
    setCurrentIndex(int(source) - 1);
}

void MediaTabs::SetStyle()
{
    for (MediaView* view : views)
        view->SetStyle();
    extra->SetStyle();
    macros->SetStyle();
}

void MediaTabs::LookAtPictures()
{
    for (MediaView* view : views)
        view->LookAtPictures();
}

void MediaTabs::NoteSelection()
{
    for (const MediaView* view : views)
        Lists().SavedListIndex.at(size_t(view->Source())) = view->SelectedRow();
    Lists().SavedListIndex.at(MacrosIndex) = macros->SelectedRow();
}

void MediaTabs::SaveSelection()
{
    NoteSelection();
    awaited.fill(true);
}

void MediaTabs::RestoreSelection()
{
    for (MediaView* view : views) {
        const int row = Lists().SavedListIndex.at(size_t(view->Source()));
        if (std::exchange(awaited.at(size_t(view->Source())), false) && (row != view->SelectedRow() || row == 0))
            view->SelectRow(row > 0 ? row : -1);
    }
    if (std::exchange(awaited.at(MacrosIndex), false) && macros->SelectedRow() < 0)
        macros->SelectRow(Lists().SavedListIndex.at(MacrosIndex));
}

MediaView* MediaTabs::Focused() const
{
    const auto view = std::ranges::find_if(views, &MediaView::HasKeyboard);
    return view == views.end() ? nullptr : *view;
}

void MediaTabs::FocusList()
{
    QWidget* list = currentIndex() == MacroPage ? static_cast<QWidget*>(macros) : views.at(size_t(currentIndex()));
    if (list->isEnabled())
        list->setFocus(Qt::ShortcutFocusReason);
    else
        tabBar()->setFocus(Qt::ShortcutFocusReason);
}

void MediaTabs::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    emit Clicked();
}
