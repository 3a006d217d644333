#include "frame/cool_bar_bands.h"

#include "frame/settings.h"
#include "frame/shipped_settings.h"

namespace {

constexpr int BandCount = 6, WidestBand = 10'000;
const QString Section = QStringLiteral("Coolbar Bands");

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
        stored.Tag = reader.Text(Section, Key('T', band));
        stored.Control = reader.Text(Section, Key('C', band));
        stored.Width = reader.Number(Section, Key('W', band), 0, WidestBand);
        stored.NewRow = band > 1 && reader.Truth(Section, Key('N', band));
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
        WriteIni(stored.Tag, Section, Key('T', band));
        WriteIni(stored.Control, Section, Key('C', band));
        WriteIni(stored.Width, Section, Key('W', band));
        WriteIni(stored.NewRow ? QStringLiteral("True") : QStringLiteral("False"), Section, Key('N', band));
    }
}
