#include "windows/find/goto_dialog.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr int MostTyped = 99'999'999;
}

GotoDialog::GotoDialog(QWidget* owner) : QDialog(owner, Qt::Tool)
{
    setObjectName(QStringLiteral("GotoDialog"));
    SetHelpSubject(this, QStringLiteral("H_main_goto_line_number"));
    setWindowTitle(QStringLiteral("Goto Line Number"));
    lblLine = new QLabel(this);
    numLine = new QSpinBox(this);
    numLine->setMinimumWidth(Pixels(*this, 240)); // room for the window's title
    numLine->setAccessibleName(QStringLiteral("Line number"));
    lblLine->setBuddy(numLine);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Go"));
    connect(buttons, &QDialogButtonBox::accepted, this, &GotoDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &GotoDialog::reject);
    auto* column = new QVBoxLayout(this);
    for (QWidget* part : std::initializer_list<QWidget*>{lblLine, numLine, buttons})
        column->addWidget(part);
}

void GotoDialog::Open(EditorPane& pane)
{
    target.Set(pane);
    const int last = qMax(1, pane.LineCount());
    lblLine->setText(QStringLiteral("&Line (1 to %1):").arg(last));
    // The box would drop digits of a number outside its range; a line behind the end is the last one, line 0 the first.
    numLine->setRange(0, qMax(last, MostTyped));
    numLine->setValue(pane.GetSel(true).StartLine + 1);
    if (!isVisible())
        PlaceBeside(*this, pane);
    show();
    raise();
    activateWindow();
    numLine->setFocus();
    numLine->selectAll();
}

void GotoDialog::accept()
{
    QDialog::accept();
    if (EditorPane* pane = target.Pane()) {
        pane->ExecuteCmd(CmdGotoLine, qBound(1, numLine->value(), qMax(1, pane->LineCount())) - 1);
        pane->FocusPane();
    }
}

void GotoDialog::reject()
{
    QDialog::reject();
    if (EditorPane* pane = target.Pane())
        pane->FocusPane();
}
