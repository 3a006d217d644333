#pragma once

#include "platform/result.h"
#include "services/archive_tool.h"

#include <QString>

class DocumentText;

/// The text of a code pane into a macro's archive as its source, the resources in it untouched. The archive is made if
/// there is none; a file of plain source stays one.
[[nodiscard]] ResourceResult<> SaveMacroSource(const DocumentText& code, const QString& path);

/// Tells the user that a macro's file cannot be read.
void TellUnreadableMacro(const QString& path, const Failure& failure);

/// Tells the user what went wrong in a macro's archive; `name`: of the resource.
void TellResourceFailure(const QString& name, const ResourceFailure& failure);
