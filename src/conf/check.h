#pragma once

#include "conf/line_pass.h"
#include "frame/media/sheet_endings.h"

#include <QSet>
#include <QStringList>
#include <optional>

/// What the check of a file needs to know beside its lines.
struct CheckContext
{
    bool LookForImages = false; ///< graphics mode
    SheetEndings SheetKinds;
    QSet<QString> Images; ///< lower-cased names of all files in the lists
};

struct CheckFinding
{
    int Line = 0;
    QStringList Messages;
};

/// The first line that the game would not read properly; nothing if all pass. A line with "#" anywhere passes unseen.
std::optional<CheckFinding> FirstBadLine(QByteArrayView lines, const CheckContext& context,
                                         const PassProgress& progress = {});

/// What is wrong with one line (without its break); empty if it passes.
QStringList CheckLine(QByteArrayView line, const CheckContext& context);

/// Is the value's image in the lists, itself or as its twin with another ending, as the game looks for it?
bool ImageIsThere(const QString& value, const CheckContext& context);
