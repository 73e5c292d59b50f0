#include <signal.h>

#include <chrono>
#include <random>
#include <thread>

#include "formats/image_file.h"
#include "library/conversion_test.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

class ConversionKill : public ConversionTest {
 protected:
  pid_t startConverting() {
    const pid_t child = fork();
    if (child == 0) {
      convert();
      _exit(0);
    }
    return child;
  }

  // How long a conversion of everything takes in a process of its own.
  microseconds fullRun() {
    const auto begin = steady_clock::now();
    waitpid(startConverting(), nullptr, 0);
    return std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
  }

  void removeResults() {
    fs::remove_all(data_.all("PS Patterns"));
    fs::remove_all(data_.all(".cache"));
  }
};

TEST_F(ConversionKill, At200RandomMomentsLeavesOnlyWholePicturesAndTheNextRunFinishes) {
  constexpr int kKills = 200;
  for (const char* name : {"Oak.pat", "Wood.pat"}) {
    TestPatternFile file;
    for (uint8_t i = 0; i < 4; ++i) {
      file.patterns.push_back(greyPattern());
      file.patterns.back().rectangle = {.top = 0, .left = 0, .bottom = 60, .right = 60};
      file.patterns.back().planes[0].samples = someBytes(3600);
      file.patterns.back().planes[0].samples[0] = i;
    }
    writePatterns(library(name), file);
  }
  for (int i = 0; i < 8; ++i) {
    writePng(library(std::to_string(i) + ".png"), {.width = 50, .height = 50, .pixels = someBytes(7500)});
  }
  const microseconds duration = fullRun();
  const auto expected = results();
  ASSERT_EQ(expected.size(), 16u);

  std::mt19937 random(20);
  std::uniform_int_distribution<int64_t> moment(0, duration.count());
  int unfinished = 0;
  for (int kills = 0; kills < kKills; ++kills) {
    if (results() == expected) removeResults();
    const pid_t child = startConverting();
    std::this_thread::sleep_for(microseconds(moment(random)));
    kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);

    auto found = results();
    std::erase_if(found, [](const auto& file) { return !file.first.ends_with(".png"); });
    unfinished += found.size() < expected.size();
    for (const auto& [name, bytes] : found) ASSERT_EQ(bytes, expected.at(name)) << name;
    for (const std::string pattern : {"Oak", "Wood"}) {
      const std::string stem = "PS Patterns/" + pattern + "/" + pattern + "_0";
      if (!found.contains(stem + "0.png")) continue;
      for (const char* place : {"1", "2", "3"}) ASSERT_TRUE(found.contains(stem + place + ".png")) << stem << place;
    }
  }
  EXPECT_GT(unfinished, kKills / 4) << "too few of the kills met a conversion";
  convert();
  EXPECT_EQ(results(), expected) << "what is left of the killed ones goes away as well";
}

}  // namespace
}  // namespace quiltor
