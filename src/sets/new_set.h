#pragma once

#include <QString>
#include <array>
#include <span>

/// What a new set may hold beyond its folders and confs, in the wizard's order.
enum class SetExtra {
    GraphicsDump,
    GraphicsExample,
    SoundsDump,
    SoundsExample,
    MusicDump,
    MusicExample,
    ExampleLevel,
    HelpText,
    HelpAnim,
    EditorSetup,
    Readme
};
constexpr int SetExtraCount = 11;

/// One extra. A row more needs its place in the enumeration, a page in `frm_wizard_pages.cpp` and a step in MakeSet.
struct SetExtraRow
{
    const char* Control; ///< its check box
    const char* Caption;
    const char* Word; ///< as the batch verb names it
    bool AtStart;     ///< ticked when the wizard opens
    int DumpIndex;    ///< what the game prints for it; 0: it needs no game
    const char* TipTitle;
    const char* Tip; ///< lines parted by line feeds
};
const std::array<SetExtraRow, SetExtraCount>& SetExtras();

/// The most characters of the three texts.
constexpr int LongestGameName = 255, LongestShortName = 15, LongestAuthor = 100;

/// What the wizard has been told. Texts that nobody has entered hold their start value.
struct NewSet
{
    NewSet();

    QString GameName, ShortName, Author;
    QString Path;      ///< folder that the set's folder is made in
    QString Levelinfo; ///< text of levelinfo.conf; empty: as LevelinfoText makes it
    std::array<bool, SetExtraCount> Extras{};

    bool Has(SetExtra extra) const { return Extras.at(size_t(extra)); }
    bool IsFinished() const; ///< everything is filled in
    QString Folder() const;  ///< the set's own, without "/" at the end
};

/// As the wizard keeps a title, a short name or an author.
QString NewSetText(QString typed);

/// Every character that is not a letter, a digit, "-", "_", "[" or "]" becomes "_". Letters are those of ASCII.
QString FilterFileName(QString text);

/// The Dir1 path with the short name behind it, as `txtPath` shows it.
QString NewSetPath(const QString& folder, const QString& shortName);

/// One of the three sets of artwork that levelinfo.conf names.
struct ArtworkRow
{
    int Mode;            ///< of its conf
    const char* Folder;  ///< below the set's
    const char* NameEnd; ///< of its name, behind the short name
    SetExtra Dump, Example;
    const char* ExampleLines;
    const char* Placeholder;
    int LinePlain, LineWithExample; ///< where the dump goes
};
std::span<const ArtworkRow> Artworks();

/// Texts of the confs, lines parted by CR LF.
QString LevelinfoText(const NewSet& set);
QString ArtworkText(const ArtworkRow& artwork, const NewSet& set);
