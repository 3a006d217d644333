#pragma once

#include "macro/stopped_run.h"

#include <QFrame>

class QLabel;
class QListWidget;

/// Where a test run stands: the gosubs that led there, and what is to be said of the place.
class StopBar : public QFrame
{
    Q_OBJECT

public:
    explicit StopBar(QWidget* parent);

    void ShowPlace(const std::vector<RunPlace>& chain, const QString& remark);
    void AddButton(class QAction* action); ///< with the entry's key in its tip

signals:
    void PlaceWanted(int line);

private:
    QLabel* lblStop;
    QListWidget* lstChain;
    QWidget* buttons;
};
