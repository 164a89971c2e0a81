#include <gtest/gtest.h>

#include "hostmodel/memory_commandbars.h"
#include "../support/fixtures.h"
#include "analysis/project_models.h"
#include "settings/items.h"
#include "shell/connect.h"
#include "kernel/timer_form.h"

using namespace quillet;

namespace {

struct Lifecycle : ::testing::Test, test::SessionFixture {
  shell::Connect connect{session};
  // The command bar stands in as the heartbeat's visible effect.
  std::shared_ptr<host::CommandBar> bar;
  Lifecycle() {
    // The user has been here before: a settings file keeps the first-run dialog away.
    settings::WriteDefaultSettingsFiles(platform.Files(), L"C:\\Program Files\\Quillet\\", L"Developer");
    Module(L"Module1", {L"Sub A()", L"End Sub"});
    bar = vbe.CommandBars().Add(L"Quillet", host::kBarTop, false, true);
  }
};

TEST_F(Lifecycle, HeartbeatFollowsProjectsLocksAndFileNames) {
  connect.OnConnection(&vbe, 1);
  ASSERT_NE(session.timerForm, nullptr);
  EXPECT_EQ(session.currentProjectFile, L"");
  EXPECT_EQ(session.hostName, L"");
  clock.Advance(500);
  EXPECT_EQ(session.currentProjectFile, L"C:\\Work\\Book1.xlsm");
  EXPECT_EQ(session.hostName, L"Excel");
  EXPECT_TRUE(bar->Enabled());
  auto models = analysis::Models(session);
  ASSERT_NE(models, nullptr);  // the project change made new models
  clock.Advance(500);
  EXPECT_EQ(analysis::Models(session), models);  // the same project: nothing rescanned

  // Locked: disabled, and nothing initialised for it.
  auto locked = vbe.AddProject(L"Locked", L"C:\\Work\\Locked.xlsm");
  io::ReferenceInfo vbaRef, wordRef;
  vbaRef.name = L"VBA";
  wordRef.name = L"Word";
  locked->SetReferences({vbaRef, wordRef});
  locked->SetProtection(1);
  vbe.SetActiveVBProject(locked);
  clock.Advance(500);
  EXPECT_FALSE(bar->Enabled());
  EXPECT_EQ(session.currentProjectFile, L"C:\\Work\\Book1.xlsm");
  EXPECT_EQ(session.hostName, L"Excel");  // read once

  // A case change of the path is no change of project; unsaved projects are all one.
  project->SetFileName(L"c:\\work\\BOOK1.xlsm");
  vbe.SetActiveVBProject(project);
  clock.Advance(500);
  EXPECT_TRUE(bar->Enabled());
  EXPECT_EQ(session.currentProjectFile, L"C:\\Work\\Book1.xlsm");
  project->SetFileName(L"");
  clock.Advance(500);
  EXPECT_EQ(session.currentProjectFile, L"NewProject");

  // No project: disabled and forgotten, so that reopening rescans.
  vbe.RemoveProject(locked);
  vbe.RemoveProject(project);
  clock.Advance(500);
  EXPECT_FALSE(bar->Enabled());
  EXPECT_EQ(session.currentProjectFile, L"");

  connect.OnDisconnection(1);
  EXPECT_EQ(session.vbe, nullptr);
  EXPECT_EQ(analysis::Models(session), nullptr);
  EXPECT_EQ(session.timerForm, nullptr);
  clock.Advance(2000);  // no timer runs any more
  EXPECT_EQ(session.currentProjectFile, L"");
}

TEST_F(Lifecycle, ConnectionReadsTestingModeAndKeepsTheClipboard) {
  platform.Files().WriteFile(L"C:\\Program Files\\Quillet\\testing.txt", "");
  platform.ClipboardSetText(L"mine");
  connect.OnConnection(&vbe, 0);
  EXPECT_TRUE(session.testingMode);
  EXPECT_EQ(session.showMode, 0);
  EXPECT_EQ(platform.ClipboardGetText(), L"mine");
  EXPECT_NE(session.immediateWindowHandle, 0);
  ASSERT_NE(session.directAccessWindow, nullptr);
  EXPECT_EQ(session.directAccessWindow->Caption(), L"Shortcuts and Search");
  EXPECT_FALSE(session.directAccessWindow->Visible());
  EXPECT_EQ(session.codeExplorerWindow->Caption(), L"Code Explorer");
  EXPECT_EQ(shell::ConnectOf(session), &connect);
}

TEST_F(Lifecycle, OfficeAddInsKeepOnlyApplications) {
  struct App : host::OfficeApplication {
    std::wstring type;
    explicit App(std::wstring t) : type(std::move(t)) {}
    std::wstring TypeName() const override { return type; }
    std::wstring Name() const override { return L"Microsoft Access"; }
  };
  shell::OfficeConnect access(session, &kernel::Session::hostAccess);
  access.OnConnection(std::make_shared<App>(L"Workbook"));
  EXPECT_EQ(session.hostAccess, nullptr);
  access.OnConnection(std::make_shared<App>(L"Application"));
  ASSERT_NE(session.hostAccess, nullptr);
  access.OnDisconnection();
  EXPECT_EQ(session.hostAccess, nullptr);
}

}  // namespace
