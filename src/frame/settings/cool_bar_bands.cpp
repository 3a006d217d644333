#include "frame/settings/cool_bar_bands.h"

#include "frame/settings/settings.h"
#include "frame/settings/shipped_settings.h"

namespace {

constexpr int BandCount = 6, WidestBand = 10'000;
const QString BandsSection = QStringLiteral("Coolbar Bands");

QString Key(char letter, int band)
{
    return QLatin1Char(letter) + QString::number(band);
}

} // namespace

std::vector<CoolBarBand> ReadBands(SettingsReader& reader)
{
    std::vector<CoolBarBand> bands;
    for (int band = 1; band <= BandCount; ++band) {
        CoolBarBand stored;
        stored.Tag = reader.Text(BandsSection, Key('T', band));
        stored.Control = reader.Text(BandsSection, Key('C', band));
        stored.Width = reader.Number(BandsSection, Key('W', band), 0, WidestBand);
        stored.NewRow = band > 1 && reader.Truth(BandsSection, Key('N', band));
        bands.push_back(stored);
    }
    return bands;
}

void WriteBands(const std::vector<CoolBarBand>& bands)
{
    const SettingsBatch batch;
    int band = 0;
    for (const CoolBarBand& stored : bands) {
        ++band;
        WriteIni(stored.Tag, BandsSection, Key('T', band));
        WriteIni(stored.Control, BandsSection, Key('C', band));
        WriteIni(stored.Width, BandsSection, Key('W', band));
        WriteIni(stored.NewRow ? QStringLiteral("True") : QStringLiteral("False"), BandsSection, Key('N', band));
    }
}
