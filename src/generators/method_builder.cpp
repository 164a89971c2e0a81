#include "generators/method_builder.h"

#include "generators/frm_class.h"
#include "kernel/errors.h"

namespace quillet::generators {

void MethodBuilderRun(kernel::Session& s, FrmClass& parent, clsProcedure* edited) {
  kernel::NotAvailable(s, L"the method builder");
}

}  // namespace quillet::generators
