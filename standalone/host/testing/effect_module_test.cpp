#include "standalone/host/effect_module.h"

#include <gtest/gtest.h>

#include <string>

#include "standalone/host/testing/sample_effect.h"

namespace quiltor::standalone {
namespace {

std::string whyUnusable(const std::filesystem::path& path) {
  try {
    const EffectModule module(path);
  } catch (const ModuleError& error) {
    return error.what();
  }
  return "";
}

TEST(EffectModule, IsLoadedByItsPath) { EXPECT_NE(sampleModule().entryPoint(), nullptr); }

TEST(EffectModule, ThatDoesNotExistIsNamed) {
  EXPECT_EQ(whyUnusable("no/such.so"), "cannot load no/such.so: no such file, expected an effect module");
}

TEST(EffectModule, ThatIsNoLibraryIsNamed) {
  const std::string text = whyUnusable(__FILE__);
  EXPECT_NE(text.find(__FILE__), std::string::npos) << text;
  EXPECT_EQ(text.find('\n'), std::string::npos) << text;
}

TEST(EffectModule, WithoutTheEntryPointSaysWhatIsMissing) {
  const std::string text = whyUnusable(NO_EFFECT_PATH);
  EXPECT_NE(text.find("exports no EntryPointFunc"), std::string::npos) << text;
}

TEST(EffectModule, LiesBesideTheProgramByDefault) {
  EXPECT_EQ(defaultModulePath().stem(), "Quiltor");
  EXPECT_TRUE(std::filesystem::is_regular_file(programPath()));
  EXPECT_EQ(defaultModulePath().parent_path(), programPath().parent_path());
}

}  // namespace
}  // namespace quiltor::standalone
