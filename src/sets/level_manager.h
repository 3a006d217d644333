#pragma once

#include "frame/messages/message_numbers.h"
#include "platform/processes/counted_turn.h"
#include "platform/result.h"
#include "sets/set_tree.h"

#include <QObject>
#include <functional>
#include <optional>

struct SwappedSet;

/// The Level Manager without its window: all games of the game's levels folder and of the player's own, which of them
/// the game starts with, and what can be done to one.
class LevelManager : public QObject
{
    Q_OBJECT

public:
    LevelManager();

    /// Works out the paths and reads the stored list. What hinders, for message 105; empty if nothing does.
    QString Open();
    bool HasList() const { return hasList; } ///< stored, or made by a scan
    void Close();                            ///< stores the list

    SetTree Tree;
    QString SettingsFolder, SetupFile, TapesFolder;
    QStringList Roots;   ///< folders of games, "/" at their ends: the game's, the player's own
    QString CurrentGame; ///< in lower case
    QString SavedGame;   ///< as it was before a temporary game
    QString LastUnzipped;

    void Scan(); ///< cmdScan; one that is stopped leaves the list as it was
    void SelectNode(int node);
    int Selected() const { return selected; } ///< -1 while the tree is empty
    const SetNode* SelectedNode() const;
    QString RootOf(const SetNode& node) const; ///< the one it lies in, "/" at the end; else the folder above it
    /// Why what is to change the folder above a node cannot; empty if it can.
    QString WhyClosed(const SetNode& node) const;

    void ReadCurrentGame();
    void WriteCurrentGame(const QString& path, bool keepImages);
    bool UnzipGame(bool keepArchive); ///< false: it is not unzipped, as was told

    // cmdFolder and cmdZip, by their captions
    void Set();
    void SetAndPlay();
    void Zip();
    void InstallTapes();
    void ViewFolder();
    void Unzip();
    void UnzipAndSet();
    void UnzipSetAndPlay();
    void UnzipPlayAndDelete();
    void ViewZip();

    /// Takes a zipped set in: a `.levzip` that lies below a root is shown; any other archive of one folder with a
    /// levelinfo.conf is copied to the first root that takes it, never over another.
    void TakeArchive(const QString& path);

    bool Works() const { return works > 0; } ///< a scan, an archive or the game is under way

signals:
    void NodeSelected(int node);
    void CurrentGameShown(const QString& name);
    void Busy(const QString& text); ///< empty: no longer
    void Progressed(int done, int of);
    void Told(const QString& text); ///< a line of what else there is to say
    void WorksChanged();

private:
    struct WorkingScope;
    void FindRoots();
    bool Run(const QString& text, const std::function<Result<>(const CountedTurn&)>& work, Failure& why);
    bool SwapForms(const QString& text, const std::function<Result<SwappedSet>(const CountedTurn&)>& swap,
                   message::Number failed, SwappedSet& swapped);
    void Play();
    void WriteName(const QString& name);
    std::optional<QString> NameInFile() const;
    void TakeForm(int node, const QString& key);

    bool hasList = false;
    int selected = -1, works = 0;
};

/// What the game calls a set in its settings: the `identifier` of levelinfo.conf, else the folder's name.
QString NameInGame(const SetNode& node);
