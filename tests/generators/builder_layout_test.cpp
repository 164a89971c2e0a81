#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/frm_class.h"
#include "generators/frm_property.h"
#include "generators/frm_select_table.h"
#include "ui/tab_strip.h"

using namespace quillet;

namespace {

struct Box {
  long left, top, right, bottom;
};

Box OnForm(const ui::Control& c) {
  return {c.FormLeft(), c.FormTop(), c.FormLeft() + c.Width(), c.FormTop() + c.Height()};
}

bool Overlap(const Box& a, const Box& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

// Every control has a place of its own inside its container and the form's client area, and
// no two controls shown together cover each other, except for what stands on a tab strip.
void ExpectLaidOut(const ui::Form& form) {
  SCOPED_TRACE(form.Name());
  ASSERT_GT(form.Width(), 0);
  ASSERT_GT(form.Height(), 0);
  std::vector<const ui::Control*> shown;
  for (const auto& owned : form.Controls()) {
    const ui::Control& c = *owned;
    SCOPED_TRACE(c.Name());
    EXPECT_GT(c.Width(), 0);
    EXPECT_GT(c.Height(), 0);
    EXPECT_GE(c.Left(), 0);
    EXPECT_GE(c.Top(), 0);
    if (const ui::Control* box = c.Container()) {
      EXPECT_LE(c.Left() + c.Width(), box->Width());
      EXPECT_LE(c.Top() + c.Height(), box->Height());
    }
    const Box b = OnForm(c);
    EXPECT_LE(b.right, form.ScaleWidth());
    EXPECT_LE(b.bottom, form.ScaleHeight());
    if (c.IsEffectivelyVisible()) shown.push_back(&c);
  }
  for (std::size_t i = 0; i < shown.size(); ++i)
    for (std::size_t j = i + 1; j < shown.size(); ++j) {
      const ui::Control& a = *shown[i];
      const ui::Control& b = *shown[j];
      // A frame holds its own controls; a tab strip carries its page's controls.
      if (b.Container() == &a || a.Container() == &b) continue;
      if (dynamic_cast<const ui::TabStrip*>(&a) || dynamic_cast<const ui::TabStrip*>(&b)) continue;
      EXPECT_FALSE(Overlap(OnForm(a), OnForm(b))) << "overlap of " << a.Name() << " and " << b.Name();
    }
}

struct BuilderLayout : ::testing::Test, test::SessionFixture {};

TEST_F(BuilderLayout, PropertyAndTableDialogsPlaceEveryControl) {
  generators::FrmProperty property(session);
  property.Load();
  ExpectLaidOut(property);
  generators::FrmSelectTableAndFields tables(session);
  tables.Load();
  ExpectLaidOut(tables);
}

TEST_F(BuilderLayout, EachClassBuilderPageSharesTheTabStripWithoutClashing) {
  generators::FrmClass form(session);
  form.Init();
  ExpectLaidOut(form);
  EXPECT_TRUE(form.lvProperties.Visible());
  // The second tab, as a click on it chooses it.
  form.TabMain.SetSelectedItem(form.TabMain.Tabs().Item(2));
  form.TabMain.OnClick();
  ASSERT_TRUE(form.lvMethods.Visible());
  ExpectLaidOut(form);
  // Both pages stand on the strip, beneath its tabs.
  for (const ui::Control* c : {static_cast<const ui::Control*>(&form.lvProperties),
                               static_cast<const ui::Control*>(&form.lvMethods)}) {
    const Box b = OnForm(*c);
    const Box strip = OnForm(form.TabMain);
    EXPECT_GT(b.top, strip.top);
    EXPECT_GE(b.left, strip.left);
    EXPECT_LE(b.right, strip.right);
    EXPECT_LE(b.bottom, strip.bottom);
  }
}

}  // namespace
