#pragma once

#include <QListWidget>

/// Variables and results of a test run, the variables in front. Their values can be changed while the run stands still.
class WatchList : public QListWidget
{
    Q_OBJECT

public:
    explicit WatchList(QWidget* parent);

    void ShowLines(const QStringList& lines); ///< only what has changed is touched
    /// The first lines may be changed from now on; 0: none.
    void LetChange(int lines);
    void FinishChange(); ///< takes what stands in a line that is being changed

signals:
    void ValueSet(int line, const QString& value);

private:
    void LetChangeItem(int row);

    int changeable = 0;
};
