#pragma once
// Enums and user-defined types: a new block with its items, and one item added to a block
// that exists. One set of functions serves both kinds; `isEnum` says which is meant.
//
// The text logic works on views of the module's lines, for tests without an editor; the
// session functions find the module, apply the edit and keep the models current.
#include <string>

#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

// "Enum" or "Type".
std::wstring BlockWord(bool isEnum);
// The name with the prefix in front, unless it begins with it already (in any case).
std::wstring PrefixAdd(const std::wstring& name, const std::wstring& prefix);
// The block: head (accessibility, word, prefixed name), one line per item that is not
// blank (prefixed; the first with " = " firstValue when one is given), or one line of a
// tab's blanks without items, then "End " and the word, without CR LF behind it.
std::wstring TypeEnumText(const std::wstring& name, bool isEnum, const std::wstring& items,
                          const std::wstring& firstValue, const std::wstring& prefix, const std::wstring& accessibility,
                          const std::wstring& tab);
// Where a new block goes: on the caret line when the caret is in the declarations of this
// module on a blank line, else at the end of the declarations.
kernel::CodeEdit NewBlockEdit(const kernel::CodeView& view, long declarationLines, bool caretHere,
                              const std::wstring& text);
// The line inside the block around the caret at which a new item goes (the blank caret line,
// or the block's last line); 0 outside every block of that kind. `blockName` comes back.
long BlockLineGet(const kernel::CodeView& view, long declarationLines, bool isEnum, std::wstring& blockName);
// The edit that adds `itemLine` to block `blockName` of the module: at `blockLine` when
// given (the caret's place in that block), else above the block's end. Nullopt when the
// module has no such block.
std::optional<kernel::CodeEdit> ItemAddEdit(const kernel::CodeView& view, const std::wstring& blockName, bool isEnum,
                                            const std::wstring& itemLine, long blockLine);

// Writes a new block into `module` (the active one when empty) and makes it known to the
// project's models. False when nothing was written.
bool TypeEnumCodeInsert(kernel::Session& s, const std::wstring& name, bool isEnum, const std::wstring& items,
                        const std::wstring& module, const std::wstring& firstValue, const std::wstring& prefix,
                        const std::wstring& accessibility);
// Adds an item to a block of the module or the project. "Item exist." when the block has
// it; false when nothing was written.
bool EnumItemAdd(kernel::Session& s, const std::wstring& blockName, const std::wstring& itemLine, bool isEnum);
// BlockLineGet at the caret of the active pane.
long BlockLineAtCaret(kernel::Session& s, bool isEnum, std::wstring& blockName);

}  // namespace quillet::generators
