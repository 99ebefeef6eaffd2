#include "app/SingleApplicationFrames.h"

#include "app/InstanceBlock.h"

#include <QBuffer>
#include <gtest/gtest.h>

#include <cstring>

using namespace SingleApplicationFrames;

TEST(InstanceBlock, ChecksumGuardsEveryByteBeforeIt) {
    InstanceBlock block;
    std::memset(static_cast<void*>(&block), 0xAB, sizeof(block)); // padding that a crash left dirty
    EXPECT_FALSE(block.isConsistent());
    block.initialise();
    EXPECT_TRUE(block.isConsistent());
    EXPECT_EQ(block.primaryPid, -1);

    auto* bytes = reinterpret_cast<char*>(&block);
    EXPECT_EQ(QByteArray(bytes + 1, 3), QByteArray(3, '\0'));
    for (int i = 0; i < 146; ++i) {
        bytes[i] ^= 0x10;
        EXPECT_FALSE(block.isConsistent()) << "byte " << i;
        bytes[i] ^= 0x10;
    }
}

TEST(InstanceBlock, RecordsStayConsistentAndLongNamesAreCut) {
    InstanceBlock block;
    block.initialise();
    EXPECT_EQ(block.addSecondary(), 1U);
    block.setPrimary(4711, QByteArray(300, 'x'));
    EXPECT_EQ(QByteArray(block.primaryUser), QByteArray(127, 'x'));
    block.setPrimary(4712, "ann");
    EXPECT_EQ(QByteArray(block.primaryUser, 128), "ann" + QByteArray(125, '\0'));
    EXPECT_EQ(block.addSecondary(), 2U);
    EXPECT_TRUE(block.isConsistent());
    block.clearPrimary();
    EXPECT_TRUE(block.isConsistent());
    EXPECT_EQ(block.primary, 0);
    EXPECT_EQ(block.primaryPid, -1);
}

TEST(SingleApplicationFrames, BytesOnTheWire) {
    EXPECT_EQ(encodeHeader(0x0102).toHex(), "0000000000000102");
    QByteArray const body = encodeInitMessage({"name", ConnectionType::MessageConnection, 7});
    EXPECT_EQ(body.chopped(2).toHex(), "00000004" + QByteArray("name").toHex() + "03" + "00000007");
    EXPECT_EQ(body.right(2).toHex().toUInt(nullptr, 16), qChecksum(body.chopped(2)));

    QByteArray bytes = encodeHeader(9).chopped(1);
    QBuffer device(&bytes);
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    EXPECT_EQ(readHeader(device), std::nullopt);
    EXPECT_EQ(device.pos(), 0);
    bytes.append('\x09');
    EXPECT_EQ(readHeader(device), 9U);
}

TEST(SingleApplicationFrames, InitMessageIsTakenWholeAndUndamagedOnly) {
    QByteArray const body = encodeInitMessage({"name", ConnectionType::FreshStart, 7});
    auto const message = decodeInitMessage(body);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->serverName, "name");
    EXPECT_EQ(message->type, ConnectionType::FreshStart);
    EXPECT_EQ(message->instanceId, 7U);

    EXPECT_FALSE(decodeInitMessage(body + '\0'));
    for (qsizetype i = 0; i < body.size(); ++i) {
        EXPECT_FALSE(decodeInitMessage(body.left(i))) << "cut to " << i;
        QByteArray damaged = body;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x40);
        EXPECT_FALSE(decodeInitMessage(damaged)) << "byte " << i;
    }
}
