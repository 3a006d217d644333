#pragma once

#include "frame/settings/colour_styles.h"

class EditorPane;

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

QLatin1StringView SectionOf(LookForm form);
LookForm FormInUse();
/// The look that is set for a form, of the settings in force.
FormLook& LookOf(LookForm form);
/// What the desktop shows; panes and lists change with it unless the user has fixed the form.
void SetDesktopForm(LookForm form);

/// What a pane shows; the colours of the media lists are not in it.
FormLook LookOf(const EditorPane& pane);
void GiveLook(EditorPane& pane, const FormLook& look);
/// The look of the form in use and the fonts to all panes and the media lists.
void GiveLookToAll();
