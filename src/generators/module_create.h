#pragma once
// A new module for a builder that writes into one the project does not have yet.
#include <string>

#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::generators {

// Adds a module of `kind` (standard or class) to the active project under `name`, with
// the module header when there is a template, and returns the name it has: the host's own
// when it refused `name`, which the user is told. The active code pane stays the active
// one. "" when there is no project or the module could not be made.
std::wstring ModuleCreate(kernel::Session& s, const std::wstring& name, host::ComponentType kind);

// Brings `text`, an exported module's text, into `project`: the host imports modules from
// files only, so the text goes through the temporary folder as `fileName` (a template's own
// name), which is deleted afterwards. False when the file could not be written.
bool ModuleImportText(kernel::Session& s, const host::Ptr<host::VBProject>& project, const std::wstring& fileName,
                      const std::wstring& text);

}  // namespace quillet::generators
