#include "windows/main/pane_mouse.h"

#include "editor/make_pane.h"
#include "frame/media/media_lists.h"
#include "windows/blocks/frm_inject.h"
#include "windows/main/main_window_test.h"
#include "windows/parts/dialog_support.h"

#include <QAbstractScrollArea>
#include <QToolTip>

namespace {

/// A main window whose media of the graphics mode can be opened.
class PreviewingWindow : public frmmain
{
public:
    bool CanPreview(int mode) const override { return mode == ModeGfx; }
    void PreviewMedia(const MediaRequest& request) override
    {
        Opened << request.Entry.Name + (request.Quick ? u" quick" : u" full");
        MainLine = request.Block ? request.Block->MainLine : -1;
    }

    QStringList Opened;
    int MainLine = -1;
};

class PaneMouse : public MainWindowTest
{
protected:
    std::unique_ptr<frmmain> MakeWindow() override { return std::make_unique<PreviewingWindow>(); }

    void SetUp() override
    {
        MainWindowTest::SetUp();
        Run.Work.Write(QStringLiteral("x.png"), "picture");
        const QString conf = Run.Work.Write(QStringLiteral("graphicsinfo.conf"), "zip: x.png\nzip.xpos: 3\n\n\n");
        OpenDocument(conf, false);
        ShowMedia();
    }

    void Press(Qt::MouseButton button, Qt::KeyboardModifiers keys)
    {
        QWidget* viewport = static_cast<QAbstractScrollArea*>(WidgetOf(CurrentPane()))->viewport();
        QTest::mouseClick(viewport, button, keys, QPoint(viewport->width() / 2, 4));
        QTest::qWait(20);
    }

    QStringList Opened() const { return static_cast<PreviewingWindow&>(*Window).Opened; }
};

constexpr auto CtrlAlt = Qt::ControlModifier | Qt::AltModifier;

} // namespace

// Catches: a shortcut on the wrong button, one that needs Alt alone where the window manager keeps it, one that opens
// the edit menu too or that works where its mode has no such thing.
TEST_F(PaneMouse, ButtonsWithAltOpenTheTools)
{
    for (const Qt::KeyboardModifiers keys : {Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(CtrlAlt)}) {
        Press(Qt::LeftButton, keys);
        Press(Qt::RightButton, keys);
    }
    EXPECT_EQ(Opened(), (QStringList{QStringLiteral("x.png quick"), QStringLiteral("x.png full"),
                                     QStringLiteral("x.png quick"), QStringLiteral("x.png full")}));
    EXPECT_EQ(static_cast<PreviewingWindow&>(*Window).MainLine, 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    QTimer::singleShot(15, qApp, [] {
        QWidget* modal = QApplication::activeModalWidget();
        EXPECT_NE(qobject_cast<frmInject*>(modal), nullptr);
        if (modal)
            modal->close();
    });
    Press(Qt::MiddleButton, CtrlAlt);
    SetMode(ModeTxt);
    Press(Qt::LeftButton, Qt::AltModifier);
    Press(Qt::RightButton, Qt::AltModifier);
    Press(Qt::MiddleButton, Qt::AltModifier);
    EXPECT_EQ(Opened().size(), 4);
    EXPECT_FALSE(RunMouseShortcut(Qt::LeftButton, Qt::NoModifier));
}

// Catches: commands that show although nothing can be opened, or that stay away where something can.
TEST_F(PaneMouse, PreviewCommandsShowWhereTheyWork)
{
    for (const char* control : {"mnuEDViewElement", "mnuEditAnimation"}) {
        SetMode(ModeGfx);
        EXPECT_TRUE(MenuOf(control)->isVisible() && MenuOf(control)->isEnabled());
        EXPECT_TRUE(ButtonOf(control)->isVisible() && ButtonOf(control)->isEnabled());
        SetMode(ModeTxt);
        EXPECT_TRUE(MenuOf(control)->isVisible() && !MenuOf(control)->isEnabled());
    }
    SetMode(ModeSfx);
    EXPECT_FALSE(MenuOf("mnuEDViewElement")->isVisible());
    SetMode(ModeGfx);
    MenuOf("mnuEDViewElement")->trigger();
    EXPECT_EQ(Opened(), QStringList(QStringLiteral("x.png quick")));
}
