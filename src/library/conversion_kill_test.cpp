#include <algorithm>
#include <atomic>
#include <chrono>
#include <random>
#include <stdexcept>
#include <thread>

#include "formats/image_file.h"
#include "library/conversion_test.h"
#include "platform/testing/shared_record.h"
#include "platform/testing/test_process.h"
#include "platform/testing/wait_for.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

struct Progress {
  std::atomic<bool> begun;
};

// The words are the library and the progress's file; the data folders are known from the environment.
const ProcessWork kConvertAndTell("convert a library and tell", [](const std::vector<std::string>& words) {
  const SharedRecord<Progress> progress(words[1]);
  progress->begun = true;
  convertLibraryFiles({words[0]}, {words[0]});
  return 0;
});

class ConversionKill : public ConversionTest {
 protected:
  // A process that has begun to convert.
  TestProcess startConverting() {
    progress_->begun = false;
    TestProcess process(kConvertAndTell, {library(), progressFile_});
    if (!waitFor([&] { return progress_->begun.load(); })) throw std::runtime_error("the process never began");
    return process;
  }

  // How long a conversion of everything takes in a process of its own.
  microseconds fullRun() {
    const TestProcess process = startConverting();
    const auto begin = steady_clock::now();
    EXPECT_EQ(process->end(), 0);
    return std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
  }

  void removeResults() {
    fs::remove_all(data_.all("PS Patterns"));
    fs::remove_all(data_.all(".cache"));
  }

 private:
  const std::string progressFile_ = data_.path("progress");
  SharedRecord<Progress> progress_{progressFile_};
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
  // The machine may be busy with something else for a while; kills after the end try nothing.
  microseconds duration = fullRun();
  for (int turn = 0; turn < 2; ++turn) {
    removeResults();
    duration = std::min(duration, fullRun());
  }
  const auto expected = results();
  ASSERT_EQ(expected.size(), 16u);

  std::mt19937 random(20);
  std::uniform_int_distribution<int64_t> moment(0, duration.count());
  int unfinished = 0;
  for (int kills = 0; kills < kKills; ++kills) {
    if (results() == expected) removeResults();
    const TestProcess process = startConverting();
    std::this_thread::sleep_for(microseconds(moment(random)));
    process->kill();
    process->end();

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
