#pragma once

#include <QList>
#include <QString>
#include <array>
#include <optional>

/// The element block in work.
struct ElementRecord
{
    QString ImageFile = QStringLiteral("Your.PCX");
    int XPos = 0, YPos = 0, Frames = 1, Delay = 1;
    int StartFrame = 0; ///< -1: not given
    QString AnimMode = QStringLiteral("loop");
    int GlobalSync = 0, Offset = 0;
    QString ElementName = QStringLiteral("Element's Full Name");
    QString BlockKey; ///< what stands in front of ".xpos:" on the block's xpos line
    bool Reverse = false;
    bool ElementOpen = false; ///< opened from a block in the text, so that it can be written back

    bool operator==(const ElementRecord&) const = default;
};

/// The fields of a block in the order of ElementState::FieldFound.
constexpr std::array<const char*, 9> FieldTokens = {
    ".xpos:", ".ypos:", ".frames:", ".delay:", ".anim_mode:", ".start_frame:", ".global_sync:", ".offset:", ".name:"};

/// State of the text commands around a block: one instance, read and changed by the tools too.
struct ElementState
{
    ElementRecord Element;
    std::array<int, FieldTokens.size()> FieldFound{};
    int MainLine = 0, CaretLine = 0;
    int MediaSource = 1; ///< list that holds MediaFile: 1 Base, 2 Extra, 3 RnD
    QString MediaFile;
    std::optional<QString> UnknownMode; ///< the block's anim_mode that "loop" stands in for until the user picks one
    bool QuickPreview = false, CrumbledBlock = false;
    QList<bool> CommandPresent; ///< one flag an entry of GraphicComs
};
extern ElementState Conf;
void ResetConf();
