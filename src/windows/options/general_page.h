#pragma once

#include "platform/file_types.h"
#include "windows/options/option_page.h"
#include "windows/options/options_ports.h"

#include <map>

class QCheckBox;
class QGroupBox;
class QLineEdit;

/// "General Options": ticks, limits, the game's path, characters of comment separators.
class GeneralPage : public OptionPage
{
    Q_OBJECT

public:
    GeneralPage(int index, OptionsPorts ports, QWidget* parent);
    ~GeneralPage() override;

    void Apply() override;

private:
    QGroupBox* MakeMisc(QWidget* parent);
    QGroupBox* MakeLimits(QWidget* parent);
    QGroupBox* MakePath(QWidget* parent);
    QGroupBox* MakeGotoComment(QWidget* parent);
    void CheckLimits();
    void FindTheGame();
    bool Ticked(int index) const;
    void ApplyMisc();
    void AssociateTicked(file_types::Group group);
    void ApplyCharacters();

    OptionsPorts ports;
    std::map<int, QCheckBox*> chkOther;
    std::map<QString, QLineEdit*> limits;
    std::map<QString, std::vector<QCheckBox*>> flags; ///< by section
    QLineEdit *txtRndPath, *txtSearch, *txtline;
    QCheckBox* chkSortComList;
    bool lookedElsewhere = false; ///< the list of the game's files shows a folder that is not applied
};
