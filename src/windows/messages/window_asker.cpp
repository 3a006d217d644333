#include "windows/messages/window_asker.h"

#include "windows/messages/frm_mess.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/file_filter.h"
#include "windows/parts/help_subject.h"

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

std::optional<QString> First(const QStringList& chosen)
{
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen.constFirst());
}

void CompleteBy(QFileDialog& dialog, const QString& filter)
{
    static const QRegularExpression firstEnding(QStringLiteral("\\*\\.(\\w+)"));
    dialog.setDefaultSuffix(firstEnding.match(filter).captured(1));
}

QStringList AskFile(QWidget* parent, const FileQuestion& question, QFileDialog::AcceptMode mode,
                    QFileDialog::FileMode files = QFileDialog::AnyFile)
{
    QFileDialog dialog(parent, question.Title, question.Folder);
    dialog.setAcceptMode(mode);
    SetHelpSubject(&dialog,
                   mode == QFileDialog::AcceptOpen ? QStringLiteral("H_main_open") : QStringLiteral("H_main_save_as"));
    dialog.setFileMode(files); // of any kind: a typed name may be one that the filter hides, such as a backup's
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
    return Chosen(dialog);
}

} // namespace

WindowAsker::WindowAsker(QWidget* window) : owner(window) {}

QWidget* WindowAsker::Parent() const
{
    return DialogParent(owner);
}

MessageAnswer WindowAsker::Message(const MessageRecord& record)
{
    return frmMess(record, owner).Ask();
}

std::optional<QString> WindowAsker::Input(const QString& title, const QString& prompt, const QString& preset)
{
    QInputDialog dialog(Parent());
    SetHelpSubject(&dialog, QStringLiteral("messages"));
    dialog.setWindowTitle(title);
    dialog.setLabelText(WithoutMnemonic(prompt));
    dialog.setTextValue(preset);
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText); // a prompt is a macro's text
        label->setWordWrap(true);
    }
    dialog.findChild<QLineEdit*>()->setMinimumWidth(Pixels(dialog, 360));
    const ModalScope scope;
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.textValue()) : std::nullopt;
}

std::optional<QString> WindowAsker::OpenFile(const FileQuestion& question)
{
    return First(AskFile(Parent(), question, QFileDialog::AcceptOpen));
}

QStringList WindowAsker::OpenFiles(const FileQuestion& question)
{
    return AskFile(Parent(), question, QFileDialog::AcceptOpen, QFileDialog::ExistingFiles);
}

std::optional<QString> WindowAsker::SaveFile(const FileQuestion& question)
{
    return First(AskFile(Parent(), question, QFileDialog::AcceptSave));
}

std::optional<QString> WindowAsker::Folder(const QString& title)
{
    QFileDialog dialog(Parent(), title);
    SetHelpSubject(&dialog, QStringLiteral("H_main_open"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return First(Chosen(dialog));
}
