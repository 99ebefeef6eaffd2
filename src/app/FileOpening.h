#pragma once

#include <QString>

/// Why a file cannot be opened, as a sentence for the user; empty if nothing speaks against it. Links are followed.
/// Only regular files are tables: a FIFO or a device could block the program or never end.
QString reasonAgainstOpening(QString const& path);

/// Whether the user may change the file: it can be opened for appending. Changes nothing.
bool isWritableFile(QString const& path);
