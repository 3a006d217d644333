#pragma once

#include "conf/conf_lines.h"
#include "conf/line_pass.h"

/// Brings the value of each line to the value column. A line without a colon stays; nothing after the colon becomes
/// "[MISSING VALUE!]". Each line keeps its own break.
QByteArray TidyLines(QByteArrayView lines, const ValueColumn& column, const PassProgress& progress = {});

/// "Tidy Up" on the lines that the selection of the current pane touches.
void TidyUp();
