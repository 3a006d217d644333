#pragma once

#include "frame/messages/asker.h"
#include "frame/messages/messages.h"

#include <vector>

/// Answers prepared in advance. A message without one is answered with its way out; a question, with a cancel.
class AnswerList : public Asker
{
public:
    MessageAnswer Message(const MessageRecord& record) override;
    std::optional<QString> Input(const QString& title, const QString& prompt, const QString& preset) override;
    std::optional<QString> OpenFile(const FileQuestion& question) override;
    std::optional<QString> SaveFile(const FileQuestion& question) override;
    std::optional<QString> Folder(const QString& title) override;

    QStringList Buttons; ///< captions for the next messages, in order
    QStringList Texts;   ///< answers for the next inputs and file questions; a null text cancels

    std::vector<MessageRecord> Shown;
    std::vector<FileQuestion> FileQuestions;
    QStringList Prompts;

private:
    std::optional<QString> NextText();
};
