// The Variable Builder's own logic: the accessibility entries by where the caret is, the
// state rules of its controls, the line it builds, and arguments written into signatures.
#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/frm_var.h"
#include "generators/scope.h"
#include "settings/items.h"

namespace quillet::generators {
namespace {

using Lines = std::vector<std::wstring>;

std::vector<std::wstring> Entries(const ui::ComboBox& box) {
  std::vector<std::wstring> out;
  for (int i = 0; i < box.ListCount(); ++i) out.push_back(box.List(i));
  return out;
}

TEST(FrmVar, AccessibilityFollowsTheCaretAndTheStateRulesHold) {
  test::SessionFixture fx;
  fx.Code(L"Module1", {L"Option Explicit", L"", L"Sub Main()", L"    |", L"End Sub"});
  initialize(fx.session, L"", L"");
  FrmVar var(fx.session);
  var.Init();
  EXPECT_EQ(Entries(var.cboAccessibility),
            (std::vector<std::wstring>{L"Dim - Procedure", L"Dim - Module", L"Interface", L"Public", L"Private", L"Static"}));
  EXPECT_EQ(var.VarLevel(), kProcedureLevel);
  EXPECT_EQ(var.cboDataType.Text(), L"String");

  // An array of fixed-length strings, with its description.
  var.txtName.SetText(L"x");
  var.chkArray.SetValue(1);
  var.txtDimensions.SetText(L"1 To 5");
  var.txtLength.SetText(L"8");
  EXPECT_EQ(var.BuildCodeLine().line, L"Dim x(1 To 5) As String * 8");
  var.txtDescription.SetText(L"names");
  EXPECT_EQ(var.BuildCodeLine().line, L"Dim x(1 To 5) As String * 8    'names");
  EXPECT_EQ(var.BuildCodeLine().namePart, L"x(1 To 5) As String * 8");
  var.SetAccessibilityItem(6);
  EXPECT_TRUE(var.IsStatic());
  EXPECT_EQ(var.BuildCodeLine().line.substr(0, 9), L"Static x(");

  // At interface level: no length, ParamArray only for an array and never with ByVal or
  // Optional; a default only with Optional.
  var.SetAccessibilityItem(3);
  EXPECT_EQ(var.VarLevel(), kInterfaceLevel);
  EXPECT_FALSE(var.txtLength.Enabled());
  EXPECT_EQ(var.txtLength.Text(), L"");
  EXPECT_TRUE(var.chkParamArray.Enabled());
  var.chkByVal.SetValue(1);
  EXPECT_FALSE(var.chkParamArray.Enabled());
  var.chkByVal.SetValue(0);
  var.chkParamArray.SetValue(1);
  EXPECT_FALSE(var.chkOptional.Enabled());
  EXPECT_FALSE(var.txtDefault.Enabled());
  var.chkArray.SetValue(0);  // ParamArray needs the array: it goes
  EXPECT_EQ(var.chkParamArray.Value(), 0);
  EXPECT_FALSE(var.txtDimensions.Enabled());
  var.chkOptional.SetValue(1);
  EXPECT_TRUE(var.txtDefault.Enabled());

  // Object lines only for object types at procedure level, "New" not for Object itself.
  var.SetAccessibilityItem(2);
  var.cboDataType.SetListIndex(var.cboDataType.FindStringExact(L"Collection"));
  EXPECT_TRUE(var.chkNew.Enabled());
  var.chkNew.SetValue(1);
  var.cboDataType.SetListIndex(var.cboDataType.FindStringExact(L"Object"));
  EXPECT_FALSE(var.chkNew.Enabled());
  EXPECT_EQ(var.chkNew.Value(), 0);
  EXPECT_TRUE(var.chkNothing.Enabled());
  var.SetAccessibilityItem(1);
  EXPECT_FALSE(var.chkNothing.Enabled());
  EXPECT_TRUE(var.cboModule.Enabled());
}

TEST(FrmVar, OutsideAProcedureOnlyModuleEntriesAreOffered) {
  test::SessionFixture fx;
  fx.Code(L"Module1", {L"Option Explicit", L"|", L"Sub Main()", L"End Sub"});
  initialize(fx.session, L"", L"");
  FrmVar var(fx.session);
  var.Init({.types = L"Long", .onlyTypes = true});
  EXPECT_EQ(Entries(var.cboAccessibility), (std::vector<std::wstring>{L"Dim - Module", L"Public", L"Private"}));
  EXPECT_EQ(Entries(var.cboDataType), (std::vector<std::wstring>{L"Long"}));
  var.txtName.SetText(L"total");
  var.SetAccessibilityItem(5);
  EXPECT_EQ(var.BuildCodeLine().line, L"Private total As Long");
}

TEST(FrmVar, WithModeOffersObjectTypesAndInsertsTheNameWithABlank) {
  test::SessionFixture fx;
  auto module = fx.Code(L"Module1", {L"Sub Main()", L"    x = |", L"End Sub"});
  fx.project->AddComponent(L"Class1", host::kClassModule, {L"Option Explicit"});
  fx.session.settings[settings::kDeclarationIndented] = true;
  initialize(fx.session, L"", L"");
  FrmVar var(fx.session);
  var.Init({.withMode = true, .insertInstance = true});
  EXPECT_EQ(Entries(var.cboDataType), (std::vector<std::wstring>{L"Object", L"Collection", L"Class1"}));
  EXPECT_EQ(var.cboDataType.Text(), L"Object");
  EXPECT_FALSE(var.cmdOKAndPaste.Enabled());
  var.txtName.SetText(L"obj");
  ASSERT_TRUE(var.PressOK(false));
  EXPECT_EQ(fx.Text(module), L"Sub Main()\r\n    Dim obj As Object\r\n    x = obj \r\nEnd Sub");
}

TEST(FrmVar, ArgumentsGoLastOrBeforeAChosenOne) {
  auto edited = [](const Lines& lines, long caret, const std::wstring& arg, int before, bool newLine,
                   const std::wstring& description = L"") {
    DeclView v = DeclViewOf(lines, host::Selection(caret, 1), L"    ");
    std::optional<kernel::CodeEdit> e = ArgumentAddEdit(v, arg, before, newLine, L"c", description);
    return e ? kernel::EditedLines(lines, *e) : lines;
  };
  Lines one = {L"Function F(a As Long) As Long", L"End Function"};
  EXPECT_EQ(edited(one, 2, L"b As String", -1, false), (Lines{L"Function F(a As Long, b As String) As Long", L"End Function"}));
  EXPECT_EQ(edited(one, 2, L"b As String", 0, false), (Lines{L"Function F(b As String, a As Long) As Long", L"End Function"}));
  Lines none = {L"Sub S()", L"End Sub"};
  EXPECT_EQ(edited(none, 2, L"c As Long", -1, true, L" third "), (Lines{L"Sub S(c As Long)", L"'c: third", L"End Sub"}));
  Lines two = {L"Sub T(a As Long, _", L"      b As Long)", L"End Sub"};
  EXPECT_EQ(edited(two, 3, L"c", -1, true), (Lines{L"Sub T(a As Long, _", L"      b As Long, _", L"      c)", L"End Sub"}));
  EXPECT_EQ(edited(two, 3, L"c", -1, false), (Lines{L"Sub T(a As Long, _", L"      b As Long, c)", L"End Sub"}));
  EXPECT_EQ(edited(two, 3, L"c", 1, false), (Lines{L"Sub T(a As Long, _", L"      c, _", L"      b As Long)", L"End Sub"}));
  // A default in quotes with a comma is one argument.
  Lines quoted = {L"Sub Q(Optional s = \"a, b\", n As Long)", L"End Sub"};
  EXPECT_EQ(edited(quoted, 2, L"c", 1, false), (Lines{L"Sub Q(Optional s = \"a, b\", c, n As Long)", L"End Sub"}));
  EXPECT_EQ(edited({L"Option Explicit"}, 1, L"c", -1, false), (Lines{L"Option Explicit"}));
}

}  // namespace
}  // namespace quillet::generators
