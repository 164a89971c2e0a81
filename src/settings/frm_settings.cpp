#include "settings/frm_settings.h"

#include "settings/error_handlers.h"
#include "io/paths.h"
#include "settings/folders.h"
#include "settings/items.h"
#include "settings/registry.h"
#include "settings/settings_controls.h"
#include "kernel/errors.h"
#include "kernel/product.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

// Positions in twips. The pages lie over the tab strip's client area; rows on a page are
// a label and its control, or a check box alone.
constexpr long kFormWidth = 7560, kFormHeight = 6360;
constexpr long kStripLeft = 120, kStripTop = 120, kStripWidth = 7200, kStripHeight = 5160;
constexpr long kPageLeft = 240, kPageTop = 480, kPageWidth = 6960, kPageHeight = 4680;
constexpr long kRowTop = 120, kRowHeight = 420, kControlHeight = 315, kLabelHeight = 255;
constexpr long kLabelLeft = 120, kLabelWidth = 2520;
constexpr long kControlLeft = 2760, kControlWidth = 3960;
constexpr long kPathWidth = 3480, kPickerLeft = 6300, kPickerWidth = 420;
constexpr long kButtonTop = 5400, kButtonWidth = 1095, kButtonHeight = 375;

// One row of a page: an item, the caption of its label (or its check box) when it is
// not the item's key, and the index of its path picker.
struct Row {
  int item;
  const wchar_t* label = nullptr;
  int picker = -1;
};

struct PageLayout {
  const wchar_t* caption;
  std::vector<Row> rows;  // the Prefixes page lays out its own
};

const std::array<PageLayout, FrmSettings::kTabCount>& Layout() {
  static const std::array<PageLayout, FrmSettings::kTabCount> pages = {{
      {L"Developer", {{kDeveloper}, {kInitials}, {kOrganization}, {kCopyright}}},
      {L"Error Handling",
       {{kDefaultErrorHandle, L"Default ErrorHandle"},
        {kErrorHandleProcedure},
        {kErrorHandleModule},
        {kErrorHandler},
        {kExitHandler},
        {kMakeProcedureConstantTrue},
        {kMakeModuleConstantTrue}}},
      {L"Files and Folders",
       {{kBaseFolder, nullptr, 0},
        {kLibraryFolder, nullptr, 1},
        {kProcedureHeaderFile, nullptr, 6},
        {kErrorHandleFile, L"Global ErrorHandle File", 7},
        {kPrefixStandardsFile, nullptr, 3},
        {kModuleHeaderFile, nullptr, 4},
        {kCollectionClassTemplate, nullptr, 5}}},
      {L"Prefixes", {}},
      {L"Constant Builder",
       {{kSetPickedUpNameUcase, L"Set Picked Up Name Uppercase"}, {kConstTagBeforeTypeTag}, {kConstTag}}},
      {L"Other",
       {{kViewTipOfTheDay, L"View Tip of the Day on Startup"},
        {kViewCodeExplorerWindow},
        {kViewQuilletWindow, L"View Shortcuts and Search Window"},
        {kDeclarationIndented},
        {kProcedureNameConstant},
        {kModuleNameConstant}}},
      {L"Procedure Builder",
       {{kAddHeaderProcedure},
        {kAddProcedureConstant},
        {kAddModuleConstantProcedure},
        {kAddHourglassProcedure},
        {kAddErrorHandlingProcedure, L"Add Error Handling"},
        {kArgumentsOnSeparateLines},
        {kAddReturnStatement}}},
      {L"Property Builder",
       {{kAddModuleConstantProperty, L"Add Module Constant"},
        {kAddPropertyConstant},
        {kAddErrorHandlingProperty, L"Add Error Handling"}}},
      {L"Method Builder",
       {{kAddHourglassMethod, L"Add Hourglass"},
        {kAddModuleConstantMethod, L"Add Module Constant"},
        {kAddMethodConstant},
        {kAddHeaderMethod, L"Add Header"},
        {kAddErrorHandlingMethod, L"Add Error Handling"}}},
      {L"Lines of Code", {{kEachArgumentOnANewLine}, {kExplicitArguments}, {kIncludeComment}, {kOpenOnCurrentProject}}},
      {L"Select Case", {{kInsertReturnValues}, {kAddCaseElse}, {kCodeCaseElse}}},
  }};
  return pages;
}

// The path pickers by their index in the control array: the item whose text box they
// fill, the item whose key is the title, and the file pattern (none for a folder).
struct Picker {
  int index;
  int item;
  int titleItem;
  const wchar_t* pattern;
};

