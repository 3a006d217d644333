#pragma once

#include "graphics/picture_files.h"
#include "platform/images/image_making.h"

#include <QStringList>
#include <optional>
#include <vector>

/// What becomes of pictures that are converted.
struct ConversionPlan
{
    PictureForm Form = PictureForm::Pcx;
    std::optional<images::Reduction> Fewer = {}; ///< with a palette; else 24 bits
    bool SeeThroughBlack = true;                 ///< see OverBlack
    bool Overwrite = false;                      ///< files that are there already
};

/// Converts one picture of any kind; the ending of `to` tells the form. False: it ends early, and was written as far as
/// it goes. Failure: path and reason, and nothing is written.
[[nodiscard]] Result<bool> ConvertPicture(const QString& from, const QString& to, const ConversionPlan& plan,
                                          const Turn& turn = {});

/// The files of a folder that are pictures by their name or bytes, in the order people count them.
QStringList PicturesIn(const QString& folder);

struct ConversionReport
{
    int Written = 0;
    std::vector<Failure> Refused; ///< the source and why
    QStringList EndEarly;         ///< sources among those written
    bool Stopped = false;
};

/// Called with the number of files that are done, and between; false stops.
using ConversionTurn = std::function<bool(int done)>;

/// Converts each file into `folder`, under its own name with the form's ending. What cannot be read or written, or
/// would lie over another file, is refused and the next one comes.
ConversionReport ConvertPictures(const QStringList& files, const QString& folder, const ConversionPlan& plan,
                                 const ConversionTurn& turn = {});
