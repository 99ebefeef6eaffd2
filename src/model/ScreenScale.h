#pragma once

namespace Utilities {

/// How much larger than 96 dots per inch the primary screen takes text to be; 1 without a screen.
double getDpiScalingFactor();

} // namespace Utilities
