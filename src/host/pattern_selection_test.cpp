#include "host/pattern_selection.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

TEST(PatternSelection, BecomesAReferenceWithAClosingStar) {
  EXPECT_EQ(referenceFromSelection("/patterns/oak.png*****FOLDER*****Woods"), "/patterns/oak.png*FOLDER*Woods*");
}

TEST(PatternSelection, KeepsAnEmptyFieldInItsPlace) {
  EXPECT_EQ(referenceFromSelection("/patterns/oak.png**********Woods"), "/patterns/oak.png**Woods*");
}

TEST(PatternSelection, ReadsMissingFieldsAsEmpty) {
  EXPECT_EQ(referenceFromSelection("/patterns/oak.png"), "/patterns/oak.png***");
  EXPECT_EQ(referenceFromSelection("/patterns/oak.png*****FOLDER"), "/patterns/oak.png*FOLDER**");
}

TEST(PatternSelection, LeavesOutWhatFollowsTheThirdField) {
  EXPECT_EQ(referenceFromSelection("a.png*****b*****c*****d"), "a.png*b*c*");
}

TEST(PatternSelection, WithoutAPathNamesNothing) {
  EXPECT_EQ(referenceFromSelection(""), "");
  EXPECT_EQ(referenceFromSelection("*****FOLDER*****Woods"), "");
}

}  // namespace
}  // namespace quiltor
