#pragma once
// The Constant Builder: a constant of the module or of the procedure at the caret, or a
// member of the Enum around the caret, with its value written as code of its type.
//
// Another dialog opens it as a service:
//   auto c = std::make_unique<FrmConst>(s);
//   c->SetParentForm(this);   // receives AddNewConst and ArgInsert
//   c->Init(L"Long", L"5");
#include <string>

#include "generators/frm_decl_builder.h"

namespace quillet::generators {

class FrmConst : public DeclBuilder {
 public:
  explicit FrmConst(kernel::Session& s);

  void Init() override { Init(L"", L""); }
  // The type chosen in the list ("String" when none is given) and a proposed value.
  void Init(const std::wstring& type, const std::wstring& value);

  // 1 for "Public", 2 for "Private", 0 for neither.
  long Accessibility() const;
  void SetAccessibility(long accessibility);
  // Procedure level exactly when a procedure is current and no accessibility is chosen.
  int VarLevel() const;

  // The declaration line and the part of it behind the keyword, for `value` as code; a
  // member of an Enum (`enumMember`) has no keyword.
  struct CodeLine {
    std::wstring line, namePart;
  };
  CodeLine BuildCodeLine(bool enumMember, const std::wstring& value) const;
  // OK: true when the declaration was written and the dialog closed.
  bool PressOK(bool paste);

  ui::Label& lblValue;
  ui::TextBox& txtValue;

 private:
  bool inProc_ = false;
};

// The Constant Builder from the bar.
void ConstBuilderOpen(kernel::Session& s);

}  // namespace quillet::generators
