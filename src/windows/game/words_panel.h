#pragma once

#include <QWidget>

class QLabel;
class QToolButton;
class QTreeView;

/// What the game complained about, below the text: a quiet bar that counts it, and under it the list, one row each,
/// which leads to its line. Out of sight while there is nothing.
class WordsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit WordsPanel(QWidget* parent = nullptr);

    void ShowList(); ///< bar and list, the keyboard in the list
    bool HasKeyboard() const;
    bool ListShows() const;

    QTreeView* List() const { return list; }
    QToolButton* ShowButton() const { return cmdShow; }
    QToolButton* CloseButton() const { return cmdClose; }
    QString BarText() const;

signals:
    void Left(); ///< the keyboard goes back to the text

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Spoken(int all, int fresh);
    void SetListVisible(bool visible);
    void ShowColumns();
    void FitText();

    QWidget* bar;
    QLabel *picture, *text;
    QToolButton *cmdShow, *cmdClose;
    QTreeView* list;
    int listHeight = 0; ///< with its bar, as the user left it
};
