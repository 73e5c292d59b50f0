#include <gtest/gtest.h>

#include <random>
#include <string>

#include "description/language/built_in_description.h"
#include "description/language/parse_description.h"

namespace quiltor {
namespace {

constexpr uint32_t kSeed = 20240611;

// What every text has to leave behind, whatever it says.
void expectSound(const Description& description, const std::string& text) {
  ASSERT_EQ(description.params.size(), kMaxParams) << text;
  ASSERT_GE(description.paramCount, 1) << text;
  ASSERT_LE(description.paramCount, static_cast<int32_t>(kMaxParams)) << text;
  ASSERT_GE(description.layerCount, 0) << text;
  ASSERT_LE(description.layerCount, kMaxLayers) << text;
  ASSERT_LE(description.settings.name.size(), 31U) << text;
  for (const PresetEntry& preset : description.presets) {
    ASSERT_GE(preset.paramIndex, 0) << text;
    ASSERT_LT(preset.paramIndex, static_cast<int32_t>(kMaxParams)) << text;
  }
}

// Returns whether the text described any parameter besides the input layer.
bool parseAnyText(const std::string& text) {
  const Description description = parseDescription(text, [](const std::string&) { return "[par]\nmax=7"; });
  expectSound(description, text);
  return description.paramCount > 1;
}

TEST(ParseHostileText, RandomBytesParse) {
  std::mt19937 random(kSeed);
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_int_distribution<size_t> length(0, 600);
  for (int round = 0; round < 2000; ++round) {
    std::string text(length(random), '\0');
    for (char& c : text) c = static_cast<char>(byte(random));
    parseAnyText(text);
  }
}

TEST(ParseHostileText, RandomPiecesOfTheLanguageParse) {
  const std::string pieces[] = {"[par]\n",
                                "[par",
                                "99]\n",
                                "[preset1_",
                                "in0]\n",
                                "[settings]\n",
                                "[script",
                                "[ps",
                                "[vs]\n",
                                "]\n",
                                "group",
                                "switch=",
                                "type=select\n",
                                "type=text\n",
                                "text=",
                                "|",
                                "default=",
                                "max=",
                                "flags=",
                                "-2147483648\n",
                                "1e39\n",
                                "nan\n",
                                "inf\n",
                                "=",
                                "version=",
                                ".",
                                "\n",
                                "id_offset=",
                                "2147483647\n",
                                "#include x\n",
                                "name=",
                                "\xC3",
                                "\xFF",
                                std::string(1, '\0')};
  std::mt19937 random(kSeed);
  std::uniform_int_distribution<size_t> piece(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> count(0, 120);
  int withParams = 0;
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (int i = count(random); i > 0; --i) text += pieces[piece(random)];
    withParams += parseAnyText(text) ? 1 : 0;
  }
  EXPECT_GT(withParams, 1000) << "the pieces hardly ever made a parameter";
}

TEST(ParseHostileText, MutationsOfTheBuiltInTextParse) {
  std::mt19937 random(kSeed);
  const std::string original(builtInDescription());
  std::uniform_int_distribution<size_t> position(0, original.size() - 1);
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_int_distribution<int> mutation(0, 2);
  for (int round = 0; round < 1500; ++round) {
    std::string text = original;
    for (int i = 0; i < 12; ++i) {
      const size_t at = position(random) % text.size();
      const size_t length = 1 + position(random) % 20;
      if (mutation(random) == 0) text[at] = static_cast<char>(byte(random));
      if (mutation(random) == 1) text.erase(at, std::min(length, text.size() - at - 1));
      if (mutation(random) == 2) text.insert(at, original.substr(position(random), length));
    }
    parseAnyText(text);
  }
}

TEST(ParseHostileText, EveryBeginningOfTheBuiltInTextParses) {
  const std::string text(builtInDescription());
  for (size_t length = 0; length <= text.size(); ++length) parseAnyText(text.substr(0, length));
}

}  // namespace
}  // namespace quiltor
