#pragma once

#include <QRect>
#include <QSize>

class QWidget;

/// The size of a window that has no stored geometry, within the available rectangle of a screen of `dpi` dots an inch.
QSize defaultWindowSize(QRect const& available, double dpi);

/// The top left corner that centres `size` in `available`; the screen's own origin is not added.
QPoint centredWindowPosition(QRect const& available, QSize const& size);

/// Gives `window` the default size on the first screen and centres it.
void applyDefaultGeometry(QWidget& window);
