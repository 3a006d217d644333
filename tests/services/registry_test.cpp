#include "fault_steps.h"
#include "platform/files/standard_folders.h"
#include "services/registry.h"
#include "services/registry_store.h"
#include "test_support.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

constexpr QLatin1StringView Macro("Software\\GemforgeBASIC\\Macro");

class Registry : public testing::Test
{
protected:
    cRegistry At(RegistryStore& where, const QString& section, const QString& value = {}) const
    {
        cRegistry position(where);
        position.ClassKey = registry::CurrentUser;
        position.SectionKey = section;
        position.ValueKey = value;
        position.ValueType = registry::Text;
        return position;
    }
    cRegistry At(const QString& section, const QString& value = {}) { return At(store, section, value); }
    QVariant Read(RegistryStore& where, const QString& section, const QString& value) const
    {
        return At(where, section, value).Value();
    }

    const TestFolder folder;
    const QString file = folder.Path(QStringLiteral("config/registry.json"));
    RegistryStore store{file};
};

QString TextOf(const RegistryResult<>& result)
{
    EXPECT_FALSE(result);
    EXPECT_TRUE(result || result.error().Number == 26001);
    EXPECT_TRUE(result || result.error().Source.endsWith(QLatin1String(".cRegistry")));
    return result ? QString() : result.error().Text;
}

} // namespace

// What a macro keeps is there in the next run and for another program, whatever letters its names are written in.
TEST_F(Registry, ValuesComeBack)
{
    const QString odd = QStringLiteral("a\"\\\n\r\t^") + QChar(u'\0') + QStringLiteral("\u00FC\U0001F48E ") +
                        QString(QChar(0xD800)) + QStringLiteral("z");
    for (const QString& text : {QString(), QStringLiteral(" "), odd, QString(100000, u'x')}) {
        cRegistry position = At(Macro, QStringLiteral("Score"));
        ASSERT_TRUE(position.SetValue(text));
        RegistryStore other(file);
        EXPECT_EQ(Read(other, QStringLiteral("\\SOFTWARE\\\\gemforgebasic\\MACRO\\"), QStringLiteral("sCORE")), text);
    }
    cRegistry position = At(Macro, QStringLiteral("none"));
    position.Default = QStringLiteral("default");
    position.ValueType = registry::Binary;
    EXPECT_EQ(position.Value(), QStringLiteral("default"));
    EXPECT_EQ(position.ValueType, registry::Binary) << "left as it was";
    EXPECT_EQ(At(Macro).EnumerateValues(), QStringList(QStringLiteral("Score")));
    EXPECT_EQ(At(QStringLiteral("Software")).EnumerateSections(), QStringList(QStringLiteral("GemforgeBASIC")));
    EXPECT_EQ(At(QString()).EnumerateSections(), QStringList(QStringLiteral("Software")));
    EXPECT_EQ(At(QStringLiteral("none")).EnumerateValues(), std::nullopt);

    cRegistry unset(store);
    EXPECT_FALSE(unset.KeyExists() || unset.DeleteKey() || unset.EnumerateSections());
    EXPECT_FALSE(unset.SetValue(QStringLiteral("x")) || unset.CreateKey());
}

TEST_F(Registry, Types)
{
    const auto stored = [&](quint32 type, const QVariant& value) {
        cRegistry position = At(Macro, QStringLiteral("v"));
        position.ValueType = type;
        const RegistryResult<> written = position.SetValue(value);
        EXPECT_TRUE(written || written.error().Number == 13);
        const QVariant back = position.Value();
        return written ? std::optional(std::pair(position.ValueType, back)) : std::nullopt;
    };
    using Typed = std::optional<std::pair<quint32, QVariant>>;
    qputenv("GEMFORGE_TEST", "expanded");
    EXPECT_EQ(stored(1, QStringLiteral("100%")), Typed({1, QStringLiteral("100%")}));
    EXPECT_EQ(stored(2, QStringLiteral("50%%")), Typed({1, QStringLiteral("50%%")}));
    EXPECT_EQ(stored(1, QStringLiteral("%GEMFORGE_TEST%/%none% 5%")), Typed({2, QStringLiteral("expanded/%none% 5%")}));
    EXPECT_EQ(stored(3, QByteArray("\0\xFF\n", 3)), Typed({3, QByteArray("\0\xFF\n", 3)}));
    EXPECT_EQ(stored(3, QStringLiteral("text")), std::nullopt);
    EXPECT_EQ(stored(4, -5), Typed({4, -5}));
    EXPECT_EQ(stored(4, 0x80000001u), Typed({4, qint32(0x80000001u)}));
    EXPECT_EQ(stored(4, QStringLiteral("5")), std::nullopt);
    EXPECT_EQ(stored(5, 258), Typed({4, 258})) << "a plain number";

    folder.Write(QStringLiteral("config/registry.json"),
                 R"({"keys": {"HKEY_CURRENT_USER": {"values": {"big": {"type": 5, "data": 258},
                     "list": {"type": 7, "data": "a"}, "raw": {"type": 9, "data": "AAE="}}}}})");
    EXPECT_EQ(Read(store, {}, QStringLiteral("big")), 0x02010000);
    EXPECT_EQ(Read(store, {}, QStringLiteral("LIST")), QStringLiteral("a"));
    EXPECT_EQ(Read(store, {}, QStringLiteral("raw")), QByteArray("\0\1", 2));
}

