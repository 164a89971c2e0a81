// The builders' type boxes complete what the programmer types, and the dialog follows the
// completed type as it follows a chosen one.
#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/frm_argument.h"
#include "generators/frm_const.h"
#include "generators/frm_procedure.h"
#include "generators/frm_property.h"
#include "generators/frm_var.h"
#include "generators/scope.h"
#include "ui/user_input.h"

namespace quillet::generators {
namespace {

using ui::UserInput;

struct TypeBoxes : ::testing::Test, test::SessionFixture {
  TypeBoxes() {
    Code(L"Module1", {L"Option Explicit", L"", L"Sub Main()", L"    |", L"End Sub"});
    initialize(session, L"", L"");
  }
  // Types `keys` into the box from an empty text and reports what the box then shows.
  static std::wstring Typed(ui::ComboBox& box, std::wstring_view keys) {
    UserInput::Set(box, "");
    for (wchar_t c : keys) UserInput::Key(box, c);
    return box.Text() + L"|" + box.SelText();
  }
};

TEST_F(TypeBoxes, EveryBuildersTypeBoxCompletesFromItsList) {
  FrmVar var(session);
  var.Init();
  var.Show();
  EXPECT_EQ(Typed(var.cboDataType, L"lo"), L"Long|ng");
  var.Hide();

  FrmConst constant(session);
  constant.Init();
  constant.Show();
  EXPECT_EQ(Typed(constant.cboDataType, L"da"), L"Date|te");
  constant.Hide();

  FrmArgument argument(session);
  argument.Init();
  argument.Show();
  EXPECT_EQ(Typed(argument.cboDataType, L"bo"), L"Boolean|olean");
  argument.Hide();

  FrmProperty property(session);
  property.Init();
  property.Show();
  EXPECT_EQ(Typed(property.cboDataType, L"va"), L"Variant|riant");
  property.Hide();

  FrmProcedure procedure(session);
  procedure.Init();
  procedure.Show();
  UserInput::Set(procedure, L"cboProcType", "Function");
  EXPECT_EQ(Typed(procedure.cboReturnValueType, L"cu"), L"Currency|rrency");
  // Only the type boxes complete: a module name stays as typed.
  EXPECT_EQ(Typed(procedure.cboModule, L"m"), L"m|");
}

TEST_F(TypeBoxes, ACompletedTypeSetsTheDialogAsAChosenOneWould) {
  FrmVar var(session);
  var.Init();
  var.Show();
  int changes = 0;
  var.cboDataType.OnChange.Listen([&] { ++changes; });
  UserInput::Set(var.cboDataType, "Long");
  EXPECT_FALSE(var.chkNew.Enabled());  // Set = New is for objects
  changes = 0;
  // Completion changes the text without a Change: only the box's Click handler, called by
  // name, tells the dialog that the type is now an object, and then a basic type again.
  UserInput::Caret(var.cboDataType, 0, 4);
  UserInput::Key(var.cboDataType, 'c');
  UserInput::Key(var.cboDataType, 'o');
  ASSERT_EQ(var.cboDataType.Text(), L"Collection");
  EXPECT_TRUE(var.chkNew.Enabled());
  UserInput::Caret(var.cboDataType, 1, 9);
  UserInput::Key(var.cboDataType, 'u');
  ASSERT_EQ(var.cboDataType.Text(), L"Currency");
  EXPECT_FALSE(var.chkNew.Enabled());
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace quillet::generators
