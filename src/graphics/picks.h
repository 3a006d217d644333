#pragma once

#include "graphics/sheet_request.h"

#include <functional>

// What a macro lets a person pick. The rooms below the windows ask here; who has windows, or answers of its own,
// installs what it can. What is not installed picks nothing.

/// The parts of a key that are offered.
enum class ElementParts { All, Element, Action };

struct ElementRequest
{
    ElementParts Parts = ElementParts::All;
    QString Title;
};

struct PickPorts
{
    std::function<SheetAnswer(const SheetRequest&)> Sheet;
    std::function<std::optional<QString>(const ElementRequest&)> Element; ///< the key; nothing if it was cancelled
};
extern PickPorts Picks;
void ResetPicks();

/// Shows a sheet to pick from; returns when it has closed.
SheetAnswer PickFromSheet(const SheetRequest& request);

std::optional<QString> PickElement(const ElementRequest& request);

/// A macro's wish to pick from the sheet at `path` under a prompt; the prompt "PREVIEW" shows the sheet alone.
SheetRequest MacroSheet(const QString& path, const QString& prompt);
