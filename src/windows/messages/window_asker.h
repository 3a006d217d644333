#pragma once

#include "frame/messages/asker.h"

#include <QPointer>
#include <QWidget>

/// Asks with windows: frmMess, the input box and the toolkit's own file dialogs. A dialog stands above the modal
/// window that is open, else above `owner`.
class WindowAsker : public Asker
{
public:
    explicit WindowAsker(QWidget* owner);

    MessageAnswer Message(const MessageRecord& record) override;
    std::optional<QString> Input(const QString& title, const QString& prompt, const QString& preset) override;
    std::optional<QString> OpenFile(const FileQuestion& question) override;
    QStringList OpenFiles(const FileQuestion& question) override;
    std::optional<QString> SaveFile(const FileQuestion& question) override;
    std::optional<QString> Folder(const QString& title) override;

private:
    QWidget* Parent() const;

    QPointer<QWidget> owner;
};
