// The tool editor's operations on elements: adding one or an array, setting a property,
// nudging and sizing, deleting, copying properties from one to others, and the qombos.
#pragma once

#include "editor/change.h"
#include "project/elementprops.h"

#include <optional>
#include <string_view>
#include <vector>

namespace orrery {

class Random;

inline constexpr std::int32_t kNudge = 120;
inline constexpr int kLargestArray = 12;

// Where a new element stands in its tool, in twips.
struct Position {
    std::int32_t left = 0;
    std::int32_t top = 0;
};

// Where a dragged element or qombo marker comes to rest: on a 120-twip grid whose lines stand
// 40 twips in (40, 160, 280...; -80 below zero). A position typed by hand is not snapped.
std::int32_t SnapToGrid(std::int32_t twips);

// The name as an author typed it, made an element's: name form, the kind words taken out,
// punctuation stripped.
std::string CleanElementName(std::string_view typed);
// True when a stored element name ends with the name: the editor's test is project-wide.
bool ElementNameExists(const ProjectModel &model, std::string_view name);
// The row of the element with that stored name (any case), 0 when none.
int ElementRowByName(const ProjectModel &model, std::string_view name);
// The rows of the named elements, in the names' order, each as ElementRowByName finds it (0
// when none), in one walk of the table however many names: a selection may hold them all.
std::vector<int> ElementRowsByName(const ProjectModel &model, const std::vector<std::string> &names);

// AddEl: an element of a kind on a tool, named as the author typed it, with the project's
// default style for its kind. A name too short after cleaning, or one in use, is refused.
Outcome AddElement(ProjectModel &model, std::string_view tool, ElementKind kind,
                   std::string_view typedName, Position at = {});
// An array of count elements named "<stem>(1)" to "<stem>(count)", all at one place; count is
// what the author typed. At most 12; 0 or not a number adds nothing. The stem is a random
// number from 1000 to 8999, or the cleaned name given.
Outcome AddArray(ProjectModel &model, std::string_view tool, ElementKind kind,
                 std::string_view count, Random &random, std::string_view stem = {},
                 Position at = {});

// Sets one property of the named elements, all in one step. The value is checked against
// what the property holds: a number against its range, a flag as True or False, a tool by its
// name, a picture by a bare file name.
Outcome SetElementProperty(ProjectModel &model, const std::vector<std::string> &elements,
                           std::string_view key, std::string_view value);
// A key and the value typed for it.
using PropertySetting = std::pair<std::string, std::string>;
// Sets several properties of the named elements in one step, each checked as above: the font
// dialog's name, size and styles at once. One refused value refuses them all.
Outcome SetElementProperties(ProjectModel &model, const std::vector<std::string> &elements,
                             const std::vector<PropertySetting> &values);

// A list's items or a console's commands, one an entry, as the game shows them; and entries
// as the property holds them: items each closed by "//", commands joined by back-quotes as a
// new console's are. Empty entries are left out both ways.
std::vector<std::string> PropertyItems(PropertyValueKind kind, std::string_view value);
std::string ItemsProperty(PropertyValueKind kind, const std::vector<std::string> &items);

enum class Nudge { Left, Right, Up, Down, Wider, Narrower, Taller, Shorter };
// The nudge named by its word ("left", "wider"...); nullopt for another word.
std::optional<Nudge> NudgeByWord(std::string_view word);
// Moves or sizes each named element by 120 twips, in one step; a size never goes below 0.
// Repeated nudges of the same elements in the same direction share a merge key.
Outcome NudgeElements(ProjectModel &model, Nudge nudge, const std::vector<std::string> &elements);

// Moves the named elements by a distance in twips, in one step: a drag however far it goes.
Outcome MoveElements(ProjectModel &model, const std::vector<std::string> &elements, std::int32_t dx,
                     std::int32_t dy);

enum class Align { Left, Top, Right, Bottom, SameWidth, SameHeight, SpaceAcross, SpaceDown };
// The align word ("left", "same-width", "space-across"...); nullopt for another word.
std::optional<Align> AlignByWord(std::string_view word);
// Lines the named elements up with the first of them: an edge, or a size. Or spaces three or
// more evenly, across or down: the outermost two stay and the gaps between become equal.
Outcome AlignElements(ProjectModel &model, Align align, const std::vector<std::string> &elements);

// Deletes the named elements; the rows behind close up, as a reload would close them. The
// front end asks words::kDeleteElement or words::kDeleteSelected first.
Outcome DeleteElements(ProjectModel &model, const std::vector<std::string> &elements);

// The eleven properties copied from one element to another: back style, colours, font, size,
// alignment. Position and name are never copied.
inline constexpr std::string_view kCopiedProperties[] = {
    "backstyle", "forecolor", "backcolor", "fontname",   "fontsize",     "alignment",
    "width",     "height",    "fontbold",  "fontitalic", "fontunderline"};
// The copied properties the element has, as "key:value" cells.
std::vector<std::string> CopyProperties(const ProjectModel &model, std::string_view element);
// Sets them on each named element; a property its kind lacks is passed over.
Outcome PasteProperties(ProjectModel &model, const std::vector<std::string> &cells,
                        const std::vector<std::string> &elements);

inline constexpr int kQomboTypes = 7;
// A ready-made group of elements of type 1 to 7 on a tool, its top left corner at a place.
Outcome AddQombo(ProjectModel &model, std::string_view tool, int type, Position at);

} // namespace orrery
