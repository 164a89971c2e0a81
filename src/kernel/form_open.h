#pragma once
// The one way a builder dialog opens: the code window is checked, the models refreshed,
// the form initialised and shown, and a caret mark it left is cleared.
#include <memory>
#include <optional>

#include "kernel/session.h"
#include "ui/form.h"
#include "vba/variant.h"

namespace quillet::kernel {

// A dialog that FormOpen opens: its `init` takes up to two arguments.
class BuilderForm : public ui::Form {
 public:
  using ui::Form::Form;
  virtual void Init() {}
  virtual void Init(const vba::Variant& arg1) { Init(); }
  virtual void Init(const vba::Variant& arg1, const vba::Variant& arg2) { Init(arg1); }
};

struct FormOpenOptions {
  bool needCodeWindow = true;
  bool callInit = true;
  vba::Variant initArg1{}, initArg2{};  // Empty when not given
  bool rescan = false;
  vba::Variant rescanArg{};
  int showMode = -1;  // -1: the session's ShowMode
};

void FormOpen(Session& s, std::unique_ptr<BuilderForm> form, const FormOpenOptions& options);

// Drops the modeless forms that have been unloaded since they were opened.
void ReleaseClosedForms(Session& s);

}  // namespace quillet::kernel
