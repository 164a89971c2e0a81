#include "generators/frm_class.h"

#include <initializer_list>

#include "generators/frm_select_table.h"
#include "generators/frm_procedure.h"
#include "generators/scope.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/strings.h"

namespace quillet::generators {

namespace {

// A changed member keeps its place in the list; a new one goes last. The key follows a
// changed name.
template <class T>
void ReplaceOrAppend(vba::Collection<std::shared_ptr<T>>& list, std::shared_ptr<T> member, const T* edited) {
  vba::Collection<std::shared_ptr<T>> rebuilt;
  bool placed = false;
  for (long i = 1; i <= list.Count(); ++i) {
    std::shared_ptr<T> m = list.Item(i);
    if (edited && m.get() == edited) {
      rebuilt.Add(member, member->Name);
      placed = true;
    } else if (!vba::EqualsText(m->Name, member->Name)) {
      rebuilt.Add(m, m->Name);
    }
  }
  if (!placed) rebuilt.Add(member, member->Name);
  list = std::move(rebuilt);
}

}  // namespace

FrmClass::FrmClass(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmClass"),
      lblClassName(Add<ui::Label>(L"lblClassName")),
      txtClassName(Add<ui::TextBox>(L"txtClassName")),
      lblDescription(Add<ui::Label>(L"lblDescription")),
      txtDescription(Add<ui::TextBox>(L"txtDescription")),
      TabMain(Add<ui::TabStrip>(L"TabMain")),
      lvProperties(Add<ui::ListView>(L"lvProperties")),
      cmdNewProp(Add<ui::CommandButton>(L"cmdNewProp")),
      cmdEditProp(Add<ui::CommandButton>(L"cmdEditProp")),
      cmdDelProp(Add<ui::CommandButton>(L"cmdDelProp")),
      cmdFromTable(Add<ui::CommandButton>(L"cmdFromTable")),
      lvMethods(Add<ui::ListView>(L"lvMethods")),
      cmdNewMethod(Add<ui::CommandButton>(L"cmdNewMethod")),
      cmdEditMethod(Add<ui::CommandButton>(L"cmdEditMethod")),
      cmdDelMethod(Add<ui::CommandButton>(L"cmdDelMethod")),
      chkMakeColClass(Add<ui::CheckBox>(L"chkMakeColClass")),
      lblColClassName(Add<ui::Label>(L"lblColClassName")),
      txtColClassName(Add<ui::TextBox>(L"txtColClassName")),
      cmdCreate(Add<ui::CommandButton>(L"cmdCreate")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Class Builder");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 7800, 6600);
  // The names at the top with the buttons in a column at the right, the two pages on the
  // tab strip sharing one place, the collection class beneath them.
  lblClassName.SetCaption(L"Class &Name");
  lblClassName.Move(120, 120, 1900, 255);
  txtClassName.Move(2100, 120, 3960, 315);
  lblDescription.SetCaption(L"Class &Description");
  lblDescription.Move(120, 520, 1900, 255);
  txtDescription.Move(2100, 520, 3960, 700);
  TabMain.Tabs().Add(L"Properties", L"Properties");
  TabMain.Tabs().Add(L"Methods", L"Methods");
  TabMain.Move(120, 1400, 7440, 3700);
  lvProperties.SetView(3);
  lvProperties.Columns().Add(L"Name", L"Name");
  lvProperties.Columns().Add(L"DataType", L"Data Type");
  lvProperties.Columns().Add(L"Accessibility", L"Accessibility");
  lvProperties.Move(240, 1800, 5580, 3160);
  cmdNewProp.SetCaption(L"&New");
  cmdEditProp.SetCaption(L"Chan&ge");
  cmdDelProp.SetCaption(L"&Delete");
  cmdFromTable.SetCaption(L"Copy from &table");
  lvMethods.SetView(3);
  lvMethods.Columns().Add(L"Name", L"Name");
  lvMethods.Columns().Add(L"ReturnType", L"ReturnType");
  lvMethods.Columns().Add(L"Accessibility", L"Accessibility");
  lvMethods.Columns().Add(L"Arguments", L"Arguments");
  lvMethods.Move(240, 1800, 5580, 3160);
  cmdNewMethod.SetCaption(L"&New");
  cmdEditMethod.SetCaption(L"Chan&ge");
  cmdDelMethod.SetCaption(L"&Delete");
  auto column = [](std::initializer_list<ui::CommandButton*> buttons, long left, long top, long width) {
    for (ui::CommandButton* b : buttons) {
      b->Move(left, top, width, 375);
      top += 440;
    }
  };
  column({&cmdNewProp, &cmdEditProp, &cmdDelProp, &cmdFromTable}, 5940, 1800, 1500);
  column({&cmdNewMethod, &cmdEditMethod, &cmdDelMethod}, 5940, 1800, 1500);
  chkMakeColClass.SetCaption(L"&Also make Collection Class");
  chkMakeColClass.Move(120, 5240, 3000, 255);
  lblColClassName.SetCaption(L"Collection Cla&ss Name");
  lblColClassName.Move(120, 5600, 1900, 255);
  txtColClassName.Move(2100, 5560, 3960, 315);
  cmdCreate.SetCaption(L"Create");
  cmdCreate.SetDefault(true);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(L"Help");
  column({&cmdCreate, &cmdCancel, &cmdHelp}, 6300, 120, 1260);

  TabMain.OnClick = [this] { PagesShow(); };
  cmdNewProp.OnClick = [this] { PropertyEdit(true); };
  cmdEditProp.OnClick = [this] { PropertyEdit(false); };
  lvProperties.OnDblClick = [this] { PropertyEdit(false); };
  cmdDelProp.OnClick = [this] { PropertyDelete(); };
  cmdFromTable.OnClick = [this] { CopyFromTable(); };
  cmdNewMethod.OnClick = [this] { MethodEdit(true); };
  cmdEditMethod.OnClick = [this] { MethodEdit(false); };
  lvMethods.OnDblClick = [this] { MethodEdit(false); };
  cmdDelMethod.OnClick = [this] { MethodDelete(); };
  chkMakeColClass.OnClick = [this] {
    lblColClassName.SetEnabled(chkMakeColClass.Checked());
    txtColClassName.SetEnabled(chkMakeColClass.Checked());
  };
  txtClassName.OnChange = [this] { changed_ = true; };
  txtDescription.OnChange = [this] { changed_ = true; };
  cmdCreate.OnClick = [this] { PressCreate(); };
  cmdCancel.OnClick = [this] { PressCancel(); };
}

void FrmClass::Init() {
  Load();
  cmdFromTable.SetEnabled(AccessOf(s_) != nullptr);
  chkMakeColClass.SetValue(0);
  lblColClassName.SetEnabled(false);
  txtColClassName.SetEnabled(false);
  TabMain.SetSelectedItem(TabMain.Tabs().Item(1));
  PagesShow();
  changed_ = false;
}

void FrmClass::PagesShow() {
  const bool props = !TabMain.SelectedItem() || TabMain.SelectedItem()->Index() == 1;
  for (ui::Control* c : {static_cast<ui::Control*>(&lvProperties), static_cast<ui::Control*>(&cmdNewProp),
                         static_cast<ui::Control*>(&cmdEditProp), static_cast<ui::Control*>(&cmdDelProp),
                         static_cast<ui::Control*>(&cmdFromTable)})
    c->SetVisible(props);
  for (ui::Control* c : {static_cast<ui::Control*>(&lvMethods), static_cast<ui::Control*>(&cmdNewMethod),
                         static_cast<ui::Control*>(&cmdEditMethod), static_cast<ui::Control*>(&cmdDelMethod)})
    c->SetVisible(!props);
}

std::wstring FrmClass::ClassName() const { return vba::Trim(txtClassName.Text()); }

bool FrmClass::PropertyExists(const std::wstring& name, const clsProperty* except) const {
  if (!class_.Properties().Exists(name)) return false;
  return class_.Properties().Item(name).get() != except;
}

std::shared_ptr<clsProperty> FrmClass::SelectedProperty() const {
  ui::ListItem* item = lvProperties.SelectedItem();
  if (!item || !class_.Properties().Exists(item->Key())) return nullptr;
  return class_.Properties().Item(item->Key());
}

std::shared_ptr<clsProcedure> FrmClass::SelectedMethod() const {
  ui::ListItem* item = lvMethods.SelectedItem();
  if (!item || !class_.Methods().Exists(item->Key())) return nullptr;
  return class_.Methods().Item(item->Key());
}

void FrmClass::PropertiesList() {
  lvProperties.Items().Clear();
  for (long i = 1; i <= class_.Properties().Count(); ++i) {
    const clsProperty& p = *class_.Properties().Item(i);
    ui::ListItem& item = lvProperties.Items().Add(p.Name, p.Name);
    item.SetSubItem(1, p.DataType);
    item.SetSubItem(2, p.AccessibleType);
  }
}

void FrmClass::MethodsList() {
  lvMethods.Items().Clear();
  for (long i = 1; i <= class_.Methods().Count(); ++i) {
    const clsProcedure& m = *class_.Methods().Item(i);
    ui::ListItem& item = lvMethods.Items().Add(m.Name, m.Name);
    item.SetSubItem(1, m.ReturnValueType);
    item.SetSubItem(2, m.AccessibleType);
    item.SetSubItem(3, m.GetArgString(0));
  }
}

void FrmClass::PropertyAccepted(std::shared_ptr<clsProperty> property, const clsProperty* edited) {
  ReplaceOrAppend(class_.Properties(), std::move(property), edited);
  changed_ = true;
  PropertiesList();
}

void FrmClass::MethodAccepted(std::shared_ptr<clsProcedure> method, const clsProcedure* edited) {
  ReplaceOrAppend(class_.Methods(), std::move(method), edited);
  changed_ = true;
  MethodsList();
}

void FrmClass::PropertyEdit(bool isNew) {
  std::shared_ptr<clsProperty> edited = isNew ? nullptr : SelectedProperty();
  if (!isNew && !edited) return;
  FrmProperty form(s_);
  form.SetParentForm(this);
  form.Init(edited.get());
  form.Show(true);
  if (form.Loaded()) form.Unload();
}

void FrmClass::MethodEdit(bool isNew) {
  std::shared_ptr<clsProcedure> edited = isNew ? nullptr : SelectedMethod();
  if (!isNew && !edited) return;
  if (std::shared_ptr<clsProcedure> m = MethodBuilderRun(s_, edited)) MethodAccepted(m, edited.get());
}

void FrmClass::PropertyDelete() {
  std::shared_ptr<clsProperty> p = SelectedProperty();
  if (!p) return;
  if (s_.uiHost.MsgBox(L"Delete '" + p->Name + L"'?", ui::vbYesNo | ui::vbQuestion, kernel::kAppName) != ui::vbYes)
    return;
  class_.Properties().Remove(p->Name);
  changed_ = true;
  PropertiesList();
}

void FrmClass::MethodDelete() {
  std::shared_ptr<clsProcedure> m = SelectedMethod();
  if (!m) return;
  if (s_.uiHost.MsgBox(L"Delete '" + m->Name + L"'?", ui::vbYesNo | ui::vbQuestion, kernel::kAppName) != ui::vbYes)
    return;
  class_.Methods().Remove(m->Name);
  changed_ = true;
  MethodsList();
}

void FrmClass::CopyFromTable() {
  kernel::Trap(s_, L"frmClass.cmdFromTable_Click", [&] {
    FrmSelectTableAndFields form(s_);
    form.Init();
    form.Show(true);
    if (form.Loaded()) form.Unload();
    if (!form.Accepted()) return;
    std::vector<std::wstring> names;
    std::vector<long> types;
    for (const host::AccessField& f : form.SelectedFields()) {
      names.push_back(f.name);
      types.push_back(f.type);
    }
    ClassFromTable(s_, class_, form.TableName(), names, types);
    changed_ = true;
    PropertiesList();
    MethodsList();
  });
}

bool FrmClass::NameAccepted(ui::TextBox& box) {
  long answer = settings::CheckNewNameIsOK(s_, vba::Trim(box.Text()), true, true, {});
  if (answer == 0 || answer == ui::vbYes) return true;
  box.SetFocus();
  return false;
}

bool FrmClass::PressCreate() {
  if (!NameAccepted(txtClassName)) return false;
  if (chkMakeColClass.Checked() && !NameAccepted(txtColClassName)) return false;
  class_.Name = ClassName();
  class_.Description = txtDescription.Text();
  class_.MakeCollectionClass = chkMakeColClass.Checked();
  class_.CollectionClassName = vba::Trim(txtColClassName.Text());
  // The members' error handlers name the module through its constant: it is declared once.
  class_.ModuleNameConstant = false;
  for (long i = 1; i <= class_.Properties().Count(); ++i)
    class_.ModuleNameConstant = class_.ModuleNameConstant || class_.Properties().Item(i)->ModuleNameConstant;
  for (long i = 1; i <= class_.Methods().Count(); ++i)
    class_.ModuleNameConstant = class_.ModuleNameConstant || class_.Methods().Item(i)->ModuleNameConstant;
  if (!class_.Create(s_, s_.vbe ? s_.vbe->ActiveVBProject() : nullptr)) return false;
  s_.platform.ClipboardSetText(class_.Name);
  Unload();
  return true;
}

void FrmClass::PressCancel() {
  if (changed_ && s_.uiHost.MsgBox(L"Would you like to close the form without saving changes?",
                                   ui::vbYesNo | ui::vbQuestion, kernel::kAppName) != ui::vbYes)
    return;
  Unload();
}

void ClassBuilderOpen(kernel::Session& s) {
  if (!kernel::CodeWindowActive(s)) return;
  initialize(s, L"", L"");
  auto form = std::make_unique<FrmClass>(s);
  form->Init();
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

}  // namespace quillet::generators
