#pragma once

#include "frame/messages/asker.h"

#include <QDialog>
#include <vector>

class QLineEdit;
class QListView;
class QPushButton;
class QStackedWidget;
class QTreeView;

/// What a macro lets choose from: a list on page 0, lists of the graphics words on page 1, the entries of an archive as
/// a tree on page 2. The line below shows what is chosen of words and of an archive.
class frmMacroMulti : public QDialog
{
    Q_OBJECT

public:
    frmMacroMulti(const ChoiceQuestion& question, QWidget* parent);
    frmMacroMulti(const ZipEntryQuestion& question, QWidget* parent);

    static Answer Ask(const ChoiceQuestion& question, QWidget* parent);
    static Answer AskEntry(const ZipEntryQuestion& question, QWidget* parent);

    QStackedWidget* SSMultiPage() const { return pages; }
    QListView* lstAsk() const { return lists.front(); }
    QListView* lstElements(int index) const { return lists.at(size_t(index)); }
    QLineEdit* txtPreview() const { return preview; }
    QTreeView* lstZipTree() const { return tree; }
    QLineEdit* txtZipFile() const { return preview; }
    QPushButton* cmdOK() const { return ok; }

private:
    enum Page { ListPage, WordsPage, ZipPage };

    frmMacroMulti(const QString& title, Page page, QWidget* parent);
    void Arrange(QWidget* shown, QWidget* first);
    QWidget* MakeTree(const QStringList& entries);
    void EntryChanged();
    QWidget* MakePage(const ChoiceQuestion& question);
    QListView* MakeList(const ChoiceQuestion::List& list, QWidget* page, bool alone);
    void ChoiceChanged();
    Answer Chosen() const;
    QString TextOf(const QListView& list) const;

    const Page page;
    std::vector<QListView*> lists;
    QStackedWidget* pages;
    QTreeView* tree = nullptr;
    QLineEdit* preview; ///< what is chosen
    QPushButton* ok;
};
