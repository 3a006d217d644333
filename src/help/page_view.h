#pragma once

#include "help/page_id.h"

#include <QTextBrowser>

class HelpBook;

/// Shows a page of the book. Links to other pages are followed; links that lead out of the help are not.
class PageView : public QTextBrowser
{
    Q_OBJECT

public:
    explicit PageView(const HelpBook& pages, QWidget* parent = nullptr);

    void ShowPlace(const HelpPlace& place);
    static HelpPlace PlaceOf(const QUrl& source);

    /// Shows a failure in place of a page.
    void ShowFailure(const QString& title, const QString& text);

    /// Forgets what it shows and where it was, for another book.
    void Forget();

    /// Size of the text in per cent of the desktop's, held between 50 and 300.
    void SetZoom(int percent);
    int Zoom() const { return zoom; }

    /// Selects the next (or previous) place of the text, from the start again behind the end. False: there is none.
    /// `fromHere` keeps a match that begins where the selection begins, for a search as you type.
    bool Find(const QString& text, bool backward, bool fromHere);

signals:
    void LinkRefused(const QUrl& link);
    void ZoomChanged(int percent);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& link, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Restyle();

    const HelpBook& book;
    QString failure;
    double baseSize;
    int zoom = 100;
};
