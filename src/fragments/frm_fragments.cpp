#include "fragments/frm_fragments.h"

#include <algorithm>

#include "fragments/fragment_library.h"
#include "fragments/frm_fragment_editor.h"
#include "generators/fragment_insert.h"
#include "generators/frm_const.h"
#include "generators/fragment_vars.h"
#include "generators/scope.h"
#include "generators/templates.h"
#include "generators/values.h"
#include "generators/variable_builder_hooks.h"
#include "io/paths.h"
#include "kernel/errors.h"
#include "kernel/product.h"
#include "settings/folders.h"
#include "settings/naming.h"
#include "ui/colorize.h"
#include "ui/frm_list.h"
#include "ui/frm_text_input.h"
#include "ui/popup.h"
#include "ui/ui_host.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::fragments {
namespace {

constexpr int kDeleteQuestion = ui::vbYesNo + ui::vbQuestion + ui::vbDefaultButton2;  // 292

std::wstring WithoutFinalSlash(std::wstring path) {
  while (!path.empty() && path.back() == L'\\') path.pop_back();
  return path;
}

// A shortcut named after its fragment ("Loop.bas.lnk") shows as the fragment does.
std::wstring ShortcutText(const settings::File& shortcut) {
  std::wstring name = shortcut.Name();
  if (vba::EqualsText(vba::Right(name, 3), L"bas")) {
    name.resize(name.size() - 3);
    if (!name.empty() && name.back() == L'.') name.pop_back();
  }
  return name;
}

}  // namespace

FragmentsState& FragmentsStateOf(kernel::Session& s) {
  auto& state = s.Slot<FragmentsState>();
  if (!state) state = std::make_shared<FragmentsState>();
  return *state;
}

