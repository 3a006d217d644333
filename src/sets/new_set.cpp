#include "sets/new_set.h"

#include "frame/documents/documents.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace {

const QString NoGameName = QStringLiteral("[NO LONGNAME ERROR]");
const QString NoShortName = QStringLiteral("[NO NAME ERROR]");
const QString NoAuthor = QStringLiteral("[NO AUTHOR ERROR]");

constexpr std::array<SetExtraRow, SetExtraCount> ExtraRows = {{
    {"chkGFXADDDUMP", "Include all the default element data", "graphics-dump", true, 1, "Include Default Graphics",
     "Will dump all the element info from the RNDs.exe and\nplace it here.  All dumps are commented out by default."},
    {"chkADDPCXEXAMPLE", "Add a small PCX that is used by Custom 1", "graphics-example", true, 0, "Include PCX Example",
     "A small image called example.pcx is made in the graphics\nfolder. The data for custom element 1 is also added.\n"
     "If you have included the default level 1 (last page) then\nyou will see this element in action."},
    {"chkdumpSFX", "Include all the default sounds", "sounds-dump", true, 2, "Include Default Sound",
     "Will dump all the sound info from the RNDs.exe and place it here.\nAll dumps are commented out by default."},
    {"chkSfXExample", "Add a small WAV that is used by Custom 1", "sounds-example", false, 0, "Include WAV Example",
     "A small sound file called example.wav is made in the sounds\nfolder. The data for custom element 1 is also "
     "added.\nIf you have included the default level 1 (last page) then\nyou will hear this element when it bounces."},
    {"chkMusDump", "Include all the default music", "music-dump", true, 3, "Include Default Music",
     "Will dump all the music info from the RNDs.exe and place it here.\nAll dumps are commented out by default."},
    {"chkMusExample", "Add a small MOD that is used by Level 1", "music-example", true, 0, "Include MOD Example",
     "A small tune called example.mod is made in the music folder.\nThe data for level 1 is also added.  Level 1 will "
     "now use this music."},
    {"chk1exam", "Include example level", "level", true, 0, "Include Example Level",
     "Makes a small level. If you included the examples from the previous\npages, then you will see them in this "
     "level."},
    {"chk1helptxt", "Include helptext.conf", "helptext", false, 4, "Include Helptext",
     "Makes a default helptext.conf.  This file is used for describing elements in the info screen."},
    {"chk1helpanim", "Include helpanim.conf", "helpanim", false, 5, "Include Helpanim",
     "Makes a default helpanim.conf.  This file is used for animating the elements in the info screen."},
    {"chk1editorsetup", "Include editorsetup.conf", "editorsetup", false, 6, "Include Editorsetup",
     "Makes a default editorsetup.conf.  This file is used for rearranging and \nadding elements to the RNDs editor "
     "palette."},
    {"chk1readme", "Include readme.txt", "readme", false, 0, "Include A Readme",
     "The text in this file is seen in the info screen."},
}};

constexpr ArtworkRow ArtworkRows[] = {
    {ModeGfx, "graphics", "_gfx", SetExtra::GraphicsDump, SetExtra::GraphicsExample,
     "custom_1:                                 example.pcx\r\n"
     "custom_1.xpos:                            0\r\n"
     "custom_1.ypos:                            0\r\n"
     "custom_1.frames:                          3\r\n"
     "custom_1.delay:                           5\r\n"
     "custom_1.anim_mode:                       pingpong\r\n",
     "[Default element data will be here]", 5, 12},
    {ModeSfx, "sounds", "_sfx", SetExtra::SoundsDump, SetExtra::SoundsExample,
     "custom_1.changing:                        example.wav\r\n", "[Default sound data will be here]", 5, 7},
    {ModeMus, "music", "_mus", SetExtra::MusicDump, SetExtra::MusicExample,
     "background.PLAYING.001:                   example.mod\r\n", "[Default music data will be here]", 5, 7},
};

const QString Break = QStringLiteral("\r\n");

QString Line(const char* begin, const QString& value)
{
    return QString::fromLatin1(begin) + value + Break;
}

} // namespace

const std::array<SetExtraRow, SetExtraCount>& SetExtras()
{
    return ExtraRows;
}

std::span<const ArtworkRow> Artworks()
{
    return ArtworkRows;
}

NewSet::NewSet() : GameName(NoGameName), ShortName(NoShortName), Author(NoAuthor)
{
    std::transform(ExtraRows.begin(), ExtraRows.end(), Extras.begin(), [](const auto& row) { return row.AtStart; });
}

bool NewSet::IsFinished() const
{
    const auto isFilled = [](const QString& text, const QString& atStart) {
        return !text.isEmpty() && text != atStart;
    };
    return isFilled(GameName, NoGameName) && isFilled(ShortName, NoShortName) && isFilled(Author, NoAuthor) &&
           !Path.isEmpty();
}

QString NewSet::Folder() const
{
    return paths::Closed(Path) + ShortName;
}

QString NewSetText(QString typed)
{
    for (QChar& c : typed)
        if (c.category() == QChar::Other_Control)
            c = u' ';
    return typed.trimmed().toLower();
}

QString FilterFileName(QString text)
{
    for (QChar& c : text) {
        const bool stays =
            (c.unicode() < 128 && c.isLetterOrNumber()) || c == u'-' || c == u'_' || c == u'[' || c == u']';
        if (!stays)
            c = u'_';
    }
    return text;
}

QString NewSetPath(const QString& folder, const QString& shortName)
{
    return paths::Native(paths::Closed(folder) + shortName);
}

QString LevelinfoText(const NewSet& set)
{
    return Line("file_identifier:                          ", QStringLiteral("PEPLOPRE_LEVELINFO_FILE_VERSION_3.1")) +
           Line("name:                                     ", set.GameName) +
           Line("author:                                   ", set.Author) +
           Line("levels:                                   ", QStringLiteral("100")) +
           Line("first_level:                              ", QStringLiteral("1")) +
           Line("sort_priority:                            ", QStringLiteral("100")) +
           Line("latest_engine:                            ", QStringLiteral("false")) +
           Line("level_group:                              ", QStringLiteral("false")) +
           Line("readonly:                                 ", QStringLiteral("false")) +
           Line("handicap:                                 ", QStringLiteral("false")) +
           Line("graphics_set:                             ", set.ShortName + QStringLiteral("_gfx")) +
           Line("sounds_set:                               ", set.ShortName + QStringLiteral("_sfx")) +
           Line("music_set:                                ", set.ShortName + QStringLiteral("_mus"));
}

QString ArtworkText(const ArtworkRow& artwork, const NewSet& set)
{
    QString text = Line("name:                                     ", set.ShortName + QLatin1String(artwork.NameEnd)) +
                   Line("sort_priority:                            ", QStringLiteral("100")) + Break;
    if (set.Has(artwork.Example))
        text += QLatin1String(artwork.ExampleLines);
    if (set.Has(artwork.Dump))
        text += Break + QLatin1String(artwork.Placeholder) + Break;
    return text;
}
