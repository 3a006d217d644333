#pragma once

#include "level/level_palette.h"

#include <QTreeWidget>
#include <set>

/// The elements that a map uses, with pictures, names, numbers and counts. Those that are selected are marked on the
/// map.
class ElementList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ElementList(QWidget* parent);

    void ShowElements(const LevelMap& map, const MapPainter& painter);

    /// Elements that the set draws itself; nothing: it draws none, so that there is nothing to tell.
    void SetDrawn(const std::optional<std::set<int>>& elements);
    void SelectUndrawn();

    std::set<int> Selected() const;
    int Undrawn() const { return undrawn; } ///< how many kinds of elements the set does not draw

signals:
    void MarksChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FitColumns();
    void TellDrawn();

    std::optional<std::set<int>> drawn;
    int undrawn = 0;
};
