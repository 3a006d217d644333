#pragma once

#include <QWidget>

class QAbstractItemModel;
class QLabel;
class QToolButton;
class QTreeView;

/// How a list below the text is told apart.
struct LowerListLook
{
    const char* Name;    ///< "Words": WordsPanel, lstWords, cmdShowWords, cmdCloseWords
    const char* Icon;    ///< of the command that shows it, whose help page is its own too
    QString What, Whose; ///< for a screen reader: what the rows are; what the close button closes
};

/// Rows that lead to lines, below the text: a quiet bar that counts them, and under it the list. Out of sight while
/// there is nothing.
class LowerList : public QWidget
{
    Q_OBJECT

public:
    LowerList(const LowerListLook& look, QWidget* parent); ///< SetModel comes next

    virtual void ShowList(); ///< bar and list, the keyboard in the list
    bool HasKeyboard() const;
    bool ListShows() const;

    QTreeView* List() const { return list; }
    QToolButton* ShowButton() const { return cmdShow; }
    QToolButton* CloseButton() const { return cmdClose; }
    QString BarText() const;

signals:
    void Left(); ///< the keyboard goes back to the text

protected:
    void SetModel(QAbstractItemModel& model);
    void SetBarText(const QString& said);
    void ShowColumns(); ///< all but the last as wide as they need, as far as the last keeps half the room
    bool eventFilter(QObject* watched, QEvent* event) override;
    void Leave(); ///< out of sight; the keyboard goes on if it was here

private:
    void SetListVisible(bool visible);
    void FitText();

    QWidget* bar;
    QLabel *picture, *text;
    QToolButton *cmdShow, *cmdClose;
    QTreeView* list;
    int listHeight = 0; ///< with its bar, as the user left it
};
