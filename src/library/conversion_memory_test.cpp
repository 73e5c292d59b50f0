// The conversion's own allocations are made to fail, one after the other.
#include <cstdlib>
#include <limits>
#include <new>
#include <set>

#include "library/cache_names.h"
#include "library/conversion_test.h"

namespace {

constexpr size_t kNever = std::numeric_limits<size_t>::max();

thread_local size_t callsUntilFailure = kNever;

void* allocate(size_t size) {
  if (callsUntilFailure != kNever && callsUntilFailure-- == 0) {
    callsUntilFailure = kNever;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(size_t size) { return allocate(size); }
void* operator new[](size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, size_t) noexcept { std::free(memory); }

namespace quiltor {
namespace {

class ConversionMemory : public ConversionTest {
 protected:
  // Whether there were as many allocations that the last of them failed.
  bool convertAndFail(size_t callsBefore) {
    const CapturedOutput names(data_.path("names"));
    const std::vector<std::string> folders = {library()};
    callsUntilFailure = callsBefore;
    convertLibraryFiles(folders, folders);
    const bool struck = callsUntilFailure == kNever;
    callsUntilFailure = kNever;
    return struck;
  }
};

TEST_F(ConversionMemory, FailsInOneStepAtATimeIsLoggedAndMendedByTheNextRun) {
  writeGreyPatterns(library("Wood.pat"), 2);
  writePng(library("a.png"), {.width = 1, .height = 1, .pixels = {1, 2, 3}});
  convert();
  const auto expected = results();
  ASSERT_EQ(expected.size(), 3u);

  std::set<std::string> lines;
  size_t failures = 0;
  for (bool struck = true; struck; ++failures) {
    std::filesystem::remove_all(data_.all("PS Patterns"));
    std::filesystem::remove_all(data_.all(".cache"));
    writeText(data_.user("log.txt"), "");
    struck = convertAndFail(failures);
    for (std::string& line : log()) lines.insert(std::move(line));
    convert();
    ASSERT_EQ(results(), expected) << "allocation " << failures;
  }
  EXPECT_GT(failures, 50u);
  const std::string wood = library("Wood.pat"), picture = library("a.png");
  const std::string thumbnail = data_.all(".cache/" + std::to_string(pathHash(picture)) + ".png");
  for (const std::string& line :
       {"Exception in image file finder '" + library() + "'", "Exception in pattern file finder '" + library() + "'",
        "Exception in pattern loader '" + wood + "'",
        "Exception in pattern converter '" + wood + "' to '" + converted("Wood/Wood_00.png") + "'",
        "Exception in pattern converter '" + wood + "' to '" + converted("Wood/Wood_01.png") + "'",
        "Exception in image saver '" + picture + "' to '" + thumbnail + "'",
        "Exception in image converter '" + picture + "' to '" + thumbnail + "'"}) {
    EXPECT_TRUE(lines.contains(line)) << line;
  }
}

}  // namespace
}  // namespace quiltor
