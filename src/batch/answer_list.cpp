#include "batch/answer_list.h"

MessageAnswer AnswerList::Message(const MessageRecord& record)
{
    Shown.push_back(record);
    const QStringList captions = ButtonCaptions(record.MessageButtons);
    const QString wanted = Buttons.isEmpty() ? WayOutOf(record) : Buttons.takeFirst();
    const qsizetype at = captions.indexOf(wanted);
    Q_ASSERT_X(at >= 0, "AnswerList", qPrintable(wanted));
    return {wanted, int(at) + 1};
}

std::optional<QString> AnswerList::NextText()
{
    if (Texts.isEmpty())
        return std::nullopt;
    const QString text = Texts.takeFirst();
    return text.isNull() ? std::nullopt : std::optional(text);
}

std::optional<QString> AnswerList::Input(const QString& title, const QString& prompt, const QString&)
{
    Prompts << title + QStringLiteral(": ") + prompt;
    return NextText();
}

std::optional<QString> AnswerList::OpenFile(const FileQuestion& question)
{
    FileQuestions.push_back(question);
    return NextText();
}

std::optional<QString> AnswerList::SaveFile(const FileQuestion& question)
{
    FileQuestions.push_back(question);
    return NextText();
}

std::optional<QString> AnswerList::Folder(const QString& title)
{
    Prompts << title;
    return NextText();
}
