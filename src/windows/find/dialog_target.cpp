#include "windows/find/dialog_target.h"

#include "editor/make_pane.h"
#include "frame/documents/documents.h"
#include "windows/parts/dialog_help.h"

#include <QScreen>
#include <QWidget>

namespace {

QRect OnScreen(const QWidget& widget, const QRect& place)
{
    return {widget.mapToGlobal(place.topLeft()), place.size()};
}

} // namespace

void DialogTarget::Set(EditorPane& pane)
{
    fixed = &pane;
    follows = &pane == &CurrentPane();
}

EditorPane* DialogTarget::Pane() const
{
    return follows ? &CurrentPane() : fixed.data();
}

void PlaceBeside(QWidget& dialog, EditorPane& pane)
{
    const QWidget* text = WidgetOf(pane);
    const QRect place = OnScreen(*text, text->rect());
    const QRect screen = text->screen()->availableGeometry();
    const int gap = Pixels(dialog, 24);
    const QSize size = dialog.sizeHint();
    dialog.move(qBound(screen.left(), place.right() - size.width() - gap, screen.right() - size.width()),
                qBound(screen.top(), place.top() + gap, screen.bottom() - size.height()));
}

void UncoverCaret(QWidget& dialog, EditorPane& pane)
{
    const QWidget* text = WidgetOf(pane);
    const QRect caret = text->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    if (caret.isEmpty())
        return;
    // The selection ends at the caret; a letter is hardly wider than half its height.
    const int selected = qMin(caret.left(), int(qMin<qint64>(pane.SelLength(), 1000)) * caret.height() / 2);
    const QRect line = OnScreen(*text, caret.adjusted(-selected, 0, caret.height(), 0));
    const QRect hidden = dialog.frameGeometry();
    if (!hidden.intersects(line))
        return;
    const QRect screen = text->screen()->availableGeometry();
    const int gap = 2 * caret.height();
    const bool below = line.bottom() + gap + hidden.height() <= screen.bottom();
    const int top = below ? line.bottom() + gap : line.top() - gap - hidden.height();
    dialog.move(hidden.left(), qMax(screen.top(), top));
}
