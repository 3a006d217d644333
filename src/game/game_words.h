#pragma once

#include "game/finding_places.h"

#include <QAbstractTableModel>
#include <QSet>

/// What the game complained about in its last run, a row each: key, file, picture, what is wrong.
class GameWords : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { KeyColumn, FileColumn, PictureColumn, TextColumn, ColumnCount };
    using QAbstractTableModel::QAbstractTableModel;

    void BeginRun(); ///< what is shown now is of the run before
    /// Takes the place of what stood here before. `folder`: of the level set, which paths are shown from; may be empty.
    void Show(std::vector<PlacedFinding> now, const QString& folder);
    const PlacedFinding* At(int row) const; ///< null outside

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// `all` findings, `fresh` of them not in the run before.
    void Spoken(int all, int fresh);

private:
    std::vector<PlacedFinding> rows;
    QSet<QString> before;
    QString setFolder;
};

/// Shows what a run complained about in the list. `setFolder` ends with "/", or is empty; `leadBack` turns paths of a
/// copy into those of the set.
void ShowGameWords(std::vector<GameFinding> findings, const QString& setFolder,
                   const std::function<void(GameFinding&)>& leadBack = {});

/// Leads to the line of a row: its file in its tab or a new one, the caret in the line. What hinders is told in the
/// status bar.
void GoToGameWord(int row);

/// "1 thing", "3 things".
QString CountOf(size_t things);

/// The text of a file as the author has it: of its tab, else from disk; UTF-8, empty if it cannot be read.
QByteArray AuthorsText(const QString& path);
