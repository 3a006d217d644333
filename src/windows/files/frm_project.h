#pragma once

class QWidget;

/// File, Project: the projects window, modal; afterwards the current tab is activated again.
void RunProjectWindow(QWidget* owner);
