#include "sets/make_set.h"

#include "frame/frame_state.h"
#include "game/game_folders.h"
#include "game/launcher.h"
#include "level/level_files.h"
#include "platform/files/beside_folder.h"
#include "platform/files/file_steps.h"
#include "platform/files/paths.h"
#include "platform/processes/counted_turn.h"
#include "services/write_resource.h"
#include "sets/merge_dump.h"
#include "text/line_text.h"

#include <QFile>

// Resources of a static library are only linked if something asks for them, from outside any namespace.
static void HoldExamples()
{
    Q_INIT_RESOURCE(sets);
}

namespace {

const QString ResourceKind = QStringLiteral("CUSTOM");

/// The text that a conf is put together in needs none.
class NoClipboard : public TextClipboard
{
public:
    QString Text() const override { return {}; }
    void SetText(const QString&) override {}
};

/// A resource that an extra brings along.
struct ExampleRow
{
    SetExtra Extra;
    const char *Resource, *File; ///< in the set's folder
};
constexpr ExampleRow Examples[] = {
    {SetExtra::GraphicsExample, "PCX", "graphics/example.pcx"},
    {SetExtra::SoundsExample, "WAV", "sounds/example.wav"},
    {SetExtra::MusicExample, "MOD", "music/example.mod"},
    {SetExtra::MusicExample, "MODTXT", "music/example.txt"},
    {SetExtra::ExampleLevel, "LEVEL", "001.level"},
    {SetExtra::Readme, "README", "readme.txt"},
};

/// Confs that stay in the form in which the game prints them.
struct PrintedRow
{
    SetExtra Extra;
    int Mode;
};
constexpr PrintedRow PrintedConfs[] = {
    {SetExtra::HelpText, ModeHlt},
    {SetExtra::HelpAnim, ModeHla},
    {SetExtra::EditorSetup, ModeEdi},
};

class Maker
{
public:
    Maker(const NewSet& wanted, const DumpSource& source, QString into)
        : set(wanted), dump(source), folder(std::move(into))
    {
    }

    /// Stops at the first step that fails.
    Result<> Make()
    {
        return MakeFolders()
            .and_then([this] { return SaveLevelinfo(); })
            .and_then([this] { return Each(Artworks(), [this](const auto& row) { return SaveArtwork(row); }); })
            .and_then([this] { return WriteExample(SetExtra::ExampleLevel); })
            .and_then([this] { return Each(PrintedConfs, [this](const auto& row) { return SavePrinted(row); }); })
            .and_then([this] { return WriteExample(SetExtra::Readme); });
    }

    QStringList NotPrinted;

private:
    template <class Rows, class Do>
    static Result<> Each(const Rows& rows, Do work)
    {
        for (const auto& row : rows)
            if (Result<> done = work(row); !done)
                return done;
        return {};
    }

    Result<> MakeFolders() const
    {
        return Each(std::initializer_list<const char*>{"", "graphics", "music", "sounds"}, [this](const char* name) {
            const QString path = folder + QLatin1String(name);
            return Steps().MakeFolder(QFile::encodeName(path), 0777) == 0 ? Result<>()
                                                                          : Fail(path, qt_error_string(errno));
        });
    }

    Result<> SaveLevelinfo()
    {
        buffer.SetText(set.Levelinfo.isEmpty() ? LevelinfoText(set) : set.Levelinfo);
        return buffer.SaveFile(folder + Frame.ConfNames.at(ModeLvl), false);
    }

    Result<> SaveArtwork(const ArtworkRow& row)
    {
        const QString conf = QLatin1String(row.Folder) + QLatin1String("/") + Frame.ConfNames.at(size_t(row.Mode));
        buffer.SetText(ArtworkText(row, set));
        const int line = set.Has(row.Example) ? row.LineWithExample : row.LinePlain;
        return WriteExample(row.Example)
            .and_then([&] { return Printed(row.Dump, conf); })
            .and_then([&](const std::optional<QByteArray>& printed) {
                if (printed)
                    MergeDump(buffer, line, *printed);
                else if (set.Has(row.Dump))
                    DropPlaceholder(buffer, QLatin1String(row.Placeholder));
                return buffer.SaveFile(folder + conf, false);
            });
    }

    Result<> SavePrinted(const PrintedRow& row)
    {
        const QString conf = Frame.ConfNames.at(size_t(row.Mode));
        return Printed(row.Extra, conf).and_then([&](const std::optional<QByteArray>& printed) {
            return printed ? paths::WriteWhole(folder + conf, *printed) : Result<>();
        });
    }

    /// What the game prints for an extra; nothing if it is not wanted, or noted if it prints nothing.
    Result<std::optional<QByteArray>> Printed(SetExtra extra, const QString& conf)
    {
        if (!set.Has(extra))
            return std::nullopt;
        Result<QByteArray> printed = dump(SetExtras().at(size_t(extra)).DumpIndex);
        if (!printed && WasStopped(printed.error()))
            return tl::unexpected(printed.error());
        if (!printed || printed->isEmpty()) {
            NotPrinted << conf;
            return std::nullopt;
        }
        return std::optional(*std::move(printed));
    }

    Result<> WriteExample(SetExtra extra) const
    {
        if (!set.Has(extra))
            return {};
        return Each(Examples, [&](const ExampleRow& row) {
            return row.Extra == extra
                       ? WriteResource(QLatin1String(row.Resource), ResourceKind, folder + QLatin1String(row.File))
                       : Result<>();
        });
    }

    const NewSet& set;
    const DumpSource& dump;
    const QString folder;
    NoClipboard clipboard;
    LineText buffer{clipboard};
};

} // namespace

Result<QByteArray> DumpOfGame(int dumpIndex)
{
    const auto report = LaunchGame(dumpIndex, false);
    paths::ChangeToFolder(Frame.CurrentFolder);
    const QString program = Frame.Settings.RNDPath;
    if (report && report->End == GameEnd::Stopped)
        return Stopped(program);
    if (!report || !report->Succeeded())
        return Fail(program, QStringLiteral("The game printed no such conf."));
    return paths::ReadWhole(PrintedFile(), paths::LargestDocument);
}

Result<MadeSet> MakeSet(const NewSet& set, const DumpSource& dump)
{
    HoldExamples();
    static_cast<void>(LevelImage(QStringLiteral("LEVEL"))); // so that its resource is there
    if (QFile::exists(set.Folder()))
        return Fail(set.Folder(), qt_error_string(EEXIST));
    const Result<BesideFolder> beside = BesideFolder::Make(set.Path);
    if (!beside)
        return tl::unexpected(beside.error());
    Maker maker(set, dump, beside->Path() + set.ShortName + u'/');
    return maker.Make()
        .map_error([&](const Failure& failure) { return beside->InOpenWords(failure); })
        .and_then([&] { return beside->MoveToNew(set.ShortName, set.Folder()); })
        .map([&] {
            return MadeSet{set.Folder(), std::move(maker.NotPrinted)};
        });
}
