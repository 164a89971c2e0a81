#pragma once
// Colours VBA text in a rich text box with the scan of the HTML page: comments green,
// words of the function list black, of the statement list navy. Template tokens in braces
// ("{AUTHOR}") are purple and the marks "<cursor>", "<end_of_top>", "<begin_of_bottom>"
// bold, so that a fragment's placeholders stand out in its preview.
//   Colorize(frm.rtxtContent);   // the caller has switched drawing off
#include "ui/rich_text_box.h"

namespace quillet::ui {

long CommentColor();    // 0, 127, 0
long FunctionColor();   // 0, 0, 0
long StatementColor();  // 0, 0, 127
long TokenColor();      // 128, 0, 128

void Colorize(ui::RichTextBox& box);

}  // namespace quillet::ui
