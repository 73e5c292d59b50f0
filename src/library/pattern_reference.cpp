#include "library/pattern_reference.h"

#include <mutex>
#include <utility>
#include <vector>

#include "formats/image_file.h"
#include "host/render_mutex.h"
#include "host/suite_handler.h"
#include "library/fifty_steps.h"
#include "library/files/text_pieces.h"
#include "library/pattern_search.h"

namespace quiltor {
namespace {

static_assert(kPreviewSize == kThumbnailSize);

constexpr uint8_t kWhite = 255;

// The text behind the last dot, in lower case; the whole path when there is none.
std::string extensionOf(const std::string& path) {
  const std::string lower = toLowerCopy(path);
  return lower.substr(lower.rfind('.') + 1);
}

// Black and white quarters, in grey.
PatternImage placeholder() {
  PatternImage image = {kPreviewSize, kPreviewSize, 3, {}};
  for (int row = 0; row < kPreviewSize; ++row) {
    for (int column = 0; column < kPreviewSize; ++column) {
      const bool white = (column < kPreviewSize / 2) != (row >= kPreviewSize / 2);
      image.pixels.insert(image.pixels.end(), 3, white ? kWhite : uint8_t{0});
    }
  }
  return image;
}

PatternImage loadPicture(const std::string& path) {
  const std::string extension = extensionOf(path);
  PatternImage image;
  // Deliberate: a failed load shows as what the loader left, and as nothing else.
  if (extension.find("jp") != std::string::npos) {
    static_cast<void>(LoadJpegImage(path, image));
  } else if (extension.find("png") != std::string::npos) {
    static_cast<void>(LoadPngImage(path, image));
  } else {
    image = placeholder();
  }
  return image;
}

std::vector<uint8_t> makePreview(const PatternImage& image) {
  std::vector<uint8_t> preview(kPreviewBytes, kWhite);
  if (!isWhole(image)) return preview;
  const auto& bytes = image.pixels;
  // Behind the last pixel of three channels there is no other.
  const auto byteAt = [&](size_t at) { return at < bytes.size() ? bytes[at] : kWhite; };
  const auto rows = fiftySteps(image.height);
  const auto columns = fiftySteps(image.width);
  auto pixel = preview.begin();
  for (const int64_t row : rows) {
    for (const int64_t column : columns) {
      const auto source = static_cast<size_t>((row * image.width + column) * image.channels);
      *pixel++ = byteAt(source + 2);
      *pixel++ = byteAt(source + 1);
      *pixel++ = byteAt(source);
      // Deliberate: of three channels this is the next pixel's red.
      *pixel++ = byteAt(source + 3);
    }
  }
  return preview;
}

}  // namespace

void loadPatternReference(SequenceData& instance, std::string& reference, const PF_InData& in, Redraw redraw) {
  reference = findPattern(reference);
  PatternImage image = loadPicture(reference);
  std::vector<uint8_t> preview = makePreview(image);
  {
    const std::lock_guard lock(renderMutex());
    std::swap(*instance.patternImage, image);
    instance.previewImage->swap(preview);
  }
  SuiteHandler suites(in.pica_basicP);
  const PF_AdvAppSuite1& advancedApplication = suites.advApp();
  if (redraw == Redraw::Yes) advancedApplication.PF_RefreshAllWindows();
}

}  // namespace quiltor
