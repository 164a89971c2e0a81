#pragma once
// The Fragment Builder: the tree of the fragment library on the left, the fragments of
// the chosen folder beside it, the chosen fragment's text (its template tokens filled for
// the code at the caret, coloured) with the list of its variables, and Insert, which
// merges the text into the code at the caret. The pop-up menus rename, move and delete
// fragments and shortcuts and make shortcuts; New and Edit open the Fragment Editor.
//
//   FragmentBuilderOpen(s);                       // the menu's command
//   FragmentBuilderOpen(s, folder, fullName);     // at a folder and a fragment
#include <map>
#include <optional>
#include <utility>
#include <memory>
#include <string>

#include "fragments/fragment_library.h"
#include "fragments/splitter.h"
#include "kernel/form_open.h"
#include "settings/file_objects.h"
#include "ui/controls.h"

namespace quillet::fragments {

// What the dialog remembers from one opening to the next.
struct FragmentsState {
  std::wstring folder;          // the folder in view
  std::wstring file;            // the fragment in view
  std::wstring shortcutSource;  // the fragment "Copy for Shortcut" stored
};
FragmentsState& FragmentsStateOf(kernel::Session& s);

class FrmFragments : public kernel::BuilderForm {
 public:
  explicit FrmFragments(kernel::Session& s);

  void Init() override;
  // At a folder; with a second argument, at that fragment.
  void Init(const vba::Variant& folder) override;
  void Init(const vba::Variant& folder, const vba::Variant& file) override;

  // The variables of the text: the distinct tokens in braces in their order.
  static std::vector<std::wstring> TokensOf(std::wstring_view text);
  // The token around a caret at `caret` (0-based): its start and length, or nullopt when the
  // caret stands outside every token. A brace inside a string literal of its line is no
  // token's brace.
  static std::optional<std::pair<long, long>> TokenAt(std::wstring_view text, long caret);
  // The token after the selection (`forward`) or before it, as Tab and Shift+Tab move:
  // its start and length. Past the last token Tab comes round to the first, and Shift+Tab
  // before the first to the last; nullopt when the text holds no token. Braces in a string
  // literal make no token, as for the caret.
  static std::optional<std::pair<long, long>> NextWordBounds(std::wstring_view text, long selStart, long selLength,
                                                             bool forward);
  // Puts `value` for every occurrence (any case) of the token selected in rtxtContent, as
  // the pick list does when the user chooses; the caret goes behind the first one.
  void ReplaceVar(const std::wstring& value);
  // Moves splitter 1 (tree | list) or 2 (list | text) to `x` twips.
  void MoveSplitter(int which, long x);

  ui::TreeView& tvFiles;
  ui::ListView& lvList;
  ui::RichTextBox& rtxtContent;
  ui::Label& lblVars;
  ui::ListBox& lstVars;
  ui::CommandButton& cmdNew;
  ui::CommandButton& cmdEdit;
  ui::CommandButton& cmdDel;
  ui::CommandButton& cmdOk;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;
  ui::PictureBox& picSplitter;
  ui::Image& imgSplitter;
  ui::PictureBox& picSplitter2;
  ui::Image& imgSplitter2;
  ui::Menu& mnuLvPopUp;
  ui::Menu& mnuCopyForShortcut;
  ui::Menu& mnuRename;
  ui::Menu& mnuDelete;
  ui::Menu& mnuMove;
  ui::Menu& mnuTvPopUp;
  ui::Menu& mnuCreateShortcut;

 private:
  void Build();
  void FolderToTreeView(const std::wstring& path, ui::Node& node, const FragmentFolders& available);
  void ItemsAdd(const std::wstring& folder);
  void Preview(ui::ListItem& item);
  void ButtonsUpdate();
  void VarsFill();
  void ChooseVar();
  // The caret moved: a token under it is selected and offered.
  void CurrentWord();
  // Tab and Shift+Tab: the next or the previous token is selected and offered.
  void NextWord(bool forward);
  void ShowList(const std::wstring& token);
  void MenusUpdate();
  void Ok();
  void Delete();
  void AfterLabelEdit(int& cancel, std::wstring& text);
  void MoveFragment();
  void CreateShortcut();
  void OpenEditor(bool isNew);
  // Reads the tree again and shows `folder` with `file` chosen.
  void Rebuild(const std::wstring& folder, const std::wstring& file);
  bool IsShortcut(const ui::ListItem& item) const { return !item.Tag().empty(); }
  // The file an entry stands for on disk: the shortcut file for a shortcut.
  std::wstring FileOf(const ui::ListItem& item) const { return IsShortcut(item) ? item.Tag() : item.Key(); }
  std::wstring SelectedFolder() const;

  kernel::Session& s_;
  FragmentsState& state_;
  int busy_ = 0;  // the dialog itself moves the caret: the key handler holds off
  std::wstring moveSource_;
  Splitter split1_, split2_;
};

// The menu's command: the builder over the code window, at the last folder and fragment;
// `folder` and `file` when the caller names them.
void FragmentBuilderOpen(kernel::Session& s, const std::wstring& folder = {}, const std::wstring& file = {});

}  // namespace quillet::fragments
