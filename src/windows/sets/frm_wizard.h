#pragma once

#include "sets/new_set.h"

#include <QDialog>
#include <array>

class FolderTree;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;

/// "Game Structure Wizard": seven pages that ask for what a new level set is made of, and make it.
class frmWizard : public QDialog
{
    Q_OBJECT

public:
    /// Opens the window and returns when it is closed.
    static void Run(QWidget* owner);

    void reject() override; ///< while the game is made: stops that, and nothing is left of it

private:
    explicit frmWizard(QWidget* owner);

    // The pages, in frm_wizard_pages.cpp
    QWidget* MakePage(const char* heading, std::initializer_list<const char*> paragraphs);
    void MakeNamesPage();
    void MakePlacePage();
    void MakeLevelinfoPage();
    void MakeArtworkPage(const ArtworkRow& artwork, const char* heading, const char* textBox,
                         std::initializer_list<const char*> paragraphs);
    void MakeExtrasPage();
    QLineEdit* MakeLine(const char* name, const char* caption, int longest, const QString& tip, QLayout& into);
    QCheckBox* MakeCheck(SetExtra extra, QWidget* on);
    QPlainTextEdit* MakeTextBox(const char* name, const QString& caption, QWidget* on);

    void ReadTexts();
    void GoTo(int number);
    void Entered(int from);
    void GoToFolder(const QString& folder);
    void FolderPicked(const QString& folder);
    void ShowPath(bool withMessage);
    void ShowArtwork(size_t number);
    void TakeLastTime();
    void SetMaking(bool on);
    void MakeGame();

    NewSet set;
    QStackedWidget* page;
    QPushButton *cmdBack, *cmdNext, *cmdCancel, *cmdDone = nullptr, *cmdLastTime = nullptr;
    QLineEdit *txtGameName = nullptr, *txtGameShortName = nullptr, *txtAuthor = nullptr, *txtPath = nullptr;
    QLabel *lblTaken = nullptr, *lblMaking;
    QComboBox* Drive1 = nullptr;
    FolderTree* Dir1 = nullptr;
    QPlainTextEdit* txtLevelinfoPrev = nullptr;
    std::array<QPlainTextEdit*, 3> txtExamples{};
    std::array<QCheckBox*, SetExtraCount> checks{};
    bool making = false;
};
