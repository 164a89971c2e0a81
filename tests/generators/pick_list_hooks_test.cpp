// "<New Variable>" of the pick lists goes to the Variable Builder through its hooks: the
// name it returns is what the command writes, a Cancel there keeps the list open, and a
// Select From Enum without a test expression asks for the builder afterwards.
#include <gtest/gtest.h>

#include "generators/frm_select_from_list.h"
#include "generators/quillet.h"
#include "generators/variable_builder_hooks.h"
#include "support/fixtures.h"
#include "ui/controls.h"

using namespace quillet;

namespace {

struct PickListHooks : test::SessionFixture, ::testing::Test {
  void Run(const std::wstring& command) {
    std::wstring argument;
    generators::QuilletHandle(session, command, argument);
  }
  generators::FrmSelectFromList& List() {
    return *dynamic_cast<generators::FrmSelectFromList*>(ui.FindForm(L"frmSelectFromList"));
  }
  // The user picks `entry` and presses OK.
  void QueuePick(const std::wstring& entry) {
    uiHost.QueueAction([this, entry] {
      auto& list = List().lstList;
      list.SetListIndex(list.FindStringExact(entry));
      List().cmdOk.OnClick();
    });
  }

  std::vector<std::wstring> asked;  // what the builder was asked for: mode and types
  std::wstring answer = L"wksData";
};

TEST_F(PickListHooks, NewVariableComesFromTheBuilder) {
  generators::VariableBuilderHooksSet(
      session, {.newVariable =
                    [this](kernel::Session&, ui::Form* parent, bool withMode, const std::wstring& types,
                           std::wstring& name, long& category) {
                      EXPECT_EQ(parent->Name(), L"frmSelectFromList");
                      asked.push_back((withMode ? L"With:" : L"Var:") + types);
                      if (answer.empty()) return false;
                      name = answer;
                      category = 1;
                      return true;
                    },
                .openLater = [this](kernel::Session&, const std::wstring& type) { asked.push_back(L"Later:" + type); }});
  auto module = Code(L"Module1", {L"Sub A()", L"    |", L"End Sub"});
  QueuePick(L"<New Variable>");
  Run(L"With");
  EXPECT_EQ(Text(module), L"Sub A()\r\n    With wksData\r\n        \r\n    End With\r\nEnd Sub");

  // The builder cancelled: nothing written, the list still open until the user cancels it.
  Caret(3, 9);
  answer.clear();
  QueuePick(L"<New Variable>");
  uiHost.QueueAction([this] {
    EXPECT_TRUE(List().Visible());
    List().cmdCancel.OnClick();
  });
  Run(L"Select Case UCase");
  EXPECT_EQ(Text(module), L"Sub A()\r\n    With wksData\r\n        \r\n    End With\r\nEnd Sub");

  // A Select Case on a new variable: its name is the test expression, the String filter goes
  // to the builder.
  answer = L"strName";
  QueuePick(L"<New Variable>");
  uiHost.AnswerInputBox(std::nullopt);
  Run(L"Select Case UCase");
  EXPECT_EQ(Text(module), L"Sub A()\r\n    With wksData\r\n        Select Case UCase(strName)\r\n        End Select\r\n"
                          L"    End With\r\nEnd Sub");
  EXPECT_EQ(asked, (std::vector<std::wstring>{L"With:", L"Var:String", L"Var:String"}));
}

}  // namespace
