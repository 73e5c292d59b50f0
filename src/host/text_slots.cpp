#include "host/text_slots.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quiltor {

char* newText(const std::string& text) {
  auto copy = std::make_unique<char[]>(text.size() + 1);
  std::copy_n(text.c_str(), text.size() + 1, copy.get());
  return copy.release();
}

void storeText(SequenceData& live, size_t slot, const std::string& text) {
  delete[] std::exchange(live.text[slot], newText(text));
}

}  // namespace quiltor
