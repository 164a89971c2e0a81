#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "analysis/scan_proc.h"
#include "analysis_fixture.h"

using namespace quillet;
using namespace quillet::analysis;

namespace {

struct ScanProc : test::AnalysisFixture {
  const std::vector<std::wstring> module{
      L"Option Explicit",                                      // 1
      L"Private mTotal As Long",                               // 2
      L"",                                                     // 3
      L"' Adds the values",                                    // 4
      L"Public Function Add(ByVal a As Long, _",               // 5
      L"                    Optional b() As Variant, c$) As Long",  // 6
      L"    ' the sum",                                        // 7
      L"    Dim x As Long, y As String: Dim z",                // 8
      L"    Const LIMIT As Long = 10, NAME_ = \"a,b\"",        // 9
      L"    Static calls As Integer",                          // 10
      L"    Dim WithEvents app As Application",                // 11
      L"",                                                     // 12
      L"    On Error GoTo HandleErr",                          // 13
      L"10 Dim n",                                             // 14
      L"20",                                                   // 15
      L"    x = a + _",                                        // 16
      L"        LIMIT: y = \"x: y\"",                          // 17
      L"Again:",                                               // 18
      L"    Dim late",                                         // 19
      L"    If x > LIMIT Then Exit Function",                  // 20
      L"    GoSub Helper",                                     // 21
      L"HandleExit:",                                          // 22
      L"    Exit Function",                                    // 23
      L"Helper:",                                              // 24
      L"    Return",                                           // 25
      L"HandleErr:",                                           // 26
      L"    Resume HandleExit",                                // 27
      L"End Function",                                         // 28
      L"",                                                     // 29
      L"' last line",                                          // 30
  };

