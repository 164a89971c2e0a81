#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/dispatcher_commands.h"
#include "generators/quillet.h"
#include "shell/commands.h"
#include "vba/encoding.h"
#include "vba/strings.h"

using namespace quillet;

namespace {

struct Commands : ::testing::Test, test::SessionFixture {
  Commands() {
    module = Build().Class(L"Class1", {L"Option Explicit"}).Module(L"Module1", {L"Sub A()", L"|", L"End Sub"}).active;
  }
  std::shared_ptr<host::MemoryComponent> module;
  void Run(const std::wstring& command) {
    std::wstring argument;
    generators::QuilletHandle(session, command, argument);
  }
};

TEST_F(Commands, EveryHandlerOfTheBarNamesACommandOfTheDispatcher) {
  std::vector<shell::HandlerEntry> handlers = shell::CommandBarHandlers();
  ASSERT_GT(handlers.size(), 40u);
  for (const shell::HandlerEntry& e : handlers) {
    EXPECT_FALSE(e.caption.empty()) << vba::ToUtf8(e.handler);
    EXPECT_EQ(e.caption.find(L'&'), std::wstring::npos);
    if (!e.command.empty()) {
      EXPECT_NE(generators::FindDispatcherCommand(e.command), nullptr) << vba::ToUtf8(e.handler);
    }
  }
  std::wstring listing = shell::CommandsListing();
  EXPECT_NE(listing.find(L"  \"ForNext\"\n"), std::wstring::npos);
  EXPECT_NE(listing.find(L"  \"Insert Objectname\"  (a later version)\n"), std::wstring::npos);
  EXPECT_NE(listing.find(L"mnuhIfThenElse"), std::wstring::npos);
}

TEST_F(Commands, AnUnknownCommandIsAnErrorAndALaterOneANote) {
  Run(L"For Next");
  std::wstring immediate = vbe.ImmediateText();
  EXPECT_NE(immediate.find(L"Quillet.For Next Error - 5: There is no command \"For Next\".\r\nbasQuillet.QuilletHandle"),
            std::wstring::npos)
      << vba::ToUtf8(immediate);
  EXPECT_EQ(immediate.find(L"not available"), std::wstring::npos);

  Run(L"Insert Objectname");
  immediate = vbe.ImmediateText();
  EXPECT_NE(immediate.find(L"Quillet: the command \"Insert Objectname\" is not available in this version."), std::wstring::npos);
  EXPECT_EQ(Text(module), L"Sub A()\r\n\r\nEnd Sub");  // neither wrote anything
}

}  // namespace
