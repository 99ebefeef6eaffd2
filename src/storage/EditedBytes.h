#pragma once

#include <QString>

#include <string_view>
#include <vector>

class CellCodec;

/// The bytes of a cell whose text has been edited to `text`. Bytes that mean nothing in the encoding read as the
/// replacement character, and would be written as such; those in front of and behind what was edited stay as they are.
std::vector<char> editedBytes(CellCodec const& codec, std::string_view old, QString const& text);
