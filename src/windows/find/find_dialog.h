#pragma once

#include "frame/host_ports.h"
#include "windows/find/dialog_target.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

/// Find and replace in one window that stays open beside the pane. What a search gave stands inside the window.
class FindDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FindDialog(QWidget* owner);

    /// Turns the window to a pane and to finding or replacing, takes the selection as the text, and shows it.
    void Open(EditorPane& pane, FindKind kind);

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeOptions();
    void MakeButtons();
    void PlaceParts();
    void ShowKind(FindKind kind);
    void TakeTexts();
    void FillHistories(const QString& find, const QString& replace);
    void TellPane();
    void FindFrom(bool forward);
    void ReplaceOne();
    void ReplaceMany(int command);
    void ShowOutcome(bool found, const QString& good, const QString& bad);
    QString NotFoundText(bool forward) const;
    void Say(const QString& text, bool trouble);
    void UpdateButtons();

    DialogTarget target;
    QComboBox *cmbFind, *cmbReplace;
    QLabel *lblReplace, *lblOutcome;
    QCheckBox *chkCase, *chkWord, *chkExpression, *chkWrap;
    QPushButton *cmdNext, *cmdPrevious, *cmdReplace, *cmdReplaceAll, *cmdReplaceSelection, *cmdClose;
};
