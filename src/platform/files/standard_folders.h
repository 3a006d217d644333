#pragma once

#include <QString>

/// This program's own folders on the desktop, each ending with "/". They are made when first asked for, readable by
/// the owner alone; one that cannot be made is named all the same, and writing into it fails with the reason.
namespace folders {

QString Config(); ///< XDG_CONFIG_HOME, else ~/.config
QString Data();   ///< XDG_DATA_HOME, else ~/.local/share
QString State();  ///< XDG_STATE_HOME, else ~/.local/state: recovery copies, session, histories
QString Cache();  ///< XDG_CACHE_HOME, else ~/.cache: what can be made again

/// Makes a folder and its missing parents with mode 0700. False if it is not there afterwards.
bool MakePrivate(const QString& folder);

} // namespace folders
