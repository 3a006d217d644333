#include "windows/options/frm_options.h"

#include "windows/options/colours_page.h"
#include "windows/options/general_page.h"
#include "windows/options/shortcut_page.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/window_position.h"

#include <QKeyEvent>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize WishedSize{900, 690}, LeastSize{360, 240}; // pixels at 96 dpi

} // namespace

frmOptions::frmOptions(const OptionsPorts& ports, QWidget* owner)
    : QDialog(DialogParent(owner)), tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("frmOptions"));
    SetHelpSubject(this, NoHelpSubject);
    setWindowTitle(QStringLiteral("Gemforge - Options"));
    tabs->setObjectName(QStringLiteral("SSTab"));
    AddPage(new GeneralPage(0, ports, tabs));
    AddPage(new ColoursPage(1, tabs));
    AddPage(new ShortcutPage(3, ports.Shortcuts(), tabs));
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs);
    setMinimumSize(Pixels(*this, LeastSize.width()), Pixels(*this, LeastSize.height()));
    const QRect wished(pos(), QSize(Pixels(*this, WishedSize.width()), Pixels(*this, WishedSize.height())));
    resize(OnScreen(wished, minimumSize()).size());
}

void frmOptions::AddPage(OptionPage* page)
{
    tabs->addTab(page, page->Title());
    connect(page, &OptionPage::CloseWanted, this, &QWidget::close);
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
