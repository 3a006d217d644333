#pragma once

#include "help/help_book.h"

#include <QDateTime>
#include <QMainWindow>

class ContentsPane;
class FindBar;
class PageView;
class QSplitter;

/// The help window: contents and search at the left, the page at the right.
class HelpWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// A failure is shown in place of the pages.
    explicit HelpWindow(Result<HelpBook> opened, QWidget* parent = nullptr);

    /// From now on an id that comes from another start is looked up in this archive's present pages.
    void Follow(const QString& archive);

    void ShowId(const QString& id);
    /// For an id that came from another start: shows it and comes to the front.
    void ShowIdInFront(const QString& id);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void TakeBook(Result<HelpBook>& opened);
    void TakeChangedBook();
    void MakeActions();
    void LayOut();
    void FollowView(const QUrl& source);
    void Escape();

    HelpBook book;
    PageView* view;
    ContentsPane* contents;
    FindBar* find;
    QSplitter* split;
    QList<QAction*> bookActions; ///< that make sense while there are pages
    bool broken;
    QString archive;
    std::pair<qint64, QDateTime> archiveState; ///< size and time
};
