#include "windows/messages/frm_mess.h"

#include "frame/frame_state.h"
#include "windows/messages/message_layout.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QTextLayout>
#include <QWindow>
#include <cmath>

namespace {

constexpr int LastIcon = 12;
constexpr double ShareOfScreen = 0.9;

QPlainTextEdit* MakeText(QWidget* parent, const QString& text)
{
    auto* box = new QPlainTextEdit(text, parent);
    box->setObjectName(QStringLiteral("lblTEXT"));
    box->setAccessibleName(QStringLiteral("Message"));
    box->setReadOnly(true);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setFrameShape(QFrame::NoFrame);
    box->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box->document()->setDocumentMargin(0);
    box->viewport()->setAutoFillBackground(false);
    box->setFont(parent->font());
    return box;
}

} // namespace

frmMess::frmMess(const MessageRecord& shown, QWidget* owner)
    : QDialog(DialogParent(owner), Qt::Dialog | Qt::FramelessWindowHint),
      record(shown),
      colours(ColoursOf(shown.MessageColour))
{
    setObjectName(QStringLiteral("frmMess"));
    SetHelpSubject(this, QStringLiteral("messages"));
    setModal(true);
    setWindowTitle(record.MessageTitle);
    QString text = record.MessageText;
    text.replace(QLatin1Char('^'), QLatin1Char('\n'));
    setAccessibleDescription(text);

    lblTitle = new QLabel(this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    lblTitle->setTextFormat(Qt::PlainText);
    lblTitle->setText(QStringLiteral("      ") + record.MessageTitle);
    QFont bold = font();
    bold.setBold(true);
    lblTitle->setFont(bold);
    lblTitle->installEventFilter(this);
    imgIcon = new QLabel(this);
    imgIcon->setObjectName(QStringLiteral("imgIcon"));
    lblTEXT = MakeText(this, text);

    MakeButtons();
    PlaceParts();
    ColourText();
    const auto copy = new QShortcut(QKeySequence::Copy, this);
    connect(copy, &QShortcut::activated, this, [this] {
        QGuiApplication::clipboard()->setText(record.MessageTitle + QStringLiteral("\n\n") + lblTEXT->toPlainText());
    });
}

void frmMess::MakeButtons()
{
    const QStringList captions = ButtonCaptions(record.MessageButtons);
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new QPushButton(WithoutMnemonic(captions.at(i)), this);
        button->setObjectName(QStringLiteral("cmdButton%1").arg(i + 2));
        button->setAccessibleName(captions.at(i));
        connect(button, &QPushButton::clicked, this, [this, i] {
            answer.Place = i + 1;
            accept();
        });
        cmdButton.push_back(button);
    }
    cmdButton.front()->setDefault(true);
    cmdButton.front()->setFocus();
}

void frmMess::PlaceParts()
{
    const QScreen* place = parentWidget() ? parentWidget()->screen() : screen();
    MessageParts parts;
    parts.Scale = Pixels(*this, 96) / 96.0;
    parts.MeasureText = [this](int widest) { return MeasureText(widest); };
    const QFontMetrics metrics(lblTitle->font());
    parts.Title = QSize(metrics.horizontalAdvance(lblTitle->text() + QStringLiteral("  ")), metrics.height());
    for (const QPushButton* button : cmdButton)
        parts.Captions.push_back(button->fontMetrics().horizontalAdvance(button->accessibleName()));
    parts.ButtonHeight = cmdButton.front()->sizeHint().height();
    parts.ScrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    parts.Screen = place->availableSize() * ShareOfScreen;

    const MessageLayout layout = LayoutMessage(parts);
    setFixedSize(layout.Window);
    lblTitle->setGeometry(layout.Strip);
    if (parts.Title.width() > layout.Strip.width()) {
        lblTitle->setToolTip(record.MessageTitle);
        lblTitle->setText(metrics.elidedText(lblTitle->text(), Qt::ElideRight, layout.Strip.width()));
    }
    imgIcon->setGeometry(layout.Icon);
    const int icon = record.MessageIcon >= 1 && record.MessageIcon <= LastIcon ? record.MessageIcon : 1;
    imgIcon->setPixmap(ListImage(QStringLiteral("message"), icon)
                           .pixmap(layout.Icon.size(), place->devicePixelRatio(), QIcon::Normal));
    const int room = layout.Scrolls ? 0 : lblTEXT->fontMetrics().lineSpacing() / 2; // or the box would scroll by a line
    lblTEXT->setGeometry(layout.Text.adjusted(0, 0, 0, room));
    lblTEXT->setVerticalScrollBarPolicy(layout.Scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    lblTEXT->setFocusPolicy(layout.Scrolls ? Qt::StrongFocus : Qt::ClickFocus);
    if (layout.Scrolls)
        lblTEXT->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (size_t i = 0; i < cmdButton.size(); ++i)
        cmdButton[i]->setGeometry(layout.Buttons[i]);
}

void frmMess::ColourText()
{
    QPalette title = lblTitle->palette();
    title.setColor(QPalette::WindowText, colours.Title);
    lblTitle->setPalette(title);

    QPalette text = lblTEXT->palette();
    text.setColor(QPalette::Base, Qt::transparent);
    text.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    if (colours.Direction == 0) { // the text stands on the gradient
        const int band = std::max(1, height() / 100);
        text.setColor(QPalette::Text, ReadableOn(colours.Band(lblTEXT->geometry().center().y() / band)));
    }
    lblTEXT->setPalette(text);
}

// Lines behind the height of a screen are not measured: they scroll anyway.
QSize frmMess::MeasureText(int widest) const
{
    const double enough = screen()->size().height() * 2.0;
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    double width = 0, height = 0;
    for (const QString& paragraph : lblTEXT->toPlainText().split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, lblTEXT->font());
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid() && height < enough; line = layout.createLine()) {
            line.setLineWidth(widest);
            width = std::max(width, line.naturalTextWidth());
            height += line.height();
        }
        layout.endLayout();
        if (height >= enough)
            break;
    }
    const int caret = 2; // room that the text box keeps behind the longest line
    return {std::min(int(std::ceil(width)) + caret, widest), int(std::ceil(height))};
}

Pressed frmMess::Ask()
{
    const ModalScope scope;
    exec();
    return answer;
}

void frmMess::reject()
{
    answer.Place = WayOutOf(record);
    QDialog::reject();
}

void frmMess::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintForm(painter, size(), lblTitle->height(), colours);
    painter.setFont(lblTitle->font());
    painter.setPen(ReadableOn(colours.Title)); // a shadow keeps the title readable where the strip grows light
    painter.drawText(lblTitle->geometry().translated(1, 1), Qt::AlignLeft | Qt::AlignVCenter, lblTitle->text());
    QColor frame = palette().color(QPalette::WindowText);
    frame.setAlpha(110);
    painter.setPen(frame);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool frmMess::eventFilter(QObject* watched, QEvent* event)
{
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    if (watched != lblTitle || !mouse)
        return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        // Where windows have no place of their own the system moves them. Elsewhere it would start from where the
        // pointer was a moment ago, and the window jump.
        const bool bySystem = !WindowsHavePlaces() && windowHandle() && windowHandle()->startSystemMove();
        grip = bySystem ? std::nullopt : std::optional(mouse->globalPosition().toPoint() - pos());
        return true;
    }
    if (event->type() == QEvent::MouseMove && mouse->buttons().testFlag(Qt::LeftButton) && grip)
        move(mouse->globalPosition().toPoint() - *grip);
    if (event->type() == QEvent::MouseButtonRelease)
        grip.reset();
    return QDialog::eventFilter(watched, event);
}
