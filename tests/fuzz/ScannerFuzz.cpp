#include "tests/storage/OracleComparison.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const difference = compareFuzzCase(GRIDWRIGHT_FUZZ_KIND, {reinterpret_cast<char const*>(data), size});
    if (!difference.empty()) {
        std::fprintf(stderr, "%s\n", difference.c_str());
        std::abort();
    }
    return 0;
}
