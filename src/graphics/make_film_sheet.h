#pragma once

#include "graphics/film_sheet.h"
#include "platform/images/films.h"

#include <QStringList>
#include <vector>

/// What is made a sheet of, and how.
struct FilmPlan
{
    int Tiles = 16;          ///< across
    bool IgnoreDups = true;  ///< a frame that repeats the one before takes no tile
    films::Plan Frames = {}; ///< what becomes of frames that are no tile
};

struct FilmReport
{
    films::End How = films::End::NotOpened;
    QString Reason;               ///< of a film that was not opened, where it is known
    films::Facts Told;            ///< of pictures only the size, the first one's
    QImage Sheet;                 ///< null for what was not read at all
    int Tiles = 0, Frames = 0;    ///< laid out, and read
    bool Full = false;            ///< the sheet had no room for all of them
    bool Incomplete = false;      ///< fewer frames were read than the film tells of
    std::vector<Failure> Refused; ///< pictures that gave no tile, and why
};

/// Called between frames with how many were read and how many there will be (0: unknown). False stops.
using FilmTurn = std::function<bool(int done, int most)>;

/// The frames of a film as a sheet.
FilmReport SheetFromFilm(const QString& path, const FilmPlan& plan, const FilmTurn& turn = {});

/// The same from pictures, in their order. One whose sides are whole numbers of tiles gives all of them, row by row;
/// any other is refused or becomes one tile, as the plan says. See-through pixels become black.
FilmReport SheetFromPictures(const QStringList& files, const FilmPlan& plan, const FilmTurn& turn = {});
