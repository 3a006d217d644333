#pragma once

#include <QString>
#include <QStringList>
#include <optional>

struct MessageRecord;

/// The button pressed: its caption and its place from 1. The caption is never empty.
struct MessageAnswer
{
    QString Caption;
    int Index = 1;
};

struct FileQuestion
{
    QString Title, Filter, Folder, Preset;
    int Selected = 0;       ///< entry of the filter, -1: the last
    bool Completes = false; ///< a name to save under that has no ending gets that of the chosen entry
};

/// Everything that needs a person. windows/ asks with dialogs, batch and tests with a list of answers.
class Asker
{
public:
    virtual ~Asker() = default;
    virtual MessageAnswer Message(const MessageRecord& record) = 0;
    virtual std::optional<QString> Input(const QString& title, const QString& prompt, const QString& preset) = 0;
    virtual std::optional<QString> OpenFile(const FileQuestion& question) = 0;
    /// Several files; none if the question was cancelled.
    virtual QStringList OpenFiles(const FileQuestion& question)
    {
        const auto one = OpenFile(question);
        return one ? QStringList{*one} : QStringList();
    }
    virtual std::optional<QString> SaveFile(const FileQuestion& question) = 0;
    virtual std::optional<QString> Folder(const QString& title) = 0;
};
