// Writes the resource by which the host finds the effect without running it. Runs while the effect is built.
// usage: make_pipl FILE
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "host/entry/effect_identity.h"
#include "platform/file.h"

namespace quiltor {
namespace {

std::string word(uint32_t value, int bytes = 4) {
  std::string text;
  for (int byte = 0; byte < bytes; ++byte) text += static_cast<char>(value >> 8 * byte & 255);
  return text;
}

std::string counted(std::string_view text) { return static_cast<char>(text.size()) + std::string(text); }

class Resource {
 public:
  // Codes of four characters stand backwards; the data is filled up to whole words.
  void add(std::string_view key, std::string data) {
    while (data.size() % 4 != 0) data += '\0';
    properties_ +=
        "MIB8" + std::string(key.rbegin(), key.rend()) + word(0) + word(static_cast<uint32_t>(data.size())) + data;
    ++count_;
  }

  std::string bytes() const { return word(1, 2) + word(0) + word(count_) + properties_; }

 private:
  std::string properties_;
  uint32_t count_ = 0;
};

std::string resource() {
  constexpr char kKindOfEffects[] = "TKFe";
  constexpr uint32_t kLayoutMajor = 2, kLayoutMinor = 0;
  Resource resource;
  resource.add("kind", kKindOfEffects);
  resource.add("name", counted(kEffectName));
  resource.add("catg", counted(kEffectCategory));
  resource.add("8664", std::string(kEntryPointName) + '\0');
  resource.add("ePVR", word(kLayoutMajor, 2) + word(kLayoutMinor, 2));
  resource.add("eSVR", word(kInterfaceMajor, 2) + word(kInterfaceMinor, 2));
  resource.add("eVER", word(kEffectVersion));
  resource.add("eINF", word(0));
  resource.add("eGLO", word(static_cast<uint32_t>(kOutFlags)));
  resource.add("eGL2", word(static_cast<uint32_t>(kOutFlags2)));
  resource.add("eMNA", counted(kEffectMatchName));
  resource.add("aeFL", word(0));
  return resource.bytes();
}

}  // namespace
}  // namespace quiltor

int main(int argc, char** argv) {
  std::FILE* const file = argc == 2 ? std::fopen(argv[1], "wb") : nullptr;
  if (!file) return 1;
  const std::string bytes = quiltor::resource();
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return quiltor::closeWritten(file) && written ? 0 : 1;
}
