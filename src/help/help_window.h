#pragma once

#include "help/help_book.h"

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

    void ShowId(const QString& id);
    /// For an id that came from another start: shows it and comes to the front.
    void ShowIdInFront(const QString& id);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeActions();
    void LayOut();
    void FollowView(const QUrl& source);
    void Escape();

    HelpBook book;
    PageView* view;
    ContentsPane* contents;
    FindBar* find;
    QSplitter* split;
    bool broken;
};
