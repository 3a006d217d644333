#pragma once

#include <QFrame>

class QModelIndex;
class QTreeView;

/// A list in a raised frame that floats over the pane: the recent list, the comment tree, the outline of blocks. It has
/// the keyboard while it shows, and closes when the mouse has been over it and moves onto anything else.
class FloatingList : public QFrame
{
    Q_OBJECT

public:
    /// `view`: a list of this kind's own, named `name`. `subject`: the help page of the list.
    FloatingList(QWidget* parent, QTreeView* view, const QString& name, const QString& subject);

    void Open(const QRect& place); ///< in the parent's coordinates
    QTreeView* View() const { return view; }
    QString Subject() const { return subject; }

    /// The mouse is over the part with this help id: does the list close now?
    bool LeftFor(const QString& helpId);

signals:
    void Chosen(int index); ///< by a click or Enter
    void Dismissed();       ///< by the right mouse button

protected:
    virtual void Fill() = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;
    int Inset() const;

private:
    void Choose(const QModelIndex& index);

    QTreeView* view;
    QString subject;
    bool mouseWasHere = false; ///< since it opened
};
