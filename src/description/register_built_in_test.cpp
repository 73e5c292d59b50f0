#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "description/effect_description.h"
#include "description/language/param_index.h"
#include "description/recording_host.h"
#include "description/register_params.h"

namespace quiltor {
namespace {

class RegisterBuiltIn : public testing::Test {
 protected:
  RegisterBuiltIn() {
    parseBuiltInDescription();
    result_ = registerParameters(effectDescription(), host_.in, host_.out);
  }

  // The host's definition of a parameter; its input layer is not among those that are added.
  const RecordingHost::Added& added(Param::Index index) { return host_.added.at(static_cast<size_t>(index) - 1); }

  RecordingHost host_;
  HostErr result_ = PF_Err_INTERNAL_STRUCT_DAMAGED;
};

TEST_F(RegisterBuiltIn, AddsFifteenParametersAndReportsSixteen) {
  EXPECT_EQ(result_, PF_Err_NONE);
  EXPECT_EQ(host_.added.size(), 15U);
  EXPECT_EQ(host_.out.num_params, 16);
  EXPECT_EQ(host_.customUis.size(), 1U);
  EXPECT_EQ(host_.acquired, host_.released);
}

TEST_F(RegisterBuiltIn, GivesEachParameterItsTypeNameAndId) {
  const std::vector<std::pair<A_long, std::string>> expected = {{PF_Param_POPUP, "Source"},
                                                                {PF_Param_LAYER, "Pattern Layer"},
                                                                {PF_Param_ARBITRARY_DATA, "Pattern"},
                                                                {PF_Param_CHECKBOX, "Lock Pattern"},
                                                                {PF_Param_POPUP, "Tile Mode"},
                                                                {PF_Param_POPUP, "Blend Mode"},
                                                                {PF_Param_FLOAT_SLIDER, "Opacity"},
                                                                {PF_Param_FLOAT_SLIDER, "Scale"},
                                                                {PF_Param_POINT, "Offset"},
                                                                {PF_Param_ANGLE, "Rotation"},
                                                                {PF_Param_CHECKBOX, "Invert Pattern Colors"},
                                                                {PF_Param_COLOR, "Tint Color"},
                                                                {PF_Param_FLOAT_SLIDER, "Tint Opacity"},
                                                                {PF_Param_FLOAT_SLIDER, "Blur"},
                                                                {PF_Param_PATH, "Mask"}};
  ASSERT_EQ(host_.added.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(host_.added[i].definition.param_type, expected[i].first) << expected[i].second;
    EXPECT_EQ(host_.added[i].definition.name, expected[i].second);
    EXPECT_EQ(host_.added[i].definition.uu.id, static_cast<A_long>(i) + 1);
  }
}

TEST_F(RegisterBuiltIn, StartsWithAFileThatIsTiledInModeNormal) {
  EXPECT_EQ(added(Param::source).definition.u.pd.dephault, 2);
  EXPECT_EQ(added(Param::source).definition.u.pd.num_choices, 2);
  EXPECT_EQ(added(Param::source).text, "Layer|File");
  EXPECT_EQ(added(Param::tilemode).definition.u.pd.dephault, 2);
  EXPECT_EQ(added(Param::tilemode).definition.u.pd.num_choices, 3);
  EXPECT_EQ(added(Param::blendmode).definition.u.pd.dephault, 1);
  EXPECT_EQ(added(Param::blendmode).definition.u.pd.num_choices, 27);
}

TEST_F(RegisterBuiltIn, ShowsThePatternControlAndHidesThePatternLayer) {
  EXPECT_EQ(added(Param::patsrc).definition.ui_flags, PF_PUI_INVISIBLE);
  EXPECT_EQ(added(Param::txtsrc).definition.ui_flags, PF_PUI_CONTROL | PF_PUI_DONT_ERASE_CONTROL);
  EXPECT_EQ(added(Param::txtsrc).definition.u.arb_d.id, 3);
}

TEST_F(RegisterBuiltIn, StartsInTheMiddleOfTheLayerAtFullSizeWithoutTintOrBlur) {
  EXPECT_EQ(added(Param::offset).definition.u.td.x_dephault, 50 * 65536);
  EXPECT_EQ(added(Param::offset).definition.u.td.y_dephault, 50 * 65536);
  EXPECT_EQ(added(Param::rotation).definition.u.ad.dephault, 0);
  EXPECT_EQ(added(Param::opacity).definition.u.fs_d.dephault, 100);
  EXPECT_EQ(added(Param::scale).definition.u.fs_d.dephault, 100);
  EXPECT_EQ(added(Param::scale).definition.u.fs_d.valid_min, 1);
  EXPECT_EQ(added(Param::scale).definition.u.fs_d.slider_max, 500);
  EXPECT_EQ(added(Param::tintopacity).definition.u.fs_d.dephault, 0);
  EXPECT_EQ(added(Param::tintopacity).definition.u.fs_d.valid_max, 100);
  EXPECT_EQ(added(Param::blur).definition.u.fs_d.dephault, 0);
  EXPECT_EQ(added(Param::blur).definition.u.fs_d.valid_max, 100);
  EXPECT_EQ(added(Param::lock).definition.u.bd.dephault, 0);
}

TEST_F(RegisterBuiltIn, TintsWithTheLowBytesOfTheScaledDefault) {
  const PF_Pixel& tint = added(Param::tintcolor).definition.u.cd.dephault;
  EXPECT_EQ(tint.alpha, 255);
  EXPECT_EQ(tint.red, 183);
  EXPECT_EQ(tint.green, 68);
  EXPECT_EQ(tint.blue, 200);
}

}  // namespace
}  // namespace quiltor
