#pragma once

#include "frame/messages/asker.h"

#include <QPointer>
#include <QWidget>
#include <array>
#include <functional>

/// Asks with windows: frmMess, the input box and the toolkit's own file dialogs. A dialog stands above the modal
/// window that is open, else above `owner`. Kinds of questions whose windows other rooms have are answered once those
/// rooms have brought them, and are Cancelled until then.
class WindowAsker : public Asker
{
public:
    explicit WindowAsker(QWidget* owner);

    Answer Ask(const Question& question) override;

    /// The window for a kind of question: `ask` gets the question and the parent for its dialog (which may be null),
    /// and waits for the answer. It takes the place of the kind's earlier window.
    template <class Kind>
    void Bring(std::function<Answer(const Kind&, QWidget*)> ask)
    {
        windows.at(Question(Kind{}).index()) = [ask = std::move(ask)](const Question& question, QWidget* parent) {
            return ask(std::get<Kind>(question), parent);
        };
    }

private:
    QPointer<QWidget> owner;
    std::array<std::function<Answer(const Question&, QWidget*)>, std::variant_size_v<Question>> windows;
};
