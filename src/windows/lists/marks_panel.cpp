#include "windows/lists/marks_panel.h"

#include "conf/document_hints.h"
#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/host_ports.h"

#include <QTreeView>

namespace {

constexpr int LookAgain = 400; // milliseconds without a key
constexpr int LinesAtOnce = 4000;
constexpr size_t MostMarks = 2000;        // of a list that anybody reads; what a stray file would have is without end
constexpr qsizetype FollowUpTo = 4 << 20; // bytes; a larger text is looked at when the list is asked for

QString MarksText(const LineMarksModel& model)
{
    const int all = model.rowCount();
    return all >= int(MostMarks) ? QStringLiteral("The first %1 marks of this document.").arg(all)
           : all == 0            ? QStringLiteral("No line of this document has a mark.")
           : all == 1            ? QStringLiteral("1 mark in this document.")
                                 : QStringLiteral("%1 marks in this document.").arg(all);
}

} // namespace

void LineMarksModel::Show(std::vector<LineHint> now)
{
    if (now == rows)
        return;
    beginResetModel();
    rows = std::move(now);
    keys.clear();
    for (const LineHint& hint : rows)
        keys << CurrentPane().GetLine(hint.Line).section(u':', 0, 0).left(80).trimmed();
    endResetModel();
}

const LineHint* LineMarksModel::At(int row) const
{
    return row >= 0 && size_t(row) < rows.size() ? &rows[size_t(row)] : nullptr;
}

int LineMarksModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows.size());
}

int LineMarksModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant LineMarksModel::data(const QModelIndex& index, int role) const
{
    const LineHint* hint = At(index.row());
    if (!hint)
        return {};
    if (role == Qt::ToolTipRole && index.column() == MessageColumn)
        return hint->Right.isEmpty() ? hint->Message : hint->Message + QStringLiteral("\nA double click puts it in.");
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == LineColumn)
        return hint->Line + 1;
    return index.column() == KeyColumn ? keys.value(index.row()) : hint->Message;
}

QVariant LineMarksModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    constexpr const char* Names[] = {"Line", "Key", "What is to be said"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    return QString::fromLatin1(Names[section]);
}

MarksPanel::MarksPanel(QWidget* parent)
    : LowerList({.Name = "Marks",
                 .Icon = "list_of_marks",
                 .What = QStringLiteral("Lines with a mark"),
                 .Whose = QStringLiteral("the list of marks")},
                parent)
{
    SetModel(model);
    soon.setSingleShot(true);
    soon.setInterval(LookAgain);
    connect(&soon, &QTimer::timeout, this, [this] {
        if (isVisible())
            Look();
    });
    connect(&HintsOfDocument(), &DocumentHints::Changed, &soon, qOverload<>(&QTimer::start));
    connect(List(), &QTreeView::clicked, this, [this](const QModelIndex& index) { GoTo(index.row()); });
    connect(List(), &QTreeView::doubleClicked, this, [this](const QModelIndex& index) { PutWordIn(index.row()); });
    connect(List(), &QTreeView::activated, this, [this](const QModelIndex& index) { GoTo(index.row()); });
}

void MarksPanel::ShowList()
{
    if (!MayHaveMarks())
        return ShowNotice(QStringLiteral("A plain text has no marks"));
    Look();
    if (model.rowCount() == 0)
        return ShowNotice(MarksText(model));
    LowerList::ShowList();
}

void MarksPanel::DocumentChanged()
{
    const EditorPane& pane = CurrentPane();
    if (isVisible() && pane.LineStart(pane.LineCount()) <= FollowUpTo)
        soon.start();
}

void MarksPanel::Look()
{
    const LineHint* current = model.At(List()->currentIndex().row());
    const int line = current ? current->Line : -1;
    std::vector<LineHint> marks;
    for (int first = 0; first < CurrentPane().LineCount() && marks.size() < MostMarks; first += LinesAtOnce)
        for (LineHint& hint : HintsOfDocument().InLines(first, first + LinesAtOnce - 1))
            if (marks.size() < MostMarks)
                marks.push_back(std::move(hint));
    model.Show(std::move(marks));
    SetBarText(MarksText(model));
    ShowColumns();
    for (int row = 0; line >= 0 && row < model.rowCount(); ++row)
        if (model.At(row)->Line >= line)
            return List()->setCurrentIndex(model.index(row, 0));
}

void MarksPanel::GoTo(int row)
{
    if (const LineHint* hint = model.At(row))
        CurrentPane().ExecuteCmd(CmdGotoLine, hint->Line);
}

void MarksPanel::PutWordIn(int row)
{
    const LineHint* hint = model.At(row);
    if (!hint || hint->Right.isEmpty())
        return;
    PutNearestWordIn(LineHint(*hint));
    soon.start();
}
