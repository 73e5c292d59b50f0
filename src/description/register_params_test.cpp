#include "description/register_params.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "description/language/parse_description.h"
#include "description/recording_host.h"

namespace quiltor {
namespace {

HostErr registerText(RecordingHost& host, const std::string& sections) {
  return registerParameters(parseDescription("[par]\ntype=layer\n" + sections), host.in, host.out);
}

// What a section with these lines registers.
RecordingHost::Added registered(const std::string& lines, A_AppID appId = kAppId_AfterEffects) {
  RecordingHost host(appId);
  EXPECT_EQ(registerText(host, "[par]\n" + lines), PF_Err_NONE);
  EXPECT_EQ(host.added.size(), 1U);
  return host.added.empty() ? RecordingHost::Added{} : host.added[0];
}

constexpr PF_Fixed kOne = 65536;

TEST(RegisterParams, APopupDefaultBeyondTheItemsSelectsTheLastItem) {
  const auto popup = registered("type=select\ntext=A|B|C\ndefault=7");
  EXPECT_EQ(popup.definition.param_type, PF_Param_POPUP);
  EXPECT_EQ(popup.definition.flags, 68);
  EXPECT_EQ(popup.definition.u.pd.num_choices, 3);
  EXPECT_EQ(popup.definition.u.pd.value, 3);
  EXPECT_EQ(popup.definition.u.pd.dephault, 3);
  EXPECT_EQ(popup.text, "A|B|C");
}

TEST(RegisterParams, PopupDefaultsCountFromZeroInTheTextAndFromOneInTheHost) {
  EXPECT_EQ(registered("type=select\ntext=A|B|C\ndefault=1").definition.u.pd.dephault, 2);
  EXPECT_EQ(registered("type=select\ntext=A|B|C").definition.u.pd.dephault, 1);
}

TEST(RegisterParams, APopupItemThatIsADashBecomesASeparator) {
  EXPECT_EQ(registered("type=select\ntext=A|-|B").text, "A|(-|B");
  EXPECT_EQ(registered("type=select\ntext=A|-|-|B|-|C").text, "A|(-|(-|B|(-|C");
  EXPECT_EQ(registered("type=select\ntext=-|A|B-|-C|-").text, "-|A|B-|-C|-");
  EXPECT_EQ(registered("type=bool\ntext=A|-|B").text, "A|-|B");
}

TEST(RegisterParams, APopupWithTheMaskFlagsIsAMaskPath) {
  const auto path = registered("type=select\nflags=99");
  EXPECT_EQ(path.definition.param_type, PF_Param_PATH);
  EXPECT_EQ(path.definition.u.path_d.path_id, 0U);
  EXPECT_EQ(path.definition.u.path_d.dephault, 0);
  EXPECT_EQ(registered("type=select\nflags=98\ntext=A").definition.param_type, PF_Param_POPUP);
}

TEST(RegisterParams, APointsDefaultIsInPercentOfTheLayer) {
  const auto point = registered("type=point\ndefault=2.0|0.5");
  EXPECT_EQ(point.definition.param_type, PF_Param_POINT);
  EXPECT_EQ(point.definition.u.td.x_value, 200 * kOne);
  EXPECT_EQ(point.definition.u.td.y_value, 50 * kOne);
  EXPECT_EQ(point.definition.u.td.x_dephault, 200 * kOne);
  EXPECT_EQ(point.definition.u.td.y_dephault, 50 * kOne);
  EXPECT_EQ(point.definition.u.td.restrict_bounds, 0);
}

TEST(RegisterParams, APointsDefaultIsCappedAndCutToWholePercents) {
  const auto capped = registered("type=vec2\ndefault=150|-0.559");
  EXPECT_EQ(capped.definition.param_type, PF_Param_POINT);
  EXPECT_EQ(capped.definition.u.td.x_dephault, 10000 * kOne);
  EXPECT_EQ(capped.definition.u.td.y_dephault, -55 * kOne);
}

TEST(RegisterParams, AFloatWithFlagsShowsAsPercentAndWithoutAsANumberOfTwoDecimals) {
  const auto percent = registered("type=float\nflags=1\nmax=100\ndefault=40");
  EXPECT_EQ(percent.definition.param_type, PF_Param_FLOAT_SLIDER);
  EXPECT_EQ(percent.definition.u.fs_d.display_flags, PF_ValueDisplayFlag_PERCENT);
  const auto plain = registered("type=float\nmin=-1.5\nmax=100\ndefault=40.25");
  EXPECT_EQ(plain.definition.flags, 0);
  EXPECT_EQ(plain.definition.u.fs_d.display_flags, PF_ValueDisplayFlag_NONE);
  EXPECT_EQ(plain.definition.u.fs_d.precision, 2);
  EXPECT_EQ(plain.definition.u.fs_d.value, 40.25);
  EXPECT_EQ(plain.definition.u.fs_d.dephault, 40.25F);
  EXPECT_EQ(plain.definition.u.fs_d.valid_min, -1.5F);
  EXPECT_EQ(plain.definition.u.fs_d.valid_max, 100);
  EXPECT_EQ(plain.definition.u.fs_d.slider_min, -1.5F);
  EXPECT_EQ(plain.definition.u.fs_d.slider_max, 100);
  EXPECT_EQ(plain.definition.u.fs_d.curve_tolerance, 0.05F);
}

TEST(RegisterParams, AnIntIsAFloatSliderWithoutDecimals) {
  const auto slider = registered("type=int\nmin=1\nmax=9\ndefault=5");
  EXPECT_EQ(slider.definition.param_type, PF_Param_FLOAT_SLIDER);
  EXPECT_EQ(slider.definition.u.fs_d.precision, 0);
  EXPECT_EQ(slider.definition.u.fs_d.value, 5);
  EXPECT_EQ(slider.definition.u.fs_d.valid_max, 9);
}

TEST(RegisterParams, ASlidersTextIsItsValidRangeWhenItHoldsTwoDifferentNumbers) {
  const auto wide = registered("type=float\nmin=0\nmax=10\ntext=-5|1000|7");
  EXPECT_EQ(wide.definition.u.fs_d.valid_min, -5);
  EXPECT_EQ(wide.definition.u.fs_d.valid_max, 1000);
  EXPECT_EQ(wide.definition.u.fs_d.slider_min, 0);
  EXPECT_EQ(wide.definition.u.fs_d.slider_max, 10);
  for (const char* text : {"3|3", "5", "a|b"}) {
    const auto plain = registered("type=float\nmin=0\nmax=10\ndisplaymin=1\ndisplaymax=2\ntext=" + std::string(text));
    EXPECT_EQ(plain.definition.u.fs_d.valid_min, 1) << text;
    EXPECT_EQ(plain.definition.u.fs_d.valid_max, 2) << text;
    EXPECT_EQ(plain.definition.u.fs_d.slider_max, 2) << text;
  }
}

TEST(RegisterParams, ACheckboxTakesItsLabelFromTheText) {
  const auto checkbox = registered("type=bool\ntext=On\ndefault=true");
  EXPECT_EQ(checkbox.definition.param_type, PF_Param_CHECKBOX);
  EXPECT_EQ(checkbox.definition.flags, 68);
  EXPECT_EQ(checkbox.definition.u.bd.value, 1);
  EXPECT_EQ(checkbox.definition.u.bd.dephault, 1);
  EXPECT_EQ(checkbox.text, "On");
}

TEST(RegisterParams, ALayerStartsWithTheCodeMinusOne) {
  const auto layer = registered("type=layer");
  EXPECT_EQ(layer.definition.param_type, PF_Param_LAYER);
  EXPECT_EQ(layer.definition.flags, 68);
  EXPECT_EQ(layer.definition.u.ld.dephault, -1);
}

TEST(RegisterParams, AColorsDefaultIsAFractionOf255AndKeepsItsLowByte) {
  const auto fractions = registered("type=color\ndefault=1|0.5|0");
  EXPECT_EQ(fractions.definition.param_type, PF_Param_COLOR);
  EXPECT_EQ(fractions.definition.u.cd.dephault.alpha, 255);
  EXPECT_EQ(fractions.definition.u.cd.dephault.red, 255);
  EXPECT_EQ(fractions.definition.u.cd.dephault.green, 127);
  EXPECT_EQ(fractions.definition.u.cd.dephault.blue, 0);
  const auto bytes = registered("type=color\ndefault=73|188|56");
  EXPECT_EQ(bytes.definition.u.cd.value.alpha, 255);
  EXPECT_EQ(bytes.definition.u.cd.value.red, 183);
  EXPECT_EQ(bytes.definition.u.cd.value.green, 68);
  EXPECT_EQ(bytes.definition.u.cd.value.blue, 200);
}

TEST(RegisterParams, AnAnglesDefaultIsInWholeDegrees) {
  const auto angle = registered("type=angle\ndefault=-45.9");
  EXPECT_EQ(angle.definition.param_type, PF_Param_ANGLE);
  EXPECT_EQ(angle.definition.u.ad.value, -45 * kOne);
  EXPECT_EQ(angle.definition.u.ad.dephault, -45 * kOne);
}

TEST(RegisterParams, APointInSpaceTakesItsLastTwoCoordinatesFromTheSecondComponent) {
  const auto point = registered("type=vec3\ndefault=20000|7.9|3");
  EXPECT_EQ(point.definition.param_type, PF_Param_POINT_3D);
  EXPECT_EQ(point.definition.u.point3d_d.x_value, 10000);
  EXPECT_EQ(point.definition.u.point3d_d.y_value, 7);
  EXPECT_EQ(point.definition.u.point3d_d.z_value, 7);
  EXPECT_EQ(point.definition.u.point3d_d.x_dephault, 10000);
  EXPECT_EQ(point.definition.u.point3d_d.y_dephault, 7);
  EXPECT_EQ(point.definition.u.point3d_d.z_dephault, 7);
}

TEST(RegisterParams, ACustomControlIsArbitraryDataOfFiftyPixelsWithoutADefault) {
  const auto control = registered("type=custom\nid=12");
  EXPECT_EQ(control.definition.param_type, PF_Param_ARBITRARY_DATA);
  EXPECT_EQ(control.definition.flags, 0);
  EXPECT_EQ(control.definition.ui_flags, 130);
  EXPECT_EQ(control.definition.ui_width, 50);
  EXPECT_EQ(control.definition.ui_height, 50);
  EXPECT_EQ(control.definition.u.arb_d.id, 12);
  EXPECT_EQ(control.definition.u.arb_d.dephault, nullptr);
}

TEST(RegisterParams, TopicsAreGroupsThatStartCollapsedUnlessFlagged) {
  EXPECT_EQ(registered("type=topic_start").definition.param_type, PF_Param_GROUP_START);
  EXPECT_EQ(registered("type=topic_start").definition.flags, 34);
  EXPECT_EQ(registered("type=topic_start\nflags=1").definition.flags, 2);
  EXPECT_EQ(registered("type=topic_end").definition.param_type, PF_Param_GROUP_END);
  EXPECT_EQ(registered("type=topic_end").definition.flags, 2);
}

TEST(RegisterParams, ButtonsAndTextsAreButtons) {
  for (const char* lines : {"type=button\ntext=Press", "type=text\ndefault=Press"}) {
    const auto button = registered(lines);
    EXPECT_EQ(button.definition.param_type, PF_Param_BUTTON) << lines;
    EXPECT_EQ(button.definition.flags, 70) << lines;
    EXPECT_EQ(button.definition.ui_flags, 0) << lines;
    EXPECT_EQ(button.text, "Press") << lines;
  }
}

TEST(RegisterParams, ButtonsAndTextsAreHiddenColorsInTheVideoEditor) {
  for (const char* lines : {"type=button\ntext=Press", "type=text\ndefault=Press"}) {
    const auto hidden = registered(lines, kAppId_PremierePro);
    EXPECT_EQ(hidden.definition.param_type, PF_Param_COLOR) << lines;
    EXPECT_EQ(hidden.definition.ui_flags, 512) << lines;
  }
  EXPECT_EQ(registered("type=angle", kAppId_PremierePro).definition.param_type, PF_Param_ANGLE);
}

TEST(RegisterParams, AParameterOfNoKindIsNotAddedButCounted) {
  RecordingHost host;
  EXPECT_EQ(registerText(host, "[par]\ntype=none\n[par]\ntype=angle\n"), PF_Err_NONE);
  EXPECT_EQ(host.added.size(), 1U);
  EXPECT_EQ(host.out.num_params, 3);
}

TEST(RegisterParams, VisibilityOneIsDisabledAndTwoInvisible) {
  EXPECT_EQ(registered("type=angle").definition.ui_flags, 0);
  EXPECT_EQ(registered("type=angle\nvisibility=1").definition.ui_flags, 32);
  EXPECT_EQ(registered("type=angle\nvisibility=2").definition.ui_flags, 512);
  EXPECT_EQ(registered("type=angle\nvisibility=-2").definition.ui_flags, 0);
  EXPECT_EQ(registered("type=custom\nvisibility=2").definition.ui_flags, 512 + 130);
}

TEST(RegisterParams, ANameIsCutTo31BytesAndToWholeCharacters) {
  EXPECT_STREQ(registered("type=angle\ndisplay=Angle").definition.name, "Angle");
  EXPECT_EQ(registered("type=angle\ndisplay=" + std::string(40, 'x')).definition.name, std::string(31, 'x'));
  EXPECT_EQ(registered("type=angle\ndisplay=" + std::string(30, 'x') + "é").definition.name, std::string(30, 'x'));
}

TEST(RegisterParams, ParametersAreAppendedWithTheirIds) {
  RecordingHost host;
  EXPECT_EQ(registerText(host, "[par]\ntype=angle\n[par]\ntype=int\nid=77\n"), PF_Err_NONE);
  ASSERT_EQ(host.added.size(), 2U);
  EXPECT_EQ(host.added[0].index, -1);
  EXPECT_EQ(host.added[0].definition.uu.id, 1);
  EXPECT_EQ(host.added[1].index, -1);
  EXPECT_EQ(host.added[1].definition.uu.id, 77);
  EXPECT_EQ(host.out.num_params, 3);
}

TEST(RegisterParams, ADescriptionOfTheInputAloneAddsNothingAndNeedsNoSuite) {
  RecordingHost host;
  host.offersSuites = false;
  EXPECT_EQ(registerText(host, ""), PF_Err_NONE);
  EXPECT_EQ(host.out.num_params, 1);
  EXPECT_TRUE(host.added.empty());
}

TEST(RegisterParams, TheCustomUiIsRegisteredOnceForAllCustomControls) {
  RecordingHost host;
  EXPECT_EQ(registerText(host, "[par]\ntype=custom\n[par]\ntype=custom\n"), PF_Err_NONE);
  ASSERT_EQ(host.customUis.size(), 1U);
  PF_CustomUIInfo expected{};
  expected.events = 4;
  EXPECT_EQ(std::memcmp(&host.customUis[0], &expected, sizeof expected), 0);
}

TEST(RegisterParams, WithoutACustomControlNoCustomUiIsRegistered) {
  RecordingHost host;
  EXPECT_EQ(registerText(host, "[par]\ntype=angle\n"), PF_Err_NONE);
  EXPECT_TRUE(host.customUis.empty());
}

TEST(RegisterParams, TheFirstFailingAddEndsTheSetup) {
  RecordingHost host;
  host.failingAdd = 1;
  host.addFailure = PF_Err_OUT_OF_MEMORY;
  EXPECT_EQ(registerText(host, "[par]\ntype=custom\n[par]\ntype=int\n[par]\ntype=int\n"), PF_Err_OUT_OF_MEMORY);
  EXPECT_EQ(host.added.size(), 1U);
  EXPECT_TRUE(host.customUis.empty());
  EXPECT_EQ(host.acquired, host.released);
}

TEST(RegisterParams, AFailingRegistrationOfTheCustomUiIsReturnedWithTheCountWritten) {
  RecordingHost host;
  host.customUiFailure = PF_Err_INVALID_CALLBACK;
  EXPECT_EQ(registerText(host, "[par]\ntype=custom\n"), PF_Err_INVALID_CALLBACK);
  EXPECT_EQ(host.out.num_params, 2);
}

TEST(RegisterParams, AMissingStringSuiteThrowsItsCode) {
  RecordingHost host;
  host.offersSuites = false;
  EXPECT_THROW(
      {
        try {
          registerText(host, "[par]\ntype=angle\n");
        } catch (HostErr code) {
          EXPECT_EQ(code, PF_Err_BAD_CALLBACK_PARAM);
          throw;
        }
      },
      HostErr);
  EXPECT_TRUE(host.added.empty());
}

TEST(RegisterParams, TheStringSuiteIsAcquiredOnceAndReleased) {
  RecordingHost host;
  EXPECT_EQ(registerText(host, "[par]\ntype=angle\n[par]\ntype=int\n"), PF_Err_NONE);
  EXPECT_EQ(host.acquired, 1);
  EXPECT_EQ(host.released, 1);
}

TEST(RegisterParams, NumbersThatNoHostFieldHoldsBecomeTheNearestOnes) {
  const auto angle = registered("type=angle\ndefault=1e30");
  EXPECT_EQ(angle.definition.u.ad.value, std::numeric_limits<PF_Fixed>::max());
  const auto point = registered("type=point\ndefault=-1e30|nan");
  EXPECT_EQ(point.definition.u.td.x_value, std::numeric_limits<PF_Fixed>::min());
  EXPECT_EQ(point.definition.u.td.y_value, 0);
  const auto popup = registered("type=select\ntext=A\nmax=1e9\ndefault=1e9");
  EXPECT_EQ(popup.definition.u.pd.num_choices, std::numeric_limits<A_short>::max());
  EXPECT_EQ(popup.definition.u.pd.dephault, std::numeric_limits<A_short>::max());
}

TEST(RegisterParams, EveryKindTakesAnyDefault) {
  const char* kinds[] = {"int",  "bool", "select", "layer",  "float", "color", "angle",       "point",
                         "vec2", "vec3", "custom", "button", "text",  "none",  "topic_start", "topic_end"};
  const char* values[] = {"inf|-inf|nan", "-1e38|1e38|1e38", "nan|nan|nan", "", "-1|-1|-1", "300|300|300"};
  for (const char* kind : kinds) {
    for (const char* value : values) {
      RecordingHost host;
      const std::string text = std::string("[par]\ntype=") + kind + "\nmax=" + value + "\ndefault=" + value + "\n";
      EXPECT_EQ(registerText(host, text), PF_Err_NONE) << text;
      EXPECT_EQ(host.out.num_params, 2) << text;
    }
  }
}

}  // namespace
}  // namespace quiltor
