#pragma once

#include "editor/component.h"
#include "frame/editor_pane.h"

#include <QStringListModel>

class QListView;

/// The list of words that a pane offers, below the caret. It has neither the focus nor any keys of its own: the pane
/// hands it those that count. CodeList says what stands in it, CodeListPick what a pick does; it opens in no time
/// whatever the number of its words, since all rows are one height and only those in view are laid out.
class CodeListBox
{
public:
    CodeListBox(EditorPane& pane, Component& text);

    bool IsOpen() const;
    void Open();               ///< whatever stands at the caret
    void Typed(int character); ///< opens behind the second character of a word that the list knows
    void Follow();             ///< the word at the caret may be another now
    void Close();

    /// True if the key was the list's: a command of the pane that moves its selection, or what takes the item.
    bool TakeMove(int command);
    bool TakeAccept(bool always); ///< not `always`: an item that stands in the text already is not taken

private:
    bool Ask(bool typing);
    void Show(qsizetype selected);
    void Select(qsizetype row);
    void Place();
    void Pick(qsizetype row);
    qsizetype FirstFor(const QString& word) const;
    QString SignBefore() const;
    bool Stands(qsizetype row) const;
    qsizetype Selected() const;

    EditorPane& pane;
    Component& text;
    QStringList items;
    QStringListModel model;
    QPointer<QListView> view; ///< made when first shown
};
