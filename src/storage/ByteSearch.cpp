#include "storage/ByteSearch.h"

#include <algorithm>

namespace {

std::string_view view(std::vector<char> const& bytes) {
    return {bytes.data(), bytes.size()};
}

void replaceAll(std::vector<char>& bytes, std::string_view from, std::string_view to) {
    auto const text = view(bytes);
    if (from.empty() || text.find(from) == std::string_view::npos)
        return;
    std::vector<char> result;
    result.reserve(bytes.size() + to.size());
    std::size_t position = 0;
    for (auto hit = text.find(from); hit != std::string_view::npos; hit = text.find(from, position)) {
        result.insert(result.end(), bytes.begin() + position, bytes.begin() + hit);
        result.insert(result.end(), to.begin(), to.end());
        position = hit + from.size();
    }
    result.insert(result.end(), bytes.begin() + position, bytes.end());
    bytes = std::move(result);
}

void replaceStretch(std::vector<char>& bytes, int position, int length, std::string_view replacement) {
    auto const at = bytes.begin() + position;
    auto const common = std::min<std::ptrdiff_t>(length, std::ssize(replacement));
    std::copy_n(replacement.begin(), common, at);
    if (common < length)
        bytes.erase(at + common, at + length);
    else
        bytes.insert(at + common, replacement.begin() + common, replacement.end());
}

} // namespace

std::size_t findUnits(std::string_view haystack, std::string_view needle, std::size_t unitBytes, std::size_t start) {
    auto hit = haystack.find(needle, start);
    while (hit != std::string_view::npos && hit % unitBytes != 0)
        hit = haystack.find(needle, hit + 1);
    return hit;
}

int findChars(std::string_view haystack, std::string_view needle, int start) {
    if (needle.empty() || start < 0)
        return -1;
    auto const found = haystack.find(needle, start);
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

int findChars(std::vector<char> const& haystack, std::vector<char> const& needle, int start) {
    return findChars(view(haystack), view(needle), start);
}

int findChars(std::vector<char> const& haystack, std::string const& needle, int start) {
    return findChars(view(haystack), std::string_view(needle), start);
}

bool areCharVecsEqual(std::vector<char> const& a, std::vector<char> const& b) {
    return a == b;
}

std::vector<char> stdStringToCharVec(std::string const& text) {
    return {text.begin(), text.end()};
}

std::string charVecToStdString(std::vector<char> const& bytes) {
    return {bytes.begin(), bytes.end()};
}

void replaceChars(std::vector<char>& bytes, int position, int length, std::vector<char> const& replacement) {
    replaceStretch(bytes, position, length, view(replacement));
}

void replaceChars(std::vector<char>& bytes, int position, int length, std::string const& replacement) {
    replaceStretch(bytes, position, length, replacement);
}

void stringReplace(std::vector<char>& bytes, std::vector<char> const& from, std::vector<char> const& to) {
    replaceAll(bytes, view(from), view(to));
}

void stringReplace(std::vector<char>& bytes, char from, std::vector<char> const& to) {
    replaceAll(bytes, {&from, 1}, view(to));
}

void stringReplace(std::vector<char>& bytes, std::vector<char> const& from, char to) {
    replaceAll(bytes, view(from), {&to, 1});
}

void stringReplace(std::vector<char>& bytes, char from, char to) {
    std::replace(bytes.begin(), bytes.end(), from, to);
}

void stringReplace(std::vector<char>& bytes, char from, std::string const& to) {
    replaceAll(bytes, {&from, 1}, to);
}

void stringReplace(std::vector<char>& bytes, std::string const& from, char to) {
    replaceAll(bytes, from, {&to, 1});
}

void stringReplace(std::vector<char>& bytes, std::string const& from, std::string const& to) {
    replaceAll(bytes, from, to);
}
