#pragma once

#include "frame/media/sheet_endings.h"
#include "level/element_names.h"
#include "platform/processes/turn.h"
#include "platform/result.h"

#include <QImage>
#include <functional>
#include <optional>
#include <set>

/// Makes a palette from a set's own graphics: walks the lines of a graphics conf and shrinks the tile of every known
/// element into its cell. What the set does not draw keeps the cell that the palette began with.
class PaletteMaker
{
public:
    /// The sheet of that name, as the conf has it; a failure leaves its elements as they are.
    using SheetReader = std::function<Result<QImage>(const QString& file)>;

    PaletteMaker(QImage start, const ElementNames& ofElements, const SheetEndings& ofSheets, SheetReader reader,
                 bool editorBlocks);

    void Line(QStringView line);
    void End(); ///< after the last line

    const QImage& Palette() const { return palette; }
    const std::set<int>& Drawn() const { return drawn; } ///< elements that got a cell from the set

private:
    bool IsMainLine(QStringView line) const;
    std::optional<int> ElementOf(QString key) const;
    void TakeMainLine(QStringView line);
    void Finish();
    void DrawPaletteCell();

    QImage palette;
    const ElementNames& names;
    const SheetEndings& endings;
    SheetReader read;
    bool editor;
    std::set<int> drawn;

    std::optional<int> waiting; ///< element whose tile is not known yet
    QString sheet;
    std::optional<int> tileX, tileY;
};

/// Reads sheets from the first of some folders that has them, or has one of their twins. Folders end with "/".
PaletteMaker::SheetReader SheetsIn(const QStringList& folders, const SheetEndings& endings, const Turn& turn = {});

/// A palette and the elements that it took from a set.
struct SetPalette
{
    QImage Palette;
    std::set<int> Drawn;
};

/// The graphics conf of a level set, "graphicsinfo.conf" in its folder or in "graphics" inside it; empty without one.
QString GraphicsConfOf(const QString& setFolder);

/// A palette from that conf, over the default one. Failure: no such conf, or no default palette.
[[nodiscard]] Result<SetPalette> PaletteOfSet(const QString& setFolder, bool editorBlocks, const Turn& turn = {});

/// The name of a palette for the set whose sheets lie in `folder`: the folder's, or of the one above if it is called
/// "graphics".
QString PaletteNameOfSheets(const QString& folder);

/// Reads a palette. Failure: path and reason.
[[nodiscard]] Result<QImage> ReadPalette(const QString& path, const Turn& turn = {});

/// Writes a palette as a GIF of 256 colours. Failure: path and reason.
[[nodiscard]] Result<> WritePalette(const QString& path, const QImage& palette, const Turn& turn = {});
