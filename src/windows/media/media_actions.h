#pragma once

#include "platform/result.h"

#include <QString>

class MediaView;
struct MediaHit;
struct MediaRequest;
class QPoint;
class QWidget;

/// What is done with the files of the media lists.

/// A double click on a list: no element block describes the file. Ends in the host's PreviewMedia.
void OpenMediaEntry(const MediaHit& entry);

/// Opens by the current mode: a sheet above the window `owner`, a sound or a level. Nothing for an entry without a
/// name.
void OpenByMode(QWidget* owner, const MediaRequest& request);

/// Is there a tool for the media of a mode?
bool HasMediaTool(int mode);

/// Shows a level in the level viewer and waits for it; message 35 if there is none.
void ShowLevel(const QString& path);

/// Runs the viewer's program on a level and waits for its end; Esc ends it.
[[nodiscard]] Result<> RunViewer(const QString& program, const QString& level);

/// The desktop's file manager with the file selected, else its folder in whatever shows folders.
void ShowInFolder(const QString& path);

/// The menu of a list at a place of the screen.
void PopUpMediaMenu(MediaView& view, const QPoint& onScreen);
