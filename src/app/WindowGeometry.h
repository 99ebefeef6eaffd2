#pragma once

#include <QRect>
#include <QSize>

struct CommandLine;
class QWidget;

/// The size of a window that has no stored geometry, within the available rectangle of a screen of `dpi` dots an inch.
QSize defaultWindowSize(QRect const& available, double dpi);

/// The top left corner that centres `size` in `available`; the screen's own origin is not added.
QPoint centredWindowPosition(QRect const& available, QSize const& size);

/// Gives `window` the default size on the first screen and centres it.
void applyDefaultGeometry(QWidget& window);

/// Where a window at `current` goes as a command line wants it. `screens` are all screens together: a size is cut to
/// theirs, and a place that is on none of them becomes the nearest one at which they show the whole window.
QRect requestedGeometry(QRect const& current, CommandLine const& line, QRect const& screens);

/// Resizes and moves a window as a command line wants it.
void applyRequestedGeometry(QWidget& window, CommandLine const& line);