TEST_F(Registry, Removing)
{
    cRegistry position = At(Macro, QStringLiteral("a"));
    ASSERT_TRUE(position.SetValue(QStringLiteral("1")));
    ASSERT_TRUE(At(Macro, QStringLiteral("b")).SetValue(QStringLiteral("2")));
    EXPECT_TRUE(At(Macro, QStringLiteral("A")).DeleteValue());
    EXPECT_EQ(position.EnumerateValues(), QStringList(QStringLiteral("b")));
    EXPECT_FALSE(At(QStringLiteral("Software\\GemforgeBASIC\\")).DeleteKey()) << "it holds the other macros";
    EXPECT_TRUE(At(Macro, QStringLiteral("ignored")).DeleteKey()) << "with all its values";
    EXPECT_FALSE(position.KeyExists() || position.DeleteKey() || At(QString()).DeleteKey());
    ASSERT_TRUE(position.CreateKey());
    ASSERT_TRUE(position.CreateKey());
    EXPECT_TRUE(position.KeyExists());
}

TEST_F(Registry, ErrorsNameThePosition)
{
    cRegistry position = At(QStringLiteral("A\\B"), QStringLiteral("v"));
    EXPECT_EQ(TextOf(position.DeleteValue()),
              QStringLiteral("Failed to open key '-2147483647',Section: 'A\\B' for delete access"));
    ASSERT_TRUE(position.CreateKey());
    EXPECT_EQ(TextOf(position.DeleteValue()),
              QStringLiteral("Failed to delete registry Key: '-2147483647',Section: 'A\\B',Key: 'v"));
    const QString deep = QStringLiteral("x\\").repeated(5000);
    EXPECT_EQ(TextOf(At(deep).CreateKey()), QStringLiteral("Failed to create registry Key: '") + deep);
    EXPECT_FALSE(At(QString(300, u'k')).CreateKey());
    EXPECT_FALSE(At(QStringLiteral("A"), QString(20000, u'v')).SetValue(QStringLiteral("x")));

    folder.Write(QStringLiteral("config/registry.json"), "{ damaged by hand");
    const auto refused = position.SetValue(QStringLiteral("new"));
    EXPECT_EQ(TextOf(refused), QStringLiteral("Failed to set registry value Key: '-2147483647',Section: 'A\\B',Key: "
                                              "'v' to value: 'new'"));
    EXPECT_EQ(refused.error().Why.Path, file);
    EXPECT_EQ(position.Value(), QVariant());
    EXPECT_EQ(folder.Read(QStringLiteral("config/registry.json")), "{ damaged by hand");
}

