#pragma once

struct RecoveredText;

/// Opens a recovered text as unsaved text of its file, in the tab that has the file, an empty tab or a new one. Its
/// old copy goes once a new one is written. False if all tabs are taken; the text stays on offer. Code comes back on
/// the workbench, once nothing else is at work.
bool TakeRecovered(const RecoveredText& text);
