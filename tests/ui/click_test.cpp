#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "platform/testing/cursor_place.h"
#include "platform/testing/file_reads.h"
#include "tests/support/flat_sequence.h"
#include "tests/support/png_file.h"
#include "tests/ui/control_test.h"

namespace quiltor {
namespace {

using standalone::EventResult;
using standalone::HostCall;
using standalone::NoScriptResult;
using standalone::World;
using standalone::WorldFormat;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing_support::ControlTest;
using testing_support::flatSequence;
using testing_support::liveRecordOf;
using testing_support::SuiteName;
using testing_support::testName;
using testing_support::textsOf;
using testing_support::variedPixels;
using testing_support::writePng;

constexpr PF_OutFlags kRerender = PF_OutFlag_FORCE_RERENDER | PF_OutFlag_REFRESH_UI;
static_assert(kRerender == 0x420000);

class Click : public ControlTest {
 protected:
  explicit Click(A_AppID appId = kAppId_AfterEffects) : ControlTest(appId) { writePng(picture, 7, 3, 4, pixels); }

  std::string pickOf(const std::string& path, const std::string& ending = "") const {
    return path + "*Label*Name*" + folder.path("library") + "*" + ending;
  }
  std::string storedSelection() { return textsOf(flatCopy())[0]; }

  // Whether the list of libraries is read once the script is over.
  bool readsListAfterwards(const std::string& result) {
    outcome.result = result;
    std::unique_ptr<FileReads> reads;
    duringScript = [&] { reads = std::make_unique<FileReads>(userList()); };
    click();
    return reads->any();
  }
  void expectNoPick(const EventResult& clicked) {
    EXPECT_EQ(clicked.call.code, 0);
    EXPECT_EQ(clicked.call.out.out_flags, 0);
    EXPECT_EQ(clicked.call.message(), "");
    EXPECT_EQ(storedSelection(), "");
    EXPECT_EQ(host.refreshAllWindowsCount(), 0);
  }

  const std::string picture = folder.path("weave.png");
  const std::vector<uint8_t> pixels = variedPixels(7, 3, 4);
};

class VideoEditorClick : public Click {
 protected:
  VideoEditorClick() : Click(kAppId_PremierePro) {}
};

// --- Which dialog opens ---

TEST_F(Click, WithoutAListOpensTheSettings) {
  EXPECT_TRUE(click().handled());
  EXPECT_THAT(scripts, ElementsAre(plainScript("settings.jsx")));
}

TEST_F(Click, WithAListOfTheUserOpensTheGallery) {
  writeList(userList());
  EXPECT_TRUE(click().handled());
  EXPECT_THAT(scripts, ElementsAre(plainScript("gallery.jsx")));
}

TEST_F(Click, WithAListOfAllUsersOpensTheGallery) {
  writeList(sharedList());
  click();
  EXPECT_THAT(scripts, ElementsAre(plainScript("gallery.jsx")));
}

TEST_F(Click, WithAnEmptyListOpensTheGallery) {
  write(userList(), "");
  click();
  EXPECT_THAT(scripts, ElementsAre(plainScript("gallery.jsx")));
}

TEST_F(Click, TellsTheDialogWhereTheMouseIs) {
  writeList(userList());
  const CursorPlace elsewhere(613, 407);
  click();
  ASSERT_EQ(scripts.size(), 1u);
  EXPECT_THAT(scripts[0], HasSubstr("613"));
  EXPECT_THAT(scripts[0], HasSubstr("407"));
}

// --- The selection in the script ---

TEST_F(Click, TellsTheGalleryOfTheLastLibrary) {
  writeList(userList());
  instance.resetupFrom(flatSequence({{0, picture + "*****A \"b\" \\c*****#v1\n\xC3\xA4"}}));
  click();
  ASSERT_EQ(scripts.size(), 1u);
  EXPECT_THAT(scripts[0], HasSubstr("\"A \\u0022b\\u0022 \\u005Cc\""));
  EXPECT_THAT(scripts[0], HasSubstr("\"\\u0023v1\\u000A\\u00E4\""));
  EXPECT_THAT(scripts[0], testing::Not(HasSubstr("#v")));
}

TEST_F(Click, FillsWhatASelectionLacksWithNothing) {
  writeList(userList());
  instance.resetupFrom(flatSequence({{0, picture}}));
  click();
  EXPECT_THAT(scripts, ElementsAre(plainScript("gallery.jsx")));
}

TEST_F(Click, LeavesASelectionOutThatWouldCostTheScriptItsEnd) {
  writeList(userList());
  instance.resetupFrom(flatSequence({{0, picture + "*****" + std::string(70000, 'x')}}));
  click();
  EXPECT_THAT(scripts, ElementsAre(plainScript("gallery.jsx")));
}

// --- What a result does ---

TEST_F(Click, APickIsLoadedStoredAndRenderedAgain) {
  writeList(userList());
  outcome.result = pickOf(picture);
  const EventResult clicked = click();
  EXPECT_EQ(clicked.call.code, 0);
  EXPECT_TRUE(clicked.handled());
  EXPECT_EQ(clicked.call.out.out_flags, kRerender);
  EXPECT_EQ(storedSelection(), picture + "*****Label*****Name");
  EXPECT_EQ(liveRecordOf(instance).patternImage->pixels, pixels);
  EXPECT_EQ(host.refreshAllWindowsCount(), 1);
}

TEST_F(Click, APickChangesTheFrame) {
  writeList(userList());
  World layer(WorldFormat::Argb8, 20, 10);
  layer.fill({0.5, 0.5, 0.5, 1});
  const std::vector<unsigned char> before = instance.render({.input = &layer}).output->packed();
  outcome.result = pickOf(picture);
  click();
  EXPECT_NE(instance.render({.input = &layer}).output->packed(), before);
}

TEST_F(Click, APickSurvivesSavingAndReopening) {
  writeList(userList());
  outcome.result = pickOf(picture);
  click();
  const auto saved = flatCopy();
  standalone::Instance reopened(effect);
  ASSERT_EQ(reopened.resetupFrom(saved).code, 0);
  EXPECT_EQ(liveRecordOf(reopened).patternImage->pixels, pixels);
}

TEST_F(Click, ThePickIsWhatTheNextGalleryKnows) {
  writeList(userList());
  outcome.result = pickOf(picture);
  click();
  click();
  ASSERT_EQ(scripts.size(), 2u);
  EXPECT_THAT(scripts[1], HasSubstr("\"Label\", \"Name\""));
}

TEST_F(Click, ASecondPickTakesThePlaceOfTheFirst) {
  writeList(userList());
  outcome.result = pickOf(picture);
  click();
  const std::string other = folder.path("other.png");
  writePng(other, 2, 2, 4, variedPixels(2, 2, 4));
  outcome.result = pickOf(other);
  click();
  EXPECT_EQ(storedSelection(), other + "*****Label*****Name");
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 2);
}

TEST_F(Click, APickWithoutAFileIsStoredAsItIs) {
  writeList(userList());
  outcome.result = pickOf(folder.path("gone.png"));
  EXPECT_EQ(click().call.out.out_flags, kRerender);
  EXPECT_EQ(storedSelection(), folder.path("gone.png") + "*****Label*****Name");
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 0);
}

