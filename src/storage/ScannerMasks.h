#pragma once

#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// A code unit of 1, 2 or 4 bytes at any address.
template <typename Unit>
inline Unit unitAt(char const* address) {
    Unit unit;
    std::memcpy(&unit, address, sizeof(Unit));
    return unit;
}

/// Finds code units equal to some key among 64 at a time: bit i of a mask speaks of the i-th unit. Reads all 64 units,
/// so the memory behind the last valid one must be readable.
template <typename Unit>
class ScannerWindow {
public:
    static constexpr int units = 64;

#if defined(__SSE2__)
    explicit ScannerWindow(char const* address) {
        for (int i = 0; i < registers; ++i)
            data[i] = _mm_loadu_si128(reinterpret_cast<__m128i const*>(address) + i);
    }

    /// The units equal to any of the keys.
    template <typename... Keys>
    std::uint64_t find(Keys... keys) const {
        std::uint64_t mask = 0;
        for (int i = 0; i < 4; ++i)
            mask |= std::uint64_t(static_cast<unsigned>(_mm_movemask_epi8(quarter(i, keys...)))) << (16 * i);
        return mask;
    }

private:
    static constexpr int registers = 4 * static_cast<int>(sizeof(Unit));

    static __m128i equal(__m128i a, Unit key) {
        if constexpr (sizeof(Unit) == 1)
            return _mm_cmpeq_epi8(a, _mm_set1_epi8(static_cast<char>(key)));
        else if constexpr (sizeof(Unit) == 2)
            return _mm_cmpeq_epi16(a, _mm_set1_epi16(static_cast<short>(key)));
        else
            return _mm_cmpeq_epi32(a, _mm_set1_epi32(static_cast<int>(key)));
    }
    template <typename... Keys>
    __m128i any(int i, Keys... keys) const {
        __m128i hits = _mm_setzero_si128();
        ((hits = _mm_or_si128(hits, equal(data[i], keys))), ...);
        return hits;
    }
    /// One byte for each of 16 units.
    template <typename... Keys>
    __m128i quarter(int i, Keys... keys) const {
        if constexpr (sizeof(Unit) == 1)
            return any(i, keys...);
        else if constexpr (sizeof(Unit) == 2)
            return _mm_packs_epi16(any(2 * i, keys...), any(2 * i + 1, keys...));
        else
            return _mm_packs_epi16(_mm_packs_epi32(any(4 * i, keys...), any(4 * i + 1, keys...)),
                                   _mm_packs_epi32(any(4 * i + 2, keys...), any(4 * i + 3, keys...)));
    }

    __m128i data[registers];
#else
    explicit ScannerWindow(char const* address) : start(address) {}

    template <typename... Keys>
    std::uint64_t find(Keys... keys) const {
        std::uint64_t mask = 0;
        for (int i = 0; i < units; ++i) {
            Unit const unit = unitAt<Unit>(start + i * static_cast<int>(sizeof(Unit)));
            mask |= std::uint64_t(((unit == keys) || ...)) << i;
        }
        return mask;
    }

private:
    char const* start;
#endif
};
