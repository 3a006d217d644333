#pragma once

#include <QString>

class MediaView;
class QPoint;
class QWidget;

/// What is done with the files of the media lists.

/// A double click on a list: no element block stands behind the file. Ends in the host's PreviewMedia.
void OpenMediaEntry(int source);

/// Opens by the current mode: the sheet Conf.MediaFile of list Conf.MediaSource above the window `owner`, or the sound
/// or level `baseEntry`, a path. Nothing if that is empty.
void OpenByMode(QWidget* owner, const QString& baseEntry);

/// Is there a tool for the media of a mode?
bool HasMediaTool(int mode);

/// Shows a level in the level viewer and waits for it; message 35 if there is none.
void ShowLevel(const QString& path);

/// The desktop's file manager with the file selected, else its folder in whatever shows folders.
void ShowInFolder(const QString& path);

/// The menu of a list at a place of the screen.
void PopUpMediaMenu(MediaView& view, const QPoint& onScreen);
