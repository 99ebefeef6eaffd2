#pragma once

#include <QByteArray>

/// Gives the open file the mode, access list, user attributes and, where the system allows it, the owner and group of
/// the file at `original`. Never opens the new file to people who could not read the original. Returns false with
/// errno set if the mode could not be given; all else is done as far as it goes.
bool inheritFileAttributes(int file, QByteArray const& original);
