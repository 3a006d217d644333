#include "help/window_memory.h"

#include "platform/files/ini_file.h"
#include "platform/files/standard_folders.h"

namespace {

const QString Section = QStringLiteral("Help Window");

IniFile Store()
{
    return IniFile(folders::Config() + QStringLiteral("help.ini"));
}

} // namespace

WindowMemory RecallWindow()
{
    const IniFile store = Store();
    const auto bytes = [&store](const char* key) {
        return QByteArray::fromBase64(store.Read(Section, QLatin1String(key)).toLatin1());
    };
    bool number = false;
    const int zoom = store.Read(Section, QStringLiteral("Zoom")).toInt(&number);
    return {bytes("Geometry"), bytes("Split"), number ? zoom : 100};
}

bool KeepWindow(const WindowMemory& memory)
{
    IniFile store = Store();
    const std::pair<QString, QString> values[] = {
        {QStringLiteral("Geometry"), QString::fromLatin1(memory.Geometry.toBase64(QByteArray::OmitTrailingEquals))},
        {QStringLiteral("Split"), QString::fromLatin1(memory.Split.toBase64(QByteArray::OmitTrailingEquals))},
        {QStringLiteral("Zoom"), QString::number(memory.Zoom)},
    };
    store.OpenBatch();
    bool kept = true;
    for (const auto& [key, value] : values)
        kept = kept && store.Write(Section, key, value);
    return store.CloseBatch() && kept;
}
