#pragma once

#include "view/ScrollAxis.h"

#include <optional>

// Where the scroll bar of an axis goes. "Forward" is down or right. Results lie between 0 and the bar's maximum unless
// stated otherwise; no value means that the view stays.

namespace ScrollGeometry {

/// After the main cell has moved from one section to another: just far enough to show it, and with its start in sight
/// if it is larger than the viewport. A move out of the frozen band brings the section to the middle.
int sliderAfterMove(ScrollAxis const& axis, int oldSection, int newSection);

/// A scroll bar that may have to be longer than it is.
struct Target {
    int slider;
    int maximum;
};

/// To a section that is wanted in sight. `ifNeeded` leaves a section in sight where it is, `minimal` then goes no
/// further than needed instead of to the middle. The target may lie past the bar's maximum, which is to be set first.
std::optional<Target> scrollToSection(ScrollAxis const& axis, int section, bool ifNeeded, bool minimal);

/// By whole sections, at least one, as many as come closest to `distance` without passing it.
std::optional<int> walk(ScrollAxis const& axis, bool forward, int distance);
/// What a page is for walk().
int pageDistance(ScrollAxis const& axis);

/// To the start of the section that the viewport (behind the frozen band) begins in. The bar's end is left alone, so
/// that the last sections stay in reach.
std::optional<int> snap(ScrollAxis const& axis);

/// The section that a move by one screen leads to. -1 in an empty table.
int sectionOneScreenOn(ScrollAxis const& axis, bool forward);

/// The bar's maximum by which the last section can be scrolled into sight and no further.
int maximumFor(ScrollAxis const& axis);

} // namespace ScrollGeometry
