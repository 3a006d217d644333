#pragma once

class QWidget;

/// Colours and font of the media lists from the settings, in light and dark desktops alike.
void GiveMediaStyle(QWidget& list);
