#pragma once

#include "editor/component.h"

#include <QStringList>

/// The list of words that a pane offers. The component shows it and never inserts by itself; the pane's CodeList and
/// CodeListPick say what stands in it and what a pick does.
class CodeListBox
{
public:
    CodeListBox(EditorPane& pane, Component& text);

    bool IsOpen() const;
    void Open();               ///< whatever stands at the caret
    void Typed(int character); ///< opens behind the second character of a word that the list knows
    void Follow();             ///< the word at the caret may be another now
    void Reopen();             ///< the component closed it, but the word still fits
    void Close();
    void Pick(const QString& item); ///< the user chose
    bool NothingToAdd() const;      ///< the selected item stands in the text already

private:
    bool Ask();
    void Show(qsizetype selected);
    void Select(qsizetype index);
    qsizetype FirstFor(const QString& word) const;

    EditorPane& pane;
    Component& text;
    QStringList items;
};
