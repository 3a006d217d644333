#pragma once

class QWidget;

/// RnD, Games: the list of games, which of them is in use, their names and arguments. Modal.
void RunGamesWindow(QWidget* owner);
