#include "frame/settings/settings_table.h"

#include "frame/program_scope.h"
#include "frame/settings/shipped_settings.h"

using SettingsTable = FrameTest;

namespace {

QString NameOf(const SettingRow& row)
{
    return u'[' + QString::fromLatin1(row.Section) + QStringLiteral("] ") + QString::fromLatin1(row.Key);
}

/// "[section] key" of every key that the program is shipped with.
QStringList ShippedNames(const QByteArray& text)
{
    QStringList names;
    QString section;
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith('['))
            section = QString::fromLatin1(line.trimmed()) + u' ';
        else if (line.contains('=') && !line.startsWith(';'))
            names << section + QString::fromLatin1(line.left(line.indexOf('=')));
    }
    return names;
}

/// Another value than the one in force.
QVariant Other(const SettingRow& row)
{
    switch (row.Kind) {
    case SettingKind::Real:
        return SettingNow(row).toDouble() + 1.5;
    case SettingKind::Truth:
        return !SettingNow(row).toBool();
    case SettingKind::Text:
    case SettingKind::Character:
    case SettingKind::Path:
        return QStringLiteral("x");
    default:
        return SettingNow(row).toInt() == row.Low ? row.Low + 1 : row.Low;
    }
}

std::vector<QVariant> AllNow()
{
    std::vector<QVariant> values;
    for (const SettingRow& row : SettingRows())
        values.push_back(SettingNow(row));
    return values;
}

} // namespace

// Catches: a key that is shipped and that no row knows, so that the options never find it; a row without a shipped
// value, or with one that its bounds forbid; and a row that stands twice.
TEST_F(SettingsTable, EveryKeyHasARowAndEveryRowAShippedValue)
{
    QStringList names;
    for (const QString& name : ShippedNames(Run.UserIni()))
        if (!name.startsWith(QLatin1StringView("[Coolbar Bands]"))) // a layout, read and written as a whole
            names << name;
    for (const SettingRow& row : SettingRows()) {
        EXPECT_TRUE(names.removeOne(NameOf(row))) << NameOf(row).toStdString();
        SettingsReader reader;
        const QString shipped = reader.Shipped(QString::fromLatin1(row.Section), QString::fromLatin1(row.Key));
        const bool bounded = row.Low < row.High;
        const QString within = QString::number(std::clamp(shipped.toInt(), row.Low, std::max(row.Low, row.High)));
        EXPECT_EQ(bounded ? within : shipped, shipped) << NameOf(row).toStdString();
    }
    EXPECT_EQ(names, QStringList());
}

// Catches: two rows that hold their values in one place, a value that does not come back from the file as it was
// written, and an effect that undoes another setting.
TEST_F(SettingsTable, AChangeReachesItsOwnPlaceAndTheFile)
{
    Run.Start();
    for (std::size_t at = 0; at < SettingRows().size(); ++at) {
        const SettingRow& row = SettingRows()[at];
        SCOPED_TRACE(NameOf(row).toStdString());
        std::vector<QVariant> expected = AllNow();
        const QVariant other = Other(row);
        ChangeSetting(row, other);
        expected[at] = row.Place ? other : SettingNow(row);
        EXPECT_EQ(SettingNow(row).toString(), other.toString());
        EXPECT_EQ(AllNow(), expected);
    }
    const std::vector<QVariant> changed = AllNow();
    Frame.Settings = {};
    LoadSettings();
    EXPECT_EQ(AllNow(), changed);
    EXPECT_EQ(Run.TakeMessages(), QStringList());
}

// Catches: a value beyond its bounds that rules until the next start brings it back, and an effect that is left out.
TEST_F(SettingsTable, AChangeIsBroughtWithinItsBoundsAndApplied)
{
    Run.Start();
    const auto change = [](const char* key, const QVariant& value) {
        ChangeSetting(SettingOf(QLatin1StringView("Misc"), QLatin1StringView(key)), value);
    };
    change("SpacerWidth", 1'000);
    EXPECT_EQ(Frame.Settings.SpacerWidth, 200);
    change("SuperTab", 7);
    EXPECT_EQ(Frame.Settings.SuperTab, 1);
    change("LineCommentLineChar", QStringLiteral("=="));
    EXPECT_EQ(Frame.Settings.LineCommentLineChar, QStringLiteral("="));
    change("RNDPath", QStringLiteral("\\games\\rnd"));
    EXPECT_EQ(Frame.Settings.RndFolder, QStringLiteral("/games/"));
    ChangeSetting(SettingOf(QLatin1StringView("Syntax Colours"), QLatin1StringView("WindowColour")), 255);
    EXPECT_EQ(Window.Pane(7).GetColor(0), 255);
}