TEST_F(Click, APickRefreshesThePanel) {
  writeList(userList());
  instance.setChoice(Param::source, 1);
  outcome.result = pickOf(picture);
  ASSERT_EQ(instance.send({.type = PF_Event_DO_CLICK, .index = Param::txtsrc}).call.code, 0);
  EXPECT_TRUE(instance.shown(Param::txtsrc).hidden());
  EXPECT_EQ(liveRecordOf(instance).visibility[Param::txtsrc], 2);
  EXPECT_FALSE(instance.shown(Param::patsrc).streamHidden);
  EXPECT_FALSE(instance.shown(Param::patsrc).updated.has_value()) << "definitions are not for events";
}

TEST_F(Click, AGalleryThatIsClosedWithoutAPickChangesNothing) {
  writeList(userList());
  const EventResult clicked = click();
  EXPECT_TRUE(clicked.handled());
  expectNoPick(clicked);
}

TEST_F(Click, ARefreshAloneIsNoPick) {
  writeList(userList());
  outcome.result = "*UPD";
  const EventResult clicked = click();
  EXPECT_TRUE(clicked.handled());
  expectNoPick(clicked);
}

TEST_F(Click, ANullResultIsAnEmptyOne) {
  writeList(userList());
  host.options().noScriptResult = NoScriptResult::NullHandle;
  const EventResult clicked = click();
  EXPECT_TRUE(clicked.handled());
  expectNoPick(clicked);
}

TEST_F(Click, AResultOfTheSettingsIsNoPick) {
  outcome.result = pickOf(picture);
  expectNoPick(click());
}

// --- When the library is converted ---

TEST_F(Click, ConvertsTheLibraryBeforeTheGalleryOpens) {
  writeList(userList());
  FileReads reads(userList());
  bool readBefore = false;
  duringScript = [&] { readBefore = reads.any(); };
  click();
  EXPECT_TRUE(readBefore);
  EXPECT_FALSE(reads.any());
}

TEST_F(Click, ConvertsTheLibraryAgainWhenTheGalleryRefreshedIt) {
  writeList(userList());
  EXPECT_TRUE(readsListAfterwards("*UPD"));
  EXPECT_TRUE(readsListAfterwards(pickOf(picture, "UPD")));
}

