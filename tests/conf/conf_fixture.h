#pragma once

#include "conf/element_record.h"
#include "host_scope.h"

#include <gtest/gtest.h>

/// A graphics document in the current pane, with the words and the value column that the tests expect.
class ConfTest : public testing::Test
{
protected:
    ConfTest()
    {
        ResetConf();
        Frame.CurrentMode = ModeGfx;
        Frame.Settings.SheetKinds = {QStringLiteral("pcx"), QStringLiteral("png")};
        Frame.Settings.SpacerWidth = 20;
        QStringList& commands = Frame.WordLists.at(ModeGfx).at(KindGraphicComs);
        commands = QStringLiteral("xpos ypos frames delay anim_mode start_frame global_sync offset name crumbled_like "
                                  "diggable_like anim_delay_fixed anim_delay_random post_delay_fixed post_delay_random "
                                  "EDITOR PREVIEW CRUMBLED border_size x y frames_per_line")
                       .split(u' ');
    }

    ~ConfTest() override { ResetConf(); }

    void Load(const QByteArray& text, int caretLine = 0, int column = 2)
    {
        Pane().LoadBytes(text);
        Pane().SetSel({caretLine, column, caretLine, column}, false);
    }

    void Select(int line, int from, int to) { Pane().SetSel({line, from, line, to}, false); }

    EditorPane& Pane() { return CurrentPane(); }
    QByteArray Bytes() { return Pane().Bytes().toByteArray(); }
    int Shown() const { return int(Scope.Answers.AskedFor<MessageQuestion>().size()); }
    QString Title() const
    {
        const auto messages = Scope.Answers.AskedFor<MessageQuestion>();
        return messages.empty() ? QString() : messages.back().Record.MessageTitle;
    }

    HostScope Scope;
};