FrmFragments::FrmFragments(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmFragments"),
      tvFiles(Add<ui::TreeView>(L"tvFiles")),
      lvList(Add<ui::ListView>(L"lvList")),
      rtxtContent(Add<ui::RichTextBox>(L"rtxtContent")),
      lblVars(Add<ui::Label>(L"lblVars")),
      lstVars(Add<ui::ListBox>(L"lstVars")),
      cmdNew(Add<ui::CommandButton>(L"cmdNew")),
      cmdEdit(Add<ui::CommandButton>(L"cmdEdit")),
      cmdDel(Add<ui::CommandButton>(L"cmdDel")),
      cmdOk(Add<ui::CommandButton>(L"cmdOk")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      picSplitter(Add<ui::PictureBox>(L"picSplitter")),
      imgSplitter(Add<ui::Image>(L"imgSplitter")),
      picSplitter2(Add<ui::PictureBox>(L"picSplitter2")),
      imgSplitter2(Add<ui::Image>(L"imgSplitter2")),
      mnuLvPopUp(Add<ui::Menu>(L"mnuLvPopUp")),
      mnuCopyForShortcut(Add<ui::Menu>(L"mnuCopyForShortcut")),
      mnuRename(Add<ui::Menu>(L"mnuRename")),
      mnuDelete(Add<ui::Menu>(L"mnuDelete")),
      mnuMove(Add<ui::Menu>(L"mnuMove")),
      mnuTvPopUp(Add<ui::Menu>(L"mnuTvPopUp")),
      mnuCreateShortcut(Add<ui::Menu>(L"mnuCreateShortcut")),
      s_(s),
      state_(FragmentsStateOf(s)),
      split1_(imgSplitter, picSplitter, {&tvFiles}, {&lvList}),
      split2_(imgSplitter2, picSplitter2, {&lvList}, {&rtxtContent, &lstVars, &lblVars}) {
  SetCaption(L"Fragment Builder");
  SetBorderStyle(ui::vbSizable);
  Move(0, 0, 10200, 6600);
  tvFiles.Move(120, 120, 2700, 5160);
  imgSplitter.Move(2820, 120, 75, 5160);
  picSplitter.Move(2820, 120, 75, 5160);
  picSplitter.SetVisible(false);  // the bar drawn while the user drags
  lvList.Move(2895, 120, 2400, 5160);
  lvList.SetView(ui::lvwList);
  imgSplitter2.Move(5295, 120, 75, 5160);
  picSplitter2.Move(5295, 120, 75, 5160);
  picSplitter2.SetVisible(false);
  rtxtContent.Move(5370, 120, 4590, 3900);
  rtxtContent.SetFont({L"Courier New", 9});
  lblVars.SetCaption(L"&Variables");
  lblVars.Move(5370, 4080, 4590, 255);
  lstVars.Move(5370, 4335, 4590, 945);
  cmdNew.SetCaption(L"&New");
  cmdNew.Move(120, 5520, 1095, 375);
  cmdEdit.SetCaption(L"&Edit");
  cmdEdit.Move(1320, 5520, 1095, 375);
  cmdDel.SetCaption(L"&Delete");
  cmdDel.Move(2520, 5520, 1095, 375);
  cmdOk.SetCaption(L"&Insert");
  cmdOk.Move(6480, 5520, 1095, 375);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.Move(7680, 5520, 1095, 375);
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(8880, 5520, 1095, 375);
  mnuLvPopUp.SetCaption(L"ListPopUp");
  mnuLvPopUp.SetVisible(false);
  mnuLvPopUp.SetPopupFor(&lvList);
  for (auto [menu, caption] : {std::pair{&mnuCopyForShortcut, L"Copy for Shortcut"}, {&mnuRename, L"Rename"},
                               {&mnuDelete, L"Delete"}, {&mnuMove, L"Move"}}) {
    menu->SetCaption(caption);
    menu->SetParentMenu(&mnuLvPopUp);
  }
  mnuTvPopUp.SetCaption(L"TreePopUp");
  mnuTvPopUp.SetVisible(false);
  mnuTvPopUp.SetPopupFor(&tvFiles);
  mnuCreateShortcut.SetCaption(L"Create Shortcut");
  mnuCreateShortcut.SetParentMenu(&mnuTvPopUp);
  mnuCreateShortcut.SetEnabled(false);

  tvFiles.OnNodeClick = [this](ui::Node& node) {
    state_.folder = node.Key();
    ItemsAdd(node.Key());
    MenusUpdate();
  };
  tvFiles.OnExpand = [](ui::Node& node) { node.SetImage(L"FolderOpen"); };
  tvFiles.OnCollapse = [](ui::Node& node) { node.SetImage(L"FolderClosed"); };
  lvList.OnItemClick = [this](ui::ListItem& item) { Preview(item); };
  lvList.OnAfterLabelEdit = [this](int& cancel, std::wstring& text) { AfterLabelEdit(cancel, text); };
  lstVars.OnDblClick = [this] { ChooseVar(); };
  lstVars.OnKeyPress = [this](int& key) {
    if (key != ui::vbKeyReturn) return;
    key = 0;
    ChooseVar();
  };
  rtxtContent.OnChange = [this] { ButtonsUpdate(); };
  rtxtContent.OnSelChange = [this] { CurrentWord(); };
  // Tab and Shift+Tab walk the tokens of the text instead of leaving it.
  rtxtContent.SetTakesTab(true);
  rtxtContent.OnKeyDown = [this](int& keyCode, int shift) {
    if (keyCode != ui::vbKeyTab) return;
    keyCode = 0;
    NextWord((shift & ui::vbShiftMask) == 0);
  };
  rtxtContent.OnKeyPress = [](int& key) {
    if (key == ui::vbKeyTab) key = 0;
  };
  cmdOk.OnClick = [this] { Ok(); };
  cmdCancel.OnClick = [this] { Unload(); };
  cmdDel.OnClick = [this] { Delete(); };
  mnuDelete.OnClick = [this] { Delete(); };
  cmdNew.OnClick = [this] { OpenEditor(true); };
  cmdEdit.OnClick = [this] { OpenEditor(false); };
  mnuRename.OnClick = [this] {
    if (lvList.SelectedItem()) lvList.StartLabelEdit();
  };
  mnuMove.OnClick = [this] { MoveFragment(); };
  mnuCopyForShortcut.OnClick = [this] {
    if (ui::ListItem* item = lvList.SelectedItem()) state_.shortcutSource = item->Key();
    MenusUpdate();
  };
  mnuCreateShortcut.OnClick = [this] { CreateShortcut(); };
}

void FrmFragments::Init() {
  Load();
  kernel::Trap(s_, L"frmFragments.init", [&] { Build(); });
}

void FrmFragments::Init(const vba::Variant& folder) {
  state_.folder = WithoutFinalSlash(folder.ToString());
  state_.file.clear();
  Init();
}

void FrmFragments::Init(const vba::Variant& folder, const vba::Variant& file) {
  state_.folder = WithoutFinalSlash(folder.ToString());
  state_.file = file.ToString();
  Init();
}

void FrmFragments::Build() {
  const std::wstring wantedFolder = state_.folder, wantedFile = state_.file;
  const std::wstring root = WithoutFinalSlash(settings::FragmentsFolderGet(s_));
  tvFiles.Nodes().Clear();
  ui::Node& top = tvFiles.Nodes().Add(root, io::FileNameOf(root), L"FolderClosed");
  top.SetTag(L"Folder");
  FragmentFolders available(s_);
  FolderToTreeView(root, top, available);
  top.SetExpanded(true);
  ui::Node* node = wantedFolder.empty() ? nullptr : tvFiles.Nodes().Find(wantedFolder);
  if (!node) node = &top;
  node->EnsureVisible();
  node->SetSelected(true);
  state_.folder = node->Key();
  ItemsAdd(node->Key());
  if (ui::ListItem* item = wantedFile.empty() ? nullptr : lvList.Items().Find(wantedFile)) {
    lvList.SetSelectedItem(item);
    Preview(*item);
  }
  MenusUpdate();
}

// The tree holds the folders only; a folder's files are read when it is shown, so that a
// large library opens at once.
void FrmFragments::FolderToTreeView(const std::wstring& path, ui::Node& node, const FragmentFolders& available) {
  std::vector<io::DirEntry> entries;
  try {
    entries = s_.platform.Files().List(path + L"\\");
  } catch (const vba::Error& e) {
    kernel::HandleError(s_, e, 0, L"frmFragments.FolderToTreeView");
    return;
  }
  for (const io::DirEntry& entry : entries) {
    if (!entry.isFolder) continue;
    const std::wstring sub = path + L"\\" + entry.name;
    if (!available.Available(sub)) continue;
    ui::Node& child = tvFiles.Nodes().Add(&node, ui::tvwChild, sub, entry.name, L"FolderClosed");
    child.SetTag(L"Folder");
    FolderToTreeView(sub, child, available);
  }
}

void FrmFragments::ItemsAdd(const std::wstring& folderPath) {
  lvList.Items().Clear();
  io::FileSystem& files = s_.platform.Files();
  // A folder that went away since the tree was read lists nothing.
  std::vector<io::DirEntry> entries;
  if (files.FolderExists(folderPath)) entries = files.List(folderPath + L"\\");
  std::vector<std::wstring> shortcuts;
  for (const io::DirEntry& entry : entries) {
    if (entry.isFolder) continue;
    const std::wstring full = folderPath + L"\\" + entry.name;
    const std::wstring extension = io::ExtensionOf(entry.name);
    if (vba::EqualsText(extension, L".lnk")) shortcuts.push_back(full);
    else if (vba::EqualsText(extension, L".bas") && !lvList.Items().Find(full))
      lvList.Items().Add(full, entry.name.substr(0, entry.name.size() - 4));
  }
  for (const std::wstring& shortcut : shortcuts) {
    std::wstring target = ShortCutTargetPath(s_, shortcut);
    if (target.empty() || !files.FileExists(target) || lvList.Items().Find(target)) continue;
    ui::ListItem& item = lvList.Items().Add(target, ShortcutText(settings::File(s_, shortcut)));
    item.SetTag(shortcut);
    item.SetForeColor(kShortcutColor);
  }
  if (lvList.Items().Count() > 0) {
    ui::ListItem& first = lvList.Items().Item(1);
    lvList.SetSelectedItem(&first);
    Preview(first);
  } else {
    state_.file.clear();
    ++busy_;
    rtxtContent.SetText(L"");
    --busy_;
    VarsFill();
  }
  ButtonsUpdate();
}

void FrmFragments::Preview(ui::ListItem& item) {
  kernel::Trap(s_, L"frmFragments.lvList_ItemClick", [&] {
    settings::File file(s_, item.Key());
    std::wstring text = file.Contents();
    std::wstring module, procedure, type;
    generators::Substitute(s_, text, module, procedure, type);
    state_.file = item.Key();
    ++busy_;
    rtxtContent.SetText(text);
    ui::Colorize(rtxtContent);
    --busy_;
    VarsFill();
  });
  ButtonsUpdate();
}

void FrmFragments::ButtonsUpdate() {
  const bool chosen = lvList.SelectedItem() != nullptr;
  cmdEdit.SetEnabled(chosen);
  cmdDel.SetEnabled(chosen);
  for (ui::Menu* menu : {&mnuCopyForShortcut, &mnuRename, &mnuDelete, &mnuMove}) menu->SetEnabled(chosen);
  cmdOk.SetEnabled(!rtxtContent.Text().empty());
}

std::vector<std::wstring> FrmFragments::TokensOf(std::wstring_view text) {
  std::vector<std::wstring> tokens;
  for (std::size_t open = text.find(L'{'); open != std::wstring_view::npos; open = text.find(L'{', open + 1)) {
    std::size_t close = text.find(L'}', open + 1);
    if (close == std::wstring_view::npos) break;
    std::wstring_view inner = text.substr(open + 1, close - open - 1);
    if (inner.empty() || inner.find(L'{') != std::wstring_view::npos ||
        inner.find_first_of(L"\r\n") != std::wstring_view::npos)
      continue;
    std::wstring token(text.substr(open, close + 1 - open));
    bool seen = false;
    for (const std::wstring& t : tokens) seen = seen || vba::EqualsText(t, token);
    if (!seen) tokens.push_back(token);
    open = close;
  }
  return tokens;
}

void FrmFragments::VarsFill() {
  lstVars.Clear();
  for (const std::wstring& token : TokensOf(rtxtContent.Text())) lstVars.AddItem(token);
}

void FrmFragments::ChooseVar() {
  int at = lstVars.ListIndex();
  if (at < 0) return;
  std::wstring token = lstVars.List(at);
  ++busy_;
  long found = rtxtContent.Find(token);
  --busy_;
  if (found < 0) return;
  ShowList(token);
}

std::optional<std::pair<long, long>> FrmFragments::TokenAt(std::wstring_view text, long caret) {
  if (caret < 0 || caret > static_cast<long>(text.size())) return std::nullopt;
  const std::size_t at = static_cast<std::size_t>(caret);
  std::size_t lineStart = at == 0 ? 0 : text.find_last_of(L"\r\n", at - 1);
  lineStart = lineStart == std::wstring_view::npos ? 0 : lineStart + 1;
  std::size_t lineEnd = text.find_first_of(L"\r\n", at);
  if (lineEnd == std::wstring_view::npos) lineEnd = text.size();
  // Whether a position of the line lies inside a string literal: an odd count of quotes
  // in front of it.
  auto inString = [&](std::size_t pos) {
    std::size_t quotes = 0;
    for (std::size_t i = lineStart; i < pos; ++i) quotes += text[i] == L'"';
    return quotes % 2 == 1;
  };
  std::size_t open = std::wstring_view::npos;
  for (std::size_t i = at; i > lineStart; --i) {
    wchar_t c = text[i - 1];
    if ((c == L'{' || c == L'}') && !inString(i - 1)) {
      if (c == L'}') return std::nullopt;
      open = i - 1;
      break;
    }
  }
  if (open == std::wstring_view::npos) return std::nullopt;
  for (std::size_t i = at; i < lineEnd; ++i) {
    wchar_t c = text[i];
    if ((c == L'{' || c == L'}') && !inString(i)) {
      if (c == L'{' || i - open < 2) return std::nullopt;
      return std::pair<long, long>(static_cast<long>(open), static_cast<long>(i + 1 - open));
    }
  }
  return std::nullopt;
}

void FrmFragments::CurrentWord() {
  if (busy_ || !Visible() || rtxtContent.SelLength() > 0) return;
  std::optional<std::pair<long, long>> token = TokenAt(rtxtContent.Text(), rtxtContent.SelStart());
  if (!token) return;
  ++busy_;
  rtxtContent.Select(token->first, token->second);
  --busy_;
  ShowList(rtxtContent.SelText());
}

std::optional<std::pair<long, long>> FrmFragments::NextWordBounds(std::wstring_view text, long selStart,
                                                                  long selLength, bool forward) {
  // Every token of the text in order: a brace pair on one line, neither brace in a string
  // literal, with no other brace between.
  std::vector<std::pair<long, long>> tokens;
  bool inString = false;
  std::size_t open = std::wstring_view::npos;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    if (c == L'\r' || c == L'\n') {
      inString = false;
      open = std::wstring_view::npos;
    } else if (c == L'"') {
      inString = !inString;
    } else if (inString) {
      continue;
    } else if (c == L'{') {
      open = i;
    } else if (c == L'}') {
      if (open != std::wstring_view::npos && i - open >= 2)
        tokens.emplace_back(static_cast<long>(open), static_cast<long>(i + 1 - open));
      open = std::wstring_view::npos;
    }
  }
  if (tokens.empty()) return std::nullopt;
  if (forward) {
    const long from = selStart + std::max(0L, selLength);
    for (const auto& token : tokens)
      if (token.first >= from) return token;
    return tokens.front();
  }
  for (auto it = tokens.rbegin(); it != tokens.rend(); ++it)
    if (it->first + it->second <= selStart) return *it;
  return tokens.back();
}

void FrmFragments::NextWord(bool forward) {
  std::optional<std::pair<long, long>> token =
      NextWordBounds(rtxtContent.Text(), rtxtContent.SelStart(), rtxtContent.SelLength(), forward);
  if (!token) return;
  ++busy_;
  rtxtContent.Select(token->first, token->second);
  --busy_;
  ShowList(rtxtContent.SelText());
}

void FrmFragments::ShowList(const std::wstring& token) {
  std::wstring type, name, value;
  generators::FragmentVarParse(s_, token, type, name, value, settings::kScopeLocal, true);
  if (type.empty()) return;
  ui::FrmList list(s_.ui);
  list.Load();
  for (const wchar_t* fixed : {L"<Start Typing>", L"<New Variable>", L"<New Constant>"}) list.lstList.AddItem(fixed);
  // The names in scope whose type fits the token.
  generators::initialize(s_, L"", L"");
  const generators::Scope& scope = generators::ScopeOf(s_);
  const analysis::ProjectModels& models = generators::ModelsOf(s_);
  auto fits = [&](const std::wstring& t) { return type == L"Variant" || vba::EqualsText(t, type); };
  for (const analysis::Variables* vars : {&models.ProjectVars, &scope.ModuleVars, &scope.ProcVars})
    for (const auto& v : *vars)
      if (fits(v->Type_) && list.lstList.FindStringExact(v->Name) < 0) list.lstList.AddItem(v->Name);
  for (const analysis::Constants* consts : {&models.ProjectConsts, &scope.ModuleConsts, &scope.ProcConsts})
    for (const auto& c : *consts)
      if (fits(c->Type_) && list.lstList.FindStringExact(c->Name) < 0) list.lstList.AddItem(c->Name);
  list.lstList.SetListIndex(0);
  ui::ShowListForm(rtxtContent, *this, list);
  if (list.CloseKey() != ui::vbKeyReturn) return;
  const std::wstring choice = list.ChosenText();
  if (choice == L"<Start Typing>") {
    ui::FrmTextInput input(s_.ui);
    input.Init();
    ui::ShowPopUpForm(rtxtContent, *this, input);
    if (input.CloseKey() != ui::vbKeyReturn || input.EnteredText().empty()) return;
    ReplaceVar(type == L"String" ? generators::ValueQuote(input.EnteredText(), type) : input.EnteredText());
  } else if (choice == L"<New Variable>") {
    const generators::VariableBuilderHooks& hooks = generators::VariableBuilderHooksOf(s_);
    if (!hooks.newVariable) return kernel::NotAvailable(s_, L"the Variable Builder");
    std::wstring chosen;
    long category = 0;
    if (hooks.newVariable(s_, this, false, type, chosen, category)) ReplaceVar(chosen);
  } else if (choice == L"<New Constant>") {
    // The Constant Builder writes the constant and hands its name back.
    struct Parent : generators::DeclParent {
      std::wstring name;
      void ArgInsert(const std::wstring& n, const std::wstring&) override { name = n; }
    } parent;
    generators::FrmConst builder(s_);
    builder.SetParentForm(&parent);
    builder.Init(type, value);
    builder.txtName.SetText(name);
    builder.Show(true);
    if (!parent.name.empty()) ReplaceVar(parent.name);
  } else {
    ReplaceVar(choice);
  }
}

void FrmFragments::ReplaceVar(const std::wstring& value) {
  std::wstring token = rtxtContent.SelText();
  if (token.empty()) return;
  std::wstring text = rtxtContent.Text();
  long first = vba::InStr(text, token, vba::Compare::Text);
  text = vba::Replace(text, token, value, 1, -1, vba::Compare::Text);
  long caret = first > 0 ? first - 1 + static_cast<long>(value.size()) : 0;
  ++busy_;
  rtxtContent.SetText(text);
  ui::Colorize(rtxtContent);
  rtxtContent.Select(caret, 0);
  --busy_;
  VarsFill();
}

std::wstring FrmFragments::SelectedFolder() const {
  ui::Node* node = tvFiles.SelectedItem();
  return node ? node->Key() : state_.folder;
}

void FrmFragments::MenusUpdate() {
  if (state_.shortcutSource.empty()) {
    mnuCreateShortcut.SetCaption(L"Create Shortcut");
    mnuCreateShortcut.SetEnabled(false);
    return;
  }
  settings::File source(s_, state_.shortcutSource);
  mnuCreateShortcut.SetCaption(L"Paste shortcut to " + source.Name());
  const std::wstring folder = SelectedFolder();
  const io::FileSystem& files = s_.platform.Files();
  mnuCreateShortcut.SetEnabled(!files.Exists(ShortCutName(state_.shortcutSource, folder)) &&
                               !files.Exists(settings::PathAddSlash(folder) + source.NameWithExtension()));
}

void FrmFragments::Ok() {
  kernel::Trap(s_, L"frmFragments.cmdOk_Click", [&] {
    std::wstring text = rtxtContent.Text();
    if (text.empty()) return;
    if (!generators::FragmentInsert(s_, text)) return;
    Unload();
  });
}

void FrmFragments::Delete() {
  ui::ListItem* item = lvList.SelectedItem();
  if (!item) return;
  const std::wstring prompt = IsShortcut(*item)
                                  ? L"Do you want to delete the shortcut to the fragment '" + item->Text() + L"'?"
                                  : L"Do you want to delete the original fragment '" + item->Text() + L"'?";
  if (s_.uiHost.MsgBox(prompt, kDeleteQuestion, kernel::kAppName) != ui::vbYes) return;
  const std::wstring folder = SelectedFolder();
  FragmentFileDelete(s_, FileOf(*item), L"frmFragments.cmdDel_Click");
  Rebuild(folder, L"");
}

void FrmFragments::AfterLabelEdit(int& cancel, std::wstring& text) {
  // The list is read again from disk after a rename, so the entry itself never changes.
  cancel = 1;
  ui::ListItem* item = lvList.EditingItem() ? lvList.EditingItem() : lvList.SelectedItem();
  if (!item || text.empty()) return;
  settings::File file(s_, FileOf(*item));
  std::wstring newName = file.Path() + L"\\" + text;
  if (!file.Extension().empty()) newName += L"." + file.Extension();
  if (newName == file.FullName()) return;
  const bool shortcut = IsShortcut(*item);
  const std::wstring key = item->Key();
  if (!FragmentFileRename(s_, file.FullName(), newName, L"frmFragments.lvList_AfterLabelEdit")) return;
  Rebuild(SelectedFolder(), shortcut ? key : newName);
}

void FrmFragments::MoveFragment() {
  ui::ListItem* item = lvList.SelectedItem();
  if (!item) return;
  const std::wstring from = FileOf(*item);
  const std::wstring folder = SelectedFolder();
  std::optional<std::wstring> target = s_.uiHost.ChooseFolder(L"Move", folder);
  if (!target || target->empty()) return;
  const std::wstring to = settings::PathAddSlash(*target) + io::FileNameOf(from);
  if (FragmentFileRename(s_, from, to, L"frmFragments.mnuMove_Click")) Rebuild(folder, L"");
}

void FrmFragments::CreateShortcut() {
  const std::wstring folder = SelectedFolder();
  if (state_.shortcutSource.empty()) return;
  if (ShortCutCreate(s_, state_.shortcutSource, folder)) Rebuild(folder, state_.shortcutSource);
}

void FrmFragments::OpenEditor(bool isNew) {
  const std::wstring folder = SelectedFolder();
  ui::ListItem* item = lvList.SelectedItem();
  if (!isNew && !item) return;
  FrmFragmentEditor editor(s_);
  editor.Init(isNew ? std::wstring() : item->Key(), folder, isNew);
  editor.Show(true);
  // The list shows the folder the fragment was saved in, with the fragment chosen.
  if (!editor.SavedFile().empty()) Rebuild(WithoutFinalSlash(io::FolderOf(editor.SavedFile())), editor.SavedFile());
}

void FrmFragments::Rebuild(const std::wstring& folder, const std::wstring& file) {
  state_.folder = folder;
  state_.file = file;
  Build();
}

void FrmFragments::MoveSplitter(int which, long x) {
  (which == 1 ? split1_ : split2_).MoveTo(x);
}

void FragmentBuilderOpen(kernel::Session& s, const std::wstring& folder, const std::wstring& file) {
  kernel::FormOpenOptions o;
  o.rescan = true;
  if (!folder.empty()) o.initArg1 = vba::Variant(folder);
  if (!file.empty()) o.initArg2 = vba::Variant(file);
  kernel::FormOpen(s, std::make_unique<FrmFragments>(s), o);
}

}  // namespace quillet::fragments
