#include "conf/write_block.h"

#include "conf/block_fields.h"
#include "conf/conf_lines.h"
#include "frame/frame_state.h"

#include <algorithm>

namespace {

constexpr char16_t LowestOfKey = 14;
constexpr size_t StartFrameField = 5, EditorField = 9;

} // namespace

QString KeyFromSelection(const QString& selected)
{
    const QString ends = QStringLiteral(".:");
    QString key = CleanValue(selected).remove(QLatin1Char(' '));
    if (!key.isEmpty() && ends.contains(key.front()))
        key.remove(0, 1);
    if (!key.isEmpty() && ends.contains(key.back()))
        key.chop(1);
    return key;
}

QStringList NewBlockLines(const QString& key, const ElementRecord& record, const BlockFields& fields,
                          const ValueColumn& column)
{
    ElementRecord named = record;
    if (named.ElementName.isEmpty())
        named.ElementName = key;
    QStringList lines;
    const auto add = [&](const QString& parts, const QString& value) {
        const QString whole = key + parts + QLatin1Char(':');
        lines << whole + PadAfterKey(whole, column) + value;
    };
    add({}, record.ImageFile);
    for (size_t field = 0; field < EditorField; ++field)
        if (fields.at(field) == 1 && (field != StartFrameField || record.StartFrame != -1))
            add(QLatin1Char('.') + QLatin1String(QuickFieldNames.at(field)),
                FieldText(named, QuickFieldNames.at(field)));
    if (fields.at(EditorField) == 1) {
        add(QStringLiteral(".EDITOR"), record.ImageFile);
        add(QStringLiteral(".EDITOR.xpos"), QString::number(record.XPos));
        add(QStringLiteral(".EDITOR.ypos"), QString::number(record.YPos));
    }
    return lines;
}

void WriteElementBlock(bool full, int undoMark)
{
    DocumentText& pane = CurrentPane();
    const QString selected = pane.SelText();
    const QString key = KeyFromSelection(selected);
    const bool broken = std::any_of(selected.begin(), selected.end(), [](QChar c) { return c < LowestOfKey; });
    if (key.isEmpty() || broken) {
        ShowMessage(message::NoElementHighlighted);
        return;
    }
    if (undoMark != CallersUndoGroup)
        pane.ExecuteCmd(CmdOpenUndoGroup);
    BlockFields fields = Frame.Settings.QuickElementTemplate;
    if (full)
        fields.fill(1);
    const int line = pane.GetSel(true).StartLine;
    pane.SelectLine(line, true);
    pane.ReplaceSel(NewBlockLines(key, Conf.Element, fields, CurrentValueColumn()).join(QStringLiteral("\r\n")));
    pane.SetSel({.StartLine = line, .EndLine = line}, true);
    pane.ExecuteCmd(CmdCloseUndoGroup);
}

void QuickElement()
{
    WriteElementBlock(false, 0);
}
