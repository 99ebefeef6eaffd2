#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Searching and replacing in cells as bytes. Only findUnits aligns to code units.

/// The index of the first `needle` in `haystack` at or after `start` that stands at a whole number of units; npos if
/// there is none. No search tears a character of UTF-16 or UTF-32 that way.
std::size_t findUnits(std::string_view haystack, std::string_view needle, std::size_t unitBytes, std::size_t start = 0);

/// The byte index of the first `needle` in `haystack` at or after `start`; -1 if there is none, for an empty needle
/// and for a start behind the last possible place.
int findChars(std::string_view haystack, std::string_view needle, int start = 0);
int findChars(std::vector<char> const& haystack, std::vector<char> const& needle, int start = 0);
int findChars(std::vector<char> const& haystack, std::string const& needle, int start = 0);

/// Whether two byte sequences are the same.
bool areCharVecsEqual(std::vector<char> const& a, std::vector<char> const& b);

std::vector<char> stdStringToCharVec(std::string const& text);
std::string charVecToStdString(std::vector<char> const& bytes);

/// Replaces `length` bytes at `position` by `replacement`.
void replaceChars(std::vector<char>& bytes, int position, int length, std::vector<char> const& replacement);
void replaceChars(std::vector<char>& bytes, int position, int length, std::string const& replacement);

/// Replaces every non-overlapping occurrence of `from`, found from left to right, by `to`. An empty `from` changes
/// nothing.
void stringReplace(std::vector<char>& bytes, std::vector<char> const& from, std::vector<char> const& to);
void stringReplace(std::vector<char>& bytes, char from, std::vector<char> const& to);
void stringReplace(std::vector<char>& bytes, std::vector<char> const& from, char to);
void stringReplace(std::vector<char>& bytes, char from, char to);
void stringReplace(std::vector<char>& bytes, char from, std::string const& to);
void stringReplace(std::vector<char>& bytes, std::string const& from, char to);
void stringReplace(std::vector<char>& bytes, std::string const& from, std::string const& to);
