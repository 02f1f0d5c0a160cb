// The decorations of the main menu and the desktop without any toolkit: pictures, moving texts
// and shapes, coloured boxes, text flows and the shifter field, built from the project's
// dynamic records, moved by a virtual clock, and painted by whoever holds them.
#pragma once

#include "desk/mainmenu.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orrery {

struct ProjectModel;
class Random;

enum class DynamicKind { Image, Text, Shape, Boxes, TextFlow, Shifters };

// The record's word for a kind: image, text, shape, boxes, textflow, shifters.
std::string_view DynamicKindWord(DynamicKind kind);
// The kind a record's field 2 names: the first of shifters, textflow, text, shape, image and
// boxes that it holds, in any case; none for any other word.
std::optional<DynamicKind> DynamicKindOf(std::string_view field);

// The form a dynamic belongs to, by the record's owner word: "menudynamic" or "maindynamic".
enum class DynamicForm { Menu, Desktop };

inline constexpr int kDynamicStep = 30; // twips a moving text or shape goes per tick, each way
inline constexpr int kMaxBoxes = 9;

// Where the moving text or shape heads: +1 right or down, -1 left or up.
struct Heading {
    int x = 1;
    int y = 1;
};

struct DynamicImage {
    std::string file; // below Res/uimages
};

struct DynamicText {
    std::string caption;
    MenuFont font;
    std::int32_t color = 0;
    bool moving = false;
    Heading heading;
};

struct DynamicShape {
    std::int32_t color = 0;
    bool moving = false;
    Heading heading;
};

struct DynamicBox {
    MenuRect rect;
    std::int32_t color = 0;
};

struct DynamicBoxes {
    std::int32_t baseColor = 0;
    std::vector<DynamicBox> boxes; // as many as the record asks, at most 9
};

struct FlowLetter {
    char character = ' ';
    std::int32_t color = 0;
    MenuRect rect;
};

// A text flow: letters on a base line carrying a wave of colour with a bump at its crest.
struct DynamicFlow {
    std::int32_t startColor = 0;
    std::int32_t endColor = 0;
    std::optional<std::int32_t> peakColor; // none when every colour is shown by two letters
    MenuFont font;
    bool vertical = false;
    int baseLeft = 0;
    int baseTop = 0;
    int lift = 0;   // twips the letter at the crest stands out of line
    int lifted = 0; // the lifted letter, from 1; 0 when none is
    std::vector<FlowLetter> letters;
};

// The field of flickering cells, numbered from 0 across the rows.
struct DynamicShifters {
    int columns = 1;
    int rows = 1;
    MenuSize cell;
    std::int32_t color1 = 0;    // a lit cell
    std::int32_t color2 = 0;    // any other cell
    std::int32_t fadeColor = 0; // a cell lit on the tick before but not now
    int degree = 25;            // the most cells lit in one tick, as a percent of the field
    bool border = true;
    std::vector<std::uint8_t> lit;
    std::vector<std::uint8_t> wasLit;

    int Count() const { return columns * rows; }
};

using DynamicState = std::variant<DynamicImage, DynamicText, DynamicShape, DynamicBoxes,
                                  DynamicFlow, DynamicShifters>;

struct Dynamic {
    int index = 0; // the record's place in the dynamic table, 1 to 99
    DynamicKind kind = DynamicKind::Image;
    MenuRect rect;        // a flow's panel round its letters; the shifter field's box
    int interval = 0;     // milliseconds between ticks; 0 for none
    bool running = false; // ticks while running with an interval
    std::int64_t due = 0; // the clock's time of the next tick
    DynamicState state;
};

// One form's dynamics in record order. `dirty` gathers the rects, in twips, that ticks have
// changed since the view last took them: old and new place of a moved thing, the rect of a
// recoloured one. A view swaps it with an emptied vector of its own, so neither allocates
// again.
struct FormDynamics {
    MenuSize form;
    std::int64_t now = 0;
    std::vector<Dynamic> dynamics;
    std::vector<MenuRect> dirty;
};

// The form's size, and the size the author placed the dynamics on (the project's origin
// size; zero when it has none, and the records are placed as written).
struct DynamicsLayout {
    MenuSize form;
    MenuSize design;
};

// The layout of a form of the size given for the project's origin size.
DynamicsLayout ProjectLayout(const ProjectModel &project, MenuSize form);

// Builds every dynamic record of the form's owner word in index order, then applies the
// quantum locks. Tickers fall due one interval after `now`. The model is not changed.
FormDynamics LoadFormDynamics(const ProjectModel &project, DynamicForm which,
                              const DynamicsLayout &layout, const MenuMeasures &measures,
                              Random &random, std::int64_t now);

// The content part of a dynamic record that a lock is keyed by: fields 7 to 13, trimmed, each
// followed by ":", with every "::" then made ":". Moving or resizing keeps it.
std::string DynamicSignature(std::string_view record);
// Puts a control of the given rect where a lock text ("<left>, <top> and <nudge left>, <nudge
// top>") says on a form of the given size. Only its left and top change.
MenuRect LockPosition(std::string_view lockText, MenuSize form, MenuRect control);
// Applies every lock of the project that names dynamic `index` by its signature, to the
// dynamic of that index on the form (to the form's shifter field for a shifters record).
// A boxes dynamic is never locked.
void ApplyQuantumLock(FormDynamics &dynamics, const ProjectModel &project, int index);

// The time the first running dynamic falls due; none when nothing ticks.
std::optional<std::int64_t> NextDynamicDue(const FormDynamics &dynamics);
// Runs every tick due up to `until` in order of time, record order breaking a tie. A dynamic
// ticks once however late it is, and falls due next on its own beat after `until`.
void AdvanceDynamics(FormDynamics &dynamics, std::int64_t until, Random &random);
// Stops the flows and empties them, so that no flow tick runs on a form that is going.
void ClearTFlows(FormDynamics &dynamics);

// One line a dynamic: "<index> <kind> <left> <top> <width> <height>" in twips; a flow adds
// "colors <c1> <c2> ..." and "lifted <n>" (0 when no letter is).
std::vector<std::string> DescribeDynamics(const FormDynamics &dynamics);

// The rect and colour of cell i of the shifter field in its box.
MenuRect ShifterCell(const DynamicShifters &field, const MenuRect &box, int i);
std::int32_t ShifterCellColor(const DynamicShifters &field, int i);

// Measures for a program without a toolkit. A text is a line of characters each half its
// point size wide, 1.2 times the point size high (a point is 20 twips); pictures come from
// the function given, and are {0, 0} where it has none.
MenuMeasures
HeadlessMeasures(std::function<std::optional<MenuSize>(std::string_view file)> picture);

} // namespace orrery
