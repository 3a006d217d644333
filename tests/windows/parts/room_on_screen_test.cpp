#include "windows/parts/place_at_mouse.h"
#include "windows/parts/rolling.h"
#include "windows/parts/window_position.h"

#include <QDialog>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

QSize RoomFor(const QWidget& window)
{
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return window.screen()->availableSize() - QSize(0, title);
}

} // namespace

// Catches: a window that is larger than the screen, as at a large scale, with its buttons below the edge; one that is
// cut although there is room, or whose content is narrower than the bar that rolls it leaves.
TEST(RoomOnScreen, WindowsAreCutToTheScreenAndRoll)
{
    QDialog plain;
    ResizeOnScreen(plain, {5000, 300});
    EXPECT_EQ(plain.size(), QSize(RoomFor(plain).width(), 300));

    for (const int height : {200, 5000}) {
        QDialog dialog;
        auto* content = new QWidget(&dialog);
        auto* part = new QWidget(content);
        part->setFixedSize(300, height);
        auto* column = new QVBoxLayout(content);
        auto* whole = new QVBoxLayout(&dialog);
        for (QVBoxLayout* layout : {column, whole})
            layout->setContentsMargins({});
        column->addWidget(part);
        whole->addWidget(new Rolling(content, &dialog));
        MoveToMouse(dialog, {});
        dialog.show();
        EXPECT_EQ(dialog.height(), qMin(height, RoomFor(dialog).height()));
        EXPECT_GE(content->parentWidget()->width(), 300);
    }
}
