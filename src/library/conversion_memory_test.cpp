// The conversion's own allocations are made to fail, one after the other.
#include <cstdlib>
#include <limits>
#include <new>
#include <set>

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

  std::set<std::string> openings;
  size_t failures = 0;
  for (bool struck = true; struck; ++failures) {
    std::filesystem::remove_all(data_.all("PS Patterns"));
    std::filesystem::remove_all(data_.all(".cache"));
    writeText(data_.user("log.txt"), "");
    struck = convertAndFail(failures);
    for (const std::string& line : log()) openings.insert(line.substr(0, line.find('\'')));
    convert();
    ASSERT_EQ(results(), expected) << "allocation " << failures;
  }
  EXPECT_GT(failures, 50u);
  for (const char* opening :
       {"Exception in image file finder ", "Exception in pattern file finder ", "Exception in pattern loader ",
        "Exception in pattern converter ", "Exception in image saver ", "Exception in image converter "}) {
    EXPECT_TRUE(openings.contains(opening)) << opening;
  }
}

}  // namespace
}  // namespace quiltor
