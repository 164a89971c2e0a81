#pragma once
// Office command bars, as far as the system builds and reads them.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostmodel/vbe.h"

namespace quillet::host {

enum ControlType : int { kControlButton = 1, kControlEdit = 2, kControlDropdown = 3, kControlComboBox = 4, kControlPopup = 10 };
enum BarPosition : int { kBarLeft = 0, kBarTop = 1, kBarRight = 2, kBarBottom = 3, kBarFloating = 4, kBarPopup = 5 };
enum ButtonStyle : int { kStyleAutomatic = 0, kStyleIcon = 1, kStyleCaption = 2, kStyleIconAndCaption = 3 };

class CommandBarControls;

class CommandBarControl : public std::enable_shared_from_this<CommandBarControl> {
 public:
  virtual ~CommandBarControl() = default;
  virtual int Id() const = 0;       // built-in id, 1 for custom controls
  virtual int Type() const = 0;
  virtual long Index() const = 0;   // 1-based place in its parent
  virtual std::wstring Caption() const = 0;
  virtual void SetCaption(std::wstring_view caption) = 0;
  virtual std::wstring Tag() const = 0;
  virtual void SetTag(std::wstring_view tag) = 0;
  virtual std::wstring TooltipText() const = 0;
  virtual void SetTooltipText(std::wstring_view text) = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool BeginGroup() const = 0;
  virtual void SetBeginGroup(bool begin) = 0;
  virtual int Style() const = 0;
  virtual void SetStyle(int style) = 0;
  virtual long Width() const = 0;
  virtual void SetWidth(long width) = 0;
  // A text the add-in keeps with the control (the id of its caption).
  virtual std::wstring Parameter() const = 0;
  virtual void SetParameter(std::wstring_view parameter) = 0;

  // Pictures: a button may carry a picture and mask (resource names) or a pasted face.
  virtual bool HasPictureProperty() const = 0;
  virtual void SetPicture(std::wstring_view picture, std::wstring_view mask) = 0;
  virtual std::wstring Picture() const = 0;
  virtual void PasteFace() = 0;     // takes the face from the clipboard
  virtual void CopyFace() = 0;      // puts the face on the clipboard

  // A popup's children; nullptr for other types.
  virtual CommandBarControls* Controls() = 0;

  // Dropdowns.
  virtual void AddItem(std::wstring_view text) = 0;
  virtual void ClearItems() = 0;
  virtual long ListCount() const = 0;
  virtual std::wstring List(long index) const = 0;  // 1-based
  virtual long ListIndex() const = 0;                // 0 when none
  virtual void SetListIndex(long index) = 0;
  virtual std::wstring Text() const = 0;
  virtual void SetText(std::wstring_view text) = 0;
  virtual long DropDownWidth() const = 0;
  virtual void SetDropDownWidth(long width) = 0;
  // The change event of a dropdown; raised when the user picks an entry.
  virtual void OnChange(std::function<void(const Ptr<CommandBarControl>&)> handler) = 0;

  // What a click does: raises the click source and runs the control's own action.
  virtual void Execute() = 0;
  virtual void Delete() = 0;
};

class CommandBarControls {
 public:
  virtual ~CommandBarControls() = default;
  virtual long Count() const = 0;
  virtual Ptr<CommandBarControl> Item(long index) const = 0;  // 1-based; error 5
  // By caption, compared as the host does (without regard to case); error 5 when missing.
  virtual Ptr<CommandBarControl> Item(std::wstring_view caption) const = 0;
  virtual Ptr<CommandBarControl> Add(int type, int id = 1, bool temporary = true) = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;
  virtual std::wstring Name() const = 0;
  virtual int Position() const = 0;
  virtual void SetPosition(int position) = 0;
  virtual long RowIndex() const = 0;
  virtual void SetRowIndex(long index) = 0;
  virtual long Left() const = 0;
  virtual void SetLeft(long left) = 0;
  virtual long Top() const = 0;
  virtual void SetTop(long top) = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual CommandBarControls& Controls() = 0;
  virtual void Delete() = 0;
};

class CommandBars {
 public:
  virtual ~CommandBars() = default;
  virtual long Count() const = 0;
  // By name without regard to case; error 5 when missing.
  virtual Ptr<CommandBar> Item(std::wstring_view name) const = 0;
  virtual Ptr<CommandBar> Item(long index) const = 0;
  virtual Ptr<CommandBar> Add(std::wstring_view name, int position, bool menuBar, bool temporary) = 0;
  // A control by built-in id anywhere in the bars, nullptr when none.
  virtual Ptr<CommandBarControl> FindControl(int id) const = 0;
};

}  // namespace quillet::host
