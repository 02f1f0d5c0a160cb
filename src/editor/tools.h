// The tool editor's operations on tools: the side menu's list of tools and its exclusions.
#pragma once

#include "editor/change.h"

#include <string_view>

namespace orrery {

// Adds a tool to the list: at most 98 before it, no two alike but the separator "-". An empty
// name does nothing.
Outcome AddTool(ProjectModel &model, std::string_view name);
// Removes a tool with its elements and its assignments; the front end asks words::kDeleteTool
// first. Notes the advice to restart.
Outcome RemoveTool(ProjectModel &model, std::string_view name);
// Keeps a tool out of the side menu, or lets it back in.
Outcome ExcludeTool(ProjectModel &model, std::string_view name, bool excluded);
// Hides a tool's side-menu entry, or shows it again. The run-time finds a tag anywhere in the
// hidden list, so a tool whose tag is part of another hidden tool's stays hidden.
Outcome HideTool(ProjectModel &model, std::string_view name, bool hidden);
// Swaps the tool in that slot with the nearest one above it (up) or below it in the side
// menu's order; at either end nothing changes. A slot, not a name: separators repeat.
Outcome MoveTool(ProjectModel &model, int slot, bool up);

// The slot of the tool whose name has that name form, 0 when none.
int FindTool(const ProjectModel &model, std::string_view name);
// The tools of the list in slot order, blank slots left out.
std::vector<std::string> ToolNames(const ProjectModel &model);

} // namespace orrery
