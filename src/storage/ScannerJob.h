#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

/// How much a scanner takes at once.
struct ScannerLimits {
    std::size_t blockBytes = SIZE_MAX; ///< bytes of a block of cells; more than a block holds means that much
    std::size_t readBytes = std::size_t(1) << 18; ///< bytes of a read: what stays in the cache until it is scanned
    std::uint64_t wideRowBytes = UINT32_MAX;      ///< rows longer than this get ends of 64 bits
    std::size_t rows = SIZE_MAX;                  ///< a scan that has found more rows ends soon
    std::size_t columns = SIZE_MAX;               ///< and so does one that has found a row of more cells
};

/// A file to scan and those who want to know about it.
struct ScannerJob {
    /// Reads at most `bytes` bytes to `to` and returns how many came; 0 ends the file.
    std::function<std::size_t(char* to, std::size_t bytes)> read;
    /// Bytes that will be read at most.
    std::uint64_t bytes = 0;
    /// The length of the byte order mark, asked once with the first bytes of the file.
    std::function<std::size_t(std::string_view)> markLength;
    /// Stops the scan when set; may be null.
    std::atomic<bool> const* quit = nullptr;
    /// Called with the number of whole progress steps done; null for a file that is too small for progress.
    std::function<void(std::uint64_t)> progress;
    ScannerLimits limits;

    static constexpr std::uint64_t progressStep = 0x800000;
    /// The byte-sequence scanner looks at `quit` only when it has read this many bytes more.
    static constexpr std::uint64_t quitStep = 0x10000000;

    bool stopped() const { return quit && quit->load(std::memory_order_relaxed); }
};
