#include "windows/blocks/frm_comment.h"

#include "conf/comments.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icon_grid.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int LongestTitle = 50;
}

frmComment::frmComment(QWidget* parent) : QDialog(parent), title(new QLineEdit(this)), grid(new IconGrid(this))
{
    setWindowTitle(QStringLiteral("Insert Comment Separator"));
    SetHelpSubject(this, QStringLiteral("H_main_insert_comment_separator"));
    title->setMaxLength(LongestTitle);
    auto* titleLabel = new QLabel(QStringLiteral("Comment"), this);
    titleLabel->setBuddy(title);
    auto* gridLabel = new QLabel(QStringLiteral("Goto List Icon"), this);
    gridLabel->setBuddy(grid);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    for (QWidget* widget : std::initializer_list<QWidget*>{titleLabel, title, gridLabel, grid, buttons})
        layout->addWidget(widget);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    title->setFocus();
}

std::optional<CommentSeparator> frmComment::Ask(QWidget* parent)
{
    const WorkScope modal;
    frmComment dialog(parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return CommentSeparator{dialog.title->text(), IconCode(dialog.grid->Chosen())};
}

void InsertCommentCommand()
{
    if (const auto separator = frmComment::Ask(QApplication::activeWindow()))
        InsertCommentSeparator(CurrentPane(), separator->Title, separator->Code);
    Panes().FocusPane();
}
