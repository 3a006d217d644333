#pragma once

#include "level/level_box.h"
#include "platform/result.h"

#include <QString>
#include <optional>

class RegistryStore;

// The hand-over between a macro and the viewer, a program of its own. It goes through the registry; both sides stand
// here.

/// What a macro wants shown beside the level.
struct ViewRequest
{
    QString Message;
    QString Palette; ///< file name of a palette, for a level that lies in no set's folder; else empty
};

/// What the person did in the viewer.
struct ViewAnswer
{
    bool Cancelled = false;
    std::optional<LevelBox> Box; ///< the rectangle that was drawn
};

/// The macro's side: before the viewer starts, and after it has ended.
[[nodiscard]] Result<> AskViewer(RegistryStore& store, const ViewRequest& request);
[[nodiscard]] Result<ViewAnswer> TakeViewAnswer(RegistryStore& store);

/// The viewer's side: the wish that waits, which is then taken; nothing when the viewer was started by itself.
std::optional<ViewRequest> TakeViewRequest(RegistryStore& store);
[[nodiscard]] Result<> AnswerView(RegistryStore& store, const ViewAnswer& answer);

/// Path of the viewer's program.
QString ViewerProgram();
