#pragma once

#include "frame/settings/colour_styles.h"

class EditorPane;
class SettingsReader;

/// The colours that the user sees: those for a light or those for a dark desktop. Each form has a section of user.ini.
enum class LookForm { Light, Dark };

/// Setting `ColourForm`.
enum FormChoice : int { FollowDesktop, AlwaysLight, AlwaysDark };

/// Fonts of panes and media lists, the same in both forms.
struct LookFonts
{
    QString MainFont, MediaListFontName;
    double MainFontSize = 9.75, MediaListFontSize = 8.25; ///< points
    bool MediaListFontBold = false, MediaListFontItalic = false;

    bool operator==(const LookFonts&) const = default;
};

QString SectionOf(LookForm form);
LookForm FormInUse();
/// What the desktop shows; panes and lists change with it unless the user has fixed the form.
void SetDesktopForm(LookForm form);
/// Takes the setting `ColourForm`, and gives panes and lists the form that is in use then.
void SetFormChoice(int choice);

/// The look of a section; keys that are missing or broken take their shipped value.
FormLook ReadLook(SettingsReader& reader, const QString& section);
LookFonts ReadFonts(SettingsReader& reader);
void WriteLook(const FormLook& look, LookForm form);
void WriteFonts(const LookFonts& fonts);

/// What a pane shows; the colours of the media lists are not in it.
FormLook LookOf(const EditorPane& pane);
void GiveLook(EditorPane& pane, const FormLook& look);
/// All panes and the media lists.
void GiveLookToAll(const FormLook& look, const LookFonts& fonts);
