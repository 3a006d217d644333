#include "platform/file_types.h"

#include "platform/files/paths.h"
#include "platform/processes/processes.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <gtest/gtest.h>

namespace {

using file_types::Group;

bool HasTools()
{
    for (const char* tool : {"update-mime-database", "update-desktop-database", "xdg-mime", "gio"})
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
            return false;
    return true;
}

/// A home of its own, asked by the desktop's own tools.
class FileTypes : public testing::Test
{
protected:
    FileTypes()
    {
        for (const char* program : {"bin/gemforge", "bin/Mapglass"}) {
            const QString path = Home.Write(QString::fromLatin1(program), "#!/bin/sh\necho \"$0 $1\" > \"$OPENED\"\n");
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
        Home.Write(QStringLiteral("config/mimeapps.list"), Before);
    }

    QString Ask(const QString& program, const QStringList& arguments) const
    {
        processes::ChildPlan plan;
        plan.Environment = {QStringLiteral("HOME=") + Home.Path(),
                            QStringLiteral("XDG_DATA_HOME=") + Home.Path(QStringLiteral("share")),
                            QStringLiteral("XDG_CONFIG_HOME=") + Home.Path(QStringLiteral("config")),
                            QStringLiteral("XDG_CURRENT_DESKTOP=X-Generic"),
                            QStringLiteral("OPENED=") + Home.Path(QStringLiteral("opened"))};
        const auto ran = processes::RunAndWait(program, arguments, plan);
        return ran ? QString::fromUtf8(ran->Output).trimmed() : QStringLiteral("not run");
    }

    QString KindOf(const char* name, const QByteArray& bytes) const
    {
        const QString path = Home.Write(QStringLiteral("files/") + QString::fromLatin1(name), bytes);
        const QString told = Ask(QStringLiteral("gio"), {QStringLiteral("info"), QStringLiteral("-a"),
                                                         QStringLiteral("standard::content-type"), path});
        return told.section(QStringLiteral("content-type: "), 1).trimmed();
    }

    QString OpenerOf(const char* kind) const
    {
        return Ask(QStringLiteral("xdg-mime"),
                   {QStringLiteral("query"), QStringLiteral("default"), QString::fromLatin1(kind)});
    }

    static constexpr char Before[] =
        "# mine\n[Added Associations]\ntext/plain=x.desktop;\n\n[Default Applications]\ntext/plain=editor.desktop;\n"
        "text/x-rnd-conf=old.desktop;\n";

    TestFolder Home;
    const file_types::Places Places{Home.Path(QStringLiteral("share/")), Home.Path(QStringLiteral("config/")),
                                    Home.Path(QStringLiteral("bin/"))};
};

} // namespace

// Catches: a kind that the desktop does not see by name or content, one that takes files of others (any conf, any zip),
// a default that the desktop's tools do not find.
TEST_F(FileTypes, TheDesktopKnowsTheKindsAndTheirPrograms)
{
    if (!HasTools())
        GTEST_SKIP() << "no tools of a desktop";
    const auto both = file_types::Associate(Group::Confs, Places).and_then([&] {
        return file_types::Associate(Group::Levels, Places);
    });
    ASSERT_TRUE(both) << both.error().Text();
    const QByteArray chunks("RND1\0\0\0\0CAVEVERS", 16), tape("RND1\0\0\0\0TAPEVERS", 16);
    const QByteArray macro = QByteArray("PK\003\004").leftJustified(30, '\0') + "basic.txtdim a";
    const QByteArray zip = QByteArray("PK\003\004").leftJustified(30, '\0') + "other.txtdim a";
    struct
    {
        const char* Name;
        QByteArray Bytes;
        const char* Kind;
    } const files[] = {{"graphicsinfo.conf", "name: x\n", "text/x-rnd-conf"},
                       {"editorsetup.conf", "name: x\n", "text/x-rnd-conf"},
                       {"001.level", "anything", "application/x-rnd-level"},
                       {"chunks", chunks, "application/x-rnd-level"},
                       {"old", "ROCKSNDIAMONDS_LEVEL_FILE_VERSION_1.4\n", "application/x-rnd-level"},
                       {"macro.gfb", macro, "application/x-gemforge-basic"},
                       {"macro", macro, "application/x-gemforge-basic"},
                       {"set.levzip", zip, "application/x-rnd-levzip"}};
    for (const auto& file : files)
        EXPECT_EQ(KindOf(file.Name, file.Bytes), QString::fromLatin1(file.Kind)) << file.Name;
    EXPECT_NE(KindOf("other.conf", "name: x\n"), QStringLiteral("text/x-rnd-conf"));
    EXPECT_EQ(KindOf("other", zip), QStringLiteral("application/zip"));
    EXPECT_NE(KindOf("a", tape), QStringLiteral("application/x-rnd-level"));

    for (const QString& kind : file_types::KindsOf(Group::Confs))
        EXPECT_EQ(OpenerOf(kind.toLatin1().constData()), QStringLiteral("gemforge.desktop")) << kind;
    EXPECT_EQ(OpenerOf("application/x-rnd-level"), QStringLiteral("gemforge-mapglass.desktop"));
    EXPECT_TRUE(Home.Read(QStringLiteral("config/mimeapps.list")).startsWith("# mine\n[Added Associations]\n"));

    const QString conf = Home.Path(QStringLiteral("files/graphicsinfo.conf"));
    Ask(QStringLiteral("gio"), {QStringLiteral("open"), conf});
    for (int turn = 0; turn < 200 && !QFile::exists(Home.Path(QStringLiteral("opened"))); ++turn)
        QThread::msleep(50);
    EXPECT_EQ(Home.Read(QStringLiteral("opened")).trimmed(),
              (Places.Programs + QStringLiteral("gemforge ") + conf).toUtf8());
}

// Catches: an undo that leaves a file, forgets what opened a kind before, or takes back what the user has chosen since;
// a second Associate after which our own entry counts as what was before.
TEST_F(FileTypes, AllOfItIsTakenBack)
{
    if (!HasTools())
        GTEST_SKIP() << "no tools of a desktop";
    EXPECT_FALSE(file_types::Associated(Places));
    for (const Group group : {Group::Confs, Group::Confs, Group::Levels})
        ASSERT_TRUE(file_types::Associate(group, Places));
    EXPECT_TRUE(file_types::Associated(Places));
    QByteArray defaults = Home.Read(QStringLiteral("config/mimeapps.list"));
    EXPECT_TRUE(defaults.contains("text/x-rnd-conf=gemforge.desktop;\n"));
    defaults.replace("application/x-rnd-level=gemforge-mapglass.desktop;", "application/x-rnd-level=viewer.desktop;");
    Home.Write(QStringLiteral("config/mimeapps.list"), defaults);
    const auto back = file_types::TakeBack(Places);
    ASSERT_TRUE(back) << back.error().Text();
    EXPECT_FALSE(file_types::Associated(Places));
    defaults = Home.Read(QStringLiteral("config/mimeapps.list"));
    EXPECT_TRUE(defaults.startsWith(Before)) << defaults.toStdString();
    EXPECT_TRUE(defaults.contains("application/x-rnd-level=viewer.desktop;"));
    EXPECT_FALSE(defaults.contains("gemforge"));
    for (const char* folder : {"share/applications", "share/mime/packages", "share/icons/hicolor/scalable/mimetypes",
                               "share/icons/hicolor/scalable/apps"})
        EXPECT_EQ(
            QDir(Home.Path(QString::fromLatin1(folder))).entryList(QDir::Files).filter(QStringLiteral("gemforge")),
            QStringList());
    EXPECT_NE(KindOf("graphicsinfo.conf", "name: x\n"), QStringLiteral("text/x-rnd-conf"));
}

// Catches: a program that is not there made the opener of files, a command line that a blank or percent sign breaks.
TEST_F(FileTypes, OnlyAProgramThatIsThereAndInOneWord)
{
    QFile::remove(Home.Path(QStringLiteral("bin/Mapglass")));
    const auto made = file_types::Associate(Group::Levels, Places);
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().Path, Home.Path(QStringLiteral("bin/Mapglass")));
    EXPECT_EQ(Home.Read(QStringLiteral("config/mimeapps.list")), QByteArray(Before));
    EXPECT_EQ(file_types::ExecWord(QStringLiteral("/a b/50%/x")), QStringLiteral("\"/a b/50%%/x\""));
    EXPECT_EQ(file_types::ExecWord(QStringLiteral("/a\"b$c")), QStringLiteral("\"/a\\\\\"b\\\\$c\""));
}
