#pragma once

class QString;

/// The folder of the Extra list as a text tells it, relative to the current folder; one that is not there is ignored.
void ApplyInjectPath(const QString& text);
/// Applies the inject path that line 0 of the current pane holds, if it does.
void ApplyStoredInjectPath();
/// The button "<- Inject Path": the Extra folder as a new first line.
void InsertInjectPath();
