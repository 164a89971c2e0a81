#pragma once
// The classic constants that forms and controls speak: key codes, shift masks, unload
// modes, check box states, list view and tree view settings. Names follow the classic ones
// so that dialog code reads as it always did.

namespace quillet::ui {

// Key codes of KeyDown and KeyUp; KeyPress gets character codes (13, 27, 8, 32, ...).
enum KeyCode : int {
  vbKeyBack = 8,
  vbKeyTab = 9,
  vbKeyReturn = 13,
  vbKeyShift = 16,
  vbKeyControl = 17,
  vbKeyEscape = 27,
  vbKeySpace = 32,
  vbKeyPageUp = 33,
  vbKeyPageDown = 34,
  vbKeyEnd = 35,
  vbKeyHome = 36,
  vbKeyLeft = 37,
  vbKeyUp = 38,
  vbKeyRight = 39,
  vbKeyDown = 40,
  vbKeyInsert = 45,
  vbKeyDelete = 46,
  vbKeyF1 = 112,
};

// The shift argument of KeyDown and KeyUp.
enum ShiftMask : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

// The mouse button of MouseDown, MouseMove and MouseUp.
enum MouseButton : int { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };

// The shapes of the mouse pointer over a control (MousePointer).
enum MousePointerShape : int { vbDefault = 0, vbSizeNS = 7, vbSizeWE = 9 };

// Why a form is being unloaded (QueryUnload).
enum UnloadMode : int {
  vbFormControlMenu = 0,  // the user closed it
  vbFormCode = 1,         // Unload in code
  vbAppWindows = 2,
  vbAppTaskManager = 3,
  vbFormMDIForm = 4,
  vbFormOwner = 5,
};

// Check box values.
enum CheckValue : int { vbUnchecked = 0, vbChecked = 1, vbGrayed = 2 };

// Combo box styles.
enum ComboStyle : int { vbComboDropdown = 0, vbComboSimple = 1, vbComboDropdownList = 2 };

// List box selection modes.
enum MultiSelectMode : int { vbMultiSelectNone = 0, vbMultiSelectSimple = 1, vbMultiSelectExtended = 2 };

// Where Nodes.Add puts a node, relative to another.
enum TreeRelationship : int { tvwFirst = 0, tvwLast = 1, tvwNext = 2, tvwPrevious = 3, tvwChild = 4 };

// List view layouts and sort order.
enum ListViewView : int { lvwIcon = 0, lvwSmallIcon = 1, lvwList = 2, lvwReport = 3 };
enum SortOrder : int { lvwAscending = 0, lvwDescending = 1 };

// Colours as the classic long values (blue, green, red bytes from high to low).
constexpr long vbBlack = 0x000000;
constexpr long vbWhite = 0xFFFFFF;
constexpr long vbRed = 0x0000FF;
constexpr long vbGreen = 0x00FF00;
constexpr long vbBlue = 0xFF0000;
constexpr long vbWindowText = 0x80000008L;        // system colour: text in windows
constexpr long vbWindowBackground = 0x80000005L;  // system colour: window background
inline constexpr long RGB(int red, int green, int blue) {
  return static_cast<long>(red & 0xFF) | (static_cast<long>(green & 0xFF) << 8) |
         (static_cast<long>(blue & 0xFF) << 16);
}

// Screen geometry of the headless forms: twips per pixel, and the estimate of a caret's
// place from its column and line.
constexpr int kTwipsPerPixel = 15;
constexpr int kCharWidthPixels = 7;
constexpr int kLineHeightPixels = 13;

}  // namespace quillet::ui
