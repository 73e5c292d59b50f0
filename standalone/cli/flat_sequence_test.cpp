#include "standalone/cli/flat_sequence.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::size_t kBlock = 1312;
constexpr std::size_t kFlag = 1024;

Bytes flatWith(const std::vector<std::string>& texts) {
  Bytes flat(kBlock, 0);
  flat[0] = 2;
  flat[kFlag] = 1;
  for (std::size_t slot = 0; slot < 32; ++slot) {
    const std::string text = slot < texts.size() ? texts[slot] : "";
    flat.push_back(static_cast<unsigned char>(text.size() % 256));
    flat.push_back(static_cast<unsigned char>(text.size() / 256));
    flat.insert(flat.end(), {0, 0});
    flat.insert(flat.end(), text.begin(), text.end());
  }
  return flat;
}

TEST(FlatSequence, replacesOneTextAndKeepsEverythingElse) {
  EXPECT_EQ(withTextSlot(flatWith({"old", "kept", "", "too"}), 0, "a longer one"),
            flatWith({"a longer one", "kept", "", "too"}));
  EXPECT_EQ(withTextSlot(flatWith({"kept", "gone"}), 1, ""), flatWith({"kept"}));
}

TEST(FlatSequence, writesLengthsBeyondOneByte) {
  const std::string path(700, 'p');
  EXPECT_EQ(withTextSlot(flatWith({}), 0, path), flatWith({path}));
}

TEST(FlatSequence, rejectsLiveData) {
  Bytes live = flatWith({});
  live[kFlag] = 0;
  EXPECT_THROW(static_cast<void>(withTextSlot(live, 0, "x")), CommandFailure);
}

TEST(FlatSequence, rejectsBytesThatEndTooEarly) {
  const Bytes flat = flatWith({"text"});
  for (const std::size_t size : {std::size_t{0}, kBlock - 1, kBlock, kBlock + 5, flat.size() - 1}) {
    EXPECT_THROW(static_cast<void>(withTextSlot(std::span(flat).first(size), 0, "x")), CommandFailure) << size;
  }
}

TEST(FlatSequence, namesAPictureOfNoLibrary) { EXPECT_EQ(patternSelection("/a/b.png"), "/a/b.png**********"); }

TEST(FlatSequence, rejectsAPathThatWouldBeSplit) {
  EXPECT_THROW(static_cast<void>(patternSelection("/a/*.png")), CommandFailure);
}

}  // namespace
}  // namespace quiltor::standalone
