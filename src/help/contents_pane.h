#pragma once

#include "help/page_id.h"

#include <QWidget>

class HelpBook;
class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTreeWidget;

/// The left side: a search box, below it the contents or, while the box holds text, what the search found.
class ContentsPane : public QWidget
{
    Q_OBJECT

public:
    explicit ContentsPane(const HelpBook& pages, QWidget* parent = nullptr);

    /// Shows the contents that the book has now.
    void FillContents();
    void FocusSearch();
    /// Empties the search box. False if it was empty.
    bool ClearSearch();
    /// Marks the page in the contents.
    void MarkPage(const QString& file);

signals:
    void PlaceChosen(const HelpPlace& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void TintBox();
    void ShowHits(const QString& words);
    void FollowKeyFromBox(int key);

    const HelpBook& book;
    QLineEdit* box;
    QLabel* count;
    QStackedWidget* stack;
    QTreeWidget* contents;
    QListWidget* hits;
};
