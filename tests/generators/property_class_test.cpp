#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/class.h"
#include "generators/frm_select_table.h"
#include "generators/property.h"
#include "settings/items.h"
#include "settings/naming.h"
#include "vba/strings.h"

using namespace quillet;
using generators::clsClass;
using generators::clsProperty;
using generators::PropertyClass;

namespace {

struct PropertyText : ::testing::Test, test::SessionFixture {
  PropertyText() {
    session.settings[settings::kPrefixModule] = std::wstring(L"m");
    session.settings[settings::kModuleNameConstant] = std::wstring(L"cstrModule");
    session.settings[settings::kProcedureNameConstant] = std::wstring(L"cstrProcedure");
    session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
    settings::Naming(session).typePrefixes = {{L"String", L"str"}, {L"Boolean", L"f", L"bln"}, {L"Collection", L"col"}};
  }
  std::wstring Code(const clsProperty& p, bool get = true, bool set = true) {
    std::wstring code;
    p.PropertyProceduresCodeCreate(session, get, set, code);
    return code;
  }
  static clsProperty Prop(const std::wstring& name, const std::wstring& type) {
    clsProperty p;
    p.Name = name;
    p.DataType = type;
    return p;
  }
};

TEST_F(PropertyText, TheTypeDecidesThePartsAndTheBackingVariable) {
  EXPECT_EQ(generators::PropertyClassOf(L"Currency", 0), PropertyClass::Plain);
  EXPECT_EQ(generators::PropertyClassOf(L"Colors", 10003), PropertyClass::Plain);  // an enum
  EXPECT_EQ(generators::PropertyClassOf(L"tPoint", 10004), PropertyClass::Plain);  // a user-defined type
  EXPECT_EQ(generators::PropertyClassOf(L"Colors", 0), PropertyClass::Object);     // unknown: a class
  EXPECT_EQ(generators::PropertyClassOf(L"Variant", 0), PropertyClass::Variant);
  EXPECT_EQ(generators::PropertyClassOf(L"", 0), PropertyClass::Variant);

  EXPECT_EQ(generators::PrivPropVarName(session, L"String", L"Name"), L"mstrName");
  EXPECT_EQ(generators::PrivPropVarName(session, L"String", L"strName"), L"mstrName");  // no second prefix
  EXPECT_EQ(generators::PrivPropVarName(session, L"Boolean", L"blnDone"), L"mblnDone");  // any prefix of the row
  EXPECT_EQ(generators::PrivPropVarName(session, L"clsOrder", L"Order"), L"mvarOrder");  // no prefix known
  session.settings[settings::kPrefixModule] = std::wstring(L"m_");
  EXPECT_EQ(generators::PrivPropVarName(session, L"Collection", L"Items"), L"m_colItems");
}

TEST_F(PropertyText, EachKindWritesItsProceduresExactly) {
  EXPECT_EQ(Code(Prop(L"Name", L"String")),
            L"Public Property Get Name() As String\r\n    Name = mstrName\r\nEnd Property\r\n\r\n"
            L"Public Property Let Name(rData As String)\r\n    mstrName = rData\r\nEnd Property\r\n\r\n");
  EXPECT_EQ(Code(Prop(L"Items", L"Collection")),
            L"Public Property Get Items() As Collection\r\n    Set Items = mcolItems\r\nEnd Property\r\n\r\n"
            L"Public Property Set Items(rData As Collection)\r\n    Set mcolItems = rData\r\nEnd Property\r\n\r\n");
  // A Variant without a type: no " As", the Get tests for an object, Let and Set both.
  clsProperty v = Prop(L"Tag", L"");
  v.AccessibleType = L"";
  v.IsStatic = true;
  EXPECT_EQ(Code(v),
            L" Static Property Get Tag()\r\n    If IsObject(mvarTag) Then\r\n        Set Tag = mvarTag\r\n    Else\r\n"
            L"        Tag = mvarTag\r\n    End if\r\nEnd Property\r\n\r\n"
            L" Static Property Let Tag(rData)\r\n    mvarTag = rData\r\nEnd Property\r\n\r\n"
            L" Static Property Set Tag(rData)\r\n    Set mvarTag = rData\r\nEnd Property\r\n\r\n");
  v.AccessibleType = L"Friend";
  EXPECT_EQ(vba::Split(Code(v, false, true), L"\r\n")[0], L"Friend  Static Property Let Tag(rData)");
  // The parts asked for only; the procedure constant under the definition.
  clsProperty c = Prop(L"Count", L"Long");
  c.ProcedureNameConstant = true;
  EXPECT_EQ(Code(c, true, false),
            L"Public Property Get Count() As Long\r\n    Const cstrProcedure = \"Count\"\r\n    Count = mvarCount\r\n"
            L"End Property\r\n\r\n");
  EXPECT_EQ(Code(c, false, false), L"");
  EXPECT_EQ(c.Declaration(session), L"Private mvarCount As Long");
  EXPECT_EQ(Prop(L"Any", L"").Declaration(session), L"Private mvarAny");
}

TEST_F(PropertyText, EveryProcedureGetsItsOwnHandlerAndHourglass) {
  session.hostName = L"Access";
  clsProperty p = Prop(L"Name", L"String");
  p.ModuleName = L"Class1";
  p.IncludeErrorHandler = p.IncludeHourglass = true;
  p.ErrorHandler = L"    On Error GoTo HandleError\r\n<end_of_top>\r\n<begin_of_bottom>\r\nHandleExit:\r\n"
                   L"    Exit {PROCEDURETYPE}\r\nHandleError:\r\n    Resume HandleExit\r\n";
  std::vector<std::wstring> lines = vba::Split(Code(p), L"\r\n");
  auto count = [&](const std::wstring& text) { return std::count(lines.begin(), lines.end(), text); };
  EXPECT_EQ(count(L"    On Error GoTo HandleError"), 2);
  EXPECT_EQ(count(L"    Exit Property"), 2);
  EXPECT_EQ(count(L"    Screen.MousePointer = 11"), 2);
  EXPECT_EQ(count(L"End Property"), 2);
  // The handler of the Get stands inside the Get.
  auto getEnd = std::find(lines.begin(), lines.end(), L"End Property");
  EXPECT_EQ(std::count(lines.begin(), getEnd, L"HandleExit:"), 1);
}

TEST(PropertyEdits, TheThreePlacesOfAProperty) {
  const std::vector<std::wstring> module = {L"Option Explicit", L"Private x As Long", L"", L"' about A",
                                            L"Sub A()", L"End Sub"};
  auto apply = [&](const std::vector<kernel::CodeEdit>& edits) {
    std::vector<std::wstring> lines = module;
    for (const kernel::CodeEdit& e : edits) lines = kernel::EditedLines(lines, e);
    return lines;
  };
  const std::wstring decl = L"Private mP As Long", procs = L"Property Get P()\r\nEnd Property";
  // Directly under the declarations, as one block.
  EXPECT_EQ(apply(generators::PropertyEdits(2, 6, false, 0, decl, procs)),
            (std::vector<std::wstring>{L"Option Explicit", L"Private x As Long", L"Private mP As Long",
                                       L"Property Get P()", L"End Property", L"", L"' about A", L"Sub A()",
                                       L"End Sub"}));
  // Behind the last line.
  EXPECT_EQ(apply(generators::PropertyEdits(2, 6, true, 0, decl, procs)),
            (std::vector<std::wstring>{L"Option Explicit", L"Private x As Long", L"Private mP As Long", L"",
                                       L"' about A", L"Sub A()", L"End Sub", L"Property Get P()", L"End Property"}));
  // Below the caret's comment line, which the declaration moved down by one.
  EXPECT_EQ(apply(generators::PropertyEdits(2, 6, false, 4, decl, procs)),
            (std::vector<std::wstring>{L"Option Explicit", L"Private x As Long", L"Private mP As Long", L"",
                                       L"' about A", L"Property Get P()", L"End Property", L"Sub A()",
                                       L"End Sub"}));
}

TEST(TableMethods, DaoAndAdoDifferOnlyWhereTheirObjectsDo) {
  generators::TableMethodsInput in;
  in.table = L"Customers";
  in.fields = {L"First Name", L"Secret"};
  in.properties = {L"FirstName", L"Secret"};
  in.publicProperty = {true, false};
  in.variables = {L"mstrFirstName", L"mstrSecret"};
  in.loadedVariable = L"mfLoaded";
  in.indent = L"  ";
  std::vector<generators::TableMethod> dao = generators::TableMethodsText(in);
  ASSERT_EQ(dao.size(), 6u);
  EXPECT_EQ(dao[0].name, L"Load");
  EXPECT_EQ(dao[0].text,
            L"Private Sub Load()\r\n  With Recordset\r\n    Me.FirstName = Nz(.Fields(\"First Name\").Value)\r\n"
            L"    mstrSecret = Nz(.Fields(\"Secret\").Value)\r\n  End With\r\n  mfLoaded = True\r\nEnd Sub");
  EXPECT_EQ(dao[1].text,
            L"Public Sub Update()\r\n  With Recordset\r\n    If mfLoaded = True Then\r\n      .Edit\r\n    Else\r\n"
            L"      .AddNew\r\n    End If\r\n    .Fields(\"First Name\").Value = Me.FirstName\r\n"
            L"    .Fields(\"Secret\").Value = Me.Secret\r\n    .Update\r\n  End With\r\n  mfLoaded = True\r\nEnd Sub");
  EXPECT_EQ(dao[2].text,
            L"Private Sub Class_Initialize()\r\n  Set Recordset = CurrentDb.OpenRecordset(\"Customers\", dbOpenDynaset)\r\n"
            L"End Sub");
  EXPECT_EQ(dao[5].text, L"Public Sub AddNew()\r\n  mfLoaded = False\r\nEnd Sub");
  for (std::size_t i : {0u, 1u}) EXPECT_EQ(dao[i].accessibility, L"Public");
  EXPECT_EQ(dao[3].accessibility, L"Private");

  in.ado = true;
  std::vector<generators::TableMethod> ado = generators::TableMethodsText(in);
  EXPECT_EQ(ado[0].text, dao[0].text);
  EXPECT_EQ(ado[1].text, vba::Replace(dao[1].text, L"      .Edit", L""));  // the line stays, empty
  EXPECT_EQ(ado[2].text,
            L"Private Sub Class_Initialize()\r\n  Set Recordset = New Recordset\r\n  Recordset.Open \"Customers\", "
            L"CurrentProject.Connection, adOpenKeyset, adLockOptimistic\r\n\r\nEnd Sub");
  EXPECT_EQ(ado[3].text, dao[3].text);
  EXPECT_NE(ado[4].text.find(L"    Recordset.Find Criteria\r\n    FindFirst = Not (Recordset.EOF or Recordset.BOF)"),
            std::wstring::npos);
  EXPECT_NE(dao[4].text.find(L"    Recordset.FindFirst Criteria\r\n    FindFirst = Not Recordset.NoMatch"),
            std::wstring::npos);
}

class FakeAccess : public host::AccessApplication {
 public:
  long ProjectType() const override { return type; }
  std::vector<host::AccessTable> TableDefs() const override { return tables; }
  std::vector<host::AccessTable> CatalogTables() const override { return tables; }
  long type = 0;
  std::vector<host::AccessTable> tables;
};

TEST(AccessTables, SystemEntriesStayOutAndFieldsBecomeProperties) {
  FakeAccess access;
  access.tables = {{L"MSysObjects", L"SYSTEM TABLE", {}}, {L"~TMPCLP0815", L"TABLE", {}}, {L"Orders", L"table", {}},
                   {L"msysLocal", L"TABLE", {}}, {L"OpenOrders", L"VIEW", {}}};
  std::vector<std::wstring> mdb, adp;
  for (const auto& t : generators::GetMdbTables(access)) mdb.push_back(t.name);
  for (const auto& t : generators::GetAdpTables(access)) adp.push_back(t.name);
  // "MSys*" compares case-sensitively, as Like does; the catalog's "TABLE" does not.
  EXPECT_EQ(mdb, (std::vector<std::wstring>{L"Orders", L"msysLocal", L"OpenOrders"}));
  EXPECT_EQ(adp, (std::vector<std::wstring>{L"~TMPCLP0815", L"Orders", L"msysLocal"}));

  EXPECT_EQ(generators::LegalIdentifier(L"First Name"), L"FirstName");
  EXPECT_EQ(generators::LegalIdentifier(L"2nd-Phone #"), L"fld2ndPhone");
  EXPECT_EQ(generators::LegalIdentifier(L"Größe"), L"Größe");
  EXPECT_EQ(generators::LegalIdentifier(std::wstring(300, L'a')).size(), 255u);

  // One constant, two meanings: 4 is dbLong in DAO and adSingle in ADO.
  EXPECT_EQ(generators::FieldTypeToVba(4, false), L"Long");
  EXPECT_EQ(generators::FieldTypeToVba(4, true), L"Single");
  EXPECT_EQ(generators::FieldTypeToVba(10, false), L"String");
  EXPECT_EQ(generators::FieldTypeToVba(202, true), L"String");
  EXPECT_EQ(generators::FieldTypeToVba(11, true), L"Boolean");
  EXPECT_EQ(generators::FieldTypeToVba(11, false), L"Variant");  // dbLongBinary
  EXPECT_EQ(generators::FieldTypeToVba(9999, true), L"Variant");
}

struct ClassMaking : PropertyText {};

TEST_F(ClassMaking, AnEmptyClassHoldsItsHeaderAndConstantAndMarksGo) {
  clsClass c;
  c.Name = L"clsEmpty";
  c.ModuleNameConstant = true;
  EXPECT_EQ(c.GenerateCode(session), L"Private Const cstrModule As String = \"clsEmpty\"\r\n");
  c.Description = L"Nothing yet.";
  EXPECT_EQ(c.GenerateCode(session), L"'   Nothing yet.\r\n\r\nPrivate Const cstrModule As String = \"clsEmpty\"\r\n");

  // A header's caret mark is taken out of the class text.
  Write("mod.txt", "' {MODULENAME}<Cursor>\r\n");
  session.settings[settings::kModuleHeaderFile] = std::wstring(L"C:\\Program Files\\Quillet\\mod.txt");
  c.Description.clear();
  c.ModuleNameConstant = false;
  c.Properties().Add(std::make_shared<clsProperty>(Prop(L"Title", L"String")), L"Title");
  Module(L"Module1", {L"Option Explicit"});
  ASSERT_TRUE(c.Create(session, project));
  std::wstring text = Text(std::static_pointer_cast<host::MemoryComponent>(project->VBComponents()->Item(L"clsEmpty")));
  EXPECT_EQ(text.find(L"<Cursor>"), std::wstring::npos);
  EXPECT_EQ(vba::Split(text, L"\r\n")[0], L"' clsEmpty");
  EXPECT_NE(text.find(L"Private mstrTitle As String\r\nPublic Property Get Title() As String"), std::wstring::npos);
}

TEST_F(ClassMaking, TheCollectionClassComesFromItsTemplateAsItStands) {
  Module(L"Module1", {L"Option Explicit"});
  clsClass c;
  c.Name = L"Item";
  c.CollectionClassName = L"Items";
  // No template: nothing is made.
  session.settings[settings::kCollectionClassTemplate] = std::wstring(L"C:\\Program Files\\Quillet\\none.cls");
  EXPECT_FALSE(c.CollectionClassModuleAdd(session, project));
  EXPECT_EQ(project->VBComponents()->Count(), 1);
  // A template without tokens is imported unchanged.
  std::filesystem::create_directories(temp.root / "c" / "Temp");
  Write("plain.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = \"Bag\"\r\n"
                     "Option Explicit\r\n");
  session.settings[settings::kCollectionClassTemplate] = std::wstring(L"C:\\Program Files\\Quillet\\plain.cls");
  EXPECT_TRUE(c.CollectionClassModuleAdd(session, project));
  EXPECT_EQ(Text(std::static_pointer_cast<host::MemoryComponent>(project->VBComponents()->Item(L"Bag"))),
            L"Option Explicit");
}

}  // namespace
