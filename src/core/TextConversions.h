#pragma once

#include <QString>

namespace Utilities {

/// Reads "true" or "false", in any case and with blanks around it, into `value`; other text leaves it as it is. False
/// for such text.
bool convertStringToBool(QString const& text, bool& value);

} // namespace Utilities
