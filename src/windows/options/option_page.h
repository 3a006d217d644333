#pragma once

#include "windows/options/option_parts.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QScrollArea;

/// One page of the options: what can be set, which rolls where there is no room, above an Apply and a Close of its own.
class OptionPage : public QWidget
{
    Q_OBJECT

public:
    /// `index` of the two buttons, cmblApply and cmdCancel.
    OptionPage(int index, const QString& title, QWidget* parent);

    QString Title() const { return title; }
    QPushButton* cmblApply() const { return apply; }
    QPushButton* cmdCancel() const { return cancel; }

    /// What the search finds on the page.
    virtual std::vector<OptionPart> Parts() const;
    /// Rolls a part into view and gives it the keyboard.
    void LeadTo(const OptionPart& part);

signals:
    void CloseWanted();

protected:
    /// Takes the page's part that can be set, once.
    void SetContent(QWidget* content);
    /// What the page holds takes effect and is written.
    virtual void Apply() = 0;

    /// A word beside the buttons, for a while.
    void Tell(const QString& words);

private:
    QPushButton* MakeButton(const char* name, const char* caption);
    void ApplyAndTell();

    const int number;
    QString title;
    QScrollArea* area;
    QLabel* outcome;
    QPushButton *apply = nullptr, *cancel = nullptr;
};
