#pragma once

void OpenNewTab();
void CloseTab();
void CloseAllTabs();

/// Empties a slot: text, undo history and Modified too. All but tab 0 are hidden.
void EmptySlot(int tab);
