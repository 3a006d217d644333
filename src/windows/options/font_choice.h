#pragma once

#include <QString>
#include <optional>

class QWidget;

/// A font as a person chooses it.
struct FontChoice
{
    QString Name;
    double Points = 10;
    bool Bold = false, Italic = false;

    bool operator==(const FontChoice&) const = default;
};

/// The font dialog, beginning on `now`, or on the family `shown` where `now` is not installed. Nothing if it was
/// cancelled or came back as it was. A name keeps 31 characters.
std::optional<FontChoice> AskFont(const FontChoice& now, const QString& shown, QWidget* parent);
