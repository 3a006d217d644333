#pragma once

#include "frame/settings/form_looks.h"

#include <QPlainTextEdit>
#include <memory>

class EditorPane;

/// The colours of one form as they are being chosen. What its two examples show is all there is: nothing else keeps
/// what is not applied yet.
class FormExample
{
public:
    /// The looks as user.ini has them. The pane is named `name`, the media list's example so with a 2 behind.
    FormExample(LookForm form, const QString& name, QWidget* parent);
    ~FormExample();

    EditorPane& Pane() const { return *pane; }
    QWidget* txtExample() const;
    QPlainTextEdit* txtExample2() const { return media; }

    LookForm Form() const { return form; }
    FormLook Look() const;
    LookFonts Fonts() const;
    /// The kinds, the window and the caret's line.
    void SetLook(const FormLook& look);
    void SetMedia(int back, int text);
    void SetFonts(const LookFonts& fonts);

private:
    void ShowMediaStyle();

    LookForm form;
    std::unique_ptr<EditorPane> pane;
    QPlainTextEdit* media;
    int mediaBack = 0, mediaText = 0;
    LookFonts fonts;
};
