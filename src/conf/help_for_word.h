#pragma once

#include <QString>

/// The help id of a word in a document of a mode: numbered words lose their number, the mode's folder stands in front.
QString HelpIdForWord(const QString& word, int mode);

/// F1: the page of `helpId`; "TEXT" stands for the word at the caret of the current pane.
void HelpForWord(const QString& helpId);

/// Starts the help program on a page; an empty id opens its contents. A program that cannot be started is message 105.
void RunHelp(const QString& helpId);
