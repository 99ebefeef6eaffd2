#include "storage/FileCalls.h"

#include <memory>
#include <unistd.h>
#include <utility>

bool writeBytes(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        auto const count = uninterrupted([&] { return write(file, bytes.data(), bytes.size()); });
        if (count == 0)
            errno = 0;
        if (count <= 0)
            return false;
        bytes.remove_prefix(count);
    }
    return true;
}

bool copyContents(int from, int to) {
    constexpr std::size_t step = 1 << 20;
    auto const buffer = std::make_unique_for_overwrite<char[]>(step);
    if (lseek(from, 0, SEEK_SET) < 0 || lseek(to, 0, SEEK_SET) < 0)
        return false;
    off_t copied = 0;
    for (;;) {
        auto const count = uninterrupted([&] { return read(from, buffer.get(), step); });
        if (count < 0)
            return false;
        if (count == 0)
            return uninterrupted([&] { return ftruncate(to, copied); }) == 0;
        if (!writeBytes(to, {buffer.get(), static_cast<std::size_t>(count)}))
            return false;
        copied += count;
    }
}

bool closeFile(int& descriptor) {
    // The descriptor is gone whatever close() returns, so an interrupted call is not made again.
    auto const open = std::exchange(descriptor, -1);
    return open < 0 || close(open) == 0 || errno == EINTR;
}
