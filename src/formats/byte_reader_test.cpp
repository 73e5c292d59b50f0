#include "formats/byte_reader.h"

#include <gtest/gtest.h>

#include <memory>

#include "formats/test_pictures.h"
#include "platform/file.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

class ByteReaderTest : public testing::Test {
 protected:
  std::FILE* open(const Bytes& bytes) {
    writeBytes(path_, bytes);
    file_.reset(openFile(path_, "rb"));
    return file_.get();
  }

  ScratchFolder scratch_;
  std::string path_ = scratch_.path("bytes");
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_{nullptr, std::fclose};
};

TEST_F(ByteReaderTest, NumbersHaveTheirHighByteFirst) {
  ByteReader in(open({1, 2, 3, 4, 0xFF, 0xFE, 9, 0xFF, 0xFF, 0xFF, 0xFD}));
  uint32_t four = 0;
  uint16_t two = 0;
  uint8_t one = 0;
  int32_t negative = 0;
  ASSERT_TRUE(in.read(four) && in.read(two) && in.read(one) && in.read(negative));
  EXPECT_EQ(four, 0x01020304u);
  EXPECT_EQ(two, 0xFFFEu);
  EXPECT_EQ(one, 9u);
  EXPECT_EQ(negative, -3);
  EXPECT_FALSE(in.read(one));
}

TEST_F(ByteReaderTest, AShortReadFailsAndMovesToTheEnd) {
  ByteReader in(open({1, 2, 3}));
  uint32_t number = 7;
  EXPECT_FALSE(in.read(number));
  EXPECT_EQ(number, 7u);
  EXPECT_EQ(in.position(), 3);
}

TEST_F(ByteReaderTest, PositionsStayInTheFile) {
  ByteReader in(open({1, 2, 3}));
  in.seek(int64_t{1} << 40);
  EXPECT_EQ(in.position(), 3);
  in.seek(-5);
  EXPECT_EQ(in.position(), 0);
}

TEST_F(ByteReaderTest, EveryPositionHasItsByteInAnyOrder) {
  const Bytes bytes = someBytes(100000);
  ByteReader in(open(bytes));
  for (size_t turn = 0, at = 0; turn < 20000; ++turn, at = (at * 5 + 7919 * turn) % 99000) {
    in.seek(static_cast<int64_t>(at));
    uint8_t one = 0;
    ASSERT_TRUE(in.read(one));
    ASSERT_EQ(one, bytes[at]);
    in.seek(static_cast<int64_t>(at));
    Bytes some(1 + turn % 900);
    ASSERT_TRUE(in.read(some));
    ASSERT_TRUE(std::equal(some.begin(), some.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at))) << at;
  }
}

TEST_F(ByteReaderTest, AFileThatBecameShorterEndsThere) {
  std::FILE* const file = open(someBytes(50000));
  ByteReader in(file);
  std::filesystem::resize_file(path_, 30000);
  Bytes all(50000);
  EXPECT_FALSE(in.read(all));
  EXPECT_EQ(in.position(), 30000);
  EXPECT_EQ(in.left(), 0);
}

TEST_F(ByteReaderTest, WaysBackAreCounted) {
  ByteReader in(open(someBytes(100)));
  in.seek(60);
  in.seek(20);
  in.skip(30);
  in.seek(45);
  EXPECT_EQ(in.rewound(), 45);
}

TEST_F(ByteReaderTest, NothingIsAnEmptyFile) {
  ByteReader in(nullptr);
  uint8_t byte = 0;
  EXPECT_EQ(in.size(), 0);
  EXPECT_FALSE(in.read(byte));
}

}  // namespace
}  // namespace quiltor
