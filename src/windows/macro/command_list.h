#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;

/// The words of the language to choose from, with form and meaning of the one at hand. Typing filters them.
class CommandList : public QWidget
{
    Q_OBJECT

public:
    explicit CommandList(QWidget* parent);

    QString CurrentWord() const; ///< empty: none, or a heading

signals:
    void Chosen(const QString& word);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill();
    void Filter(const QString& typed);
    void ShowFacts();
    void ChooseCurrent();
    bool ListKey(class QKeyEvent& event);
    bool FilterKey(class QKeyEvent& event);

    QLineEdit* txtFilter;
    QListWidget* lstCom;
    QLabel* lblForm;
};
