#pragma once
// The Class Builder: a new class module with its properties (through the Property Builder
// in its class mode, or copied from the fields of a table of the Access database), its
// methods (through the Method Builder) and, when asked, its collection class.
#include <memory>
#include <string>

#include "generators/class.h"
#include "generators/frm_property.h"
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

class FrmClass : public kernel::BuilderForm, public PropertyParent {
 public:
  explicit FrmClass(kernel::Session& s);

  void Init() override;
  clsClass& Class() { return class_; }
  // The row chosen in each list; nullptr when none.
  std::shared_ptr<clsProperty> SelectedProperty() const;
  std::shared_ptr<clsProcedure> SelectedMethod() const;
  // Redraws the lists from the class.
  void PropertiesList();
  void MethodsList();
  // A table's fields become properties, with the methods that load and store them.
  void CopyFromTable();
  // Create: true when the class module was made and the dialog closed.
  bool PressCreate();

  // PropertyParent
  std::wstring ClassName() const override;
  bool PropertyExists(const std::wstring& name, const clsProperty* except) const override;
  void PropertyAccepted(std::shared_ptr<clsProperty> property, const clsProperty* edited) override;

  // A method from the Method Builder: new (`edited` nullptr) or changed.
  void MethodAccepted(std::shared_ptr<clsProcedure> method, const clsProcedure* edited);

  ui::Label& lblClassName;
  ui::TextBox& txtClassName;
  ui::Label& lblDescription;
  ui::TextBox& txtDescription;
  ui::TabStrip& TabMain;
  ui::ListView& lvProperties;
  ui::CommandButton& cmdNewProp;
  ui::CommandButton& cmdEditProp;
  ui::CommandButton& cmdDelProp;
  ui::CommandButton& cmdFromTable;
  ui::ListView& lvMethods;
  ui::CommandButton& cmdNewMethod;
  ui::CommandButton& cmdEditMethod;
  ui::CommandButton& cmdDelMethod;
  ui::CheckBox& chkMakeColClass;
  ui::Label& lblColClassName;
  ui::TextBox& txtColClassName;
  ui::CommandButton& cmdCreate;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  kernel::Session& s_;
  clsClass class_;
  bool changed_ = false;

  void PropertyEdit(bool isNew);
  void MethodEdit(bool isNew);
  void PropertyDelete();
  void MethodDelete();
  void PagesShow();
  bool NameAccepted(ui::TextBox& box);
  void PressCancel();
};

// The Class Builder from the bar.
void ClassBuilderOpen(kernel::Session& s);

}  // namespace quillet::generators
