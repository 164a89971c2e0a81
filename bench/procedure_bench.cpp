// The Procedure Builder with every option on, from OK to the finished text at the end of a
// module of 10 000 lines: name check, handler read, generation, insertion, caret, module
// constant and clipboard.
#include <memory>
#include <string>
#include <vector>

#include "bench.h"
#include "bench_session.h"
#include "generators/frm_procedure.h"
#include "settings/items.h"
#include "support/fixtures.h"

namespace quillet::bench {
namespace {

struct Builder : test::SessionFixture {
  std::shared_ptr<host::MemoryComponent> module;
  std::vector<std::wstring> lines;
  std::unique_ptr<generators::FrmProcedure> form;

  Builder() {
    session.hostName = L"Excel";
    const std::pair<int, const wchar_t*> values[] = {
        {settings::kBaseFolder, L"\\vbcode\\"},        {settings::kExitHandler, L"HandleExit"},
        {settings::kErrorHandler, L"HandleError"},     {settings::kModuleNameConstant, L"cstrModule"},
        {settings::kProcedureNameConstant, L"cstrProcedure"},
        {settings::kProcedureHeaderFile, L"C:\\Program Files\\Quillet\\proc.txt"}};
    for (const auto& [item, value] : values) session.settings[item] = std::wstring(value);
    Write("proc.txt", "' {PROCEDURENAME} by {AUTHOR}, {DATE}\r\n' {DESCRIPTION}\r\n");
    Write("vbcode/Fragments/ErrorHandlers/Raise.bas",
          "    On Error GoTo HandleError\r\n<end_of_top>\r\n<begin_of_bottom>\r\nHandleExit:\r\n    Exit {PROCEDURETYPE}\r\n"
          "HandleError:\r\n    Err.Raise Err.Number, \"{MODULENAME}.{PROCEDURENAME}\"\r\n");
    lines = ModuleOfProcedures(10000);
    module = Module(L"Module1", lines);
  }

  // The dialog filled as a user fills it, every option on, before OK.
  void Reset() {
    module->Module()->SetAllLines(lines);
    // The editor knows the procedures of a module it shows before anyone asks.
    module->Module()->CountOfDeclarationLines();
    Caret(2, 1);
    form = std::make_unique<generators::FrmProcedure>(session);
    form->Init();
    form->txtName.SetText(L"Total");
    form->cboProcType.SetListIndex(form->cboProcType.FindStringExact(L"Function"));
    form->cboReturnValueType.SetListIndex(form->cboReturnValueType.FindStringExact(L"Long"));
    form->cboAddErrorHandler.SetListIndex(form->cboAddErrorHandler.FindStringExact(L"Raise"));
    form->txtDescription.SetText(L"Adds the lines of an invoice");
    for (ui::CheckBox* box : {&form->chkAddHeader, &form->chkAddHourglass, &form->chkAddProcedureConstant,
                              &form->chkAddModuleConstant, &form->chkAddReturnStatement})
      box->SetValue(ui::vbChecked);
    for (const wchar_t* name : {L"vlngInvoice", L"vblnRounded"}) {
      auto a = std::make_shared<generators::clsArgument>();
      a->Name = name;
      a->ValueType = L"Long";
      a->IsByVal = true;
      a->Number = form->Procedure().Arguments().Count() + 1;
      form->Procedure().Arguments().Add(a);
    }
    form->ArgumentsList();
    form->chkArgumentsOnSeparateLine.SetValue(ui::vbChecked);
  }
};

std::unique_ptr<Builder> builder;

Register procedureBench({"Procedure Builder OK, every option, module of 10 000 lines", "under 5 ms",
                         [] {
                           if (!builder) builder = std::make_unique<Builder>();
                           builder->Reset();
                         },
                         [] { builder->form->PressOk(); },
                         10});

}  // namespace
}  // namespace quillet::bench