  template <class C>
  static std::wstring Keys(const C& items) {
    std::wstring keys;
    for (long i = 1; i <= items.Count(); ++i) keys += items.KeyAt(i) + L";";
    return keys;
  }
};

TEST_F(ScanProc, ReadsTheProcedureAtTheCaret) {
  Code(module, 8);
  clsScanProc scan;
  scan.init(s, true);

  EXPECT_EQ(scan.ProcName, L"Add");
  EXPECT_EQ(scan.ProcType, host::kProcKind);
  EXPECT_EQ(scan.ProcTypeStr, L"Function");
  EXPECT_EQ(scan.ProcStartLine, 3);
  EXPECT_EQ(scan.ProcRealStartLine, 5);
  EXPECT_EQ(scan.ProcEndLine, 30);
  EXPECT_EQ(scan.ProcRealEndLine, 28);
  EXPECT_EQ(scan.ProcExitLine, 23);
  EXPECT_EQ(scan.ProcDefLineCount, 2);
  // The area starts under the comment and ends on the blank line above the On Error line.
  EXPECT_EQ(scan.ProcDeclAreaStartLine, 8);
  EXPECT_EQ(scan.ProcDeclAreaEndLine, 12);
  EXPECT_EQ(scan.ProcDeclAreaLineCount, 5);

  // Declarations on split lines, behind line numbers and WithEvents; then the arguments,
  // whose names keep their type characters.
  EXPECT_EQ(Keys(scan.ProcVars), L"x;y;z;calls;app;n;late;a;b;c$;");
  EXPECT_EQ(scan.ProcVars.Item(L"Y")->Type_, L"String");
  EXPECT_EQ(scan.ProcVars.Item(L"calls")->Type_, L"Integer");
  EXPECT_EQ(scan.ProcVars.Item(L"app")->Type_, L"Application");
  EXPECT_TRUE(scan.ProcVars.Item(L"b")->IsArray);
  EXPECT_EQ(scan.ProcVars.Item(L"c$")->Type_, L"Variant");
  EXPECT_EQ(Keys(scan.ProcConsts), L"LIMIT;NAME_;");
  EXPECT_EQ(scan.ProcConsts.Item(L"NAME_")->Value, L"\"a,b\"");

  // A Dim or a Return right behind a label re-enters the label step with the name cut
  // by one more character; the Return marks the label it follows.
  EXPECT_EQ(Keys(scan.ProcLabels), L"Again;Agai;HandleExit;Helper;Helpe;HandleErr;");
  EXPECT_TRUE(scan.ProcLabels.Item(L"Helper")->HasReturn);
  EXPECT_FALSE(scan.ProcLabels.Item(L"HandleExit")->HasReturn);
  EXPECT_EQ(Reported(), L"");

  // Without fArgToVar the arguments stay out.
  clsScanProc plain;
  plain.init(s, false);
  EXPECT_EQ(Keys(plain.ProcVars), L"x;y;z;calls;app;n;late;");
}

TEST_F(ScanProc, OutsideProceduresInLockedProjectsAndEmptyModulesTheScanStaysEmpty) {
  Code(module, 2);
  clsScanProc scan;
  scan.init(s, true);
  EXPECT_EQ(scan.ProcName, L"");
  EXPECT_EQ(scan.ProcEndLine, 0);
  EXPECT_EQ(scan.ProcVars.Count(), 0);

  Caret(8, 1);
  scan.init(s, true);
  EXPECT_EQ(scan.ProcName, L"Add");
  project->SetProtection(1);
  scan.init(s, true);  // a new scan forgets the last one
  EXPECT_EQ(scan.ProcName, L"");
  EXPECT_EQ(scan.ProcDeclAreaEndLine, 0);
  EXPECT_EQ(scan.ProcVars.Count(), 0);
  project->SetProtection(0);

  Code({}, 1, L"Empty");
  scan.init(s, true);
  EXPECT_EQ(scan.ProcName, L"");
  EXPECT_EQ(Reported(), L"");
}

TEST_F(ScanProc, BodylessProceduresPropertiesAndAnEndInACommentBelow) {
  Code({
      L"Sub Empty1()",                      // 1
      L"End Sub",                           // 2
      L"Property Let Value(ByVal v As Long)",  // 3
      L"    mValue = v",                    // 4
      L"End Property",                      // 5
      L"' Ends here: End of module",        // 6
  });
  clsScanProc scan;
  scan.init(s, true);
  EXPECT_EQ(scan.ProcTypeStr, L"Sub");
  EXPECT_EQ(scan.ProcRealEndLine, 2);
  EXPECT_EQ(scan.ProcExitLine, 2);
  EXPECT_EQ(scan.ProcDeclAreaStartLine, 2);  // on the End Sub line, with no lines
  EXPECT_EQ(scan.ProcDeclAreaEndLine, 1);
  EXPECT_EQ(scan.ProcDeclAreaLineCount, 0);
  EXPECT_EQ(scan.ProcDefLineCount, 1);

  Caret(4, 5);
  scan.init(s, true);
  EXPECT_EQ(scan.ProcName, L"Value");
  EXPECT_EQ(scan.ProcType, host::kLetKind);
  EXPECT_EQ(scan.ProcTypeStr, L"Property");
  EXPECT_EQ(scan.ProcEndLine, 6);
  EXPECT_EQ(scan.ProcRealEndLine, 6);  // the comment holds "End "
  EXPECT_EQ(scan.ProcExitLine, 6);
  EXPECT_EQ(scan.ProcDeclAreaStartLine, 4);
  EXPECT_EQ(scan.ProcDeclAreaLineCount, 0);
  EXPECT_EQ(scan.ProcVars.Item(L"v")->Type_, L"Long");
  EXPECT_EQ(Reported(), L"");
}

TEST_F(ScanProc, AProcedureWithoutEndHasItsExitLineReportedAndTheRestRead) {
  Code({L"Option Explicit", L"", L"' comment", L"Sub P()", L"    Dim x"}, 5);
  clsScanProc scan;
  scan.init(s, false);
  EXPECT_EQ(scan.ProcRealEndLine, 2);  // the walk for "End " stops at the first line
  EXPECT_EQ(scan.ProcExitLine, 0);
  EXPECT_NE(Reported().find(L"basGlobal.ProcExitLineGet"), std::wstring::npos);
  EXPECT_EQ(scan.ProcVars.Count(), 1);
  EXPECT_EQ(scan.ProcDeclAreaStartLine, 5);
}

TEST_F(ScanProc, RepeatedNamesKeepTheFirstEntryWithoutAReport) {
  Code({
      L"Sub P(a As Long, a As String)",  // 1
      L"    Dim a As Date, q As Long",   // 2
      L"Abc:",                           // 3
      L"    Dim q As String",            // 4
      L"Ab: Return",                     // 5
      L"    Return",                     // 6
      L"Ab:",                            // 7
      L"    Exit Sub",                   // 8
      L"End Sub",                        // 9
  });
  clsScanProc scan;
  scan.init(s, true);
  EXPECT_EQ(Keys(scan.ProcVars), L"a;q;");
  EXPECT_EQ(scan.ProcVars.Item(L"a")->Type_, L"Date");
  EXPECT_EQ(scan.ProcVars.Item(L"q")->Type_, L"Long");
  // "Ab: Return" is split into "Ab" and "Return": no label there. The shortened "Ab" from
  // the Dim behind "Abc:" comes first and keeps its key against the real label.
  EXPECT_EQ(Keys(scan.ProcLabels), L"Abc;Ab;");
  EXPECT_TRUE(scan.ProcLabels.Item(L"Ab")->HasReturn);
  // The rest of the scan went on: the repeated argument ended the argument step only.
  EXPECT_EQ(scan.ProcExitLine, 8);
  EXPECT_EQ(scan.ProcDeclAreaEndLine, 2);
  EXPECT_EQ(Reported(), L"");
}

TEST_F(ScanProc, ShowsTheScannedModuleAndLivesInTheSession) {
  auto other = Module(L"Other", {L"Sub Q()", L"End Sub"});
  Code(module, 20);
  vbe.SelectComponent(other);
  vbe.ActivateWindow(vbe.WindowOfType(host::kImmediateWindow));
  ASSERT_NE(vbe.ActiveWindow()->Type(), host::kCodeWindow);

  analysis::CurrentScan(s) = std::make_shared<clsScanProc>();
  analysis::CurrentScan(s)->init(s, false);
  EXPECT_EQ(vbe.ActiveWindow()->Type(), host::kCodeWindow);
  EXPECT_EQ(analysis::CurrentScan(s)->ProcName, L"Add");
}

}  // namespace
