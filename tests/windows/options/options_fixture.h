#pragma once

#include "windows/main/main_window_test.h"
#include "windows/options/colour_square.h"
#include "windows/options/frm_options.h"
#include "windows/parts/dialog_support.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

/// The options opened by their menu entry, and driven in it.
class OptionsWindow : public MainWindowTest
{
protected:
    void Options(const std::function<void(frmOptions&)>& act)
    {
        bool ran = false;
        OnModal([&](QWidget& window) {
            auto* options = qobject_cast<frmOptions*>(&window);
            ASSERT_NE(options, nullptr);
            ran = true;
            act(*options);
        });
        MenuOf("mnuOptions")->trigger();
        EXPECT_TRUE(ran);
        Window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    }

    static void Click(QWidget& window, const char* name) { Part<QAbstractButton>(window, name).click(); }

    /// Types a text over what a box holds, and leaves the box.
    static void Type(QWidget& window, const char* name, const char* text)
    {
        auto& box = Part<QLineEdit>(window, name);
        box.setFocus();
        box.selectAll();
        if (*text)
            QTest::keyClicks(&box, QString::fromLatin1(text));
        else
            QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClick(&box, Qt::Key_Tab);
    }

    static QString TextOf(QWidget& window, const char* name) { return Part<QLineEdit>(window, name).text(); }

    static ColourSquare& Square(QWidget& window, const char* name) { return Part<ColourSquare>(window, name); }

    static QString Ini(const char* section, const char* key)
    {
        return ReadIni(QString::fromLatin1(section), QString::fromLatin1(key));
    }
};
