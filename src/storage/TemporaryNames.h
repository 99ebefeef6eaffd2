#pragma once

#include <QByteArray>

/// A new hidden name for a file that is being written. It tells the process that writes it, by its id and the time of
/// its start, and where that id has a meaning.
QByteArray newTemporaryName();
/// Whether a file of this name was left by a process of this machine that is no longer there.
bool isAbandonedName(QByteArray const& name);
/// Removes the user's own abandoned files from an open folder, as far as it can be looked through in no time.
void removeAbandonedFiles(int folder);
