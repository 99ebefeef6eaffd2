#pragma once

#include <QString>

namespace Utilities {

/// Takes the leading zeros off the first number of a text, and off every number with a decimal point in it. A zero that
/// stands alone, or alone before the point, stays.
QString removeLeadingZeros(QString const& text);

} // namespace Utilities
