#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

/// How far a new file has got the attributes of the file whose place it is to take.
struct InheritedAttributes {
    bool opensMore = false; ///< somebody may do with the new file what the old one did not let him
    QStringList notKept;    ///< sentences for the user
};

/// Gives the open file the owner, group, mode, access list and attributes of the file at `original`, or less where the
/// system does not let it have all of them. None with errno set if one of the two files cannot be looked at.
std::optional<InheritedAttributes> inheritFileAttributes(int file, QByteArray const& original);
