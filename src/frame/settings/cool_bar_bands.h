#pragma once

#include <QString>
#include <vector>

class SettingsReader;

/// One band of section `Coolbar Bands`: what the tool bars' layout is stored as.
struct CoolBarBand
{
    QString Tag, Control; ///< Control: the name of the tool bar in the band
    int Width = 0;        ///< pixels of a 96-dpi screen
    bool NewRow = false;

    bool operator==(const CoolBarBand&) const = default;
};

/// The six bands as user.ini has them; a key that is missing or broken takes its shipped value.
std::vector<CoolBarBand> ReadBands(SettingsReader& reader);
/// Writes all keys of the bands, in their order.
void WriteBands(const std::vector<CoolBarBand>& bands);
