#pragma once

#include "conf/block_commands.h"
#include "conf/inject.h"
#include "frame/editor_pane.h"

#include <QDialog>
#include <array>

class QCheckBox;
class QGroupBox;
class WordList;

/// "Edit Element": lists for the element, action and direction of the block selected in a pane, a box for each of its
/// commands. Every pick rebuilds the block in the text; one visit is one undo step. There is nothing to confirm.
class frmInject : public QDialog
{
    Q_OBJECT

public:
    /// `pane` has the block of the request selected.
    frmInject(DocumentText& pane, const InjectRequest& request, QWidget* parent);

    InjectAnswer Answer() const;

    WordList* lstElement() const { return element; }
    WordList* lstAction() const { return action; }
    WordList* lstDirection() const { return direction; }
    QCheckBox* chkOption(int index) const { return boxes.at(size_t(index)); }

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeLists();
    QWidget* MakeBoxes();
    QGroupBox* MakeGroup(InjectGroup group, const char* title, int columns);
    void ShowBlock();
    void TellForeignLines();
    void RebuildBlock();

    DocumentText& pane;
    UndoGroup visit;
    const InjectRequest request;
    WordList *element, *action, *direction;
    std::array<QCheckBox*, KnownCommands> boxes{};
    bool loading = true, mouseWasHere = false;
};

/// Opens the window on a block that is selected in `pane`; returns when it has closed.
InjectAnswer RunInjectWindow(DocumentText& pane, const InjectRequest& request, QWidget* parent);

/// "Edit Element": the block around the caret of the current pane.
void EditElement();
