#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Copies `size` bytes unless one of five probe bytes is among them. Returns whether the copy is whole; `to` holds
/// rubbish otherwise. Touches no byte outside of the two stretches.
inline bool copyUnlessProbed(char* to, char const* from, std::size_t size, char const (&probes)[5]) {
#ifdef __SSE2__
    auto const found = [&probes](__m128i bytes) {
        auto const equal = [bytes](char probe) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(probe)); };
        return _mm_movemask_epi8(
                   _mm_or_si128(_mm_or_si128(_mm_or_si128(equal(probes[0]), equal(probes[1])), equal(probes[4])),
                                _mm_or_si128(equal(probes[2]), equal(probes[3])))) != 0;
    };
    auto const step = [&](std::size_t at) {
        auto const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(from + at));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + at), bytes);
        return !found(bytes);
    };
    // Short stretches are taken as two halves that overlap, so that no length needs a loop over single bytes.
    auto const halves = [&]<typename Word>(Word) {
        Word first, last;
        std::memcpy(&first, from, sizeof(Word));
        std::memcpy(&last, from + size - sizeof(Word), sizeof(Word));
        std::memcpy(to, &first, sizeof(Word));
        std::memcpy(to + size - sizeof(Word), &last, sizeof(Word));
        if constexpr (sizeof(Word) == 8)
            return !found(_mm_set_epi64x(static_cast<long long>(last), static_cast<long long>(first)));
        else if constexpr (sizeof(Word) == 4)
            return !found(_mm_set1_epi64x(static_cast<long long>(std::uint64_t{last} << 32 | first)));
        else
            return !found(_mm_set1_epi32(static_cast<int>(std::uint32_t{last} << 16 | first)));
    };
    if (size >= 16) {
        for (std::size_t at = 0; at + 16 <= size; at += 16)
            if (!step(at))
                return false;
        return step(size - 16);
    }
    if (size >= 8)
        return halves(std::uint64_t{});
    if (size >= 4)
        return halves(std::uint32_t{});
    if (size >= 2)
        return halves(std::uint16_t{});
#endif
    for (std::size_t i = 0; i < size; ++i) {
        auto const c = from[i];
        if (c == probes[0] || c == probes[1] || c == probes[2] || c == probes[3] || c == probes[4])
            return false;
        to[i] = c;
    }
    return true;
}
