#include "windows/macro/frm_macro_copy.h"

#include "windows/macro/side_by_side.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/window_position.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr QSize Size(860, 520); ///< pixels of a 96-dpi screen

/// Rows for texts with too little in common: the lines of both, as they stand.
std::vector<ComparedRow> WholeTexts(const MacroChanges& changes)
{
    constexpr qsizetype MostShown = 2000;
    const QList<QByteArray> before = changes.Before.split('\n'), after = changes.After.split('\n');
    std::vector<ComparedRow> rows;
    for (qsizetype i = 0; i < qMin(MostShown, qMax(before.size(), after.size())); ++i)
        rows.push_back({QString::fromUtf8(before.value(i)).trimmed(), QString::fromUtf8(after.value(i)).trimmed(),
                        i < before.size(), i < after.size(), false});
    return rows;
}

QString HeadingOf(const QString& name, const std::vector<ComparedRow>& rows)
{
    const auto changed = std::count_if(rows.begin(), rows.end(), [](const ComparedRow& row) { return row.Differs(); });
    if (changed == 0)
        return QStringLiteral("%1 has changed nothing.").arg(name);
    if (changed == 1)
        return QStringLiteral("%1 changes one line. The text itself is untouched so far.").arg(name);
    return QStringLiteral("%1 changes %2 lines. The text itself is untouched so far.").arg(name).arg(changed);
}

} // namespace

frmMacroCopy::frmMacroCopy(const MacroChanges& changes, QWidget* parent)
    : QDialog(parent), comparison(new SideBySide(this))
{
    setObjectName(QStringLiteral("frmMacroCopy"));
    setWindowTitle(QStringLiteral("Run On A Copy"));
    SetHelpSubject(this, QStringLiteral("macros"));
    const auto compared = CompareSideBySide(changes.Before, changes.After);
    const std::vector<ComparedRow> rows = compared ? *compared : WholeTexts(changes);
    auto* heading = new QLabel(this);
    heading->setTextFormat(Qt::PlainText);
    heading->setText(HeadingOf(changes.Name, rows));
    comparison->Show(rows);
    auto* buttons = new QDialogButtonBox(this);
    take = buttons->addButton(QStringLiteral("&Take Changes"), QDialogButtonBox::AcceptRole);
    take->setEnabled(changes.Before != changes.After);
    auto* drop = buttons->addButton(QStringLiteral("&Drop Changes"), QDialogButtonBox::RejectRole);
    (take->isEnabled() ? take : drop)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(heading);
    column->addWidget(comparison, 1);
    column->addWidget(buttons);
    ResizeOnScreen(*this, QSize(Pixels(*this, Size.width()), Pixels(*this, Size.height())));
    (take->isEnabled() ? take : drop)->setFocus();
}

bool frmMacroCopy::Ask(const MacroChanges& changes, QWidget* parent)
{
    const ModalScope scope;
    frmMacroCopy dialog(changes, parent);
    return dialog.exec() == QDialog::Accepted;
}