// Index 7 is titled with the key of the collection class template, as it always was.
constexpr Picker kPickers[] = {
    {0, kBaseFolder, kBaseFolder, nullptr},
    {1, kLibraryFolder, kLibraryFolder, nullptr},
    {3, kPrefixStandardsFile, kPrefixStandardsFile, L"*.ini"},
    {4, kModuleHeaderFile, kModuleHeaderFile, L"*.bas"},
    {5, kCollectionClassTemplate, kCollectionClassTemplate, L"*.cls"},
    {6, kProcedureHeaderFile, kProcedureHeaderFile, L"*.bas"},
    {7, kErrorHandleFile, kCollectionClassTemplate, L"*.bas"},
};

const Picker* FindPicker(int index) {
  for (const auto& p : kPickers)
    if (p.index == index) return &p;
  return nullptr;
}

// The combo boxes that offer the error handlers of the fragment library.
constexpr int kErrorHandlingCombos[] = {kDefaultErrorHandle, kAddErrorHandlingProcedure, kAddErrorHandlingProperty,
                                        kAddErrorHandlingMethod};

constexpr const wchar_t* kTipsAtStartup = L"Show Tips at Startup";
constexpr const wchar_t* kTipsAtBuilderOpen = L"Show Tips at Builder Open";

// A per-user value read as a number: shown unless it is 0.
bool NotZero(const std::wstring& value) { return IniTruth(value).value_or(false); }

bool SettingIsTrue(const kernel::Session& s, int item) { return IniTruth(IniText(s.settings[item])).value_or(false); }

// Shows or hides a tool window to follow its setting.
void FollowSetting(kernel::Session& s, const host::Ptr<host::Window>& window, int item) {
  if (!window) return;
  bool wanted = SettingIsTrue(s, item);
  if (window->Visible() != wanted) window->SetVisible(wanted);
}

// The label of an item's control: "lbl" and the control's name without its prefix.
std::wstring LabelName(const std::wstring& controlName) { return L"lbl" + controlName.substr(3); }

}  // namespace

