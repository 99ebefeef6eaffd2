#pragma once

#include <QJsonObject>

/// What the windows of this process show, in words of JSON. Rectangles are `[x, y, width, height]` in pixels of the
/// screen; rows and columns are Model.
namespace WindowAnswers {

/// The answer to a question, by the word in its "ask":
/// - "state": what the active window and its table are doing
/// - "cell" with "row" and "col": its rectangle and its text
/// - "label" with "axis" ("rows" or "columns") and "line": its rectangle, and the "edge" by which it is resized
/// - "scrollbar" with "axis": the rectangles of its "handle" and of all of it
/// - "grid": the part of the window that shows cells
/// - "button" with "text", "entry" (of the open menu) with "text", "widget" with an accessible, object or class "name":
///   its rectangle, its text, and whether it is enabled
/// Everything but "state" has an "error" alone if there is no such thing in sight.
QJsonObject answer(QJsonObject const& question);

} // namespace WindowAnswers
