#pragma once

#include "windows/options/form_example.h"
#include "windows/options/option_page.h"

#include <array>

class ColourSquare;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QStackedWidget;

/// "Colours": the looks of the light and of the dark form, shown on an example each. Squares, ticks and font buttons
/// show the form that is on show and write to its example at once; Apply copies both forms out.
class ColoursPage : public OptionPage
{
    Q_OBJECT

public:
    ColoursPage(int index, QWidget* parent);
    ~ColoursPage() override;

    /// Fills both forms from a ready style. Any other index fills them from the style chosen last, if there was one.
    void ApplyColourScheme(int index);
    void ShowForm(LookForm form);
    const FormExample& Example(LookForm form) const;

    void Apply() override;

private:
    enum Square { WindowSquare = 9, MediaSquare = 10, LineSquare = 11, SquareCount = 12 };

    QGroupBox* MakeKind(int kind, QWidget* parent);
    QGroupBox* MakeWindow(QWidget* parent);
    QGroupBox* MakeMedia(QWidget* parent);
    QGroupBox* MakeLine(QWidget* parent);
    QGroupBox* MakeStyles(QWidget* parent);
    QGroupBox* MakeForms(QWidget* parent);
    ColourSquare* MakeSquare(bool back, int index, const QString& meaning, QWidget* parent);
    FormExample& Shown() const;
    void ShowLook();
    void ShowFonts();
    void ShowContrast(int kind);
    void TakeTextColour(int index, int bgr);
    void TakeBackColour(int index, int bgr);
    void TakeWindowColour(int bgr);
    void TakeStyle(int kind);
    void ChooseMainFont();
    void ChooseMediaFont();
    void CopyMainStyle();
    void SetFonts(const LookFonts& fonts);

    std::unique_ptr<FormExample> light, dark;
    std::array<ColourSquare*, SquareCount> picFontColour{}, picBackColour{};
    std::array<QCheckBox*, 9> Check1{}, Check2{};
    std::array<QLabel*, 9> contrasts{};
    QPushButton *cmdFont, *Command1, *Command2;
    QComboBox *cmbStyle, *cmbColourForm;
    QButtonGroup* forms;
    QStackedWidget *panes, *lists;
    int chosenStyle = -1;
};
