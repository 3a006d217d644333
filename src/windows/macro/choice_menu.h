#pragma once

#include "frame/messages/asker.h"

class QWidget;

/// A list as a menu at the pointer, each item cut to its first 30 characters.
Answer ChooseFromMenu(const ChoiceQuestion& question, QWidget* parent);
