#pragma once

#include "windows/parts/lower_list.h"

/// What the game complained about, below the text: one row each, which leads to its line.
class WordsPanel : public LowerList
{
    Q_OBJECT

public:
    explicit WordsPanel(QWidget* parent = nullptr);

    void ShowList() override;

private:
    void Spoken(int all, int fresh);
};
