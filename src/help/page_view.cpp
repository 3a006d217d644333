#include "help/page_view.h"

#include "help/help_book.h"
#include "help/page_style.h"
#include "help/page_text.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace {

constexpr QLatin1StringView Scheme("help");
constexpr int MostNesting = 100; ///< tags; the toolkit takes its time, and its stack, for pages that are nested deeper

/// For a picture that is not in the book: without one the toolkit takes the address for the path of a file.
QImage NoPicture()
{
    QImage dot(1, 1, QImage::Format_ARGB32);
    dot.fill(Qt::transparent);
    return dot;
}

/// What a page says, without its form.
QString PlainPage(const QString& html)
{
    const PageText page = ReadPage(html);
    QString plain = QStringLiteral("<h1>") + page.Title.toHtmlEscaped() + QStringLiteral("</h1>");
    for (const PageSection& section : page.Sections)
        plain += QStringLiteral("<h2>") + section.Title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                 section.Text.toHtmlEscaped() + QStringLiteral("</p>");
    return plain;
}

QUrl LinkTo(const HelpPlace& place)
{
    QUrl link;
    link.setScheme(Scheme);
    link.setPath(QLatin1Char('/') + place.File);
    if (!place.Anchor.isEmpty())
        link.setFragment(place.Anchor);
    return link;
}

QString FileOf(const QUrl& link)
{
    return link.scheme() == Scheme ? link.path().mid(1) : QString();
}

} // namespace

PageView::PageView(const HelpBook& pages, QWidget* parent)
    : QTextBrowser(parent), book(pages), baseSize(font().pointSizeF())
{
    if (baseSize <= 0)
        baseSize = 10;
    setAccessibleName(tr("Help page"));
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(14);
    document()->setDefaultStyleSheet(PageStyle(palette()));
}

void PageView::ShowPlace(const HelpPlace& place)
{
    setSource(LinkTo(place));
    if (place.Anchor.isEmpty())
        verticalScrollBar()->setValue(0);
}

HelpPlace PageView::PlaceOf(const QUrl& source)
{
    return {FileOf(source), source.fragment()};
}

void PageView::ShowFailure(const QString& title, const QString& text)
{
    failure = QStringLiteral("<h1>%1</h1><p>%2</p>")
                  .arg(title.toHtmlEscaped(), text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")));
    setHtml(failure);
}

void PageView::Forget()
{
    failure.clear();
    QTextBrowser::doSetSource(QUrl(), QTextDocument::HtmlResource);
    clearHistory();
    clear();
}

void PageView::SetZoom(int percent)
{
    percent = std::clamp(percent, 50, 300);
    if (percent == zoom)
        return;
    zoom = percent;
    QFont scaled = font();
    scaled.setPointSizeF(baseSize * zoom / 100);
    setFont(scaled);
    emit ZoomChanged(zoom);
}

bool PageView::Find(const QString& text, bool backward, bool fromHere)
{
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindBackward, backward);
    QTextCursor from = textCursor();
    if (!from.hasSelection())
        from = cursorForPosition(QPoint(0, 0));
    if (fromHere)
        from.setPosition(from.selectionStart());
    QTextCursor hit = document()->find(text, from, flags);
    if (hit.isNull()) {
        from.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        hit = document()->find(text, from, flags);
    }
    if (!hit.isNull())
        setTextCursor(hit);
    return !hit.isNull();
}

QVariant PageView::loadResource(int type, const QUrl& name)
{
    const QByteArray bytes = book.Bytes(FileOf(name));
    if (type == QTextDocument::ImageResource) {
        const QImage picture = QImage::fromData(bytes);
        return picture.isNull() ? NoPicture() : picture;
    }
    const QString text = QString::fromUtf8(bytes);
    return type == QTextDocument::HtmlResource && DeepestNesting(text) > MostNesting ? PlainPage(text) : text;
}

void PageView::doSetSource(const QUrl& link, QTextDocument::ResourceType)
{
    if (book.Has(FileOf(link)))
        QTextBrowser::doSetSource(link, QTextDocument::HtmlResource);
    else
        emit LinkRefused(link);
}

void PageView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        Restyle();
}

void PageView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() != 0)
        SetZoom(zoom + (event->angleDelta().y() > 0 ? 10 : -10));
    event->accept();
}

void PageView::Restyle()
{
    const QString style = PageStyle(palette());
    if (style == document()->defaultStyleSheet())
        return;
    document()->setDefaultStyleSheet(style);
    const int line = verticalScrollBar()->value();
    if (!failure.isEmpty())
        setHtml(failure);
    else if (!source().isEmpty())
        reload();
    verticalScrollBar()->setValue(line);
}
