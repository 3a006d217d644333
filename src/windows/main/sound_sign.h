#pragma once

#include <QWidget>

class QLabel;

/// Tells in the status bar what plays, with a button that ends it. Out of sight while nothing does.
class SoundSign : public QWidget
{
    Q_OBJECT

public:
    explicit SoundSign(QWidget* parent);

signals:
    void StopWanted();

private:
    void Look();

    QLabel* what;
};
