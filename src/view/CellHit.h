#pragma once

class ScrollAxis;

/// The row or column for a point of the viewport, which may lie outside it: then it is the line just out of sight on
/// that side, so that a drag past the edge goes on by one line at a time. -1 inside the viewport where there is no
/// line, and in an empty table.
int lineAtPos(ScrollAxis const& axis, int pixel);
