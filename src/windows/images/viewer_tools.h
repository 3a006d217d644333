#pragma once

#include <QWidget>
#include <vector>

class PictureViewer;
class QActionGroup;

/// The row above pictures: their zoom, and whether they show as in the game. Both are kept as settings.
class ViewerTools : public QWidget
{
    Q_OBJECT

public:
    /// `section` of user.ini keeps what is chosen.
    ViewerTools(QString section, std::vector<PictureViewer*> viewers, QWidget* parent);

private:
    void SetZoom(int times);
    void StepZoom(int steps);

    QString section;
    std::vector<PictureViewer*> viewers;
    QActionGroup* zooms;
    int zoom = 1;
};
