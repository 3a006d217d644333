#include "windows/media/media_tip.h"

#include "frame/frame_state.h"
#include "level/level_files.h"
#include "platform/files/paths.h"
#include "platform/images/images.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QtEndian>

namespace {

constexpr qint64 HeadSize = 64 << 10;

quint32 Number(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

QString LengthOf(const QString& path)
{
    QFile file(path);
    const bool open = path.endsWith(QLatin1StringView(".wav"), Qt::CaseInsensitive) && file.open(QIODevice::ReadOnly);
    const double seconds = open ? WaveSeconds(file.read(HeadSize)) : 0;
    return seconds > 0 ? QStringLiteral("%1 seconds").arg(seconds, 0, 'f', seconds < 10 ? 2 : 0) : QString();
}

QString SizeOf(const QString& path)
{
    if (!HasSheetName(path, Frame.Settings.SheetKinds))
        return {};
    // A tip is not worth a wait.
    bool slow = false;
    const auto header = images::ReadHeader(path, -1, [&slow] { return !(slow = true); });
    if (slow)
        return {};
    return header ? QStringLiteral("%1 x %2 pixels").arg(header->Size.width()).arg(header->Size.height())
                  : QStringLiteral("The image cannot be read");
}

/// Name and author, then size, gems and time; why it is none, of a file that is called a level.
QString HeaderOf(const QString& path)
{
    if (!path.endsWith(QLatin1StringView(".level"), Qt::CaseInsensitive))
        return {};
    const Result<LevelFile> level = ReadLevelFile(path);
    if (!level)
        return QStringLiteral("No level: ") + level.error().Reason;
    const LevelInfo& info = level->Record.Info;
    const QString author = info.Author == QLatin1StringView("NA") ? QString() : QStringLiteral(" by ") + info.Author;
    const QString time = info.Time == QLatin1StringView("0") ? QStringLiteral("no time limit")
                                                             : QStringLiteral("time %1").arg(info.Time);
    return info.Cavename + author +
           QStringLiteral("\n%1 x %2 cells, %3 gems, %4").arg(info.Width, info.Height, info.Count, time);
}

} // namespace

double WaveSeconds(const QByteArray& head)
{
    if (!head.startsWith("RIFF") || head.mid(8, 4) != "WAVE")
        return 0;
    quint32 rate = 0;
    for (qsizetype at = 12; at + 8 <= head.size();) {
        const QByteArrayView name = QByteArrayView(head).sliced(at, 4);
        const quint32 size = Number(head, at + 4);
        if (name == "fmt " && size >= 16 && at + 20 <= head.size())
            rate = Number(head, at + 16); // bytes a second
        if (name == "data")
            return rate ? double(size) / rate : 0;
        at += 8 + qsizetype(size) + (size & 1);
    }
    return 0;
}

QString MediaTip(const QString& path)
{
    QStringList lines{paths::FileNameOfPath(path)};
    for (const QString& line : {SizeOf(path), LengthOf(path), HeaderOf(path)})
        if (!line.isEmpty())
            lines << line;
    lines << QLocale().toString(QFileInfo(path).size()) + QStringLiteral(" bytes");
    return QStringLiteral("<p style='white-space:pre'>") + lines.join(u'\n').toHtmlEscaped() + QStringLiteral("</p>");
}
