#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/conformance/windows_module_file.h"
#include "tests/support/effect_test.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class ModuleFile : public testing_support::EffectTest {
 protected:
  const WindowsModuleFile file{QUILTOR_MODULE_PATH};
};

TEST(Module, ExportsItsEntryPointAndNothingElse) {
  EXPECT_THAT(WindowsModuleFile(QUILTOR_MODULE_PATH).exports(), ElementsAre("EntryPointFunc"));
}

TEST_F(ModuleFile, ImportsNothingButLibrariesOfTheSystem) {
  EXPECT_THAT(file.imports(), UnorderedElementsAre("KERNEL32.dll", "msvcrt.dll", "SHELL32.dll", "USER32.dll"));
}

TEST_F(ModuleFile, SaysInItsResourceWhatGlobalSetupReports) {
  const EffectResource resource(file.resource(u"PIPL", 16000));
  EXPECT_THAT(resource.keys, ElementsAre("kind", "name", "catg", "8664", "ePVR", "eSVR", "eVER", "eINF", "eGLO", "eGL2",
                                         "eMNA", "aeFL"));
  ASSERT_EQ(effect.globalSetup().code, 0);
  EXPECT_EQ(resource.number("eVER"), effect.version());
  EXPECT_EQ(resource.number("eGLO"), static_cast<uint32_t>(effect.outFlags()));
  EXPECT_EQ(resource.number("eGL2"), static_cast<uint32_t>(effect.outFlags2()));
  EXPECT_THAT(host.registeredEffectNames(), ElementsAre(resource.countedText("eMNA")));
  EXPECT_THAT(file.exports(), ElementsAre(std::string(resource.values.at("8664").c_str())));
  EXPECT_EQ(resource.countedText("name"), "Quiltor");
  EXPECT_EQ(resource.values.at("name"), "\7Quiltor");
  EXPECT_EQ(resource.countedText("catg"), "Stylize");
  EXPECT_EQ(resource.values.at("kind"), "TKFe");
  EXPECT_EQ(resource.number("ePVR"), 2u);
  EXPECT_EQ(resource.number("eSVR"), 13u | 9u << 16);
  EXPECT_EQ(resource.number("eINF"), 0u);
  EXPECT_EQ(resource.number("aeFL"), 0u);
}

}  // namespace
}  // namespace quiltor
