#include "generators/type_combo.h"

#include "ui/combo_expand.h"

namespace quillet::generators {

ui::ComboBox& TypeComboAdd(ui::Form& form, std::wstring name, ui::Control* container) {
  ui::ComboBox& combo = form.Add<ui::ComboBox>(std::move(name), container);
  // The completion stays attached for as long as the box lives.
  ui::ComboExpand().Init(combo, form);
  return combo;
}

}  // namespace quillet::generators
