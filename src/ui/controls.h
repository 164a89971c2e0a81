#pragma once
// Every control a dialog can put on its form, for dialog code to include at once.
#include "ui/buttons.h"
#include "ui/list_controls.h"
#include "ui/list_view.h"
#include "ui/menu.h"
#include "ui/rich_text_box.h"
#include "ui/static_controls.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "ui/toolbar.h"
#include "ui/tree_view.h"
