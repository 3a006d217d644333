#pragma once

class DocumentText;

/// True if the text of the current tab is saved or the user lets it go (message 8); such a text is kept as a closed
/// one. Without a question before it (message 8 stands for several tabs): KeepClosedText.
bool MayGiveUp(DocumentText& pane);

/// Keeps the unsaved text of a tab for ReopenClosedTab, for seven days; a saved one is remembered by its file. That it
/// could be kept nowhere is told in the status bar.
void KeepClosedText(int tab);

/// The same for unsaved code of the workbench, which has told the keeper of it.
void KeepClosedCode();

/// "Reopen Closed Tab": what left its tab last comes back, an unsaved text as one, in its own tab or a free one; code
/// on the workbench.
void ReopenClosedTab();
