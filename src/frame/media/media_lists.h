#pragma once

#include "frame/media/media_request.h"

#include <QAbstractListModel>
#include <QStringList>
#include <array>
#include <filesystem>
#include <optional>

/// The files of one folder that fit some patterns ("*.pcx;*.png", case ignored), in the order people count them.
/// The folder is read when an entry is first asked for and again only by Refresh. Entries that stay keep their index
/// objects, so that a view keeps its selection and its place.
class MediaListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// No folder, or none that exists: an empty list. The same folder and patterns again change nothing.
    void Show(const QString& folder, const QString& patterns);
    bool Refresh(); ///< true: other entries stand there now. Looks at the folder's time first

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    QString Name(int row) const; ///< "" outside
    QString Folder() const { return folder; }

    /// Row of the first entry that begins with `value`, case ignored; -1 for none and for an empty value.
    int Find(const QString& value) const;

private:
    const QStringList& Names() const;
    void Read() const;
    bool IsAsRead() const;
    void Become(QStringList now);

    QString folder, patterns;
    mutable QStringList names;
    mutable bool isRead = false, mayBeTorn = false;
    mutable std::filesystem::file_time_type folderTime;
};

/// The sources that are lists, in the order they are searched.
inline constexpr std::array<MediaSource, 3> ListSources = {MediaSource::PCXBrowser, MediaSource::Extra,
                                                           MediaSource::Rnd};
constexpr size_t MacrosIndex = 4; ///< in SavedListIndex

/// The three file lists beside the text.
struct MediaLists
{
    MediaListModel Base, Extra, Rnd;
    MediaListModel Macros;               ///< macroFilelist: what the tree of macros shows
    std::array<int, 5> SavedListIndex{}; ///< by MediaSource, then MacrosIndex: the selected rows at the loss of focus

    MediaListModel& List(MediaSource source); ///< PCXBrowser, Extra or Rnd
};
MediaLists& Lists();

/// Brings the three models in line with Frame.Media and tells the host.
void ShowMedia();
void RefreshMedia(); ///< the folders may hold other files by now; tells the host if they do
void SetExtraFolder(const QString& folder);

/// The first entry of Base, Extra and, if there is one, RnD that begins with `value`, case ignored. A sheet that no
/// list has may be there with the other ending, as the game takes it.
std::optional<MediaHit> FindImageInLists(const QString& value);

/// Path of a file in the list of its source; from any other source `file` is one already.
QString PathOf(MediaSource source, const QString& file);

/// Patterns of a mode row with the sheet endings of the game's table in place of "*.pcx".
QString MediaPattern(const char* pattern);

/// Does a name fit the list of any mode?
bool IsMediaName(const QString& name);

/// Writes a file name over the selection of the current pane or at its caret, which ends after it. "" does nothing.
void InsertFileName(const QString& name);

/// Order of file names: case ignored, numbers by their value.
bool NaturallyBefore(const QString& a, const QString& b);
