#pragma once

class QColor;
class QMenuBar;

namespace MenuArrow {

/// Gives the arrow to the menus that have no room in the bar the colour of its text; the style draws it in one grey for
/// all themes.
void tint(QMenuBar& bar, QColor const& color);

} // namespace MenuArrow
