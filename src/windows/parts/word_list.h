#pragma once

#include <QStringListModel>
#include <QWidget>

class QLineEdit;
class QListView;

/// A list of words under a text line, with a label above. Typing leads to the first word that begins so; a click, an
/// arrow key or Enter picks a word.
class WordList : public QWidget
{
    Q_OBJECT

public:
    WordList(const QString& name, const QString& label, const QStringList& words, QWidget* parent);

    QString Word() const { return word; } ///< picked last, or set: what is only typed does not count
    void SetText(const QString& text);    ///< any text; no pick

    QLineEdit* Line() const { return line; }
    QListView* List() const { return list; }

signals:
    void Picked(const QString& word);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Pick();
    void Seek(const QString& text);

    QStringListModel words;
    QLineEdit* line;
    QListView* list;
    QString word;
    bool filling = false;
};
