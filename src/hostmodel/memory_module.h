#pragma once
// The code module and code pane of the in-memory editor.
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/keystrokes.h"
#include "hostmodel/proc_index.h"
#include "hostmodel/vbe.h"

namespace quillet::host {

class MemoryVBE;
class MemoryComponent;
class MemoryCodePane;

class MemoryCodeModule : public CodeModule, public std::enable_shared_from_this<MemoryCodeModule> {
 public:
  MemoryCodeModule(MemoryVBE& vbe, std::weak_ptr<MemoryComponent> component, std::vector<std::wstring> lines);

  Ptr<VBComponent> Parent() const override;
  std::wstring Name() const override;
  void AddFromString(std::wstring_view text) override;
  std::wstring Lines(long start, long count) const override;
  long CountOfLines() const override { return static_cast<long>(lines_.size()); }
  long TextLength() const override;
  long CountOfDeclarationLines() const override;
  void InsertLines(long line, std::wstring_view text) override;
  void DeleteLines(long start, long count = 1) override;
  void ReplaceLine(long line, std::wstring_view text) override;
  std::wstring ProcOfLine(long line, ProcKind& kind) const override;
  long ProcStartLine(std::wstring_view name, ProcKind kind) const override;
  long ProcBodyLine(std::wstring_view name, ProcKind kind) const override;
  long ProcCountLines(std::wstring_view name, ProcKind kind) const override;
  bool Find(std::wstring_view target, Selection& range, const FindOptions& options = {}) const override;
  Ptr<host::CodePane> CodePane() override;

  // Direct access for the editor itself and its loaders.
  const std::vector<std::wstring>& AllLines() const { return lines_; }
  const std::wstring& Line(long line) const { return lines_[line - 1]; }
  void SetAllLines(std::vector<std::wstring> lines);
  const ProcIndex& Index() const;
  // Counts edits, so that a reader can tell whether the module changed.
  unsigned long long Revision() const { return revision_; }

 private:
  friend class MemoryCodePane;
  void CheckLine(long line, long last) const;
  // Every edit is one of these: `removed` lines at `at` replaced by `added`.
  void Splice(long at, long removed, std::vector<std::wstring> added, bool keepCaretColumn);
  // Text without line ends put into one line at a 0-based offset, in place: what typing
  // does most, kept linear in the length of what is typed.
  void InsertInLine(long line, std::size_t offset, std::wstring_view text);
  const ProcExtent& ProcOrRaise(std::wstring_view name, ProcKind kind) const;

  MemoryVBE& vbe_;
  std::weak_ptr<MemoryComponent> component_;
  std::vector<std::wstring> lines_;
  mutable ProcIndex index_;
  mutable bool indexValid_ = false;
  unsigned long long revision_ = 0;
  // TextLength as of a revision, so that asking again after no edit costs nothing.
  mutable long length_ = 0;
  mutable unsigned long long lengthRevision_ = ~0ull;
  std::shared_ptr<MemoryCodePane> pane_;
};

class MemoryCodePane : public CodePane, public std::enable_shared_from_this<MemoryCodePane> {
 public:
  MemoryCodePane(MemoryVBE& vbe, std::weak_ptr<MemoryCodeModule> module);

  Ptr<host::CodeModule> CodeModule() const override;
  Ptr<host::Window> Window() const override;
  Selection GetSelection() const override;
  void SetSelection(const Selection& selection) override;
  using CodePane::GetSelection;
  using CodePane::SetSelection;
  long TopLine() const override { return topLine_; }
  void SetTopLine(long line) override { topLine_ = line < 1 ? 1 : line; }
  void Show() override;

  std::shared_ptr<MemoryCodeModule> Module() const { return module_.lock(); }
  // Applies one keystroke at the caret, as the user's keyboard would.
  void ApplyKey(const Key& key);
  // Keeps the selection with its text when lines change: `removed` lines at `at` became
  // `added` lines.
  void LinesChanged(long at, long removed, long added, bool keepCaretColumn);

 private:
  struct Pos {
    long line, column;
  };
  void Normalize(Pos& a, Pos& b) const;
  void ReplaceSelection(std::wstring_view text);
  void MoveVertical(long delta);

  MemoryVBE& vbe_;
  std::weak_ptr<MemoryCodeModule> module_;
  Pos anchor_{1, 1}, caret_{1, 1};
  long wantedColumn_ = 0;  // the column that vertical moves keep to, 0 when none
  long topLine_ = 1;
};

}  // namespace quillet::host
