#include "storage/EditedBytes.h"

#include "storage/CellCodec.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

struct Encoding {
    EncodingType type;
    std::vector<std::string> strange; ///< bytes that mean nothing, or are not what their text would be written as
    std::string (*letter)(char);
};

std::string single(char letter) {
    return {letter};
}
std::string wide(char letter) {
    return {letter, '\0'};
}

Encoding const encodings[] = {
    {EncodingType::Utf8, {"\xff", "\xc3", "\xed\xa0\x80", "\xc3\xa9", "\xf0\x9f\x98\x80", "\xc0\xaf"}, single},
    {EncodingType::ShiftJis, {"\xfd", "\x88\x9f", "\xa0"}, single},
    {EncodingType::Windows1252, {"\x81", "\xe9"}, single},
    {EncodingType::Utf16LE, {{"\x3d\xd8", 2}, {"\x3d\xd8\x00\xde", 4}}, wide},
};

std::string edited(CellCodec const& codec, std::string const& old, QString const& text) {
    auto const bytes = editedBytes(codec, old, text);
    return {bytes.begin(), bytes.end()};
}

} // namespace

TEST(EditedBytes, WhatIsNotEditedKeepsItsBytes) {
    for (Encoding const& encoding : encodings) {
        CellCodec const codec(encoding.type);
        std::mt19937 random(unsigned(encoding.type) + 1);
        for (int round = 0; round < 300; ++round) {
            // Each letter stands once, so it is plain what an edit leaves.
            std::vector<std::string> parts;
            for (char letter = 'a'; letter < 'i'; ++letter)
                parts.push_back(encoding.letter(letter) +
                                (random() % 2 ? encoding.strange[random() % encoding.strange.size()] : std::string()));
            std::size_t const from = random() % 8;
            std::size_t const to = from + random() % (8 - from);
            std::string const added = random() % 2 ? encoding.letter('x') : std::string();
            std::string front, middle, behind;
            for (std::size_t part = 0; part < parts.size(); ++part)
                (part < from ? front : part < to ? middle : behind) += parts[part];
            std::string const old = front + middle + behind;
            QString const text = codec.decode(front + added + behind);
            EXPECT_EQ(testing::PrintToString(edited(codec, old, text)), testing::PrintToString(front + added + behind))
                << int(encoding.type) << " from " << testing::PrintToString(old);
        }
    }
}

TEST(EditedBytes, ATextThatStandsForNoneOfTheBytesIsWrittenWhole) {
    CellCodec const codec(EncodingType::Utf8);
    EXPECT_EQ(edited(codec,
                     "a\xff"
                     "b",
                     QStringLiteral("new")),
              "new");
    EXPECT_EQ(edited(codec,
                     "a\xff"
                     "b",
                     {}),
              "");
    EXPECT_EQ(edited(codec, "", QStringLiteral("é")), "\xc3\xa9");
    EXPECT_EQ(edited(codec, "\xff\xfe", QStringLiteral("\ufffdx\ufffd")), "\xffx\xfe");
    EXPECT_EQ(edited(codec, std::string(100000, 'y') + '\xff', QString(100000, u'y') + u'\ufffd' + u'z'),
              std::string(100000, 'y') + "\xffz");
}
