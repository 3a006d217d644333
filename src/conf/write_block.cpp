#include "conf/write_block.h"

#include "conf/conf_lines.h"
#include "frame/frame_state.h"

#include <algorithm>

namespace {

constexpr char16_t LowestOfKey = 14;

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

QStringList NewBlockLines(const QString& key, const ElementRecord& record, const QuickFlags& fields,
                          const ValueColumn& column)
{
    ElementRecord named = record;
    if (named.ElementName.isEmpty())
        named.ElementName = key;
    QStringList lines;
    const auto add = [&](const QString& whole, const QString& value) {
        lines << whole + u':' + PadAfterKey(whole + u':', column) + value;
    };
    const auto addField = [&](const QString& start, size_t field) {
        add(start + u'.' + QLatin1String(BlockCommands.at(field).Word), FieldText(field, named));
    };
    add(key, record.ImageFile);
    for (size_t place = 0; place < QuickFields.size(); ++place) {
        const size_t command = QuickFields.at(place);
        const BlockCommand& row = BlockCommands.at(command);
        if (fields.at(place) != 1 || (command == StartFrameField && record.StartFrame == -1) ||
            (command == OffsetField && record.Offset == 0))
            continue;
        if (!row.IsSubGroup()) {
            addField(key, command);
            continue;
        }
        const QString group = key + u'.' + QLatin1String(row.Word);
        add(group, record.ImageFile);
        for (size_t field = 0; field < row.GroupFields; ++field)
            addField(group, field);
    }
    return lines;
}

void WriteElementBlock(DocumentText& pane, const ElementRecord& record, bool full, int undoMark)
{
    const QString selected = pane.SelText();
    const QString key = KeyFromSelection(selected);
    const bool broken = std::any_of(selected.begin(), selected.end(), [](QChar c) { return c < LowestOfKey; });
    if (key.isEmpty() || broken) {
        ShowMessage(message::NoElementHighlighted);
        return;
    }
    if (undoMark != CallersUndoGroup)
        pane.ExecuteCmd(CmdOpenUndoGroup);
    QuickFlags fields = Frame.Settings.QuickElementTemplate;
    if (full)
        fields.fill(1);
    const int line = pane.GetSel(true).StartLine;
    pane.SelectLine(line, true);
    pane.ReplaceSel(NewBlockLines(key, record, fields, CurrentValueColumn()).join(QStringLiteral("\r\n")));
    pane.SetSel({.StartLine = line, .EndLine = line}, true);
    if (undoMark != CallersUndoGroup)
        pane.ExecuteCmd(CmdCloseUndoGroup);
}

void QuickElement()
{
    WriteElementBlock(CurrentPane(), Conf.Element, false, 0);
}
