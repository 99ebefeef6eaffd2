#pragma once

#include <QByteArray>

#include <sys/types.h>

/// The attribute in which the system keeps the access list of a file.
inline constexpr auto accessListAttribute = "system.posix_acl_access";

/// The permissions for a file that loses its access list: nobody gets more by them than by the list, whatever people
/// the list names and whatever groups they are in. `list` is the attribute's value, `mode` that of the file with the
/// list. A list that is not understood leaves the owner's bits only.
mode_t modeWithoutAccessList(QByteArray const& list, mode_t mode);
