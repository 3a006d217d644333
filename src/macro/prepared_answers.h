#pragma once

#include "macro/run_asker.h"

#include <QStringList>
#include <functional>

/// Answers a run's dialogs from a list, in order. When it is empty, `message` takes its first button, a text that is
/// not saved may go, and everything else is cancelled.
class PreparedAnswers : public RunAsker
{
public:
    explicit PreparedAnswers(QStringList answers) : left(std::move(answers)) {}

    bool AllowFiles = false; ///< every question of SystemSafe is answered with Continue

    std::function<void(const MessageRecord&)> OnMessage; ///< told of each `message`
    std::function<void(const QString&)> OnMisfit;        ///< told of an answer that does not fit; must stop the run
    std::function<void()> OnRefused;                     ///< told of a refused question of SystemSafe

    MessageAnswer Message(const MessageRecord& record, MessagePurpose purpose) override;
    std::optional<QString> Input(const QString& title, const QString& prompt, const QString& preset) override;
    std::optional<int> ListItem(const QStringList& items, const QString& title, bool popup) override;
    std::optional<QString> Element(ElementPick what, const QString& title) override;
    std::optional<ElementRecord> Tiles(const QString& file, const QString& title) override;
    void Pause(const QString& text, std::optional<int> milliseconds, RunScope& scope) override;

private:
    MessageAnswer Safety(const MessageRecord& record);
    void Misfit(const QString& answer, const QString& dialog);

    QStringList left;
};
