#pragma once

#include <QByteArray>
#include <QString>

/// What a system call of a save was about.
enum class SaveObject { File, Folder };

/// The folder of a path, as a path.
QByteArray folderOfPath(QByteArray const& path);
/// A path as the user is told it: absolute.
QString pathForUser(QByteArray const& path);
/// The sentence for an errno of a save of the file at `path`. Names what it was about; never empty.
QString saveErrorSentence(int error, SaveObject about, QByteArray const& path);
