#pragma once

#include "editor/component.h"
#include "frame/editor_pane.h"

#include <QHash>
#include <QPixmap>
#include <QSet>
#include <QStringListModel>
#include <optional>

class QListView;

/// The words of the list, with a small picture in front of those that name a file.
class CodeListModel : public QStringListModel
{
public:
    QVariant data(const QModelIndex& index, int role) const override;

    std::function<QVariant(const QString& item)> PictureOf; ///< unset: the items have none
};

/// The list of words that a pane offers, below the caret. It has neither the focus nor any keys of its own: the pane
/// hands it those that count. CodeList says what stands in it, CodeListPick what a pick does; it opens in no time
/// whatever the number of its words, since all rows are one height and only those in view are laid out. CodeValues'
/// items stand first, only those that hold what is typed; none is selected while none begins so, lest Enter take one.
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
    void Narrow();
    std::optional<qsizetype> RowFor(const QString& word) const; ///< -1: shown without a selection; nothing: not shown
    QVariant PictureOf(const QString& item);
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
    OfferedValues values;
    QStringList words, items;                ///< items: the values that fit, then the words
    qsizetype valueCount = 0, beginners = 0; ///< of items: values; of those, how many begin with what is typed
    QHash<QString, QPixmap> pictures;
    QSet<QString> awaited; ///< pictures
    CodeListModel model;
    QPointer<QListView> view; ///< made when first shown
};