FrmSettings::FrmSettings(kernel::Session& s)
    : BuilderForm(s.ui, L"frmSettings"),
      tabOptions(Add<ui::TabStrip>(L"tabOptions")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdApply(Add<ui::CommandButton>(L"cmdApply")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Settings");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, kFormWidth, kFormHeight);

  tabOptions.Move(kStripLeft, kStripTop, kStripWidth, kStripHeight);
  for (int tab = 0; tab < kTabCount; ++tab) tabOptions.Tabs().Add(L"", Layout()[tab].caption);
  BuildPages();

  long left = kStripLeft + kStripWidth - 4 * kButtonWidth - 3 * 105;
  for (auto* button : {&cmdOK, &cmdCancel, &cmdApply, &cmdHelp}) {
    button->Move(left, kButtonTop, kButtonWidth, kButtonHeight);
    left += kButtonWidth + 105;
    // The buttons come last in the tab order, behind the pages.
    button->SetTabIndex(static_cast<int>(Controls().size()) - 1);
  }
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdApply.SetCaption(L"&Apply");
  cmdHelp.SetCaption(L"Help");

  OnLoad = [this] { FormLoad(); };
  OnActivate = [this] { FormActivate(); };
  OnUnload = [this](int&) { FormUnload(); };
  tabOptions.OnClick = [this] {
    if (ui::Tab* tab = tabOptions.SelectedItem()) ShowPage(tab->Index() - 1);
  };
  cmdOK.OnClick = [this] { OkClick(); };
  cmdCancel.OnClick = [this] { Unload(); };
  cmdApply.OnClick = [this] { ApplyClick(); };
  cmdHelp.OnClick = [this] { s_.platform.ShellOpen(io::JoinPath(s_.platform.ProgramFolder(), L"Quillet.chm")); };
  txtTypePrefix_->OnGotFocus = [this] { cmdOK.SetDefault(false); };
  txtTypePrefix_->OnLostFocus = [this] { cmdOK.SetDefault(true); };
}

void FrmSettings::BuildPages() {
  // Adds an item's control (and its label, unless it is a check box) on one row.
  auto place = [this](ui::Control& container, const Row& row, long top, long labelWidth, long controlLeft,
                      long controlWidth) {
    const SettingItem& item = *FindItem(row.item);
    std::wstring name = ItemControlName(item);
    std::wstring caption = row.label ? row.label : item.key;
    std::wstring kind = name.substr(0, 3);
    if (kind == L"chk") {
      auto& check = Add<ui::CheckBox>(name, &container);
      check.SetCaption(caption);
      check.Move(kLabelLeft, top, kPageWidth - 2 * kLabelLeft, kControlHeight);
      if (row.item == kViewTipOfTheDay) chkViewTipOfTheDay_ = &check;
      return;
    }
    auto& label = Add<ui::Label>(LabelName(name), &container);
    label.SetCaption(caption);
    label.Move(kLabelLeft, top + 60, labelWidth, kLabelHeight);
    ui::Control* control = nullptr;
    if (kind == L"cbo") {
      auto& combo = Add<ui::ComboBox>(name, &container);
      // The mode of auto prefixing is one of three; error handlers may be typed freely.
      if (row.item == kAutoPrefixVariableName) combo.SetStyle(ui::vbComboDropdownList);
      control = &combo;
    } else {
      control = &Add<ui::TextBox>(name, &container);
    }
    control->Move(controlLeft, top, row.picker >= 0 ? kPathWidth : controlWidth, kControlHeight);
    if (row.picker >= 0) {
      auto& picker = Add<ui::CommandButton>(L"cmdGetPath", &container, row.picker);
      picker.SetCaption(L"...");
      picker.Move(kPickerLeft, top, kPickerWidth, kControlHeight);
      picker.OnClick = [this, index = row.picker] { GetPathClick(index); };
    }
  };

  for (int tab = 0; tab < kTabCount; ++tab) {
    auto& page = Add<ui::PictureBox>(L"picTab", nullptr, tab);
    page.Move(kPageLeft, kPageTop, kPageWidth, kPageHeight);
    page.SetTabStop(false);
    page.SetVisible(tab == 0);
    pages_[tab] = &page;
    long top = kRowTop;
    for (const Row& row : Layout()[tab].rows) {
      place(page, row, top, kLabelWidth, kControlLeft, kControlWidth);
      top += kRowHeight;
    }
  }

  // The Prefixes page: the mode, the type table as text on the left, the scope and the
  // argument prefixes in frames on the right.
  ui::PictureBox& prefixes = Page(3);
  place(prefixes, {kAutoPrefixVariableName}, kRowTop, kLabelWidth, kControlLeft, kControlWidth);
  auto& label = Add<ui::Label>(L"lblTypePrefix", &prefixes);
  label.SetCaption(L"Type Prefixes");
  label.Move(kLabelLeft, 660, 3240, kLabelHeight);
  txtTypePrefix_ = &Add<ui::TextBox>(L"txtTypePrefix", &prefixes);
  txtTypePrefix_->SetMultiLine(true);
  txtTypePrefix_->Move(kLabelLeft, 960, 3240, 3600);
  struct Group {
    const wchar_t* name;
    const wchar_t* caption;
    int first, second;
    long top;
  };
  for (const Group& g : {Group{L"fraScopePrefixes", L"Scope Prefixes", kPrefixModule, kPrefixGlobal, 600},
                         Group{L"fraArgumentPrefixes", L"Argument Prefixes", kPrefixByVal, kPrefixByRef, 2100}}) {
    auto& frame = Add<ui::Frame>(g.name, &prefixes);
    frame.SetCaption(g.caption);
    frame.Move(3600, g.top, 3240, 1320);
    place(frame, {g.first}, 300, 1560, 1800, 1200);
    place(frame, {g.second}, 300 + kRowHeight, 1560, 1800, 1200);
  }
}

void FrmSettings::ShowPage(int tab) {
  for (int i = 0; i < kTabCount; ++i) Page(i).SetVisible(i == tab);
}

void FrmSettings::FormLoad() {
  kernel::Trap(s_, L"frmSettings.Form_Load", [&] {
    tabOptions.SetSelectedItem(tabOptions.Tabs().Item(1));
    ShowPage(0);
    FormLoadSettings(s_, *this);
    std::vector<std::wstring> handlers = ErrorHandlersList(s_);
    for (int item : kErrorHandlingCombos)
      if (auto* combo = FindAs<ui::ComboBox>(ItemControlName(*FindItem(item))))
        for (const auto& name : handlers) combo->AddItem(name);
    txtTypePrefix_->SetText(TypePrefixText(s_));

    // From here on an edit enables Apply; what the controls hold now is the state that
    // Apply compares with.
    watchers_.clear();
    for (const auto& control : Controls())
      if (ApplyWatcher::Watches(*control)) watchers_.push_back(ApplyWatcher::Init(*control, cmdApply));
    initialState_ = ControlsState(*this);

    // The tip of the day has two per-user switches; the box is checked only when both are on.
    std::wstring fallback = IniText(s_.settings[kViewTipOfTheDay]);
    bool shown = NotZero(UserSettingGet(s_, kTipsAtStartup, fallback)) &&
                 NotZero(UserSettingGet(s_, kTipsAtBuilderOpen, fallback));
    chkViewTipOfTheDay_->SetChecked(shown);
    cmdApply.SetEnabled(false);
  });
}

void FrmSettings::FormActivate() {
  if (!firstRun_) return;
  firstRun_ = false;
  s_.uiHost.MsgBox(L"Please enter your personal data", ui::vbInformation, kernel::kAppName);
}

void FrmSettings::FormUnload() {
  watchers_.clear();
  initialState_.clear();
}

void FrmSettings::ApplyClick() {
  kernel::Trap(s_, L"frmSettings.cmdApply_Click", [&] {
    // The state at load is kept: a later Apply saves again, even without a new edit.
    if (!vba::EqualsText(ControlsState(*this), initialState_)) {
      FormSaveSettings(s_, *this);
      TypePrefixTextSave(s_, txtTypePrefix_->Text());
    }
    FollowSetting(s_, s_.directAccessWindow, kViewQuilletWindow);
    FollowSetting(s_, s_.codeExplorerWindow, kViewCodeExplorerWindow);
    std::wstring tips = std::to_wstring(chkViewTipOfTheDay_->Value());
    UserSettingSave(s_, kTipsAtStartup, tips);
    UserSettingSave(s_, kTipsAtBuilderOpen, tips);
    cmdApply.SetEnabled(false);
    if (tabOptions.CanFocus()) tabOptions.SetFocus();
  });
}

void FrmSettings::OkClick() {
  if (cmdApply.Enabled()) ApplyClick();
  Unload();
}

std::wstring FrmSettings::ExistingFolderOf(const std::wstring& path) const {
  if (vba::Trim(path).empty()) return {};
  std::wstring folder = PathFolderGet(PathAbsoluteGet(s_, path));
  return !folder.empty() && s_.platform.Files().FolderExists(folder) ? folder : std::wstring();
}

void FrmSettings::GetPathClick(int index) {
  kernel::Trap(s_, L"frmSettings.cmdGetPath_Click", [&] {
    const Picker* picker = FindPicker(index);
    if (!picker) return;
    auto* box = FindAs<ui::TextBox>(ItemControlName(*FindItem(picker->item)));
    if (!box) return;
    std::wstring title = FindItem(picker->titleItem)->key;
    std::wstring present = box->Text();

    if (!picker->pattern) {
      std::wstring start = picker->item == kBaseFolder ? CodeFolderGet(s_) : LibraryFolderGet(s_);
      std::wstring folder = FolderPick(start, title);
      if (!folder.empty()) box->SetText(PathAddSlash(PathRootRelativeGet(s_, folder)));
      return;
    }

    std::wstring start;
    switch (picker->item) {
      case kPrefixStandardsFile:
        start = RootFolderGet(s_);
        break;
      case kModuleHeaderFile:
      case kProcedureHeaderFile:
        start = ExistingFolderOf(present);
        if (start.empty()) start = FragmentsFolderGet(s_);
        break;
      case kCollectionClassTemplate:
      case kErrorHandleFile:
        start = ExistingFolderOf(present);
        if (start.empty())
          start = ExistingFolderOf(picker->item == kErrorHandleFile ? ErrorHandleFileGet(s_)
                                                                    : CollectionClassTemplateGet(s_));
        if (start.empty()) start = RootFolderGet(s_);
        break;
    }
    std::wstring file = FilePick(start, title, picker->pattern);
    if (!file.empty()) box->SetText(PathRootRelativeGet(s_, file));
  });
}

std::wstring FrmSettings::FilePick(const std::wstring& defaultFolder, const std::wstring& title,
                                   const std::wstring& filter) {
  ui::FileDialogRequest request;
  request.title = title;
  request.filters.push_back({filter, filter});
  request.initialFolder = defaultFolder;
  return s_.uiHost.OpenFile(request).value_or(L"");
}

std::wstring FrmSettings::FolderPick(const std::wstring& startFolder, const std::wstring& title) {
  std::wstring chosen;
  kernel::Trap(s_, L"modFolderChoose.BrowseForFolder",
              [&] { chosen = s_.uiHost.ChooseFolder(title, startFolder).value_or(L""); });
  return chosen;
}

}  // namespace quillet::settings
