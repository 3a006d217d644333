#pragma once

class QToolBar;

/// Gives the button that a narrow tool bar has at its end, for the actions without room, arrows in the colour of texts.
/// The toolkit's own are black whatever the ground is.
void ColourExtensionArrow(QToolBar& bar);
