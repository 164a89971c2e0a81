#pragma once
// The settings items on the controls of a form. Each item's control carries the name that
// ItemControlName derives from the item's key, so one loop fills all controls from the
// items and one loop writes them back; the type prefix table of the standards file is
// edited as text beside them.
#include <string>
#include <string_view>

#include "kernel/session.h"

namespace quillet::ui {
class Form;
}

namespace quillet::settings {

// Reads a text as a truth value: lower-cased, "true", "yes", "-1" and "1" are true and
// anything else false. True gives 1 with `asCheck` (a check box's value), else -1; false
// gives 0.
int TruthValue(std::wstring_view text, bool asCheck);

// Gives every item's control on `form` the item's value: a check box is checked for a
// true item, "Auto Prefix Variable Name" chooses its mode from the three names, any other
// control takes the text. An item whose control is missing or refuses the value fails
// alone, reported as "modIniVarsQuillet.Form_Load_Settings".
void FormLoadSettings(kernel::Session& s, ui::Form& form);

// Writes every item from its control on `form` into its INI file: "-1" or "0" for a check
// box, the mode's number for "Auto Prefix Variable Name", else the text. Then every item
// is read again from disk, so that the values take effect at once. An item whose control
// is missing fails alone, reported as "modIniVarsQuillet.Form_Save_Settings".
void FormSaveSettings(kernel::Session& s, ui::Form& form);

// What the user can edit on `form`, as one text: the trimmed text of each text box and
// combo box and the value of each check box, in the form's order. Two states are the same
// when they are equal without regard to case.
std::wstring ControlsState(const ui::Form& form);

// The "Prefix" section of the standards file as text, one "type=prefixes" line each,
// every line ended by CR LF; comment lines as they are. Empty when the file or the
// section is missing.
std::wstring TypePrefixText(kernel::Session& s);

// Replaces the "Prefix" section of the standards file by the lines of `text` and reads the
// naming standard again. Each line that is not blank gives a type (before the first "=")
// and its prefixes (behind it, up to a second "="), both trimmed; a line without "="
// gives a type without prefixes. Nothing happens when the standards file does not exist.
void TypePrefixTextSave(kernel::Session& s, std::wstring_view text);

}  // namespace quillet::settings
