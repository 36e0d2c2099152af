#include "patch/crc32.h"
#include "patch/patch_reader.h"
#include "patch/patch_writer.h"
#include "tests/patch/patch_bytes.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::text;

struct NumberCase {
    std::uint32_t value;
    Bytes bytes;
};

const NumberCase kNumbers[] = {
    {0, {0x80}},
    {1, {0x81}},
    {127, {0xFF}},
    {128, {0x00, 0x80}},
    {129, {0x01, 0x80}},
    {255, {0x7F, 0x80}},
    {256, {0x00, 0x81}},
    {16511, {0x7F, 0xFF}},
    {16512, {0x00, 0x00, 0x80}},
    {0xFFFFFFFF, {0x7F, 0x7E, 0x7E, 0x7E, 0x8E}},
};

TEST(PatchNumbers, AreReadAsTheyAreWritten)
{
    for (const NumberCase& number : kNumbers) {
        PatchWriter writer;
        writer.number(number.value);
        EXPECT_EQ(writer.patch(), number.bytes) << number.value;
        EXPECT_EQ(PatchWriter::numberLength(number.value), number.bytes.size()) << number.value;
        PatchReader reader(number.bytes);
        EXPECT_EQ(reader.number(), number.value);
        EXPECT_FALSE(reader.failed());
        EXPECT_TRUE(reader.rest().empty());
    }
}

TEST(PatchNumbers, TooLargeOrCutShortFails)
{
    const Bytes cases[] = {
        {},
        {0x00},
        {0x7F, 0x7F},
        {0x00, 0x7F, 0x7E, 0x7E, 0x8E},             // 2 to the 32nd
        {0x7F, 0x7F, 0x7F, 0x7F, 0xFF},             // 35 bits
        {0x7F, 0x7F, 0x7F, 0x7F, 0x7F, 0x80},       // a sixth group
        {0x7F, 0x7F, 0x7F, 0x7F, 0x7F, 0x7F, 0x7F}, // no end
    };
    for (const Bytes& bytes : cases) {
        PatchReader reader(bytes);
        EXPECT_EQ(reader.number(), 0u);
        EXPECT_TRUE(reader.failed());
    }
}

TEST(PatchReader, ReadPastTheEndFailsForGood)
{
    const Bytes bytes = {1, 2, 3};
    PatchReader reader(bytes);
    EXPECT_EQ(reader.bigEndian(2), 0x0102u);
    EXPECT_EQ(reader.littleEndian(), 0u);
    EXPECT_TRUE(reader.failed());
    EXPECT_EQ(reader.bigEndian(1), 3u);
    EXPECT_TRUE(reader.failed());
}

TEST(Crc32, OfTheCustomaryTestText)
{
    EXPECT_EQ(crc32Of(text("123456789")), 0xCBF43926u);
    EXPECT_EQ(crc32Of({}), 0u);
}

} // namespace
} // namespace velko
