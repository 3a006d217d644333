#pragma once

#include <QWidget>

class PageView;
class QLabel;
class QLineEdit;

/// The strip below the page that looks for a text in it.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(PageView& page, QWidget* parent = nullptr);

    void Open();          ///< shows the strip and gives its box the focus
    bool CloseIfOpen();   ///< false if it was not open
    void Step(bool back); ///< to the next or previous place

private:
    void Look(bool back, bool fromHere);

    PageView& view;
    QLineEdit* box;
    QLabel* answer;
};
