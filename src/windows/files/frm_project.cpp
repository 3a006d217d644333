#include "windows/files/frm_project.h"

#include "frame/documents/documents.h"
#include "frame/files/projects.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

/// An arrow selects even where there is no other row to go to.
class ProjectTree : public QTreeWidget
{
public:
    using QTreeWidget::QTreeWidget;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        QTreeWidget::keyPressEvent(event);
        const bool moves = event->key() >= Qt::Key_Home && event->key() <= Qt::Key_PageDown;
        if (moves && currentItem() && selectedItems().isEmpty())
            setCurrentItem(currentItem());
    }
};

/// Shows the projects, makes and deletes them, and remembers the one that shall be loaded.
class frmProject : public QDialog
{
public:
    explicit frmProject(QWidget* owner);

    QString Chosen; ///< empty: none

private:
    void ShowList();
    void UpdateButtons();
    const ProjectEntry& EntryOf(QTreeWidgetItem* item) const;
    void Choose(QTreeWidgetItem* item);
    void DeleteSelected();

    std::vector<ProjectEntry> projects; ///< the rows of the list
    QTreeWidget* treeProject;
    QPushButton *cmdNew, *cmdDelete;
};

frmProject::frmProject(QWidget* owner) : QDialog(DialogParent(owner))
{
    setObjectName(QStringLiteral("frmProject"));
    SetHelpSubject(this, QStringLiteral("projects"));
    setWindowTitle(QStringLiteral("Gemforge - Projects"));
    treeProject = new ProjectTree(this);
    treeProject->setObjectName(QStringLiteral("treeProject"));
    treeProject->setAccessibleName(QStringLiteral("Projects"));
    treeProject->setHeaderHidden(true);
    treeProject->setRootIsDecorated(false);
    const auto button = [this](const char* name, const char* caption) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        made->setAutoDefault(false); // Enter belongs to the list
        return made;
    };
    cmdNew = button("cmdNew", "Create New Project");
    cmdDelete = button("cmdDelete", "Delete Project");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdNew);
    buttons->addWidget(cmdDelete);
    buttons->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addWidget(treeProject);
    column->addLayout(buttons);
    resize(Pixels(*this, 360), Pixels(*this, 320));

    connect(treeProject, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { Choose(item); });
    connect(treeProject, &QTreeWidget::itemSelectionChanged, this, [this] { UpdateButtons(); });
    connect(cmdNew, &QPushButton::clicked, this, [this] {
        if (CreateProject())
            ShowList();
    });
    connect(cmdDelete, &QPushButton::clicked, this, [this] { DeleteSelected(); });
    ShowList();
    treeProject->setFocus();
}

void frmProject::ShowList()
{
    treeProject->clear();
    projects = LoadPrjList();
    for (const ProjectEntry& project : projects) {
        auto* item = new QTreeWidgetItem(treeProject, {project.Name});
        item->setIcon(0, CommandIcon(QStringLiteral("project")));
    }
    UpdateButtons();
}

void frmProject::UpdateButtons()
{
    cmdNew->setEnabled(treeProject->topLevelItemCount() < Frame.Settings.ProjectLimit);
    cmdDelete->setEnabled(!treeProject->selectedItems().isEmpty());
}

const ProjectEntry& frmProject::EntryOf(QTreeWidgetItem* item) const
{
    return projects.at(size_t(treeProject->indexOfTopLevelItem(item)));
}

void frmProject::Choose(QTreeWidgetItem* item)
{
    Chosen = EntryOf(item).Name;
    accept();
}

void frmProject::DeleteSelected()
{
    QTreeWidgetItem* item = treeProject->selectedItems().value(0);
    if (!item)
        return;
    DeleteProject(EntryOf(item));
    ShowList();
}

} // namespace

void RunProjectWindow(QWidget* owner)
{
    QString chosen;
    {
        const ModalScope scope;
        frmProject window(owner);
        window.exec();
        chosen = window.Chosen;
    }
    if (!chosen.isEmpty()) // after the window has gone, so that the user sees the files come
        LoadProject(chosen);
    ActivateTab();
}
