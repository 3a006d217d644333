#include "windows/macro/frm_macro_new.h"

#include "frame/settings/settings.h"
#include "frame/settings/settings_table.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

struct PowerText
{
    MacroPower Power;
    const char* Text;
};
constexpr PowerText PowerTexts[] = {
    {TouchesFiles, "works with files: it may read, write, move and delete them"},
    {StartsPrograms, "starts other programs"},
    {SendsKeys, "sends keys and mouse clicks to other programs"},
    {SteersWindows, "steers the windows of other programs"},
    {WritesLevels, "writes level files"},
    {UsesRegistry, "keeps values of its own in the registry"},
};

constexpr int TextWidth = 420; ///< pixels of a 96-dpi screen

} // namespace

QStringList PowerLines(int powers)
{
    QStringList lines;
    for (const PowerText& row : PowerTexts)
        if (powers & row.Power)
            lines << QLatin1String(row.Text);
    if (lines.isEmpty())
        lines << QStringLiteral("changes the text of the current tab, and nothing else");
    return lines;
}

frmMacroNew::frmMacroNew(const NewMacro& macro, QWidget* parent)
    : QDialog(parent), askAgain(new QCheckBox(QStringLiteral("Ask before macros that are &new here"), this))
{
    setObjectName(QStringLiteral("frmMacroNew"));
    setWindowTitle(QStringLiteral("New Macro"));
    SetHelpSubject(this, QStringLiteral("macros"));
    auto* heading = new QLabel(this);
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    heading->setText(QStringLiteral("The macro \"%1\" has not run here yet. This is what it does:").arg(macro.Name));
    auto* column = new QVBoxLayout(this);
    column->addWidget(heading);
    for (const QString& line : PowerLines(macro.Powers)) {
        auto* label = new QLabel(QStringLiteral("\u2022  ") + line, this);
        label->setIndent(Pixels(*this, 12));
        label->setWordWrap(true);
        column->addWidget(label);
    }
    column->addSpacing(Pixels(*this, 8));
    askAgain->setChecked(true);
    column->addWidget(askAgain);
    auto* buttons = new QDialogButtonBox(this);
    run = AddButton(*buttons, "&Run", NewMacroChoice::Run);
    runOnCopy = AddButton(*buttons, "Run On A &Copy", NewMacroChoice::RunOnCopy);
    runOnCopy->setToolTip(QStringLiteral("The text stays as it is until you have seen what changes"));
    runOnCopy->setVisible(macro.CanCopy);
    auto* cancel = AddButton(*buttons, "Cancel", NewMacroChoice::Cancel);
    // What is safe is what Enter does.
    (macro.CanCopy ? runOnCopy : cancel)->setDefault(true);
    (macro.CanCopy ? runOnCopy : cancel)->setFocus();
    column->addWidget(buttons);
    heading->setMinimumWidth(Pixels(*this, TextWidth));
}

QPushButton* frmMacroNew::AddButton(QDialogButtonBox& buttons, const char* caption, NewMacroChoice choice)
{
    const bool cancels = choice == NewMacroChoice::Cancel;
    auto* button = buttons.addButton(QString::fromLatin1(caption),
                                     cancels ? QDialogButtonBox::RejectRole : QDialogButtonBox::AcceptRole);
    connect(button, &QPushButton::clicked, this, [this, choice] {
        chosen = choice;
        done(choice == NewMacroChoice::Cancel ? QDialog::Rejected : QDialog::Accepted);
    });
    return button;
}

NewMacroChoice frmMacroNew::Ask(const NewMacro& macro, QWidget* parent)
{
    const ModalScope scope;
    frmMacroNew dialog(macro, parent);
    dialog.exec();
    if (dialog.chosen != NewMacroChoice::Cancel && !dialog.askAgain->isChecked())
        ChangeSetting(SettingOf(QLatin1StringView("Misc"), QLatin1StringView("AskBeforeMacros")), 0);
    return dialog.chosen;
}
