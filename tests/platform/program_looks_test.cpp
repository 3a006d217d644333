#include "platform/desktop/program_looks.h"

#include "platform/images/contrast.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QPalette>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

const QString PortalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString PortalPlace = QStringLiteral("/org/freedesktop/portal/desktop");
const QString PortalSettings = QStringLiteral("org.freedesktop.portal.Settings");

/// A desktop that answers what it wishes.
class FakePortal : public QDBusVirtualObject
{
public:
    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        const QVariant inner = QVariant::fromValue(QDBusVariant(QVariant(Scheme)));
        return message.member() == QLatin1String("Read") &&
               bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
    }

    uint Scheme = 0;
};

template <class Condition>
bool Soon(Condition condition)
{
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < 5'000;) {
        if (condition())
            return true;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return false;
}

bool WindowsAreDark()
{
    return IsDarkColour(QGuiApplication::palette().color(QPalette::Window));
}

/// A session bus of its own.
class ProgramLooksTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
            GTEST_SKIP() << "no bus";
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        ASSERT_TRUE(daemon.waitForReadyRead(10'000));
        address = QString::fromUtf8(daemon.readLine()).trimmed();
    }

    void TearDown() override
    {
        for (const char* name : {"portal", "program"})
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
        daemon.terminate();
        daemon.waitForFinished(5'000);
        qunsetenv("GEMFORGE_COLOURS");
        QGuiApplication::setPalette({});
    }

    QDBusConnection Bus(const char* name) const
    {
        return QDBusConnection::connectToBus(address, QString::fromLatin1(name));
    }

    void OpenPortal(uint scheme)
    {
        portal.Scheme = scheme;
        QDBusConnection bus = Bus("portal");
        ASSERT_TRUE(bus.registerVirtualObject(PortalPlace, &portal));
        ASSERT_TRUE(bus.registerService(PortalName));
    }

    void Wish(uint scheme) const
    {
        QDBusMessage changed =
            QDBusMessage::createSignal(PortalPlace, PortalSettings, QStringLiteral("SettingChanged"));
        changed << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
                << QVariant::fromValue(QDBusVariant(QVariant(scheme)));
        ASSERT_TRUE(Bus("portal").send(changed));
    }

    FakePortal portal;

private:
    QProcess daemon;
    QString address;
};

} // namespace

// Catches: a wish of the desktop that is not heard at the start or when it changes, a palette that stays dark when the
// desktop is light again, a fixed form that gives way or is not handed to programs started from here.
TEST_F(ProgramLooksTest, WindowsFollowTheDesktopUnlessFixed)
{
    OpenPortal(1);
    ProgramLooks looks(Bus("program"));
    std::vector<bool> told;
    QObject::connect(&looks, &ProgramLooks::DesktopChanged, [&](bool dark) { told.push_back(dark); });
    EXPECT_FALSE(WindowsAreDark());
    EXPECT_TRUE(Soon([] { return WindowsAreDark(); }));
    EXPECT_TRUE(looks.DesktopIsDark());
    Wish(2);
    EXPECT_TRUE(Soon([] { return !WindowsAreDark(); }));
    looks.Choose(ProgramLooks::Dark);
    EXPECT_TRUE(WindowsAreDark());
    EXPECT_FALSE(looks.DesktopIsDark());
    EXPECT_EQ(qgetenv("GEMFORGE_COLOURS"), "dark");
    Wish(1);
    EXPECT_TRUE(Soon([&] { return looks.DesktopIsDark(); }));
    looks.Choose(ProgramLooks::Light);
    EXPECT_FALSE(WindowsAreDark());
    looks.Choose(ProgramLooks::AsDesktop);
    EXPECT_TRUE(WindowsAreDark());
    Wish(0);
    EXPECT_TRUE(Soon([] { return !WindowsAreDark(); })) << "without a wish the palette counts";
    EXPECT_EQ(told, (std::vector<bool>{true, false, true, false}));
    qputenv("GEMFORGE_COLOURS", "dark");
    const ProgramLooks another(Bus("program"));
    EXPECT_TRUE(WindowsAreDark());
}

// Catches: a desktop without a portal, or without a bus, that holds a start or changes its colours.
TEST_F(ProgramLooksTest, ADesktopThatSaysNothingKeepsItsPalette)
{
    const QPalette before = QGuiApplication::palette();
    for (const QDBusConnection& bus : {Bus("program"), QDBusConnection(QStringLiteral("nowhere"))}) {
        const ProgramLooks looks(bus);
        Soon([turn = 0]() mutable { return ++turn > 20; });
        EXPECT_EQ(QGuiApplication::palette(), before);
        EXPECT_FALSE(looks.DesktopIsDark());
    }
}

// Catches: text of the dark palette that does not read, greyed words included.
TEST(DarkPaletteTest, EveryTextReads)
{
    const QPalette palette = DarkPalette();
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Base},
        {QPalette::LinkVisited, QPalette::Base},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::WindowText, QPalette::Base},
        {QPalette::Link, QPalette::Window},
        {QPalette::BrightText, QPalette::Button}};
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        for (const auto& [text, back] : pairs)
            EXPECT_GE(Contrast(palette.color(group, text), palette.color(group, back)), TextContrast)
                << group << ' ' << text << ' ' << back;
}
