#include <gtest/gtest.h>

#include "hostmodel/memory_commandbars.h"
#include "../support/fixtures.h"
#include "shell/command_bar.h"
#include "shell/connect.h"
#include "shell/menu_tree.h"
#include "vba/error.h"

using namespace quillet;

namespace {

struct CommandBar : ::testing::Test, test::SessionFixture {
  CommandBar() { Module(L"Module1", {L"Sub A()", L"", L"End Sub"}); }
  std::wstring Stored(const wchar_t* key) { return platform.GetSetting(L"Quillet", L"Quillet", key, L"(none)"); }
};

TEST_F(CommandBar, PositionIsStoredAtDeletionAndComesBack) {
  auto bar = shell::ToolBarCreate(session, vbe.CommandBars(), L"");
  EXPECT_EQ(bar->Position(), host::kBarTop);  // nothing stored: a top bar at row 0
  EXPECT_EQ(bar->RowIndex(), 0);
  EXPECT_TRUE(bar->Visible());

  bar->SetPosition(host::kBarFloating);
  bar->SetTop(120);
  bar->SetLeft(340);
  bar->SetRowIndex(7);
  shell::ToolBarDelete(session, vbe.CommandBars(), L"");
  EXPECT_EQ(Stored(L"ToolbarPos"), L"4");
  EXPECT_EQ(Stored(L"ToolbarTop"), L"120");
  EXPECT_THROW(vbe.CommandBars().Item(L"Quillet"), vba::Error);

  bar = shell::ToolBarCreate(session, vbe.CommandBars(), L"");
  EXPECT_EQ(bar->Position(), host::kBarFloating);
  EXPECT_EQ(bar->Top(), 120);
  EXPECT_EQ(bar->Left(), 340);
  EXPECT_EQ(bar->RowIndex(), 0);  // a floating bar has no row

  // Docked at the side: the row and the top come back, not the left.
  platform.SaveSetting(L"Quillet", L"Quillet", L"ToolbarPosAccess", L"2");
  platform.SaveSetting(L"Quillet", L"Quillet", L"ToolbarIndexAccess", L"3");
  platform.SaveSetting(L"Quillet", L"Quillet", L"ToolbarTopAccess", L"50");
  platform.SaveSetting(L"Quillet", L"Quillet", L"ToolbarLeftAccess", L"60");
  host::MemoryCommandBars other(vbe);
  auto side = shell::ToolBarCreate(session, other, L"Access");
  EXPECT_EQ(side->Position(), host::kBarRight);
  EXPECT_EQ(side->RowIndex(), 3);
  EXPECT_EQ(side->Top(), 50);
  EXPECT_EQ(side->Left(), 0);
}

TEST_F(CommandBar, ControlsGetCaptionsStylesTagsAndPictures) {
  auto bar = shell::ToolBarCreate(session, vbe.CommandBars(), L"");
  auto button = shell::ToolBarControlAdd(session, *bar, {.captionId = 103, .faceId = 103});
  EXPECT_EQ(button->Caption(), L"&Add Variable...");
  EXPECT_EQ(button->Style(), host::kStyleIcon);  // on the bar: the picture only
  EXPECT_EQ(button->Picture(), L"103");
  EXPECT_EQ(button->Tag(), L"&Add Variable...");

  auto menu = shell::ToolBarControlAdd(session, *bar, {.captionId = 122, .controlType = host::kControlPopup, .beginGroup = true});
  auto sub = shell::ToolBarControlAdd(session, *bar, {.captionId = 123, .controlType = host::kControlPopup, .parent = menu});
  auto entry = shell::ToolBarControlAdd(session, *bar, {.captionId = 103, .beginGroup = true, .faceId = 103, .parent = sub, .tooltip = L"116"});
  EXPECT_EQ(entry->Style(), host::kStyleIconAndCaption);  // in a menu: picture and caption
  EXPECT_EQ(entry->Tag(), L"&Quillet &Variable &Add Variable...");
  EXPECT_TRUE(entry->BeginGroup());
  EXPECT_EQ(entry->TooltipText(), L"&About...");  // a numeric tooltip is a string id
  auto plain = shell::ToolBarControlAdd(session, *bar, {.captionId = 127, .parent = sub, .tooltip = L"Text"});
  EXPECT_EQ(plain->Style(), host::kStyleAutomatic);
  EXPECT_EQ(plain->TooltipText(), L"Text");
}

TEST_F(CommandBar, ConditionalEntriesFollowTheHosts) {
  struct App : host::OfficeApplication {
    std::wstring name;
    explicit App(std::wstring n) : name(std::move(n)) {}
    std::wstring Name() const override { return name; }
  };
  auto countId = [&](int id) {
    auto b = static_cast<host::MemoryCommandBars&>(vbe.CommandBars()).Bar(L"Quillet");
    int n = 0;
    std::function<void(const host::MemoryControls&)> walk = [&](const host::MemoryControls& cs) {
      for (const auto& c : cs.All()) {
        if (c->Parameter() == std::to_wstring(id)) ++n;
        if (auto* children = static_cast<host::MemoryControls*>(c->Controls())) walk(*children);
      }
    };
    walk(b->Items());
    return n;
  };
  shell::Connect connect(session);
  session.vbe = &vbe;
  shell::CommandBarBuild(session, connect);
  EXPECT_EQ(countId(179), 0);  // no host whose objects can be named
  EXPECT_EQ(countId(183), 0);  // not testing
  EXPECT_EQ(countId(172), 0);  // not Access
  EXPECT_NE(connect.ControlOf(L"mnuhTypeItem"), nullptr);
  EXPECT_EQ(connect.ControlOf(L"mnuhQLTAddControl"), nullptr);
  shell::CommandBarRemove(session);

  session.hostAccess = std::make_shared<App>(L"Microsoft Access");
  session.testingMode = true;
  shell::CommandBarBuild(session, connect);
  EXPECT_EQ(countId(179), 1);
  EXPECT_EQ(countId(183), 1);
  EXPECT_EQ(countId(172), 1);
}

}  // namespace
