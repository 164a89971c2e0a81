// The bar as front-ends see it: paths that name controls back, the reasons a control
// cannot be clicked, and the change number that tells when to describe the bar again.
#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "frontends/shared/bar_state.h"

namespace quillet::frontends {
namespace {

struct BarStateTest : ::testing::Test, test::EditorFixture {
  BarStateTest() {
    vbe.CommandBars().Add(L"Quillet", 1, false, true);
    bar = AddInBar(vbe);
    bar->SetVisible(true);
    first = std::static_pointer_cast<host::MemoryControl>(bar->Items().Add(host::kControlButton));
    first->SetCaption(L"&Add Variable...");
    menu = std::static_pointer_cast<host::MemoryControl>(bar->Items().Add(host::kControlPopup));
    menu->SetCaption(L"&Quillet");
    inner = std::static_pointer_cast<host::MemoryControl>(menu->Controls()->Add(host::kControlButton));
    inner->SetCaption(L"&Then");
  }
  host::MemoryCommandBar* bar = nullptr;
  std::shared_ptr<host::MemoryControl> first, menu, inner;
};

TEST_F(BarStateTest, PathsNameControlsBackAndHiddenParentsBlockClicks) {
  ASSERT_NE(bar, nullptr);
  nlohmann::json d = DescribeBar(*bar);
  ASSERT_EQ(d["controls"].size(), 2u);
  EXPECT_EQ(d["controls"][1]["controls"][0]["path"], nlohmann::json({2, 1}));
  EXPECT_EQ(d["controls"][1]["controls"][0]["caption"], "&Then");
  EXPECT_EQ(ControlAt(*bar, {2, 1}), inner);
  EXPECT_EQ(ControlAt(*bar, {1}), first);
  EXPECT_EQ(ControlAt(*bar, {1, 1}), nullptr);  // a button has no children
  EXPECT_EQ(ControlAt(*bar, {3}), nullptr);
  EXPECT_EQ(ControlAt(*bar, {0}), nullptr);

  EXPECT_EQ(WhyNotClickable(*bar, *inner), "");
  menu->SetVisible(false);
  EXPECT_EQ(WhyNotClickable(*bar, *inner), "&Quillet is hidden");
  menu->SetVisible(true);
  inner->SetEnabled(false);
  EXPECT_EQ(WhyNotClickable(*bar, *inner), "&Then is disabled");
  inner->SetEnabled(true);
  bar->SetEnabled(false);
  EXPECT_EQ(WhyNotClickable(*bar, *first), "the command bar is disabled");
}

TEST_F(BarStateTest, TheChangeNumberMovesWithEverythingTheDescriptionShows) {
  long long before = BarChanges(*bar);
  EXPECT_EQ(BarChanges(*bar), before);  // asking changes nothing
  auto changed = [&](const std::function<void()>& edit) {
    long long was = BarChanges(*bar);
    edit();
    return BarChanges(*bar) != was;
  };
  EXPECT_TRUE(changed([&] { inner->SetEnabled(false); }));
  EXPECT_TRUE(changed([&] { inner->SetVisible(false); }));
  EXPECT_TRUE(changed([&] { inner->SetCaption(L"Then &Else"); }));
  EXPECT_TRUE(changed([&] { first->SetTooltipText(L"Adds a variable"); }));
  EXPECT_TRUE(changed([&] { first->SetPicture(L"103", L"103m"); }));
  EXPECT_TRUE(changed([&] { first->SetBeginGroup(true); }));
  EXPECT_TRUE(changed([&] { menu->Controls()->Add(host::kControlButton); }));
  EXPECT_TRUE(changed([&] { bar->SetVisible(false); }));
}

}  // namespace
}  // namespace quillet::frontends
