#pragma once

#include "host_scope.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <Qsci/qsciscintilla.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Texts of tests show the caret as "|" and the anchor, where it is elsewhere, as "["; lines end in "\n".
struct MarkedTextTest : testing::Test
{
    void Put(const QString& marked)
    {
        QString plain;
        Range range;
        bool anchor = false;
        int line = 0, column = 0;
        for (const QChar sign : marked) {
            if (sign == '['_L1 || sign == '|'_L1) {
                anchor = anchor || sign == '['_L1;
                (sign == '['_L1 ? range.StartLine : range.EndLine) = line;
                (sign == '['_L1 ? range.StartCol : range.EndCol) = column;
                continue;
            }
            plain += sign;
            ++column;
            if (sign == '\n'_L1) {
                ++line;
                column = 0;
            }
        }
        if (!anchor) {
            range.StartLine = range.EndLine;
            range.StartCol = range.EndCol;
        }
        subject->SetText(plain);
        subject->SetSel(range, false);
    }

    QString Shown() const
    {
        const Range range = subject->GetSel(false);
        QStringList lines = subject->Text().split("\r\n"_L1);
        const bool empty = range.StartLine == range.EndLine && range.StartCol == range.EndCol;
        const bool backward = std::pair(range.StartLine, range.StartCol) > std::pair(range.EndLine, range.EndCol);
        const auto mark = [&](int line, int column, QChar sign) { lines[line].insert(column, sign); };
        if (!empty && backward)
            mark(range.StartLine, range.StartCol, '['_L1);
        mark(range.EndLine, range.EndCol, '|'_L1);
        if (!empty && !backward)
            mark(range.StartLine, range.StartCol, '['_L1);
        return lines.join('\n'_L1);
    }

    DocumentText* subject = nullptr;
};

/// A pane on the real component.
struct PaneTest : MarkedTextTest
{
    PaneTest() { subject = pane.get(); }

    QsciScintilla* Component() const { return static_cast<QsciScintilla*>(WidgetOf(*pane)); }

    /// True if the pane took the key. The pane must be shown.
    bool Press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(Component(), &event);
        return event.isAccepted();
    }

    void Type(const QString& text)
    {
        for (const QChar sign : text)
            Press(sign.toUpper().unicode(), {}, sign);
        QCoreApplication::processEvents();
    }

    HostScope host;
    std::unique_ptr<EditorPane> pane = MakePane();
};
