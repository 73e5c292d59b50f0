// Flat sequence data comes out of project files: it may hold anything. Meant to be run with the address sanitizer too.
#include <gtest/gtest.h>

#include <random>

#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"

namespace quiltor {
namespace {

using standalone::Instance;
using testing_support::flatSequence;
using testing_support::InstanceTest;

using Bytes = std::vector<unsigned char>;

class DamagedFlatData : public InstanceTest {
 protected:
  // Data that cannot be read leaves the instance with the bytes that it had.
  void expectRefused(const Bytes& flat) {
    ASSERT_EQ(instance.resetupFrom(flat).code, 512);
    ASSERT_EQ(instance.sequenceBytes(), flat);
    ASSERT_EQ(instance.shutDown().code, 0);
    ASSERT_EQ(host.liveHandleCount(), 1u) << "only the global data is left";
    ASSERT_EQ(host.findings().text(), "");
  }
};

Bytes someFlatData() { return flatSequence({{0, "/none.png*****A*****B"}, {5, "five"}, {31, "last"}}); }

TEST_F(DamagedFlatData, IsRefusedAtEveryShorterLength) {
  const Bytes whole = someFlatData();
  for (size_t length = 1; length < whole.size(); ++length) {
    SCOPED_TRACE(std::to_string(length) + " bytes");
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    Instance victim(effect);
    ASSERT_EQ(victim.resetupFrom(cut).code, 512);
    ASSERT_EQ(victim.sequenceBytes(), cut);
    ASSERT_EQ(victim.shutDown().code, 0);
  }
  EXPECT_EQ(instance.resetupFrom(whole).code, 0);
}

TEST_F(DamagedFlatData, IsRefusedWhenATextRunsPastTheEnd) {
  Bytes flat = someFlatData();
  flat[1312] = static_cast<unsigned char>(flat[1312] + 200);
  expectRefused(flat);
}

TEST_F(DamagedFlatData, IsRefusedWhenALengthSaysFourGigabytes) {
  Bytes flat = someFlatData();
  std::fill_n(flat.begin() + 1312, 4, static_cast<unsigned char>(0xFF));
  expectRefused(flat);
}

TEST_F(DamagedFlatData, IsRefusedWhenItsFlagSaysLive) {
  Bytes flat = someFlatData();
  flat[1024] = 0;
  expectRefused(flat);
}

TEST_F(DamagedFlatData, IsRefusedWhenItsFlagIsUnknown) {
  Bytes flat = someFlatData();
  flat[1024] = 7;
  expectRefused(flat);
}

TEST_F(DamagedFlatData, IsNotFlattenedEither) {
  Bytes damaged = someFlatData();
  damaged[1024] = 9;
  instance.resetupFrom(damaged);
  Bytes copy;
  EXPECT_EQ(instance.getFlattened(copy).code, 512);
  EXPECT_TRUE(copy.empty());
  EXPECT_EQ(instance.call({.selector = PF_Cmd_SEQUENCE_FLATTEN}).code, 512);
  EXPECT_EQ(instance.sequenceBytes(), damaged);
}

TEST_F(DamagedFlatData, MayHaveBytesAfterItsLastText) {
  Bytes flat = someFlatData();
  flat.resize(flat.size() + 50, 0xAB);
  EXPECT_EQ(instance.resetupFrom(flat).code, 0);
  EXPECT_EQ(flatCopy(), someFlatData());
}

TEST_F(DamagedFlatData, OfRandomBytesIsReadOrRefused) {
  std::mt19937 random(4711);
  int read = 0;
  for (int round = 0; round < 500; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    Bytes flat = someFlatData();
    const size_t first = round % 2 ? 1312 : 0;
    for (int hit = 0; hit < 1 + round % 8; ++hit) {
      flat[first + random() % (flat.size() - first)] = static_cast<unsigned char>(random());
    }
    Instance victim(effect);
    const PF_Err code = victim.resetupFrom(flat).code;
    ASSERT_TRUE(code == 0 || code == 512) << code;
    read += code == 0;
    ASSERT_EQ(victim.shutDown().code, 0);
    ASSERT_EQ(host.findings().text(), "");
  }
  EXPECT_GT(read, 0);
  EXPECT_LT(read, 500);
}

}  // namespace
}  // namespace quiltor
