#include "tests/storage/TableDataFixture.h"

#include <QSignalSpy>

namespace {

class TableDataCells : public TableDataFixture {
protected:
    std::string stored(int row, int col) const {
        auto const bytes = data.getValueRawCharVec(row, col);
        return {bytes.begin(), bytes.end()};
    }
};

TEST_F(TableDataCells, WritingOutsideGrowsTheTableOnlyForContent) {
    load("a,b\nc,d");
    QSignalSpy sizes(&data, &TableData::tableSizeChangedSignal);
    EXPECT_FALSE(data.setValueRaw(9, 0, QString()));
    EXPECT_FALSE(data.setValueRaw(0, 9, QString()));
    EXPECT_FALSE(data.setValueRaw(-1, 0, QStringLiteral("x")));
    EXPECT_FALSE(data.setValueRaw(0, 0, QStringLiteral("a")));
    EXPECT_EQ(sizes.count(), 0);
    EXPECT_TRUE(data.setValueRaw(0, 2, QStringLiteral("x")));
    EXPECT_EQ(sizes.takeLast(), (QVariantList{2, 3, 2, 3}));
    data.concealRawRow(1);
    data.toggleTranspose();
    // Two shown columns past the end, behind the concealed one.
    EXPECT_TRUE(data.setValueModel(4, 2, QStringLiteral("y")));
    EXPECT_EQ(sizes.takeLast(), (QVariantList{5, 4, 5, 3}));
    EXPECT_EQ(shown(), "a - -|b - -|x - -|- - -|- - y");
    EXPECT_EQ(stored(4, 3), "y");
    EXPECT_TRUE(data.isCellPopulated(4, 2));
    EXPECT_FALSE(data.isCellPopulated(3, 2));
    EXPECT_TRUE(data.getValueModel(3, 2).toString().isNull());
}

TEST_F(TableDataCells, RangesAreMappedInBothDirections) {
    load("0,0,0\n1,1,1\n2,2,2\n3,3,3\n4,4,4\n5,5,5");
    data.concealRawRows({2, 3});
    data.concealRawCol(0);
    Range const raw = data.getRawFromModelRange(Range(2, 0, RangeIndexType::Model));
    EXPECT_EQ(raw, Range(4, 1, RangeIndexType::Raw));
    EXPECT_EQ(raw.indexType, RangeIndexType::Raw);
    EXPECT_EQ(data.getModelFromRawRange(Range(3, 1, RangeIndexType::Raw), false).row, -1);
    Range const near = data.getModelFromRawRange(Range(3, 0, RangeIndexType::Raw), true);
    EXPECT_EQ(near, Range(1, 0, RangeIndexType::Model));
    EXPECT_EQ(near.indexType, RangeIndexType::Model);
}

TEST_F(TableDataCells, BlockJumpsWalkTheSpaceOfTheRange) {
    load("a,b,c\n,,\nd,,\n,,\n,,x");
    using enum Direction;
    auto const jump = [&](Range const& from, Direction direction) {
        return data.getNextBlockLocation(from, direction);
    };
    auto const cell = [](int row, int col, auto type) { return Range(row, col, type); };
    constexpr auto raw = RangeIndexType::Raw;
    constexpr auto model = RangeIndexType::Model;
    EXPECT_EQ(jump(cell(0, 0, raw), Down), cell(2, 0, raw));
    EXPECT_EQ(jump(cell(4, 0, raw), Down), cell(4, 0, raw));
    EXPECT_EQ(jump(cell(2, 0, raw), Left), cell(2, 0, raw));
    EXPECT_EQ(jump(cell(4, 0, raw), Right), cell(4, 2, raw));
    EXPECT_EQ(jump(cell(4, 1, raw), Up), cell(0, 1, raw));
    data.concealRawRow(2);
    EXPECT_EQ(jump(cell(0, 0, raw), Down), cell(2, 0, raw));
    EXPECT_EQ(jump(cell(0, 2, model), Down), cell(3, 2, model));
    EXPECT_EQ(jump(cell(3, 2, model), Up), cell(0, 2, model));
    EXPECT_EQ(jump(cell(2, 0, model), Up), cell(0, 0, model));
    data.toggleTranspose();
    EXPECT_EQ(jump(cell(2, 0, model), Right), cell(2, 3, model));
    EXPECT_EQ(jump(cell(0, 4, raw), Down), cell(2, 4, raw));
}

TEST_F(TableDataCells, ChangingTheEncodingRewritesCellsOrOnlyTheirReading) {
    load("caf\xC3\xA9,,x\n,\"\xE6\x97\xA5\nb\"");
    data.setEncoding(EncodingType::Utf16BE, true);
    EXPECT_EQ(stored(0, 0), std::string("\0c\0a\0f\0\xE9", 8));
    EXPECT_EQ(stored(0, 1), "");
    EXPECT_EQ(shown(), "café - x|- 日\nb -");
    data.setEncoding(EncodingType::Iso8859_1, true);
    EXPECT_EQ(stored(0, 0), "caf\xE9");
    EXPECT_EQ(stored(1, 1), "?\nb");
    data.setEncoding(EncodingType::Iso8859_5, false);
    EXPECT_EQ(stored(0, 0), "caf\xE9");
    EXPECT_EQ(data.getValueRaw(0, 0).toString(), QStringLiteral("cafщ"));
    EXPECT_TRUE(data.setValueRaw(0, 0, QStringLiteral("ж")));
    EXPECT_EQ(stored(0, 0), "\xD6");
    EXPECT_EQ(data.getDataContainer()->getEncoding(), EncodingType::Iso8859_5);
}

TEST_F(TableDataCells, BytesWithoutMeaningSurviveUntilTheCellIsEdited) {
    QByteArray const content = "a\xFF,\xC3\nb,c\n";
    load(content);
    EXPECT_EQ(data.getValueRaw(0, 0).toString(), QStringLiteral("a\uFFFD"));
    EXPECT_TRUE(data.saveCSV(path("copy.csv"), false, false));
    EXPECT_TRUE(read(path("copy.csv")).startsWith("a\xFF,\xC3\nb,c"));
    // The same text, other bytes.
    EXPECT_TRUE(data.setValueRaw(0, 0, data.getValueRaw(0, 0).toString()));
}

TEST_F(TableDataCells, WordDelimitersAreFoundInAndBehindTheTable) {
    for (char const* delimiter : {"`", "\t", "\"", "\\", "\n", " ", "/"})
        EXPECT_TRUE(data.isWordDelimiter(QLatin1Char(*delimiter))) << delimiter;
    for (char const* other : {"a", "_", "-", "\r", "0"})
        EXPECT_FALSE(data.isWordDelimiter(QLatin1Char(*other))) << other;
    data.setWordDelimiters(QStringLiteral("-。"));
    EXPECT_TRUE(data.isWordDelimiter(QLatin1Char('-')));
    EXPECT_TRUE(data.isWordDelimiter(QChar(u'。')));
    EXPECT_FALSE(data.isWordDelimiter(QLatin1Char(' ')));
    EXPECT_FALSE(data.isWordDelimiter(QChar(u'日')));
}

} // namespace
