#include "windows/macro/choice_menu.h"

#include "windows/parts/dialog_help.h"

#include <QCursor>
#include <QMenu>

Answer ChooseFromMenu(const ChoiceQuestion& question, QWidget* parent)
{
    constexpr qsizetype LongestEntry = 30;
    QMenu mnuPop(parent);
    mnuPop.setObjectName(QStringLiteral("mnuPop"));
    int place = 0;
    for (const QString& item : question.Lists.front().Items)
        mnuPop.addAction(WithoutMnemonic(item.left(LongestEntry)))->setData(++place);
    const ModalScope scope;
    const QAction* chosen = mnuPop.exec(QCursor::pos());
    return chosen ? Answer(chosen->data().toInt()) : Answer(Cancelled{});
}
