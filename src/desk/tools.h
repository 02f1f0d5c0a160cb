// Tool windows on the desk: the side menu that lists them, opening, dressing, closing, the
// tools' event sequences and the events of their elements.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "desk/desk.h"

namespace orrery {

struct Game;
struct ProjectModel;
struct ProjectSettings;

// A tool's rows are looked for up to this row; the last rows of the table never show.
inline constexpr int kLastToolRow = 1495;

// One element of a tool as its row designs it, before the desk gives it a panel.
struct DesignedControl {
    int row = 0;
    ElementControl control;
};

// A tool's controls as its elements' rows design them, and the panel's size round them.
struct DesignedTool {
    std::vector<DesignedControl> controls; // in row order
    std::int32_t width = 0;                // 0 when the tool has no element
    std::int32_t height = 0;
    int lastRowScanned = 0;                // where the scan stopped: a double gap or the end
};

// Reads the rows of the tool (its name without blanks) and designs their controls, with every
// property applied and labels padded: what the run-time shows at the tool's first opening and
// what an editor previews. Reads the model only.
DesignedTool BuildToolControls(const ProjectModel &project, std::string_view tool);
// Gives a designed control its place in toolbox n of the desk; a console gets its column and
// its welcome line.
ElementControl &PlaceDesignedControl(Desk &desk, int n, const DesignedControl &designed);
// Sizes a panel round its design: as far as the elements reach, never narrower than the title
// bar's two ends.
void SizeToolBox(ToolBox &box, const DesignedTool &design);
// The chrome that dresses toolbox n, a panel of that width, under the tool's caption.
ToolChrome DressTool(const ProjectSettings &settings, int n, std::int32_t width,
                     const std::string &caption);

inline constexpr std::string_view kAllThatAreVisible = "ALL-THAT-ARE-VISIBLE";

// Builds the side menu from the project's tools: excluded tools get no entry, hidden tools an
// invisible one. Every entry gets an open lock.
void LoadSideMenu(Game &game);

// Opens or raises the tool of side-menu entry s. A locked tool stays shut, silently.
void OpenTool(Game &game, int entry);
// Opens the tool whose side-menu caption has that name form; an unknown name does nothing.
void OpenT(Game &game, std::string_view name);
// Closes the tool of chrome index c: hidden, its close sequence run, its text boxes emptied.
void UnloadBox(Game &game, int chrome);

// The toolbox whose tag is the name, 0 when none (ToolOpen and GetToolboxIndex).
int ToolOpen(const Game &game, std::string_view name);
// The chrome whose caption has the name form; 999 when none.
int GetRealToolIndex(const Game &game, std::string_view name);
// The chrome index of a tool by tag; 999 when none.
int FindBox(const Game &game, std::string_view name);

// Runs the tool's sequences for an event; for "ALL-THAT-ARE-VISIBLE", those of every opened
// tool that is visible (every one for "open"), on the gun.
void ActivateToolSub(Game &game, std::string_view tool, std::string_view event);
void ClearTextBoxesInTool(Game &game, std::string_view tool);
// Moves the focus frame to a toolbox when it isn't there already, or when forced.
void SetToolerSel(Game &game, int box, bool force);

// Gives the focus to the tool's first text element, the first made.
void SetToolBoxTextFocus(Game &game, int box);
// A press on a tool's panel: the consoles lose the keys and the tool comes to the front.
void ToolPress(Game &game, int box);
// A click on a console: it takes the keys, and its tool comes to the front.
void QonsoleClick(Game &game, int row);

// The events of elements, each given the element's row.
void ButtonClick(Game &game, int row);
void ImageClick(Game &game, int row);
void LabelDoubleClick(Game &game, int row);
void ListClick(Game &game, int row);
// Enter in a text box under 800 twips high clicks the first button of its tool.
void TextEnter(Game &game, int row);

} // namespace orrery
