#include "fragments/frm_fragment_editor.h"

#include "analysis/refresh.h"
#include "fragments/fragment_library.h"
#include "generators/scope.h"
#include "io/paths.h"
#include "kernel/errors.h"
#include "kernel/product.h"
#include "settings/file_objects.h"
#include "ui/frm_list.h"
#include "ui/popup.h"
#include "ui/ui_host.h"
#include "vba/strings.h"

namespace quillet::fragments {
namespace {

constexpr int kSaveQuestion = ui::vbYesNoCancel + ui::vbQuestion;

}  // namespace

const std::vector<std::wstring>& FrmFragmentEditor::Tokens() {
  static const std::vector<std::wstring> tokens = {
      L"{VARIABLE}",         L"{VARIABLE (NAMED)}", L"{AUTHOR}",           L"{COMPANYNAME}",
      L"{COPYRIGHT}",        L"{INITIALS}",         L"{DATE}",             L"{TIME}",
      L"{DESCRIPTION}",      L"{HANDLEEXITLABEL}",  L"{HANDLEERRORLABEL}", L"{ERRORHANDLEPROCEDURE}",
      L"{MODULENAME}",       L"{PROCEDURENAME}",    L"{PROCEDURETYPE}",    L"{INCLUDE}",
      L"<cursor>",           L"<end_of_top>",       L"<begin_of_bottom>"};
  return tokens;
}

FrmFragmentEditor::FrmFragmentEditor(kernel::Session& s)
    : ui::Form(s.ui, L"frmFragmentEditor"),
      txtContent(Add<ui::RichTextBox>(L"txtContent")),
      lstList(Add<ui::ListBox>(L"lstList")),
      cmdInsert(Add<ui::CommandButton>(L"cmdInsert")),
      cmdClose(Add<ui::CommandButton>(L"cmdClose")),
      cmdSave(Add<ui::CommandButton>(L"cmdSave")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      picSplitter(Add<ui::PictureBox>(L"picSplitter")),
      imgSplitter(Add<ui::Image>(L"imgSplitter")),
      s_(s),
      dlg_(s.uiHost),
      split_(imgSplitter, picSplitter, {&lstList}, {&txtContent}) {
  SetCaption(L"Fragment Editor");
  SetBorderStyle(ui::vbSizable);
  Move(0, 0, 9600, 6600);
  lstList.Move(120, 120, 2700, 5160);
  imgSplitter.Move(2820, 120, 75, 5160);
  picSplitter.Move(2820, 120, 75, 5160);
  picSplitter.SetVisible(false);
  txtContent.Move(2895, 120, 6465, 5160);
  txtContent.SetFont({L"Courier New", 9});
  cmdInsert.SetCaption(L"&Insert");
  cmdInsert.Move(120, 5520, 1095, 375);
  cmdSave.SetCaption(L"&Save As");
  cmdSave.Move(5880, 5520, 1095, 375);
  cmdClose.SetCaption(L"&Close");
  cmdClose.Move(7080, 5520, 1095, 375);
  cmdClose.SetCancel(true);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(8280, 5520, 1095, 375);

  cmdInsert.OnClick = [this] { Insert(); };
  lstList.OnDblClick = [this] { Insert(); };
  cmdSave.OnClick = [this] { Save(); };
  cmdClose.OnClick = [this] { Unload(); };
  txtContent.OnChange = [this] {
    if (!loading_) dirty_ = true;
  };
  OnQueryUnload = [this](int& cancel, int) { QueryUnload(cancel); };
}

void FrmFragmentEditor::Init(const std::wstring& fileName, const std::wstring& folder, bool isNew) {
  Load();
  lstList.Clear();
  for (const std::wstring& token : Tokens()) lstList.AddItem(token);
  lstList.SetListIndex(0);
  isNew_ = isNew || fileName.empty();
  loading_ = true;
  if (isNew_) {
    cmdSave.SetCaption(L"&Save As");
    dlg_.Filter = ui::ComDlg::FilterOf({{L"*.bas", L"*.bas"}});
    dlg_.Extension = L"bas";
    dlg_.Directory = folder;
    dlg_.DialogTitle = L"Save Fragment";
    txtContent.SetText(L"");
  } else {
    EditMode(fileName);
    settings::File file(s_, fileName);
    txtContent.SetText(file.Contents());
  }
  loading_ = false;
  dirty_ = false;
}

void FrmFragmentEditor::EditMode(const std::wstring& file) {
  file_ = file;
  isNew_ = false;
  settings::File f(s_, file);
  SetCaption(f.Name() + L" (edit)");
  cmdSave.SetCaption(L"&Save");
}

void FrmFragmentEditor::Insert() {
  kernel::Trap(s_, L"frmFragmentEditor.cmdInsert_Click", [&] {
    const std::wstring item = lstList.Text();
    if (item.empty()) return;
    std::wstring text = item;
    if (item == L"{VARIABLE}" || item == L"{VARIABLE (NAMED)}") {
      ui::FrmList list(s_.ui);
      list.Load();
      generators::initialize(s_, L"", L"");
      analysis::DataTypeList(s_, generators::ModelsOf(s_), generators::ScopeOf(s_).ModuleEnums, list.lstList, L"",
                             analysis::DataTypeListOptions{});
      ui::ShowListForm(txtContent, *this, list);
      if (list.CloseKey() != ui::vbKeyReturn || list.ChosenText().empty()) return;
      const std::wstring type = vba::UCase(list.ChosenText());
      if (item == L"{VARIABLE}") {
        text = L"{" + type + L"}";
      } else {
        std::optional<std::wstring> name = s_.uiHost.InputBox(L"Name of variable", kernel::kAppName, L"");
        if (!name) return;
        text = L"{" + type + L":" + *name + L"}";
      }
    }
    txtContent.SetSelText(text);
    if (txtContent.CanFocus() && Visible()) txtContent.SetFocus();
  });
}

bool FrmFragmentEditor::Save() {
  bool saved = false;
  kernel::Trap(s_, L"frmFragmentEditor.cmdSave_Click", [&] {
    std::wstring target = file_;
    if (isNew_) {
      if (!dlg_.ShowSave()) return;
      target = dlg_.FileName;
    }
    // The new text replaces the old file in one step: a failed write leaves it whole.
    if (!FragmentFileWrite(s_, target, txtContent.Text(), L"frmFragmentEditor.cmdSave_Click")) return;
    savedFile_ = target;
    dirty_ = false;
    EditMode(target);
    saved = true;
  });
  return saved;
}

void FrmFragmentEditor::QueryUnload(int& cancel) {
  if (!dirty_) return;
  const std::wstring name = file_.empty() ? std::wstring(L"new fragment") : L"fragment '" + io::FileNameOf(file_) + L"'";
  int answer = s_.uiHost.MsgBox(L"Do you want to save the changes to the " + name + L"?", kSaveQuestion, kernel::kAppName);
  if (answer == ui::vbCancel || (answer == ui::vbYes && !Save())) cancel = 1;
}

}  // namespace quillet::fragments
