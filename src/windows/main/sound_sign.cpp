#include "windows/main/sound_sign.h"

#include "platform/files/paths.h"
#include "platform/sound/audio.h"
#include "windows/parts/help_subject.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QToolButton>

namespace {

constexpr int LongestTune = 24; ///< characters

} // namespace

SoundSign::SoundSign(QWidget* parent) : QWidget(parent), what(new QLabel(this))
{
    setObjectName(QStringLiteral("SoundSign"));
    auto* stop = new QToolButton(this);
    stop->setObjectName(QStringLiteral("cmdStopSound"));
    stop->setText(QStringLiteral("\u25A0")); // the style's own sign is black on any ground
    stop->setAutoRaise(true);
    stop->setToolTip(QStringLiteral("Stops the sound (Esc)"));
    stop->setAccessibleName(stop->toolTip());
    connect(stop, &QToolButton::clicked, this, &SoundSign::StopWanted);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(4, 0, 4, 0);
    line->setSpacing(4);
    line->addWidget(what);
    line->addWidget(stop);
    what->setTextFormat(Qt::PlainText);
    SetHelpSubject(this, HelpIdFor("st_run"));
    hide();
    audio::OnChange([sign = QPointer(this)] { // behind the call that it comes out of
        if (sign)
            QMetaObject::invokeMethod(sign, &SoundSign::Look, Qt::QueuedConnection);
    });
}

void SoundSign::Look()
{
    const QString name = paths::FileNameOfPath(audio::Playing());
    const QString said = QStringLiteral("\u266A ") + name;
    what->setText(
        what->fontMetrics().elidedText(said, Qt::ElideMiddle, LongestTune * what->fontMetrics().averageCharWidth()));
    what->setToolTip(QStringLiteral("Playing: ") + name.toHtmlEscaped());
    what->setAccessibleName(QStringLiteral("Playing: ") + name);
    setVisible(!name.isEmpty());
}
