#pragma once
// The tab strip: tabs with key and caption, one of them selected; choosing another
// raises Click.
#include <string>
#include <string_view>

#include "ui/control.h"
#include "ui/keyed_items.h"

namespace quillet::ui {

class TabStrip;

class Tab {
 public:
  Tab(TabStrip& strip, std::wstring key, std::wstring caption)
      : strip_(strip), key_(std::move(key)), caption_(std::move(caption)) {}
  const std::wstring& Key() const { return key_; }
  const std::wstring& Caption() const { return caption_; }
  void SetCaption(std::wstring caption) { caption_ = std::move(caption); }
  const std::wstring& Tag() const { return tag_; }
  void SetTag(std::wstring tag) { tag_ = std::move(tag); }
  const std::wstring& ToolTipText() const { return toolTip_; }
  void SetToolTipText(std::wstring text) { toolTip_ = std::move(text); }
  int Index() const;  // 1-based
  bool Selected() const;
  void SetSelected(bool selected);

 private:
  TabStrip& strip_;
  std::wstring key_;
  std::wstring caption_;
  std::wstring tag_;
  std::wstring toolTip_;
};

// The strip's Tabs collection.
class TabCollection {
 public:
  explicit TabCollection(TabStrip& strip) : strip_(strip), items_(L"Tabs") {}
  // The first tab added becomes the selected one. `index` is 1-based; -1 adds at the end.
  Tab& Add(std::wstring key, std::wstring caption, int index = -1);
  int Count() const { return items_.Count(); }
  Tab& Item(int index) const { return items_.Item(index); }
  Tab& Item(std::wstring_view key) const { return items_.Item(key); }
  Tab* Find(std::wstring_view key) const { return items_.Find(key); }
  int IndexOf(const Tab* tab) const { return items_.IndexOf(tab); }
  const std::vector<std::unique_ptr<Tab>>& All() const { return items_.All(); }
  // Removing the selected tab selects the first one left.
  void Remove(int index);
  void Clear();

 private:
  TabStrip& strip_;
  KeyedItems<Tab> items_;
};

class TabStrip : public Control {
 public:
  TabStrip(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "TabStrip"; }

  TabCollection& Tabs() { return tabs_; }
  const TabCollection& Tabs() const { return tabs_; }

  // Selecting another tab raises BeforeClick (which may cancel) and Click, from code as
  // from the user.
  Tab* SelectedItem() const { return selected_; }
  void SetSelectedItem(Tab& tab);

  Event<int&> OnBeforeClick;  // (cancel)

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;
  // Left and Right choose the neighbouring tab.
  void KeyDownDefault(int keyCode, int shift) override;

 private:
  friend class TabCollection;
  TabCollection tabs_{*this};
  Tab* selected_ = nullptr;
  struct DesignTab {
    std::wstring key, caption;
  };
  std::vector<DesignTab> designTabs_;
};

}  // namespace quillet::ui