TEST_F(Click, DoesNotConvertTheLibraryAfterAGalleryThatDidNot) {
  writeList(userList());
  EXPECT_FALSE(readsListAfterwards(""));
  EXPECT_FALSE(readsListAfterwards(pickOf(picture)));
}

TEST_F(Click, ConvertsTheLibraryAfterTheSettingsAreKept) {
  for (const bool kept : {true, false}) {
    outcome.result = kept ? "baseFolder: x\n" : "";
    std::unique_ptr<FileReads> reads;
    duringScript = [&] {
      writeList(userList());
      reads = std::make_unique<FileReads>(userList());
    };
    click();
    EXPECT_EQ(reads->any(), kept);
    std::filesystem::remove(userList());
  }
}

// --- When nothing opens ---

TEST_F(VideoEditorClick, DoesNothing) {
  writeList(userList());
  FileReads reads(userList());
  outcome.result = pickOf(picture);
  const EventResult clicked = click();
  EXPECT_THAT(scripts, IsEmpty());
  EXPECT_FALSE(clicked.handled());
  EXPECT_FALSE(reads.any());
  expectNoPick(clicked);
}

TEST_F(Click, WithoutDataDoesNothing) {
  standalone::Instance bare(effect);
  EXPECT_EQ(bare.clickedByUser(Param::txtsrc).call.code, 0);
  EXPECT_THAT(scripts, IsEmpty());
}

TEST_F(Click, WithFlatDataDoesNothing) {
  instance.flatten();
  EXPECT_EQ(click().call.code, 0);
  EXPECT_THAT(scripts, IsEmpty());
  instance.resetup();
}

TEST_F(Click, OtherEventsDoNothing) {
  for (PF_EventType type = PF_Event_NEW_CONTEXT; type <= PF_Event_MOUSE_EXITED + 1; ++type) {
    if (type == PF_Event_DO_CLICK || type == PF_Event_DRAW) continue;
    const EventResult sent = instance.send({.type = type, .index = Param::txtsrc});
    EXPECT_EQ(sent.call.code, 0) << type;
    EXPECT_EQ(sent.outFlags, 0) << type;
  }
  EXPECT_THAT(scripts, IsEmpty());
}

TEST_F(Click, WithoutItsRecordIs516) { EXPECT_EQ(instance.call({.selector = PF_Cmd_EVENT}).code, 516); }

TEST_F(Click, AScriptThatTheHostRefusesIsNoDialog) {
  host.faults().failAlways(HostCall::ExecuteScript);
  const EventResult clicked = click();
  host.faults().failNever();
  EXPECT_FALSE(clicked.handled());
  expectNoPick(clicked);
}

TEST_F(Click, AScriptThatFailsIsNoDialog) {
  outcome = {.error = 7, .result = "lost", .errorText = "line 3"};
  const EventResult clicked = click();
  EXPECT_FALSE(clicked.handled());
  expectNoPick(clicked);
}

TEST_F(Click, AResultThatCannotBeReadIsAnEmptyOne) {
  writeList(userList());
  outcome.result = pickOf(picture);
  host.faults().failAlways(HostCall::LockMemory);
  const EventResult clicked = click();
  host.faults().failNever();
  EXPECT_TRUE(clicked.handled());
  expectNoPick(clicked);
}

TEST_F(Click, TheEmbeddersTroubleReachesTheEmbedder) {
  duringScript = [] { throw std::runtime_error("no button \"Refresh\""); };
  EXPECT_THROW(click(), std::runtime_error);
}

class ClickWithoutASuite : public Click, public testing::WithParamInterface<SuiteName> {};

TEST_P(ClickWithoutASuite, Is516AndTellsTheUser) {
  writeList(userList());
  outcome.result = pickOf(picture);
  host.options().suitesNotOffered = {{GetParam().name, GetParam().version}};
  const EventResult clicked = click();
  EXPECT_EQ(clicked.call.code, 516);
  EXPECT_EQ(clicked.call.message(), "Not able to acquire AEFX Suite.");
  EXPECT_EQ(clicked.call.out.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
  host.options().suitesNotOffered.clear();
}

INSTANTIATE_TEST_SUITE_P(Each, ClickWithoutASuite,
                         testing::Values(SuiteName{"PF Handle Suite", 2}, SuiteName{"AEGP Utility Suite", 11},
                                         SuiteName{"AEGP Memory Suite", 1}, SuiteName{"PF AE Adv App Suite", 1}),
                         testName);

TEST_F(Click, WithoutTheDynamicStreamsAPickIsTakenAllTheSame) {
  writeList(userList());
  host.options().suitesNotOffered = {{"AEGP Dynamic Stream Suite", 2}};
  outcome.result = pickOf(picture);
  EXPECT_EQ(click().call.out.out_flags, kRerender);
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 7);
}

}  // namespace
}  // namespace quiltor
