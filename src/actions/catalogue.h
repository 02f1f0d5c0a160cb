// The action catalogue: the functions the action editor offers, with their parameter labels.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

// What a function is to the sequence: a value function writes a target, a command acts, and a
// control form is expanded by the editor into the lines the sequence runner walks itself.
enum class ActionKind { Value, Command, Control };

// The input the editor lays out for a parameter, derived from its label alone.
enum class ParamKind {
    Tool,
    Qlob,
    ExitOn,
    Variable,
    Console,
    Element,
    List,
    Boolean,
    Color,
    File,
    Audio,
    Operator,
    ServerProperty,
    Image,
    General,
};

inline constexpr std::size_t kMaxParams = 5;

// One function of the catalogue. Labels are written as the author reads them, ":TOOL"; the
// unused slots are empty.
struct CatalogueEntry {
    int group; // the run between two separators of the list, from 1
    std::string_view name;
    ActionKind kind;
    std::array<std::string_view, kMaxParams> labels;

    std::size_t ParamCount() const;
    // The list item: the name, then a blank and "[:LABEL]" for each parameter.
    std::string Text() const;
};

// Every function, in list order. `RETURN` is not among them: authors only type it.
std::span<const CatalogueEntry> Catalogue();

// The function of that name, compared in normalised form; nullptr when none.
const CatalogueEntry *FindCatalogueEntry(std::string_view name);

// The functions of one kind, in list order.
std::vector<const CatalogueEntry *> CatalogueOfKind(ActionKind kind);

// The filter of the function list: "All", "Returns", "Non-returns".
enum class CatalogueFilter { All, Returns, NonReturns };

// The items of the function list in order, an empty item between two groups, filtered: the
// "Returns" filter keeps the items whose normalised text contains "return", so separators and
// the control forms fall to "Non-returns".
std::vector<std::string> CatalogueItems(CatalogueFilter filter = CatalogueFilter::All);

// The kind of a parameter from its label, as "[:LABEL]", ":LABEL" or "LABEL": the text after
// the colon, brackets stripped, normalised, is tested against the kind rules in order.
ParamKind ParamKindOf(std::string_view label);

// The fixed entries of a kind's list input, in order ("Disabled", "Enabled" for exit-on); empty
// for kinds whose list comes from the project or that offer no list.
std::span<const std::string_view> ParamChoices(ParamKind kind);

// The author's reference for special variables: the form caption, its lines in order, and the
// whole text with an empty line between two lines and every line ended by a line break.
inline constexpr std::string_view kSpecialVariablesCaption = "Special Variables";
std::span<const std::string_view> SpecialVariablesLines();
std::string SpecialVariablesText();

} // namespace orrery
