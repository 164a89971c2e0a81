#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "analysis/records.h"
#include "vba/error.h"

using namespace quillet;
using namespace quillet::analysis;

namespace {

clsVariable Var(std::wstring_view text) {
  clsVariable v;
  v.init(text);
  return v;
}

clsConstant Const(std::wstring_view text) {
  clsConstant c;
  c.init(text);
  return c;
}

TEST(Records, VariablesNamesTypesAndBounds) {
  clsVariable v = Var(L"x$");
  EXPECT_EQ(v.Name, L"x");
  EXPECT_EQ(v.Type_, L"String");
  v = Var(L"a(1 To 5) As Long");
  EXPECT_EQ(v.Name, L"a");
  EXPECT_TRUE(v.IsArray);
  EXPECT_EQ(v.Bounds, L"(1 To 5)");
  EXPECT_EQ(v.Type_, L"Long");
  v = Var(L"b()");
  EXPECT_TRUE(v.IsArray);
  EXPECT_EQ(v.Bounds, L"()");
  EXPECT_EQ(v.Type_, L"Variant");
  v = Var(L"c(");
  EXPECT_EQ(v.Bounds, L"(");
  EXPECT_EQ(Var(L"d").Type_, L"Variant");
  EXPECT_EQ(Var(L"e As Long ' the count").Type_, L"Long");
  EXPECT_EQ(Var(L"f As New Collection").Type_, L"New Collection");
  EXPECT_EQ(Var(L"n&").Type_, L"Long");
  EXPECT_EQ(Var(L"n@").Type_, L"Currency");
}

TEST(Records, ConstantsTypesAndValues) {
  clsConstant c = Const(L"x = \"a,b\"");
  EXPECT_EQ(c.Name, L"x");
  EXPECT_EQ(c.Type_, L"Variant");
  EXPECT_EQ(c.Value, L"\"a,b\"");
  c = Const(L"LIMIT As Long = 10");
  EXPECT_EQ(c.Type_, L"Long");
  EXPECT_EQ(c.Value, L"10");
  c = Const(L"z& = 1");
  EXPECT_EQ(c.Name, L"z");
  EXPECT_EQ(c.Type_, L"Long");
  EXPECT_EQ(c.Value, L"1");
  c = Const(L"s As String = \"a=b\"");
  EXPECT_EQ(c.Type_, L"String");
  EXPECT_EQ(c.Value, L"\"a=b\"");
  EXPECT_FALSE(c.EnumMember());
  c.EnumName = L"Colors";
  EXPECT_TRUE(c.EnumMember());
}

TEST(Records, EnumsAndTypesKeepTheirItemsUnderKeys) {
  auto colors = std::make_shared<clsEnum>();
  colors->Name = L"Colors";
  for (const wchar_t* member : {L"Red = 1", L"Green"}) {
    auto c = std::make_shared<clsConstant>();
    c->init(member);
    c->EnumName = L"Colors";
    colors->Add(c);
  }
  ASSERT_EQ(colors->Count(), 2);
  EXPECT_EQ(colors->Item(1)->Value, L"1");
  EXPECT_EQ(colors->Item(L"colors.GREEN")->Name, L"Green");
  EXPECT_EQ(colors->Find(L"Colors.Blue"), nullptr);
  auto again = std::make_shared<clsConstant>();
  again->Name = L"red";
  again->EnumName = L"Colors";
  EXPECT_THROW(colors->Add(again), vba::Error);
  colors->Add(again, L"other key");
  EXPECT_EQ(colors->Count(), 3);
  colors->Remove(L"Other Key");
  std::wstring names;
  for (const auto& c : *colors) names += c->Name;
  EXPECT_EQ(names, L"RedGreen");

  colEnums enums;
  enums.LibName = L"VBAProject";
  enums.Add(colors, L"Colors");
  EXPECT_EQ(enums.Find(L"COLORS"), colors);
  EXPECT_EQ(enums.Items().Count(), 1);
  enums.Remove(1);
  EXPECT_EQ(enums.Count(), 0);

  auto point = std::make_shared<clsType>();
  point->Name = L"Point";
  for (const wchar_t* field : {L"X As Single", L"Y As Single"}) {
    auto v = std::make_shared<clsVariable>();
    v->init(field);
    point->Add(v, v->Name);
  }
  colTypes types;
  types.Add(point, L"VBAProject.Point");
  EXPECT_EQ(types.Item(L"vbaproject.point")->Item(L"y")->Type_, L"Single");
}

}  // namespace
