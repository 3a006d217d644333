#pragma once

#include "frame/vocabulary.h"

#include <QFrame>

class QLineEdit;
class QListWidget;
class QRadioButton;

/// `picNewElement`: chooses the key of a new block and how much of it is written.
class NewElementPanel : public QFrame
{
    Q_OBJECT

public:
    explicit NewElementPanel(QWidget* parent);

    /// Fills the lists from the words of the game, nothing chosen, and shows itself.
    void Open();
    void Make(); ///< what the button does

signals:
    /// `key`: the element with what was chosen after it; `full`: every line of a block.
    void MakeWanted(const QString& key, bool full);
    void CancelWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Narrow(const QString& typed);

    KeyWords words;
    QLineEdit* txtSearch;
    QListWidget *lstElement, *lstAction, *lstDirection;
    QRadioButton *useTemplate, *useFull;
};
