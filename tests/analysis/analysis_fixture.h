#pragma once
// A session on the in-memory editor, with one project, for the scans.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "../support/fixtures.h"

namespace quillet::test {

struct AnalysisFixture : ::testing::Test, SessionFixture {
  // A standard module made active, with the caret at the start of `caretLine`.
  std::shared_ptr<host::MemoryCodeModule> Code(std::vector<std::wstring> lines, long caretLine = 1,
                                               const std::wstring& name = L"Module1", int type = host::kStdModule) {
    auto m = Module(name, std::move(lines), type)->Module();
    Caret(caretLine, 1);
    return m;
  }
  // What the error reporter was given, delivered or still pending.
  std::wstring Reported() const { return vbe.ImmediateText() + s.pendingMessage; }

  kernel::Session& s = session;
};

}  // namespace quillet::test
