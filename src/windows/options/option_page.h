#pragma once

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

    /// The part of the page that is to be seen rolls into view.
    void ShowPart(QWidget* part);

signals:
    void CloseWanted();

protected:
    /// Takes the page's part that can be set.
    void SetContent(QWidget* content);
    /// What the page holds takes effect and is written.
    virtual void Apply() = 0;

private:
    void ApplyAndTell();

    QString title;
    QScrollArea* area;
    QLabel* outcome;
    QPushButton *apply, *cancel;
};
