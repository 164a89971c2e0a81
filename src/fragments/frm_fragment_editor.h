#pragma once
// The Fragment Editor: a fragment's text beside the list of the tokens and marks a
// fragment may hold. Insert puts the chosen one at the caret (a variable token after its
// type, and for a named one its name, is asked for); Save writes the file in one step, a
// new fragment after the save dialog has named it. Closing with an unsaved change asks
// whether to save it; a failed save keeps the editor open with the text as it is.
//
//   FrmFragmentEditor editor(s);
//   editor.Init(L"", folder, true);   // a new fragment in `folder`
//   editor.Show(true);
//   editor.SavedFile();               // the file written last, "" when none
#include <string>

#include "fragments/splitter.h"
#include "ui/com_dlg.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "kernel/session.h"

namespace quillet::fragments {

class FrmFragmentEditor : public ui::Form {
 public:
  explicit FrmFragmentEditor(kernel::Session& s);

  // `fileName` the fragment to edit; with `isNew`, a new fragment whose save dialog
  // starts in `folder`.
  void Init(const std::wstring& fileName, const std::wstring& folder, bool isNew);

  // The entries of lstList in their order.
  static const std::vector<std::wstring>& Tokens();
  const std::wstring& SavedFile() const { return savedFile_; }
  bool Dirty() const { return dirty_; }
  void MoveSplitter(long x) { split_.MoveTo(x); }

  ui::RichTextBox& txtContent;
  ui::ListBox& lstList;
  ui::CommandButton& cmdInsert;
  ui::CommandButton& cmdClose;
  ui::CommandButton& cmdSave;
  ui::CommandButton& cmdHelp;
  ui::PictureBox& picSplitter;
  ui::Image& imgSplitter;

 private:
  void Insert();
  // True when the text is on disk.
  bool Save();
  void QueryUnload(int& cancel);
  void EditMode(const std::wstring& file);

  kernel::Session& s_;
  ui::ComDlg dlg_;
  std::wstring file_;
  std::wstring savedFile_;
  bool isNew_ = true;
  bool dirty_ = false;
  bool loading_ = false;
  Splitter split_;
};

}  // namespace quillet::fragments
