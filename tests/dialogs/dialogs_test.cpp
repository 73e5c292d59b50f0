#include "tests/dialogs/dialogs_test.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

#include "library/cache_names.h"
#include "tests/support/png_file.h"

namespace quiltor::testing_support {
namespace {

using Entries = std::filesystem::directory_iterator;

std::set<std::string> threadIds() {
  std::set<std::string> ids;
  for (const auto& entry : Entries("/proc/self/task")) ids.insert(entry.path().filename().string());
  return ids;
}

// The conversion runs on a thread of its own, which nobody joins.
void waitForOtherThreadsThan(const std::set<std::string>& known) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(2);
  while (!std::ranges::includes(known, threadIds())) {
    if (std::chrono::steady_clock::now() > end) FAIL() << "the conversion does not end";
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void makeFolderOf(const std::string& path) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
}

}  // namespace

DialogsTest::DialogsTest(A_AppID appId) : InstanceTest(appId) { instance.setUp(); }

std::string DialogsTest::thumbnailOf(const std::string& path) const {
  return shared(".cache/" + std::to_string(pathHash(path)) + ".png");
}

bool DialogsTest::exists(const std::string& path) { return std::filesystem::exists(path); }

std::vector<std::string> DialogsTest::namesIn(const std::string& path) {
  std::vector<std::string> names;
  if (!std::filesystem::is_directory(path)) return names;
  for (const auto& entry : Entries(path)) names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

void DialogsTest::put(const std::string& path, const std::string& text) {
  makeFolderOf(path);
  std::ofstream(path, std::ios::binary) << text;
}

void DialogsTest::putImage(const std::string& path, const std::vector<uint8_t>& colour) {
  makeFolderOf(path);
  std::vector<uint8_t> pixels;
  for (int i = 0; i < 4; ++i) pixels.insert(pixels.end(), colour.begin(), colour.end());
  writePng(path, 2, 2, 3, pixels);
}

void DialogsTest::putImages(const std::string& path, int count) {
  std::filesystem::create_directories(path);
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(1000 + i).substr(1);
    putImage(path + "/" + number + ".png", {static_cast<uint8_t>(3 * i), 100, 50});
  }
}

void DialogsTest::putList(const std::vector<std::string>& lines) const {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  put(shared("libpaths.txt"), text);
}

template <class Deed>
DialogsTest::Opened DialogsTest::open(const std::string& steps, Complaints expected, Deed deed) {
  Opened opened;
  std::ostringstream printed;
  standalone::DialogOptions options;
  options.steps = steps;
  options.out = &printed;
  standalone::Dialogs dialogs(options);
  std::set<std::string> threads = threadIds();
  host.options().runScript = [&](const std::string& script) {
    opened.ran = true;
    waitForOtherThreadsThan(threads);
    standalone::ScriptOutcome outcome = dialogs.run(script);
    // The dialogs may have started some that stay.
    threads = threadIds();
    opened.result = outcome.result;
    return outcome;
  };
  deed(opened);
  host.options().runScript = nullptr;
  waitForOtherThreadsThan(threads);
  opened.printed = printed.str();
  opened.complaints = dialogs.complaints();
  if (expected == Complaints::NotExpected) {
    EXPECT_EQ(opened.code, 0);
    EXPECT_THAT(opened.complaints, testing::IsEmpty()) << opened.printed;
  }
  return opened;
}

DialogsTest::Opened DialogsTest::click(const std::string& steps, Complaints expected) {
  return open(steps, expected, [this](Opened& opened) {
    const standalone::EventResult event = instance.clickedByUser(Param::txtsrc);
    opened.code = event.call.code;
    opened.outFlags = event.call.out.out_flags;
    opened.handled = event.handled();
  });
}

DialogsTest::Opened DialogsTest::openSettings(const std::string& steps) {
  return open(steps, Complaints::NotExpected, [this](Opened& opened) { opened.code = instance.doDialog().code; });
}

}  // namespace quiltor::testing_support
