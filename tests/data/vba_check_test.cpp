// The checker of the shipped VBA must itself see the faults it is there for.
#include <gtest/gtest.h>

#include "vba/encoding.h"
#include "vba_check.h"

namespace quillet::datacheck {
namespace {

std::vector<std::wstring> L(std::initializer_list<const wchar_t*> lines) { return {lines.begin(), lines.end()}; }

TEST(VbaCheck, SeesBrokenBlocksAndPassesSoundCode) {
  std::vector<std::wstring> sound = L({
      L"Public Static Function F(ByVal a As Long, _",
      L"        Optional b As String = \"End If\") As Long",
      L"    Dim i As Long: i = 1",
      L"    If a > 0 Then Exit Function Else a = 1",
      L"    If a > 1 Then",
      L"        For i = 1 To 3: Next i",
      L"    ElseIf a = 0 Then",
      L"        Select Case a",
      L"            Case 1, 2",
      L"            Case Else",
      L"        End Select",
      L"    Else",
      L"        Do While a < 3 ' Loop",
      L"            If a = 2 Then Exit Do",
      L"            a = a + 1",
      L"        Loop",
      L"    End If",
      L"Label: With Me",
      L"    End With",
      L"End Function",
  });
  EXPECT_TRUE(StructureProblems(sound).empty()) << vba::ToUtf8(StructureProblems(sound).front());

  for (const auto& broken : {
           L({L"Sub A()", L"    If x Then", L"End Sub"}),                // If never closed
           L({L"Sub A()", L"End Function"}),                            // wrong End
           L({L"For i = 1 To 2", L"Loop"}),                             // Loop without Do
           L({L"Sub A()", L"Sub B()", L"End Sub", L"End Sub"}),         // nested procedure
           L({L"Sub A()", L"    Exit Function", L"End Sub"}),           // Exit of another kind
           L({L"If x", L"End If"}),                                     // If without Then
           L({L"Else"}),                                                // Else outside If
           L({L"Case 1"}),                                              // Case outside Select
           L({L"Exit For"}),                                            // Exit For outside For
           L({L"With x", L"    Next"}),                                 // crossed blocks
       })
    EXPECT_FALSE(StructureProblems(broken).empty()) << vba::ToUtf8(broken.front());
}

TEST(VbaCheck, SeesLayoutAndTokenFaults) {
  EXPECT_EQ(LayoutProblems(L({L"\tx = 1", L"  y = 2", L"z = \"a    b\"", L"    w = 1 '    fine"})).size(), 3u);
  EXPECT_TRUE(LayoutProblems(L({L"x = a _", L"  & b"})).empty());

  TokenRules rules{{L"AUTHOR", L"PROCEDURETYPE"}, false, true, {L"STRING", L"LONG", L"RECORDSET"}};
  EXPECT_TRUE(TokenProblems(L({L"' {author} {STRING:Name} {LONG:Count=10} <cursor>", L"Dim r As {DAO.RECORDSET:rst}"}),
                            rules)
                  .empty());
  for (const auto& bad : {
           L({L"{AUTHR}"}),                               // misspelt token
           L({L"x = \"{STRING:Name}\""}),                 // variable inside a string
           L({L"{STRNG:Name}"}),                          // type the standard does not know
           L({L"{STRING:Name} = {LONG:Name}"}),           // one name, two types
           L({L"<cursr>"}),                               // misspelt mark
           L({L"{INCLUDE x.bas}"}),                       // include not allowed here
           L({L".Pattern = \"[0-9]{4}\""}),               // a brace that the filler takes for a token
       })
    EXPECT_FALSE(TokenProblems(bad, rules).empty()) << vba::ToUtf8(bad.front());
  EXPECT_FALSE(TokenProblems(L({L"<cursor>"}), TokenRules{}).empty());

  auto zones = FilledZones(L({L"    On Error GoTo x", L"<end_of_top>", L"<cursor>", L"<begin_of_bottom>",
                              L"    Exit {PROCEDURETYPE}"}));
  ASSERT_EQ(zones.size(), 3u);
  EXPECT_EQ(zones[2].back(), L"    Exit Sub");
}

}  // namespace
}  // namespace quillet::datacheck