// Two programs that write at once: each value of both must be there in the end.
TEST_F(Registry, TwoProgramsAtOnce)
{
    constexpr int Programs = 3, Each = 40;
    for (int program = 0; program < Programs; ++program) {
        if (fork() != 0)
            continue;
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = [](int) { return 0; };
        const FileStepsScope scope(steps);
        RegistryStore own(file);
        bool good = true;
        for (int i = 0; i < Each; ++i) {
            cRegistry position = At(own, Macro, QStringLiteral("%1-%2").arg(program).arg(i));
            good = position.SetValue(QString::number(i)).has_value() && position.Value() == QString::number(i) && good;
        }
        _exit(good ? 0 : 1);
    }
    for (int program = 0; program < Programs; ++program) {
        int status = 0;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(At(Macro).EnumerateValues()->size(), Programs * Each);
}

// A change that is cut off anywhere leaves the file with all old or all new values, and the next one goes through.
TEST_F(Registry, KillAndFaultAtAnyStep)
{
    FileSteps quick = FileSteps::OfSystem();
    quick.Sync = [](int) { return 0; };
    const FileStepsScope scope(quick);
    ASSERT_TRUE(At(Macro, QStringLiteral("kept")).SetValue(QStringLiteral("kept")));
    ASSERT_TRUE(At(Macro, QStringLiteral("v")).SetValue(0));
    int status = 0, nth = 1;
    for (; status == 0; ++nth) {
        SCOPED_TRACE(nth);
        const QString now = QString::number(nth), before = Read(store, Macro, QStringLiteral("v")).toString();
        const pid_t child = fork();
        if (child == 0) {
            const FileStepsScope faulty(FailingAt(quick, nth, -1, std::make_shared<int>(0)));
            _exit(At(Macro, QStringLiteral("v")).SetValue(now) ? 1 : 2);
        }
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_NE(WEXITSTATUS(status), 2);
        const QString found = Read(store, Macro, QStringLiteral("v")).toString();
        EXPECT_TRUE(found == before || found == now) << found;
        EXPECT_EQ(Read(store, Macro, QStringLiteral("kept")), QStringLiteral("kept"));
    }
    EXPECT_GT(nth, 10);
    for (nth = 1; nth < 30; ++nth) {
        SCOPED_TRACE(nth);
        const QString now = QStringLiteral("f%1").arg(nth), before = Read(store, Macro, QStringLiteral("v")).toString();
        bool done = false;
        {
            FileSteps steps = FailingAt(quick, nth, ENOSPC, std::make_shared<int>(0));
            steps.Close = quick.Close; // a file that stays open would hold the lock
            const FileStepsScope faulty(std::move(steps));
            done = At(Macro, QStringLiteral("v")).SetValue(now).has_value();
        }
        const QString found = Read(store, Macro, QStringLiteral("v")).toString();
        EXPECT_TRUE(done ? found == now : found == before || found == now) << found;
        EXPECT_EQ(Read(store, Macro, QStringLiteral("kept")), QStringLiteral("kept"));
    }
}

TEST_F(Registry, InMemoryNothingIsWritten)
{
    ASSERT_TRUE(At(Macro, QStringLiteral("v")).SetValue(QStringLiteral("file")));
    RegistryStore memory(file, RegistryStore::Keeping::Memory);
    EXPECT_EQ(Read(memory, Macro, QStringLiteral("v")), QStringLiteral("file"));
    ASSERT_TRUE(At(memory, Macro, QStringLiteral("v")).SetValue(QStringLiteral("memory")));
    EXPECT_EQ(Read(memory, Macro, QStringLiteral("v")), QStringLiteral("memory"));
    EXPECT_EQ(Read(store, Macro, QStringLiteral("v")), QStringLiteral("file"));
}

TEST_F(Registry, Associations)
{
    cRegistry position(store);
    ExeAssociation type{QStringLiteral(" /opt/gem forge "), QStringLiteral("Gem.File"), QStringLiteral("Config"),
                        QStringLiteral("CONF"), QString()};
    type.NewText = QStringLiteral("Make");
    type.InstallText = QString();
    ASSERT_TRUE(position.CreateEXEAssociation(type));
    const auto both = [&](const QString& section) {
        cRegistry at(store);
        at.ClassKey = registry::ClassesRoot;
        at.SectionKey = section;
        const QVariant root = at.Value();
        at.ClassKey = registry::LocalMachine;
        at.SectionKey.prepend(QStringLiteral("SOFTWARE\\Classes\\"));
        EXPECT_EQ(at.Value(), root) << section;
        return root.toString();
    };
    EXPECT_EQ(both(QStringLiteral(".CONF")), QStringLiteral("Gem.File"));
    EXPECT_EQ(both(QStringLiteral("Gem.File")), QStringLiteral("Config"));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\shell\\open")), QStringLiteral("&Open"));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\shell\\open\\command")), QStringLiteral("\"/opt/gem forge\" \"%1\""));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\shell\\new")), QStringLiteral("Make"));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\shell\\add")), QStringLiteral("&Install CONF"));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\shell\\add\\command")), QStringLiteral("\"/opt/gem forge\" /a \"%1\""));
    position.ClassKey = registry::ClassesRoot;
    for (const char* section : {"Gem.File\\DefaultIcon", "Gem.File\\shell\\print"}) {
        position.SectionKey = QLatin1String(section);
        EXPECT_FALSE(position.KeyExists()) << section;
    }
    type.IconIndex = 0;
    ASSERT_TRUE(position.CreateEXEAssociation(type));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\DefaultIcon")), QStringLiteral("\"/opt/gem forge\",0"));

    const std::vector<ExeVerb> verbs{{QStringLiteral("play"), QStringLiteral("&Play"), QStringLiteral("game %1")}};
    ASSERT_TRUE(position.CreateAdditionalEXEAssociations(QStringLiteral("Gem.File"), verbs));
    EXPECT_EQ(both(QStringLiteral("Gem.File\\shell\\play\\command")), QStringLiteral("game %1"));
    EXPECT_EQ(TextOf(position.CreateAdditionalEXEAssociations(QStringLiteral("None"), verbs)),
              QStringLiteral("Error - attempt to create additional associations before class defined."));

    // One that fails in the middle leaves nothing of it.
    type.Extension = QStringLiteral("LEVEL");
    type.ClassName = QString(300, u'c');
    const QByteArray before = folder.Read(QStringLiteral("config/registry.json"));
    EXPECT_FALSE(position.CreateEXEAssociation(type));
    EXPECT_EQ(folder.Read(QStringLiteral("config/registry.json")), before);
    position.SectionKey = QStringLiteral(".LEVEL");
    position.ClassKey = registry::ClassesRoot;
    EXPECT_FALSE(position.KeyExists());
}
