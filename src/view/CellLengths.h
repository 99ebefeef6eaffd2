#pragma once

/// The lengths of a cell's text, in characters, by which editing treats it in another way.
namespace CellLengths {

constexpr int longestInPlace = 32767;      ///< a longer cell is only edited in the editor pane
constexpr int longestLoadedAtOnce = 65536; ///< the editor pane loads a longer text in chunks
constexpr int loadChunk = 16384;

} // namespace CellLengths
