#pragma once

#include "level/level_palette.h"

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>
#include <QTimer>

class MediaView;

/// Small pictures in front of the sheets and levels of a media list, if the setting Thumbnails is on. Only rows in view
/// are looked at, one image after the other, and none is waited for.
class Thumbnails : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit Thumbnails(MediaView& view);

    void LookAgain(); ///< files may have changed: the next paint asks for their time and size

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    struct Thumb
    {
        QPixmap Picture; ///< null: the file has none
        qint64 Time = 0, Size = 0;
        int Look = 0; ///< the look that found it to be so
    };

    int Side() const;
    bool IsDue(const QString& path);
    void AskNext();
    void AskForSheet(const QString& path, const Thumb& thumb);
    void DrawLevel(const QString& path, const Thumb& thumb);
    void Take(const QString& path, Thumb thumb, const QImage& image);

    MediaView& view;
    mutable QTimer soon;
    QCache<QString, Thumb> thumbs;
    QString palette; ///< path of the one that levels are drawn with
    MapPainter painter;
    bool asking = false;
    int look = 0;
};
