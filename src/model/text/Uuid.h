#pragma once

#include "core/UuidType.h"

#include <QString>

namespace Utilities {

/// A new UUID (RFC 9562), all random or led by the time of its making so that later ones sort behind earlier ones, as
/// text: 36 characters, or 38 within braces.
QString generateUuid(bool braces, bool upperCase, UuidType type);

} // namespace Utilities
