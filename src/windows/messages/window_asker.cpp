#include "windows/messages/window_asker.h"

#include "windows/messages/frm_mess.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/file_filter.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/window_position.h"

#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

namespace {

QStringList Chosen(QFileDialog& dialog)
{
    const ModalScope scope;
    QStringList chosen;
    if (dialog.exec() == QDialog::Accepted)
        for (const QString& path : dialog.selectedFiles())
            chosen << QDir::cleanPath(path);
    return chosen;
}

Answer FirstOf(const QStringList& chosen)
{
    return chosen.isEmpty() ? Answer(Cancelled{}) : Answer(chosen.constFirst());
}

void CompleteBy(QFileDialog& dialog, const QString& filter)
{
    static const QRegularExpression firstEnding(QStringLiteral("\\*\\.(\\w+)"));
    dialog.setDefaultSuffix(firstEnding.match(filter).captured(1));
}

Answer AskFile(const FileQuestion& question, QWidget* parent)
{
    const bool several = question.For == FileQuestion::OpenMany, opens = question.For != FileQuestion::Save;
    QFileDialog dialog(parent, question.Title, question.Folder);
    dialog.setAcceptMode(opens ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    SetHelpSubject(&dialog, opens ? QStringLiteral("H_main_open") : QStringLiteral("H_main_save_as"));
    // Of any kind: a typed name may be one that the filter hides, such as a backup's.
    dialog.setFileMode(several ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the command asks that itself, with message 9
    const QStringList filters = DialogFilters(question.Filter);
    dialog.setNameFilters(filters);
    if (!filters.isEmpty())
        dialog.selectNameFilter(question.Selected < 0 ? filters.constLast() : filters.value(question.Selected));
    if (question.Completes) {
        CompleteBy(dialog, dialog.selectedNameFilter());
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                         [&dialog](const QString& filter) { CompleteBy(dialog, filter); });
    }
    if (!question.Preset.isEmpty())
        dialog.selectFile(question.Preset);
    ResizeOnScreen(dialog, dialog.size());
    const QStringList chosen = Chosen(dialog);
    return several && !chosen.isEmpty() ? Answer(chosen) : FirstOf(chosen);
}

Answer AskFolder(const FolderQuestion& question, QWidget* parent)
{
    QFileDialog dialog(parent, question.Title, question.Folder);
    SetHelpSubject(&dialog, QStringLiteral("H_main_open"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    ResizeOnScreen(dialog, dialog.size());
    return FirstOf(Chosen(dialog));
}

Answer AskInput(const InputQuestion& question, QWidget* parent)
{
    QInputDialog dialog(parent);
    SetHelpSubject(&dialog, QStringLiteral("messages"));
    dialog.setWindowTitle(question.Title);
    dialog.setLabelText(WithoutMnemonic(question.Prompt));
    dialog.setTextValue(question.Preset);
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText); // a prompt is a macro's text
        label->setWordWrap(true);
    }
    dialog.findChild<QLineEdit*>()->setMinimumWidth(Pixels(dialog, 360));
    const ModalScope scope;
    return dialog.exec() == QDialog::Accepted ? Answer(dialog.textValue()) : Cancelled{};
}

} // namespace

WindowAsker::WindowAsker(QWidget* window) : owner(window)
{
    Bring<MessageQuestion>(
        [](const auto& question, QWidget* parent) { return frmMess(question.Record, parent).Ask(); });
    Bring<SafetyQuestion>(
        [](const auto& question, QWidget* parent) { return frmMess(RecordOf(question), parent).Ask(); });
    Bring<InputQuestion>(AskInput);
    Bring<FileQuestion>(AskFile);
    Bring<FolderQuestion>(AskFolder);
}

Answer WindowAsker::Ask(const Question& question)
{
    const auto& ask = windows.at(question.index());
    return ask ? ask(question, DialogParent(owner)) : Cancelled{};
}
