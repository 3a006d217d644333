#include "frame/frame_state.h"
#include "frame/settings/settings.h"
#include "frame/start/start_up.h"
#include "level/level_viewer.h"
#include "mapglass/mapglass_window.h"
#include "platform/desktop/program_looks.h"
#include "platform/files/paths.h"
#include "platform/images/images.h"
#include "services/registry_store.h"

#include <QApplication>

/// Mapglass [FILE]: shows a level, on behalf of a macro if one has left its wish in the registry.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Mapglass"));
    QApplication::setDesktopFileName(QStringLiteral("gemforge-mapglass"));
    images::Warm();
    const ProgramLooks looks;

    Frame.ProgramFolder = paths::Closed(OrdinaryFolders(QApplication::applicationDirPath()).ProgramFolder);
    Frame.DataFolder = Frame.ProgramFolder + QStringLiteral("data/");
    Frame.SettingsReadOnly = true;

    RegistryStore registry;
    MapglassWindow window;
    if (const std::optional<ViewRequest> request = TakeViewRequest(registry)) {
        window.ServeMacro(*request, [&registry](const ViewAnswer& answer) { return AnswerView(registry, answer); });
    }
    if (application.arguments().size() > 1)
        window.OpenLevel(application.arguments().at(1));
    window.show();
    const int code = QApplication::exec();
    images::Stop();
    return code;
}
