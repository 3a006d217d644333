#include "mapglass/window_memory.h"

#include "platform/files/ini_file.h"
#include "platform/files/standard_folders.h"

#include <tuple>

namespace {

const QString Section = QStringLiteral("Mapglass Window");

IniFile MemoryFile()
{
    return IniFile(folders::Config() + QStringLiteral("mapglass.ini"));
}

} // namespace

WindowMemory RecallWindow()
{
    const IniFile store = MemoryFile();
    const auto bytes = [&store](const char* key) {
        return QByteArray::fromBase64(store.Read(Section, QString::fromLatin1(key)).toLatin1());
    };
    return {bytes("Geometry"), bytes("Split")};
}

void KeepWindow(const WindowMemory& memory)
{
    IniFile store = MemoryFile();
    store.OpenBatch();
    for (const auto& [key, value] : {std::pair("Geometry", memory.Geometry), std::pair("Split", memory.Split)})
        if (!value.isEmpty())
            std::ignore = store.Write(Section, QString::fromLatin1(key),
                                      QString::fromLatin1(value.toBase64(QByteArray::OmitTrailingEquals)));
    std::ignore = store.CloseBatch(); // where a window stood is not worth a message
}
