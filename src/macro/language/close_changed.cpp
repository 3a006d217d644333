#include "macro/language/close_changed.h"

#include "macro/language/run_state.h"
#include "macro/run_asker.h"
#include "macro/run_stage.h"
#include "text/document_text.h"

bool ConfirmCloseChanged(RunState& run)
{
    if (run.TestRun || !run.Text().Modified())
        return true;
    constexpr int ChangedMessage = 8;
    const std::optional<MessageRecord> question = NumberedMessage(ChangedMessage);
    if (!question)
        return true;
    run.Stage.ShowTarget(true);
    const MessageAnswer answer = run.Ask.Message(*question, MessagePurpose::CloseChanged);
    run.Stage.ShowTarget(false);
    if (answer.Caption == QLatin1String("Cancel"))
        run.Fail("BASIC Stopped because the User didn't want to close their changed file.");
    return !run.Failed();
}
