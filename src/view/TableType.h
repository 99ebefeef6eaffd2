#pragma once

/// Which of the four views of one table a view is: the table itself, or one of the bands that keep its header rows and
/// columns in sight.
enum class TableType { Main = 0, HorizontalFrozen = 1, VerticalFrozen = 2, CornerFrozen = 3, Unset = 4 };
