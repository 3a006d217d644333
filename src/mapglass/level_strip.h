#pragma once

#include "level/level_palette.h"

#include <QAbstractListModel>
#include <QIcon>
#include <QListView>
#include <QTimer>

/// The levels of a folder with small pictures, which are made in between, those in view first.
class LevelStripModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit LevelStripModel(QObject* parent);

    void ShowFolder(const QString& folder); ///< the same folder again: looks whether other files stand there now
    void SetPainter(const MapPainter& painter);
    void MakeAnew(const QString& name);    ///< the picture of a file that has changed
    void MakeFrom(int row) { next = row; } ///< where pictures are wanted most

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    int RowOf(const QString& name) const { return int(names.indexOf(name)); }
    QString Path(int row) const;
    bool IsWhole() const { return made == names.size(); }

    static constexpr QSize Picture{112, 84};

private:
    struct Thumb
    {
        QIcon Picture;
        QString Title;
        bool Made = false;
    };
    void MakeSome();
    void Make(int row);

    QString folder;
    QStringList names;
    std::vector<Thumb> thumbs;
    MapPainter painter;
    QTimer between;
    qsizetype made = 0;
    int next = 0;
};

class LevelStrip : public QListView
{
    Q_OBJECT

public:
    explicit LevelStrip(QWidget* parent);

    LevelStripModel& Levels() { return *levels; }
    void ShowCurrent(const QString& name);

signals:
    void Chosen(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    LevelStripModel* levels;
    bool following = false; ///< the current row is set from outside
};
