#pragma once

#include <QString>
#include <vector>

struct ProjectEntry
{
    QString Name;
    int Key = 0;
};

std::vector<ProjectEntry> LoadPrjList();
/// "Create New Project": asks for the name; true if one was made.
bool CreateProject();
void DeleteProject(const ProjectEntry& project);
void LoadProject(const QString& name);
