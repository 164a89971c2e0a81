#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "kernel/errors.h"
#include "kernel/timer_form.h"

using namespace quillet;

namespace {

const std::wstring kBanner = L"[please report to support@quillet.example]\r\nVersion: 1.0.0\r\n";

struct Errors : ::testing::Test, test::SessionFixture {
  Errors() {
    Module(L"Module1", {L"Sub A()", L"End Sub"});
    session.timerForm = std::make_unique<kernel::TimerForm>(session);
    session.timerForm->Load();
    session.timerForm->SetTimer1Interval(0);  // no heartbeat in these tests
  }
};

TEST_F(Errors, ReportLayoutAndOneBannerForTwoErrors) {
  session.currentCommand = L"If Then";
  platform.ClipboardSetText(L"user text");
  kernel::HandleError(session, vba::Error(9), 0, L"basQuillet.IfCodeInsert");
  kernel::HandleError(session, vba::Error(5, L"Bad"), 12, L"", L"", L"");
  kernel::HandleError(session, vba::Error(13), 3, L"m.p", L"basX", L"Proc");
  EXPECT_EQ(vbe.ImmediateText(),
            kBanner + L"Quillet.If Then Error - 9: Subscript out of range\r\nbasQuillet.IfCodeInsert\r\n" + kBanner +
                L"Quillet.If Then Error - 5: Bad\r\nin  line 12\r\n" + kBanner +
                L"Quillet.If Then Error - 13: Type mismatch\r\nin basXProc line 3\r\nm.p\r\n");
  // Delivered at once, each with its banner; the clipboard and focus are as they were.
  EXPECT_EQ(platform.ClipboardGetText(), L"user text");
  EXPECT_EQ(vbe.ActiveWindow()->Type(), host::kCodeWindow);
  EXPECT_TRUE(uiHost.Log().empty());  // no boxes outside testing mode
}

TEST_F(Errors, RefusedFocusArmsTheRetryAndKeepsOneBanner) {
  session.immediateWindowHandle = vbe.WindowOfType(host::kImmediateWindow)->HWnd();
  platform.SetHostInBack(true);
  kernel::HandleError(session, vba::Error(9), 0, L"a.b");
  kernel::HandleError(session, vba::Error(5), 0, L"c.d");
  EXPECT_EQ(vbe.ImmediateText(), L"");
  EXPECT_EQ(session.timerForm->Timer3Interval(), 1000);
  clock.Advance(1000);  // still refused: the retry stays armed
  EXPECT_EQ(session.timerForm->Timer3Interval(), 1000);
  platform.SetHostInBack(false);
  clock.Advance(1000);
  EXPECT_EQ(vbe.ImmediateText(), kBanner + L"Quillet. Error - 9: Subscript out of range\r\na.b\r\n" +
                                     L"Quillet. Error - 5: Invalid procedure call or argument\r\nc.d\r\n");
  EXPECT_EQ(session.timerForm->Timer3Interval(), 0);
  EXPECT_TRUE(session.pendingMessage.empty());
}

TEST_F(Errors, TestingModeShowsABoxAndTheImmediateWindowOpens) {
  session.testingMode = true;
  vbe.WindowOfType(host::kImmediateWindow)->SetVisible(false);
  uiHost.AnswerMsgBox(ui::vbOK);
  kernel::HandleError(session, vba::Error(91), 0, L"x.y");
  ASSERT_EQ(uiHost.Log().size(), 1u);
  EXPECT_NE(uiHost.Log()[0].find(L"Quillet. Error"), std::wstring::npos);
  EXPECT_NE(uiHost.Log()[0].find(L"48"), std::wstring::npos);  // OK with the exclamation icon
  EXPECT_TRUE(vbe.WindowOfType(host::kImmediateWindow)->Visible());
  EXPECT_NE(vbe.ImmediateText().find(L"91: Object variable or With block variable not set\r\nx.y"), std::wstring::npos);
}

TEST_F(Errors, ClipboardFormatsSurviveTheReport) {
  struct Case {
    int format;
    std::string data;
  } pictures[] = {{host::kCfBitmap, "BM..."}, {host::kCfFiles, "C:\\a.txt"}, {host::kCfPalette, "pal"}};
  for (const auto& c : pictures) {
    platform.ClipboardClear();
    platform.ClipboardSetData(c.format, c.data);
    kernel::HandleError(session, vba::Error(5), 0, L"x");
    EXPECT_TRUE(platform.ClipboardHasFormat(c.format));
    EXPECT_EQ(platform.ClipboardGetData(c.format), c.data);
    EXPECT_FALSE(platform.ClipboardHasFormat(host::kCfText));
  }
  platform.ClipboardClear();
  platform.ClipboardSetText(L"{\\rtf1 x}", host::kCfRtf);
  platform.ClipboardSetText(L"x", host::kCfText);
  kernel::HandleError(session, vba::Error(5), 0, L"x");
  EXPECT_EQ(platform.ClipboardGetText(host::kCfRtf), L"{\\rtf1 x}");
  EXPECT_EQ(platform.ClipboardGetText(host::kCfText), L"x");
  // An empty clipboard has nothing to restore: the report it carried stays on it.
  platform.ClipboardClear();
  kernel::HandleError(session, vba::Error(5), 0, L"x");
  EXPECT_NE(platform.ClipboardGetText().find(L"5: Invalid procedure call or argument"), std::wstring::npos);
}

TEST_F(Errors, TrapReportsAndEnds) {
  bool after = false;
  EXPECT_FALSE(kernel::Trap(session, L"basX.Work", [&] {
    vba::Raise(5);
    after = true;
  }));
  EXPECT_FALSE(after);
  EXPECT_FALSE(kernel::Trap(session, L"basX.Other", [&] { throw std::out_of_range("vector"); }));
  EXPECT_NE(vbe.ImmediateText().find(L"51: Internal error: vector\r\nbasX.Other"), std::wstring::npos);
  EXPECT_TRUE(kernel::Trap(session, L"basX.Fine", [] {}));
}

}  // namespace
