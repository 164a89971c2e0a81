#pragma once
// Command bars of the in-memory editor: a tree of controls that records everything set on
// it, so that front-ends can draw it and scenarios can dump it.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/commandbars.h"

namespace quillet::host {

class MemoryVBE;
class MemoryCommandBar;
class MemoryControls;

class MemoryControl : public CommandBarControl {
 public:
  MemoryControl(MemoryVBE& vbe, MemoryControls& owner, int type, int id);

  int Id() const override { return id_; }
  int Type() const override { return type_; }
  long Index() const override;
  std::wstring Caption() const override { return caption_; }
  void SetCaption(std::wstring_view caption) override { caption_ = caption; }
  std::wstring Tag() const override { return tag_; }
  void SetTag(std::wstring_view tag) override { tag_ = tag; }
  std::wstring TooltipText() const override { return tooltip_; }
  void SetTooltipText(std::wstring_view text) override { tooltip_ = text; }
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override;
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override;
  bool BeginGroup() const override { return beginGroup_; }
  void SetBeginGroup(bool begin) override { beginGroup_ = begin; }
  int Style() const override { return style_; }
  void SetStyle(int style) override { style_ = style; }
  long Width() const override { return width_; }
  void SetWidth(long width) override { width_ = width; }
  std::wstring Parameter() const override { return parameter_; }
  void SetParameter(std::wstring_view parameter) override { parameter_ = parameter; }
  bool HasPictureProperty() const override { return type_ == kControlButton; }
  void SetPicture(std::wstring_view picture, std::wstring_view mask) override;
  std::wstring Picture() const override { return picture_; }
  void PasteFace() override;
  void CopyFace() override;
  CommandBarControls* Controls() override;
  void AddItem(std::wstring_view text) override { items_.emplace_back(text); }
  void ClearItems() override { items_.clear(); listIndex_ = 0; }
  long ListCount() const override { return static_cast<long>(items_.size()); }
  std::wstring List(long index) const override;
  long ListIndex() const override { return listIndex_; }
  void SetListIndex(long index) override;
  std::wstring Text() const override { return text_; }
  void SetText(std::wstring_view text) override { text_ = text; }
  long DropDownWidth() const override { return dropDownWidth_; }
  void SetDropDownWidth(long width) override { dropDownWidth_ = width; }
  void OnChange(std::function<void(const Ptr<CommandBarControl>&)> handler) override { onChange_ = std::move(handler); }
  void Execute() override;
  void Delete() override;

  // What the user does: a dropdown entry chosen (raises the change event).
  void Choose(long index);
  // Counts property writes that change something, so that needless repaints show.
  long Writes() const { return writes_; }
  // Built-in controls may carry an action of their own.
  std::function<void()> action;

 private:
  MemoryVBE& vbe_;
  MemoryControls& owner_;
  int type_, id_;
  std::wstring caption_, tag_, tooltip_, picture_, text_, parameter_;
  bool visible_ = true, enabled_ = true, beginGroup_ = false;
  int style_ = kStyleAutomatic;
  long width_ = 0, dropDownWidth_ = 0, listIndex_ = 0, writes_ = 0;
  std::vector<std::wstring> items_;
  std::unique_ptr<MemoryControls> children_;
  std::function<void(const Ptr<CommandBarControl>&)> onChange_;
};

class MemoryControls : public CommandBarControls {
 public:
  explicit MemoryControls(MemoryVBE& vbe) : vbe_(vbe) {}
  long Count() const override { return static_cast<long>(controls_.size()); }
  Ptr<CommandBarControl> Item(long index) const override;
  Ptr<CommandBarControl> Item(std::wstring_view caption) const override;
  Ptr<CommandBarControl> Add(int type, int id = 1, bool temporary = true) override;

  const std::vector<std::shared_ptr<MemoryControl>>& All() const { return controls_; }
  void Remove(const MemoryControl* control);
  long IndexOf(const MemoryControl* control) const;
  Ptr<CommandBarControl> FindId(int id) const;

 private:
  MemoryVBE& vbe_;
  std::vector<std::shared_ptr<MemoryControl>> controls_;
};

class MemoryCommandBar : public CommandBar {
 public:
  MemoryCommandBar(MemoryVBE& vbe, std::wstring name, int position, bool temporary);
  std::wstring Name() const override { return name_; }
  int Position() const override { return position_; }
  void SetPosition(int position) override { position_ = position; }
  long RowIndex() const override { return rowIndex_; }
  void SetRowIndex(long index) override { rowIndex_ = index; }
  long Left() const override { return left_; }
  void SetLeft(long left) override { left_ = left; }
  long Top() const override { return top_; }
  void SetTop(long top) override { top_ = top; }
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  CommandBarControls& Controls() override { return controls_; }
  void Delete() override { deleted = true; }

  MemoryControls& Items() { return controls_; }
  bool deleted = false;
  bool temporary;

 private:
  std::wstring name_;
  int position_;
  long rowIndex_ = 0, left_ = 0, top_ = 0;
  bool visible_ = false, enabled_ = true;
  MemoryControls controls_;
};

class MemoryCommandBars : public CommandBars {
 public:
  explicit MemoryCommandBars(MemoryVBE& vbe);
  long Count() const override;
  Ptr<CommandBar> Item(std::wstring_view name) const override;
  Ptr<CommandBar> Item(long index) const override;
  Ptr<CommandBar> Add(std::wstring_view name, int position, bool menuBar, bool temporary) override;
  Ptr<CommandBarControl> FindControl(int id) const override;

  std::shared_ptr<MemoryCommandBar> Bar(std::wstring_view name) const;
  std::vector<std::shared_ptr<MemoryCommandBar>> Bars() const;

 private:
  MemoryVBE& vbe_;
  mutable std::vector<std::shared_ptr<MemoryCommandBar>> bars_;
};

}  // namespace quillet::host
