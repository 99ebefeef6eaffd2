#include "tests/storage/OracleComparison.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

struct Corpus {
    char const* folder;
    OracleKind kind;
};

TEST(ScannerCorpus, WhatTheFuzzersKeptStillReadsAsByTheOracle) {
    Corpus const corpora[] = {{"one_byte", OracleKind::OneByte},
                              {"no_delimiter", OracleKind::NoDelimiter},
                              {"multi_byte", OracleKind::MultiByte},
                              {"no_delimiter_multi_byte", OracleKind::NoDelimiterMultiByte},
                              {"byte_sequence", OracleKind::ByteSequence}};
    std::filesystem::path const root = GRIDWRIGHT_SOURCE_DIR "/tests/fuzz/corpus";
    for (Corpus const& corpus : corpora) {
        std::size_t files = 0;
        for (auto const& entry : std::filesystem::directory_iterator(root / corpus.folder)) {
            std::ifstream file(entry.path(), std::ios::binary);
            std::string const input((std::istreambuf_iterator<char>(file)), {});
            EXPECT_EQ(compareFuzzCase(corpus.kind, input), "") << entry.path();
            ++files;
        }
        EXPECT_GT(files, 0u) << corpus.folder;
    }
}

} // namespace
