// The self-description of a form: the shape of the scenario dump, in creation order.
#include <gmock/gmock.h>

#include "ui_fixture.h"

namespace quillet::ui::testing {
namespace {

const nlohmann::json* ControlNamed(const nlohmann::json& form, const std::string& name) {
  for (const auto& c : form["controls"])
    if (c["name"] == name) return &c;
  return nullptr;
}

TEST_F(UiTest, DescribeGivesEveryControlInCreationOrderWithWhatAppliesToIt) {
  FrmSample frm(context);
  frm.chkStatic.SetEnabled(false);
  frm.chkStatic.SetToolTipText(L"Keeps its value");
  frm.cboType.SetItemData(1, 10009);
  frm.optOne.Move(120, 240, 975, 255);
  TreeView& tv = frm.Add<TreeView>(L"tvObjects");
  ListView& lv = frm.Add<ListView>(L"lvList");
  TabStrip& tabs = frm.Add<TabStrip>(L"tabOptions");
  RichTextBox& rtxt = frm.Add<RichTextBox>(L"rtxtContent");
  frm.Show();
  UserInput::Set(frm, L"txtName", "Größe");
  UserInput::Set(frm, L"cboType", "Function");

  Node& root = tv.Nodes().Add(L"Workbooks", L"Workbooks", L"folder");
  Node& child = tv.Nodes().Add(&root, tvwChild, L"Workbooks_Book1.xlsm", L"Book1.xlsm");
  child.SetTag(L"Workbook");
  root.SetExpanded(true);
  tv.SetSelectedItem(&child);
  lv.Columns().Add(L"name", L"Name", 1500);
  lv.Items().Add(L"C:\\f.bas", L"f").SetSubItem(1, L"Fragment");
  tabs.Tabs().Add(L"general", L"General");
  tabs.Tabs().Add(L"paths", L"Paths");
  rtxt.SetText(L"' note");
  rtxt.Select(0, 6);
  rtxt.SetSelColor(RGB(0, 127, 0));

  nlohmann::json d = frm.Describe();
  EXPECT_EQ(d["form"], "frmSample");
  EXPECT_EQ(d["caption"], "Sample Builder");
  std::vector<std::string> names;
  for (const auto& c : d["controls"]) names.push_back(c["name"]);
  EXPECT_THAT(names, ::testing::ElementsAre("txtName", "cboType", "chkStatic", "optPublic", "optPrivate", "fraCount",
                                            "optOne", "optTwo", "cmdOK", "cmdCancel", "tvObjects", "lvList",
                                            "tabOptions", "rtxtContent"));

  EXPECT_EQ(*ControlNamed(d, "chkStatic"),
            (nlohmann::json{{"name", "chkStatic"}, {"kind", "CheckBox"}, {"caption", "&Static"}, {"value", 0},
                            {"enabled", false}, {"visible", true}, {"toolTip", "Keeps its value"}, {"left", 0},
                            {"top", 0}, {"width", 1215}, {"height", 255}}));
  const auto& txt = *ControlNamed(d, "txtName");
  EXPECT_EQ(txt["text"], "Größe");  // UTF-8
  EXPECT_EQ(txt["selStart"], 5);
  EXPECT_EQ(txt["selLength"], 0);
  EXPECT_FALSE(txt.contains("caption"));
  const auto& cbo = *ControlNamed(d, "cboType");
  EXPECT_EQ(cbo["listIndex"], 1);
  EXPECT_EQ(cbo["list"][1], (nlohmann::json{{"text", "Function"}, {"itemData", 10009}}));
  const auto& opt = *ControlNamed(d, "optOne");
  EXPECT_EQ(opt["container"], "fraCount");
  EXPECT_EQ(opt["value"], false);
  EXPECT_EQ(opt["left"], 120);
  EXPECT_EQ((*ControlNamed(d, "cmdOK"))["default"], true);

  const auto& nodes = (*ControlNamed(d, "tvObjects"))["nodes"];
  ASSERT_EQ(nodes.size(), 1u);
  EXPECT_EQ(nodes[0]["image"], "folder");
  EXPECT_EQ(nodes[0]["expanded"], true);
  EXPECT_EQ(nodes[0]["children"][0], (nlohmann::json{{"key", "Workbooks_Book1.xlsm"},
                                                     {"text", "Book1.xlsm"},
                                                     {"tag", "Workbook"},
                                                     {"image", ""},
                                                     {"expanded", false},
                                                     {"selected", true},
                                                     {"children", nlohmann::json::array()}}));
  const auto& view = *ControlNamed(d, "lvList");
  EXPECT_EQ(view["columns"][0]["text"], "Name");
  EXPECT_EQ(view["items"][0]["subItems"][0], "Fragment");
  EXPECT_EQ(view["items"][0]["selected"], true);  // the first item of an empty view
  EXPECT_EQ((*ControlNamed(d, "tabOptions"))["value"], 1);
  EXPECT_EQ((*ControlNamed(d, "rtxtContent"))["runs"],
            (nlohmann::json::array({{{"start", 0}, {"length", 6}, {"color", 0x007F00}}})));
}

}  // namespace
}  // namespace quillet::ui::testing
