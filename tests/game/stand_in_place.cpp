#include "game/stand_in_place.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>

namespace {

constexpr const char* Variables[] = {
    "HOME",          "XDG_CACHE_HOME",      "XDG_STATE_HOME",      "XDG_DATA_HOME",
    "GAME_STAND_IN", "GAME_STAND_IN_PRINT", "GAME_STAND_IN_PROOF", "GAME_STAND_IN_LOG"};

} // namespace

StandInPlace::StandInPlace()
{
    Game.Write(QStringLiteral("levels/tutorial/levelinfo.conf"), "name: Tutorial\nlevels: 1\nfirst_level: 1\n");
    Game.Write(QStringLiteral("levels/tutorial/001.level"), "RND1");
    Game.Write(QStringLiteral("graphics/gfx_classic/RocksDC.png"), "\x89PNG");
    QFile::link(QCoreApplication::applicationDirPath() + QStringLiteral("/game_stand_in"), Program());
    for (const char* name : Variables)
        qputenv(name, "");
    qputenv("HOME", QFile::encodeName(Home.Path().chopped(1)));
    for (const char* name : {"XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"})
        qputenv(name, QFile::encodeName(Home.Path(QString::fromLatin1(name).toLower())));
    qputenv("GAME_STAND_IN_LOG", QFile::encodeName(Home.Path(QStringLiteral("starts.txt"))));
}

StandInPlace::~StandInPlace()
{
    for (const char* name : Variables)
        qunsetenv(name);
}

QStringList StandInPlace::TakeStarts()
{
    const QString lines = QString::fromUtf8(Home.Read(QStringLiteral("starts.txt")));
    QFile::remove(Home.Path(QStringLiteral("starts.txt")));
    return lines.startsWith(QLatin1String("<no such")) ? QStringList() : lines.split(u'\n', Qt::SkipEmptyParts);
}

QString StandInPlace::MakeSet(const QString& name, const QByteArray& graphics) const
{
    const QString folder = QStringLiteral(".rocksndiamonds/levels/") + name;
    Home.Write(folder + QStringLiteral("/levelinfo.conf"), "name: Set\nlevels: 9\nfirst_level: 1\n");
    Home.Write(folder + QStringLiteral("/001.level"), "RND1");
    Home.Write(folder + QStringLiteral("/graphics/graphicsinfo.conf"), graphics);
    return Home.Path(folder) + u'/';
}

QMap<QString, QByteArray> StandInPlace::Snapshot(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        QFile file(all.next());
        if (file.open(QIODevice::ReadOnly))
            files.insert(file.fileName(), file.readAll());
    }
    return files;
}
