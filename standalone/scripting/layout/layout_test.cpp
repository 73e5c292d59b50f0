#include "standalone/scripting/layout/layout.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace quiltor::standalone {
namespace {

LayoutBox control(int width, int height) {
  LayoutBox box;
  box.content = {width, height};
  return box;
}

LayoutBox container(Orientation orientation, std::initializer_list<LayoutBox*> children) {
  LayoutBox box;
  box.isContainer = true;
  box.orientation = orientation;
  box.children = children;
  return box;
}

TEST(Layout, ARowIsAsWideAsItsChildrenWithSpacingBetweenThem) {
  LayoutBox a = control(40, 20), b = control(60, 30);
  LayoutBox row = container(Orientation::Row, {&a, &b});
  row.margins = {1, 2, 3, 4};
  row.spacing = 5;
  EXPECT_EQ(measure(row), (LayoutSize{1 + 40 + 5 + 60 + 3, 2 + 30 + 4}));
}

TEST(Layout, AContainerWithoutChildrenIsItsMargins) {
  LayoutBox row = container(Orientation::Row, {});
  row.margins = {5, 5, 5, 5};
  EXPECT_EQ(measure(row), (LayoutSize{10, 10}));
}

TEST(Layout, ChildrenOfARowStandInTheMiddleOfItsHeight) {
  LayoutBox a = control(40, 20), b = control(60, 30);
  LayoutBox row = container(Orientation::Row, {&a, &b});
  arrange(row, measure(row));
  EXPECT_EQ(a.rect, (LayoutRect{0, 5, 40, 20}));
  EXPECT_EQ(b.rect, (LayoutRect{50, 0, 60, 30}));
}

TEST(Layout, AChildsOwnAlignmentComesBeforeItsContainers) {
  LayoutBox wide = control(100, 10), left = control(20, 10), right = control(20, 10), filling = control(20, 10);
  LayoutBox column = container(Orientation::Column, {&wide, &left, &right, &filling});
  column.alignChildren = {Align::Near, Align::Near};
  right.alignment.horizontal = Align::Far;
  filling.alignment.horizontal = Align::Fill;
  arrange(column, measure(column));
  EXPECT_EQ(left.rect, (LayoutRect{0, 20, 20, 10}));
  EXPECT_EQ(right.rect, (LayoutRect{80, 40, 20, 10}));
  EXPECT_EQ(filling.rect, (LayoutRect{0, 60, 100, 10}));
}

TEST(Layout, APartOfThePreferredSizeCountsAloneAndMinusOneIsComputed) {
  LayoutBox label = control(30, 18);
  label.preferred = {400, -1};
  EXPECT_EQ(measure(label), (LayoutSize{400, 18}));
}

TEST(Layout, MinimumAndMaximumHoldTheSize) {
  LayoutBox small = control(3, 300);
  small.minimum = {25, 0};
  small.maximum = {100, 50};
  EXPECT_EQ(measure(small), (LayoutSize{25, 50}));
}

TEST(Layout, APreferredSizeOfAContainerIsKeptAndItsChildrenStartAtTheLeft) {
  LayoutBox a = control(40, 20);
  LayoutBox row = container(Orientation::Row, {&a});
  row.preferred = {800, -1};
  arrange(row, measure(row));
  EXPECT_EQ(row.rect.width, 800);
  EXPECT_EQ(a.rect.x, 0);
}

TEST(Layout, TheFreeSpaceOfARowGoesToThoseThatFill) {
  LayoutBox a = control(40, 20), b = control(60, 20), c = control(10, 20);
  LayoutBox row = container(Orientation::Row, {&a, &b, &c});
  row.preferred = {200, -1};
  b.alignment.horizontal = Align::Fill;
  arrange(row, measure(row));
  EXPECT_EQ(b.rect, (LayoutRect{50, 0, 130, 20}));
  EXPECT_EQ(c.rect.x, 190);
}

TEST(Layout, AlignedToTheFarEndOfARowMovesAllThatFollows) {
  LayoutBox a = control(40, 20), b = control(60, 20);
  LayoutBox row = container(Orientation::Row, {&a, &b});
  row.preferred = {200, -1};
  b.alignment.horizontal = Align::Far;
  arrange(row, measure(row));
  EXPECT_EQ(a.rect.x, 0);
  EXPECT_EQ(b.rect.x, 140);
}

TEST(Layout, TheFrameOfAPanelSurroundsItsMargins) {
  LayoutBox a = control(40, 20);
  LayoutBox panel = container(Orientation::Column, {&a});
  panel.frame = {1, 18, 1, 1};
  panel.margins = {5, 5, 5, 5};
  arrange(panel, measure(panel));
  EXPECT_EQ(panel.rect, (LayoutRect{0, 0, 52, 49}));
  EXPECT_EQ(a.rect, (LayoutRect{6, 23, 40, 20}));
}

TEST(Layout, AStackLaysItsChildrenOverEachOther) {
  LayoutBox a = control(40, 20), b = control(60, 30);
  LayoutBox stack = container(Orientation::Stack, {&a, &b});
  stack.alignChildren = {Align::Center, Align::Center};
  arrange(stack, measure(stack));
  EXPECT_EQ(a.rect, (LayoutRect{10, 5, 40, 20}));
  EXPECT_EQ(b.rect, (LayoutRect{0, 0, 60, 30}));
}

TEST(Layout, ASizeGivenByTheScriptIsNotStretched) {
  LayoutBox wide = control(100, 10), icon = control(10, 10);
  icon.fixedSize = {50, 50};
  LayoutBox column = container(Orientation::Column, {&wide, &icon});
  column.alignChildren = {Align::Fill, Align::Near};
  arrange(column, measure(column));
  EXPECT_EQ(icon.rect, (LayoutRect{0, 20, 50, 50}));
}

}  // namespace
}  // namespace quiltor::standalone
