// The procedures the builder scenarios write are valid VBA as the project itself reads
// it: each module a scenario expects is loaded into an editor, and every procedure the
// builders wrote is found by the procedure scanner (its definition, its End line) and read
// by the definition model with its arguments exactly as the builder's user gave them.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "../support/fixtures.h"
#include "analysis/proc_def.h"
#include "analysis/scan_proc.h"
#include "vba/encoding.h"

using namespace quillet;
using nlohmann::json;

namespace {

// An argument as the user built it.
struct Arg {
  Arg(std::wstring n, std::wstring t, bool v = false, bool o = false, bool p = false, bool a = false,
      std::wstring d = {})
      : name(std::move(n)), type(std::move(t)), byVal(v), optional(o), paramArray(p), array(a),
        defaultValue(std::move(d)) {}
  std::wstring name, type;  // type as the model reads it: "Variant" when none is written
  bool byVal, optional, paramArray, array;
  std::wstring defaultValue;
};

struct Written {
  const char* scenario;
  std::wstring module, name, kind, returnType;  // kind as the model says it: "Sub/Function"...
  std::vector<Arg> args;
};

const std::vector<Written>& WrittenProcedures() {
  static const std::vector<Written> table = {
      {"proc_sub_options_off", L"basMain", L"Tidy", L"Sub/Function", L"", {}},
      {"proc_sub_options_off", L"basTools", L"Helper", L"Sub/Function", L"", {}},
      {"proc_function_every_option", L"basMain", L"Total", L"Sub/Function", L"Long",
       {{L"vlngInvoice", L"Long", true}, {L"vblnRounded", L"Boolean", false, true, false, false, L"True"}}},
      {"proc_object_variant_word", L"basDocs", L"Items", L"Sub/Function", L"Collection", {}},
      {"proc_object_variant_word", L"basDocs", L"Setting", L"Sub/Function", L"Variant", {}},
      {"proc_object_variant_word", L"basDocs", L"Anything", L"Sub/Function", L"", {}},
      {"proc_arguments_every_kind", L"basReport", L"Report", L"Sub/Function", L"",
       {{L"rstrTitle", L"String"},
        {L"vlngCopies", L"Long"},
        {L"vvarStyle", L"Variant", false, true, false, false, L"STYLE_PLAIN"}}},
      {"proc_arguments_every_kind", L"basReport", L"Log", L"Sub/Function", L"",
       {{L"vstrText", L"String", true}, {L"vlngLevel", L"Long"}, {L"avarParts", L"Variant", false, false, true, true}}},
      {"proc_new_module", L"basStartup", L"Start", L"Sub/Function", L"", {}},
      {"proc_new_module", L"Invoice", L"Total", L"Sub/Function", L"Currency", {}},
      {"proc_new_module", L"basFiles", L"Export", L"Sub/Function", L"", {}},
      {"proc_refused_names", L"basMain", L"Helper", L"Sub/Function", L"", {}},
      // Properties: the Let and Set take the type as rData. The model reads a return type
      // for functions only, so a Get shows none.
      {"prop_builder_kinds_in_module_and_class", L"Module1", L"Name", L"Property Get", L"", {}},
      {"prop_builder_kinds_in_module_and_class", L"Module1", L"Name", L"Property Let", L"", {{L"rData", L"String"}}},
      {"prop_builder_kinds_in_module_and_class", L"Module1", L"Shade", L"Property Let", L"", {{L"rData", L"Colors"}}},
      {"prop_builder_kinds_in_module_and_class", L"Class1", L"Items", L"Property Get", L"", {}},
      {"prop_builder_kinds_in_module_and_class", L"Class1", L"Items", L"Property Set", L"", {{L"rData", L"Collection"}}},
      {"prop_builder_kinds_in_module_and_class", L"Class1", L"Tag", L"Property Get", L"", {}},
      {"prop_builder_kinds_in_module_and_class", L"Class1", L"Tag", L"Property Let", L"", {{L"rData", L"Variant"}}},
      {"prop_builder_kinds_in_module_and_class", L"Class1", L"Tag", L"Property Set", L"", {{L"rData", L"Variant"}}},
      {"prop_builder_every_option", L"Class1", L"Count", L"Property Get", L"", {}},
      {"prop_builder_every_option", L"Class1", L"Count", L"Property Let", L"", {{L"rData", L"Long"}}},
      {"prop_builder_every_option", L"Class1", L"Size", L"Property Let", L"", {{L"rData", L"Integer"}}},
      {"prop_names_refused_existing_and_new_class", L"clsOrder", L"Owner", L"Property Set", L"", {{L"rData", L"Object"}}},
      // Classes: properties and methods in one module.
      {"cls_builder_properties_and_methods", L"clsOrder", L"OrderNumber", L"Property Get", L"", {}},
      {"cls_builder_properties_and_methods", L"clsOrder", L"Customer", L"Property Set", L"", {{L"rData", L"Object"}}},
      {"cls_builder_properties_and_methods", L"clsOrder", L"GrandTotal", L"Sub/Function", L"Currency",
       {{L"Discount", L"Double"}}},
      {"cls_builder_properties_and_methods", L"clsOrder", L"Clear", L"Sub/Function", L"", {}},
      {"cls_table_class_dao", L"Customer", L"FirstName", L"Property Let", L"", {{L"rData", L"String"}}},
      {"cls_table_class_dao", L"Customer", L"Recordset", L"Property Set", L"", {{L"rData", L"Recordset"}}},
      {"cls_table_class_dao", L"Customer", L"Load", L"Sub/Function", L"", {}},
      {"cls_table_class_dao", L"Customer", L"Update", L"Sub/Function", L"", {}},
      {"cls_table_class_dao", L"Customer", L"Class_Initialize", L"Sub/Function", L"", {}},
      {"cls_table_class_dao", L"Customer", L"FindFirst", L"Sub/Function", L"Boolean",
       {{L"Criteria", L"Variant", false, true}}},
      {"cls_table_class_ado", L"Order", L"Placed", L"Property Get", L"", {}},
      {"cls_table_class_ado", L"Order", L"Class_Terminate", L"Sub/Function", L"", {}},
      {"cls_table_class_ado", L"Order", L"AddNew", L"Sub/Function", L"", {}},
      {"cls_collection_class_and_cancel", L"Items", L"Remove", L"Sub/Function", L"", {{L"Index", L"Variant", true}}},
  };
  return table;
}

json Scenario(const std::string& name) {
  std::ifstream in(std::string(QUILLET_SOURCE_DIR) + "/tests/scenarios/" + name + ".json");
  return json::parse(in);
}

struct RoundTrip : ::testing::Test, test::SessionFixture {};

TEST_F(RoundTrip, EveryWrittenProcedureIsScannedAndReadWithItsArgumentsAsGiven) {
  std::map<std::string, json> scenarios;
  for (const Written& w : WrittenProcedures()) {
    SCOPED_TRACE(std::string(w.scenario) + " " + vba::ToUtf8(w.name));
    if (!scenarios.count(w.scenario)) scenarios[w.scenario] = Scenario(w.scenario);
    const json& lines = scenarios[w.scenario]["expect"]["code"][vba::ToUtf8(w.module)];
    ASSERT_TRUE(lines.is_array());
    std::vector<std::wstring> code;
    for (const auto& l : lines) code.push_back(vba::FromUtf8(l.get<std::string>()));
    auto component = project->AddComponent(w.module + L"_" + std::to_wstring(project->VBComponents()->Count()),
                                           host::kStdModule, code);
    vbe.ActivateComponent(component);
    auto module = component->Module();

    // The definition model by the editor's own procedure index.
    const host::ProcKind kind = w.kind == L"Property Get"   ? host::kGetKind
                                : w.kind == L"Property Let" ? host::kLetKind
                                : w.kind == L"Property Set" ? host::kSetKind
                                                            : host::kProcKind;
    analysis::Rv_ProcDef def;
    def.init(session, L"VBAProject", *module, w.name, kind);
    EXPECT_EQ(def.Name, w.name);
    EXPECT_EQ(def.ProcKindStr, w.kind);
    EXPECT_EQ(def.ProcReturnType, w.returnType);
    const auto& args = def.ProcArguments->Items();
    ASSERT_EQ(args.Count(), static_cast<long>(w.args.size()));
    for (std::size_t i = 0; i < w.args.size(); ++i) {
      const Arg& want = w.args[i];
      const analysis::Rv_ProcArgument& got = *args.Item(static_cast<long>(i) + 1);
      EXPECT_EQ(got.Name, want.name);
      EXPECT_EQ(got.Type_, want.type);
      EXPECT_EQ(got.IsPassedByVal, want.byVal) << vba::ToUtf8(got.ArgDef);
      EXPECT_EQ(got.IsOptional, want.optional);
      EXPECT_EQ(got.IsParamArray, want.paramArray);
      EXPECT_EQ(got.IsArray, want.array);
      EXPECT_EQ(got.DefaultValue, want.defaultValue);
    }

    // The scanner from a caret on the body finds the same procedure, whole.
    Caret(def.ProcBodyLine + def.ProcDefCountOfLines, 1);
    analysis::clsScanProc scan;
    scan.init(session, true);
    EXPECT_EQ(scan.ProcName, w.name);
    EXPECT_EQ(scan.ProcRealStartLine, def.ProcBodyLine);
    EXPECT_EQ(scan.ProcDefLineCount, static_cast<long>(std::max<std::size_t>(1, w.args.size())));
    const std::wstring end = w.kind != L"Sub/Function" ? L"Property" : def.ProcIsFunction ? L"Function" : L"Sub";
    EXPECT_EQ(vba::FromUtf8(lines[static_cast<std::size_t>(scan.ProcRealEndLine - 1)].get<std::string>()), L"End " + end);
    // With the arguments read as variables, each argument is known by its name.
    for (const Arg& a : w.args) EXPECT_TRUE(scan.ProcVars.Exists(a.name)) << vba::ToUtf8(a.name);
  }
}

}  // namespace
