// Tree view, list view, tab strip, toolbar and rich text box.
#include <gmock/gmock.h>

#include "ui_fixture.h"
#include "vba/error.h"

namespace quillet::ui::testing {
namespace {

using ::testing::ElementsAre;

std::vector<std::wstring> Texts(const std::vector<Node*>& nodes) {
  std::vector<std::wstring> out;
  for (const Node* n : nodes) out.push_back(n->Text());
  return out;
}

TEST_F(UiTest, TreeNodesGoWhereTheirRelationshipSays) {
  FrmSample frm(context);
  TreeView& tv = frm.Add<TreeView>(L"tvProject");
  TreeNodes& nodes = tv.Nodes();
  Node& b = nodes.Add(L"b", L"B");
  nodes.Add(L"d", L"D");
  nodes.Add(&b, tvwNext, L"c", L"C");
  nodes.Add(L"b", tvwPrevious, L"a", L"A");
  nodes.Add(L"d", tvwFirst, L"first", L"First");
  Node& m1 = nodes.Add(&b, tvwChild, L"m1", L"Module1");
  nodes.Add(&m1, tvwLast, L"m2", L"Module2");
  EXPECT_THAT(Texts(tv.Roots()), ElementsAre(L"First", L"A", L"B", L"C", L"D"));
  EXPECT_EQ(b.Children(), 2);
  EXPECT_EQ(b.Child()->Next()->Key(), L"m2");
  EXPECT_EQ(nodes.Item(L"m2").Parent(), &b);
  EXPECT_EQ(m1.FirstSibling(), &m1);
  EXPECT_EQ(m1.Root(), b.FirstSibling()->Next()->Next());
  EXPECT_EQ(m1.FullPath(), L"B\\Module1");
  EXPECT_EQ(b.Index(), 1);  // the collection keeps the order of adding
  EXPECT_EQ(nodes.Item(2).Key(), L"d");
  EXPECT_EQ(nodes.Find(L"M1"), &m1);  // keys without regard to case
  EXPECT_EQ(nodes.Find(L"zz"), nullptr);
  EXPECT_THROW(nodes.Add(L"a", L"Again"), vba::Error);
  EXPECT_THROW(nodes.Add(L"zz", tvwChild, L"x", L"X"), vba::Error);
  EXPECT_THROW(nodes.Item(99), vba::Error);

  tv.SetSelectedItem(&m1);
  nodes.Remove(L"b");  // with everything below it
  EXPECT_EQ(nodes.Count(), 4);
  EXPECT_EQ(nodes.Find(L"m2"), nullptr);
  EXPECT_EQ(tv.SelectedItem(), nullptr);
  EXPECT_EQ(nodes.Item(L"c").Previous()->Key(), L"a");
  nodes.Clear();
  EXPECT_TRUE(tv.Roots().empty());
}

TEST_F(UiTest, SortedNodesStayInTextOrderAndExpansionRaisesItsEvents) {
  FrmSample frm(context);
  TreeView& tv = frm.Add<TreeView>(L"tvProject");
  std::vector<std::wstring> events;
  tv.OnExpand = [&](Node& n) { events.push_back(L"Expand " + n.Key()); };
  tv.OnCollapse = [&](Node& n) { events.push_back(L"Collapse " + n.Key()); };
  tv.OnNodeClick = [&](Node& n) { events.push_back(L"NodeClick " + n.Key()); };
  tv.OnDblClick = [&] { events.push_back(L"DblClick"); };
  frm.Show();
  Node& p = tv.Nodes().Add(L"p", L"Project");
  p.SetSorted(true);
  for (const wchar_t* name : {L"modB", L"ModA", L"modC"}) tv.Nodes().Add(&p, tvwChild, name, name);
  EXPECT_THAT(Texts(p.ChildNodes()), ElementsAre(L"ModA", L"modB", L"modC"));
  tv.Nodes().Item(L"modC").SetText(L"Aardvark");
  EXPECT_EQ(p.Child()->Key(), L"modC");

  p.SetExpanded(true);  // from code as well
  p.SetExpanded(true);
  tv.Nodes().Item(L"modC").SetSelected(true);  // no NodeClick from code
  UserInput::KeyDown(tv, vbKeyDown);
  UserInput::ClickNode(tv, L"p");
  UserInput::KeyDown(tv, vbKeyLeft);
  UserInput::DblClickNode(tv, L"p");
  EXPECT_THROW(UserInput::ClickNode(tv, L"nothing"), InputRefused);
  EXPECT_THAT(events, ElementsAre(L"Expand p", L"NodeClick ModA", L"NodeClick p", L"Collapse p", L"NodeClick p",
                                  L"Expand p", L"DblClick"));

  frm.Unload();  // a tree has no nodes at design time
  EXPECT_EQ(tv.Nodes().Count(), 0);
}

TEST_F(UiTest, NodeButtonsOpenAndCloseOnlyWhatAUserCouldReach) {
  FrmSample frm(context);
  TreeView& tv = frm.Add<TreeView>(L"tvFiles");
  std::vector<std::wstring> events;
  tv.OnExpand = [&](Node& n) { events.push_back(L"Expand " + n.Key()); };
  tv.OnCollapse = [&](Node& n) { events.push_back(L"Collapse " + n.Key()); };
  tv.OnNodeClick = [&](Node& n) { events.push_back(L"NodeClick " + n.Key()); };
  frm.Show();
  tv.Nodes().Add(L"root", L"Fragments");
  tv.Nodes().Add(L"root", tvwChild, L"leaf", L"Mine");

  EXPECT_TRUE(UserInput::ExpandNode(tv, L"root", true));
  EXPECT_TRUE(tv.Nodes().Item(L"root").Expanded());
  EXPECT_TRUE(UserInput::ExpandNode(tv, L"root", true));  // already open: no second Expand
  EXPECT_TRUE(UserInput::ExpandNode(tv, L"root", false));
  EXPECT_FALSE(tv.Nodes().Item(L"root").Expanded());
  EXPECT_EQ(tv.SelectedItem(), nullptr);  // the button does not choose the node
  EXPECT_THROW(UserInput::ExpandNode(tv, L"leaf", true), InputRefused);  // no children, no button
  EXPECT_THROW(UserInput::ExpandNode(tv, L"nothing", true), InputRefused);
  tv.SetEnabled(false);
  EXPECT_THROW(UserInput::ExpandNode(tv, L"root", true), InputRefused);
  EXPECT_THAT(events, ElementsAre(L"Expand root", L"Collapse root"));
}

TEST_F(UiTest, ListViewsSortSelectAndEditLabels) {
  FrmSample frm(context);
  ListView& lv = frm.Add<ListView>(L"lvList");
  lv.SetView(lvwReport);
  lv.Columns().Add(L"name", L"Name");
  lv.Columns().Add(L"kind", L"Kind");
  frm.Show();
  std::vector<std::wstring> events;
  lv.OnItemClick = [&](ListItem& i) { events.push_back(L"ItemClick " + i.Key()); };
  lv.OnColumnClick = [&](ColumnHeader& c) { events.push_back(L"ColumnClick " + std::to_wstring(c.Index())); };
  lv.OnAfterLabelEdit = [&](int& cancel, std::wstring& text) {
    events.push_back(L"AfterLabelEdit " + text);
    cancel = text.empty() ? 1 : 0;
  };

  lv.Items().Add(L"k1", L"zeta").SetSubItem(1, L"b");
  lv.Items().Add(L"k2", L"Alpha").SetSubItem(1, L"c");
  lv.Items().Add(L"k3", L"beta").SetSubItem(1, L"a");
  EXPECT_EQ(lv.SelectedItem()->Key(), L"k1");  // the first item is selected on its own
  lv.SetSorted(true);
  EXPECT_EQ(lv.Items().Item(1).Key(), L"k2");
  lv.SetSortKey(1);
  lv.SetSortOrder(lvwDescending);
  EXPECT_EQ(lv.Items().Item(1).Key(), L"k2");
  EXPECT_EQ(lv.Items().Item(3).Key(), L"k3");
  EXPECT_THROW(lv.Items().Add(L"K1", L"again"), vba::Error);

  UserInput::ClickItem(lv, L"beta");  // by text when no key matches
  EXPECT_TRUE(lv.Items().Item(L"k3").Selected());
  EXPECT_FALSE(lv.Items().Item(L"k1").Selected());
  UserInput::ClickColumn(lv, L"Kind");
  EXPECT_THROW(UserInput::EditLabel(lv, L"x"), InputRefused);  // no edit open
  lv.StartLabelEdit();
  UserInput::EditLabel(lv, L"");
  EXPECT_EQ(lv.Items().Item(L"k3").Text(), L"beta");
  lv.StartLabelEdit();
  UserInput::EditLabel(lv, L"gamma");
  EXPECT_EQ(lv.Items().Item(L"k3").Text(), L"gamma");
  EXPECT_THAT(events, ElementsAre(L"ItemClick k3", L"ColumnClick 2", L"AfterLabelEdit ", L"AfterLabelEdit gamma"));

  lv.Items().Remove(L"k3");
  EXPECT_EQ(lv.SelectedItem(), nullptr);
  frm.Unload();  // the design columns stay, the items go
  EXPECT_EQ(lv.Columns().Count(), 2);
  EXPECT_EQ(lv.Items().Count(), 0);
}

TEST_F(UiTest, TabStripsAndToolbarsRaiseTheirClicks) {
  FrmSample frm(context);
  TabStrip& tabs = frm.Add<TabStrip>(L"tabOptions");
  Toolbar& bar = frm.Add<Toolbar>(L"tbView");
  for (const wchar_t* c : {L"General", L"Paths", L"Names"}) tabs.Tabs().Add(L"", c);
  bar.Buttons().Add(L"View Code").SetToolTipText(L"View Code");
  bar.Buttons().Add(L"HTML").SetEnabled(false);
  frm.Show();
  std::vector<std::wstring> events;
  tabs.OnClick = [&] { events.push_back(L"Click " + tabs.SelectedItem()->Caption()); };
  tabs.OnBeforeClick = [&](int& cancel) { cancel = tabs.SelectedItem()->Index() == 3 ? 1 : 0; };
  bar.OnButtonClick = [&](ToolbarButton& b) { events.push_back(L"ButtonClick " + b.Key()); };

  EXPECT_EQ(tabs.SelectedItem()->Index(), 1);
  UserInput::ChooseTab(tabs, 2);
  UserInput::Set(tabs, "Names");
  UserInput::ChooseTab(tabs, 1);  // the third tab's BeforeClick refuses to let go
  EXPECT_EQ(tabs.SelectedItem()->Caption(), L"Names");
  EXPECT_THROW(UserInput::ChooseTab(tabs, 4), InputRefused);
  UserInput::ClickItem(bar, L"view code");
  EXPECT_THROW(UserInput::ClickItem(bar, L"HTML"), InputRefused);
  EXPECT_THAT(events, ElementsAre(L"Click Paths", L"Click Names", L"ButtonClick View Code"));
}

TEST_F(UiTest, RichTextKeepsColourRunsThroughEdits) {
  FrmSample frm(context);
  RichTextBox& rtxt = frm.Add<RichTextBox>(L"rtxtContent");
  frm.Show();
  int selChanges = 0;
  rtxt.OnSelChange = [&] { ++selChanges; };
  rtxt.SetText(L"Dim x ' note");
  rtxt.Select(0, 3);
  rtxt.SetSelColor(RGB(0, 0, 127));
  rtxt.SetSelBold(true);
  EXPECT_GT(selChanges, 0);
  rtxt.Select(6, 6);
  rtxt.SetSelColor(RGB(0, 127, 0));
  rtxt.Select(0, 12);
  EXPECT_EQ(rtxt.SelColor(), std::nullopt);  // mixed
  rtxt.Select(0, 2);
  EXPECT_EQ(rtxt.SelColor(), RGB(0, 0, 127));
  EXPECT_EQ(rtxt.SelBold(), true);

  // Typed text takes the format before the caret, or the one chosen at the caret.
  rtxt.SetSelStart(3);
  rtxt.SetSelText(L"!");
  EXPECT_EQ(rtxt.FormatAt(3).color, RGB(0, 0, 127));
  rtxt.SetSelStart(5);
  rtxt.SetSelColor(vbRed);
  UserInput::Key(rtxt, 'y');
  EXPECT_EQ(rtxt.Text(), L"Dim! yx ' note");
  EXPECT_EQ(rtxt.FormatAt(5).color, vbRed);
  EXPECT_EQ(rtxt.FormatAt(6).color, 0);
  std::vector<long> starts;
  for (const auto& r : rtxt.Runs()) starts.push_back(r.start);
  EXPECT_THAT(starts, ElementsAre(0, 4, 5, 6, 8));

  EXPECT_EQ(rtxt.Find(L"NOTE"), 10);
  EXPECT_EQ(rtxt.SelText(), L"note");
  EXPECT_EQ(rtxt.Find(L"NOTE", 0, -1, true), -1);
  rtxt.SetText(L"plain");
  EXPECT_EQ(rtxt.Runs().size(), 1u);
  EXPECT_TRUE(frm.CallHandler(L"rtxtContent_SelChange"));
}

}  // namespace
}  // namespace quillet::ui::testing
