#include "windows/options/frm_options.h"

#include "windows/options/colours_page.h"
#include "windows/options/general_page.h"
#include "windows/options/more_page.h"
#include "windows/options/setting_finder.h"
#include "windows/options/shortcut_page.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/window_position.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize WishedSize{900, 725}, LeastSize{360, 240}; // pixels at 96 dpi

} // namespace

frmOptions::frmOptions(const OptionsPorts& ports, QWidget* owner)
    : QDialog(DialogParent(owner)), finder(new SettingFinder(this)), tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("frmOptions"));
    SetHelpSubject(this, NoHelpSubject);
    setWindowTitle(QStringLiteral("Gemforge - Options"));
    tabs->setObjectName(QStringLiteral("SSTab"));
    AddPage(new GeneralPage(0, ports, tabs));
    AddPage(new ColoursPage(1, tabs));
    AddPage(new MorePage(2, tabs));
    AddPage(new ShortcutPage(3, ports.Shortcuts(), tabs));
    auto* column = new QVBoxLayout(this);
    column->addWidget(finder);
    column->addWidget(tabs);
    connect(finder, &SettingFinder::Chosen, this, [this](int number) { ways.at(size_t(number))(); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, finder,
            [this] { finder->setFocus(Qt::ShortcutFocusReason); });
    for (const auto forward : {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown})
        connect(new QShortcut(QKeySequence(forward), this), &QShortcut::activated, this, [this] { Turn(1); });
    for (const auto back : {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageUp})
        connect(new QShortcut(QKeySequence(back), this), &QShortcut::activated, this, [this] { Turn(-1); });
    tabs->setFocus();
    setMinimumSize(Pixels(*this, LeastSize.width()), Pixels(*this, LeastSize.height()));
    ResizeOnScreen(*this, QSize(Pixels(*this, WishedSize.width()), Pixels(*this, WishedSize.height())));
}

void frmOptions::AddPage(OptionPage* page)
{
    tabs->addTab(page, page->Title());
    connect(page, &OptionPage::CloseWanted, this, &QWidget::close);
    for (const OptionPart& part : page->Parts()) {
        const QString place = part.Place.isEmpty() ? page->Title() : page->Title() + QStringLiteral(", ") + part.Place;
        finder->Add(QStringLiteral("%1  (%2)").arg(part.Name, place), part.Words);
        ways.push_back([this, page, part] {
            tabs->setCurrentWidget(page);
            page->LeadTo(part);
        });
    }
}

/// To a page beside the one in front. The tabs would do it by themselves, but not from a list box.
void frmOptions::Turn(int step)
{
    tabs->setCurrentIndex((tabs->currentIndex() + step + tabs->count()) % tabs->count());
}

/// F1 is eaten; Enter belongs to the part that has the focus.
void frmOptions::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_F1 || key == Qt::Key_Return || key == Qt::Key_Enter)
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

void RunOptionsWindow(const OptionsPorts& ports, QWidget* owner)
{
    const ModalScope scope;
    frmOptions(ports, owner).exec();
}
