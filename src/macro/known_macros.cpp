#include "macro/known_macros.h"

#include "frame/frame_state.h"
#include "macro/macro_ports.h"
#include "platform/files/paths.h"

#include <QCryptographicHash>
#include <QList>

namespace {

constexpr qint64 LargestMacro = qint64(256) << 20, LargestList = qint64(4) << 20;

/// Sums of the macros that came with the program.
QByteArray ShippedLines()
{
    return paths::ReadWhole(Frame.ProgramFolder + QStringLiteral("data/shipped_macros.txt"), LargestList)
        .value_or(QByteArray());
}

QByteArray KnownLines()
{
    const QString& file = MacroWindows.KnownFile;
    return file.isEmpty() ? QByteArray() : paths::ReadWhole(file, LargestList).value_or(QByteArray());
}

} // namespace

QByteArray MacroHash(const QString& path)
{
    const Result<QByteArray> bytes = paths::ReadWhole(path, LargestMacro);
    return bytes ? QCryptographicHash::hash(*bytes, QCryptographicHash::Sha256).toHex() : QByteArray();
}

bool IsKnownMacro(const QByteArray& hash)
{
    return !hash.isEmpty() && QByteArray(KnownLines() + ShippedLines()).split('\n').contains(hash);
}

void RememberMacro(const QByteArray& hash)
{
    if (hash.isEmpty() || MacroWindows.KnownFile.isEmpty())
        return;
    // A list that cannot be written costs a question at the next start.
    static_cast<void>(paths::WriteWholePrivate(MacroWindows.KnownFile, KnownLines().append(hash).append('\n')));
}
