// The action editor's operations: a stored sequence as the lines of its list and back, a
// statement composed from a catalogue function and its arguments, a line read back into them,
// the conditions it offers and where a sequence is stored.
#pragma once

#include "actions/catalogue.h"
#include "editor/change.h"
#include "project/elementprops.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

// What stands in front of a plain statement in the list, so that the control forms stand out.
inline constexpr std::string_view kStatementIndent = "     ";

// A line as the list shows it: a label, a jump, a loop's ends as they are, any other behind
// the indent.
std::string ListLine(std::string_view line);
// The list's lines of a stored sequence: "action:" removed, each back-quoted statement
// trimmed, the empty ones and ":" left out. Every statement is kept, however many.
std::vector<std::string> LoadActions(std::string_view stored);
// The lines joined, each followed by a back-quote; the indents stay.
std::string GenActionString(const std::vector<std::string> &lines);
// The text the editor hands back: "_$" as "$", every ":" as ";", "action:" in front.
std::string SavedActions(const std::vector<std::string> &lines);

// The clipboard's text as lines to add: each trimmed line not empty nor ":", those beginning
// "_" or "~" as they are, others behind the indent.
std::vector<std::string> PasteLines(std::string_view clipboard);
// The lines for the clipboard, each followed by a line break.
std::string CopyLines(const std::vector<std::string> &lines);

// The text view beside the list: the lines as they stand, one a line; and lines typed back.
// A typed line with a leading blank is kept as it is, any other goes in as ListLine puts it,
// so that the list and its text go back and forth unchanged.
std::string ActionsText(const std::vector<std::string> &lines);
std::vector<std::string> ActionsFromText(std::string_view text);

// Where a sequence comes from and goes back to.
struct SequencePlace {
    enum class Kind { Element, Qlob, ToolSub, MainLoad };
    Kind kind = Kind::MainLoad;
    std::string tool;    // an element's or a tool sub's tool
    std::string name;    // the element's stored name, the qlob's name or the tool sub's event
};
// The window's caption: "Assign Actions [tool -> element]", "Assign Actions [ main-load ]".
std::string ActionCaption(const ProjectModel &model, const SequencePlace &place);
// The sequence stored there now.
std::string StoredActions(const ProjectModel &model, const SequencePlace &place);
// Stores the list's lines there, as the editor's save writes them, in one step.
Outcome StoreActions(ProjectModel &model, const SequencePlace &place,
                     const std::vector<std::string> &lines);

// One parameter's input as the author left it.
struct ArgumentInput {
    bool list = false; // a list offers it; otherwise a text box
    std::string text;
};
// The inputs of the form when "Assign Command" is pressed.
struct Composition {
    std::string function;                // the chosen function's name
    std::optional<std::string> target;   // the target list, when the function returns a value
    std::vector<ArgumentInput> arguments; // one per parameter, in order
    std::string condition;               // the condition chosen; "None" or empty for none
};
// AddAccion: the lines to add for the composition, or the note that stops it.
struct Composed {
    std::vector<std::string> lines;
    std::optional<Message> refusal;
};
Composed AddAccion(const Composition &composition);
// The statement a composition makes, without its list indent, as the checker sees it; for a
// jump or a loop the first line of its form.
std::string ComposedStatement(const Composition &composition);

// A line of the list read back into the form: its target, function, arguments and condition.
struct LoadedLine {
    const CatalogueEntry *entry = nullptr;
    std::string target;
    std::vector<std::string> arguments;
    std::string condition;
};
// GetFunctionIndex: the catalogue entry of the line's function and the line's parts; nullopt
// for a label, a loop's end or a statement of no catalogue function.
std::optional<LoadedLine> GetFunctionIndex(std::string_view line);

// The condition dialog: "left operator right", and with "Loop to" one more condition for each
// whole number from right + 1 up to loopTo, that number in place of right. An empty field is
// refused with kFieldsIncomplete.
struct ConditionForm {
    std::string left;
    std::string op;
    std::string right;
    bool loop = false;
    std::string loopTo;
};
struct BuiltConditions {
    std::vector<std::string> conditions;
    std::optional<Message> refusal;
};
BuiltConditions BuildConditions(const ConditionForm &form);

// The declared variables offered as targets: a plain name with "_" in front, an array's first
// item "name(1)" as "_name(?)"; other items of an array are not offered.
std::vector<std::string> LoadList6(const ProjectModel &model);
// The declared variables' names as they are.
std::vector<std::string> VariableNames(const ProjectModel &model);
// A tool's elements by stored name, in row order; with all, every element as "name (caption)".
std::vector<std::string> ToolElementNames(const ProjectModel &model, std::string_view tool);
std::vector<std::string> LoadAllELE(const ProjectModel &model);
// The project's elements of a kind ("qonsole", "list"), by stored name.
std::vector<std::string> ElementsOfKind(const ProjectModel &model, ElementKind kind);
// The qlobs' names and the server fields' names.
std::vector<std::string> QlobNames(const ProjectModel &model);
std::vector<std::string> LoadServerProps(const ProjectModel &model);

} // namespace orrery
