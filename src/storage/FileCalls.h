#pragma once

#include <cerrno>
#include <string_view>

/// Calls the system again while signals interrupt it. A call that is interrupted without end fails with EINTR.
template <typename Call>
auto uninterrupted(Call const& call) {
    constexpr int attempts = 1000;
    auto result = call();
    for (int attempt = 1; attempt < attempts && result < 0 && errno == EINTR; ++attempt)
        result = call();
    return result;
}

/// Writes all bytes at the position of `file`. False with errno set, which is 0 if a device takes no more.
bool writeBytes(int file, std::string_view bytes);
/// Writes the contents of `from` over those of `to`, from the start of both on, and ends `to` where they end. False
/// with errno set.
bool copyContents(int from, int to);
/// Closes an open descriptor, which is -1 then. False with errno set if the system only now tells of a failed write.
bool closeFile(int& descriptor);
