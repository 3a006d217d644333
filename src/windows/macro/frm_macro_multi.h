#pragma once

#include "frame/messages/asker.h"

#include <QDialog>
#include <vector>

class QLineEdit;
class QListView;
class QPushButton;
class QStackedWidget;
class ZipPage;

/// What a macro lets choose from: a list on page 0, lists of the graphics words on page 1, whose choice the line below
/// shows, or the content of an archive on page 2.
class frmMacroMulti : public QDialog
{
    Q_OBJECT

public:
    frmMacroMulti(const ChoiceQuestion& question, QWidget* parent);
    frmMacroMulti(const ZipEntryQuestion& question, QWidget* parent);

    static Answer Ask(const ChoiceQuestion& question, QWidget* parent);
    static Answer AskZip(const ZipEntryQuestion& question, QWidget* parent);

    QStackedWidget* SSMultiPage() const { return pages; }
    QListView* lstAsk() const { return lists.front(); }
    QListView* lstElements(int index) const { return lists.at(size_t(index)); }
    QLineEdit* txtPreview() const { return preview; }
    QPushButton* cmdOK() const { return ok; }

private:
    void LayOut();
    QWidget* MakePage(const ChoiceQuestion& question);
    QListView* MakeList(const ChoiceQuestion::List& list, QWidget* page);
    void ChoiceChanged();
    Answer Chosen() const;
    QString TextOf(const QListView& list) const;

    const bool ofWords; ///< the lists are those of the element picker
    std::vector<QListView*> lists;
    QStackedWidget* pages;
    QLineEdit* preview;
    QPushButton* ok = nullptr;
    ZipPage* zip = nullptr;
};
