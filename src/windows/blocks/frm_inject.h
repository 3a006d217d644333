#pragma once

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
    /// `pane` has the block selected, txtBuffer holds its text, Conf.CommandPresent tells its commands.
    frmInject(EditorPane& pane, QWidget* parent);

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
    QGroupBox* MakeGroup(const QString& title, const QList<int>& commands, int columns);
    void ShowBlock();
    void TellForeignLines();
    void RebuildBlock();

    EditorPane& pane;
    UndoGroup visit;
    InjectBlock block;
    WordList *element, *action, *direction;
    std::array<QCheckBox*, InjectBoxes> boxes{};
    bool loading = true, mouseWasHere = false;
};

/// Opens the window on the current pane; returns when it has closed.
void RunInjectWindow(QWidget* parent);
