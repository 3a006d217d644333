#pragma once

#include "frame/editor_pane.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

/// The component's style for each kind of text.
enum PaneStyle : char {
    StyleNormal,
    StyleElement,
    StyleAction,
    StyleCommand,
    StyleSpecial,
    StyleComment,
    StyleOperator,
    StyleNumber,
    StyleString,
    StyleUnseen,          ///< behind what is shown of a line that is very long
    StyleFirstPrint = 40, ///< from here on the colours of PrintStyled
};

/// A language made ready for colouring. Each line stands alone.
class LineColours
{
public:
    LineColours() = default;
    explicit LineColours(const LanguageObject& language);

    /// Writes one style a byte; `line` comes without its line end.
    void Colour(std::string_view line, char* styles) const;

private:
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    void AddWords(const QString& words, PaneStyle style);
    size_t ColourRun(std::string_view run, char* styles) const;
    size_t LongestWord(std::string_view run, char* styles) const;
    void ColourPart(std::string_view part, char* styles) const;
    char StyleOf(std::string_view word) const;
    bool IsOperator(char byte) const { return operators[uchar(byte)]; }

    std::unordered_map<std::string, PaneStyle, Hash, std::equal_to<>> words;
    std::array<bool, 256> operators{}, delimiters{};
    std::string comment;
    int mostParts = 1; ///< parts, split at operators, of the word that has most
};
