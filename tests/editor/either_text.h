#pragma once

#include "pane_fixture.h"
#include "text/line_text.h"

#include <QClipboard>
#include <QGuiApplication>

struct DesktopClipboard : TextClipboard
{
    QString Text() const override { return QGuiApplication::clipboard()->text(); }
    void SetText(const QString& text) override { QGuiApplication::clipboard()->setText(text); }
};

enum class TextKind { Pane, Lines };

inline std::string NameOfKind(const testing::TestParamInfo<TextKind>& kind)
{
    return kind.param == TextKind::Pane ? "Pane" : "Lines";
}

/// What holds for a document's text whoever keeps it: a pane on the real component, or a text by its lines.
struct EitherTextTest : MarkedTextTest, testing::WithParamInterface<TextKind>
{
    EitherTextTest() { subject = GetParam() == TextKind::Pane ? static_cast<DocumentText*>(pane.get()) : &lines; }

    /// A pane has a history of its edits and of its searches; the other has none.
    bool OnPane() const { return GetParam() == TextKind::Pane; }

    HostScope host;
    std::unique_ptr<EditorPane> pane = MakePane();
    DesktopClipboard desktop;
    LineText lines{desktop};
};

/// Runs a fixture's shared tests on both.
#define ON_EITHER_TEXT(FIXTURE)                                                                                        \
    INSTANTIATE_TEST_SUITE_P(On, FIXTURE, testing::Values(TextKind::Pane, TextKind::Lines), NameOfKind)
