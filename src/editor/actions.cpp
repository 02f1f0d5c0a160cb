// The action editor's operations.
#include "editor/actions.h"

#include "editor/elements.h"
#include "editor/sequences.h"
#include "editor/servers.h"
#include "editor/words.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/elementprops.h"

#include <cmath>
#include <ranges>

namespace orrery {

namespace {

constexpr std::string_view kLoopStart = "FOR $v = ";
constexpr std::string_view kLoopEnd = "NEXT $v";

// The pieces of the text between separators, the empty ones too.
std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (const auto piece : std::views::split(text, separator))
        pieces.emplace_back(piece.begin(), piece.end());
    return pieces;
}

bool Skipped(std::string_view trimmed) {
    return trimmed.empty() || trimmed == ":";
}

// The lines of a text that are neither empty nor ":", each as make gives it.
template <typename Make> std::vector<std::string> TextLines(std::string_view text, Make make) {
    std::vector<std::string> lines;
    for (const std::string_view piece : Split(text, '\n')) {
        const std::string line = ReplaceAll(piece, "\r", "");
        if (!Skipped(Trim(line))) lines.push_back(make(line));
    }
    return lines;
}

// The text before its first "(", trimmed: a list entry "name (caption)" gives its name.
std::string CutAtParen(std::string_view text) {
    return Trim(text.substr(0, text.find('(')));
}

bool IsGoto(std::string_view function) {
    return NormTextContains(function, "_goto");
}

bool IsLoop(std::string_view function) {
    return NormText(function) == "_for";
}

// The arguments in brackets, in order: "[a] [b]" gives a and b.
std::vector<std::string> BracketArguments(std::string_view rest) {
    std::vector<std::string> arguments;
    for (std::size_t open = rest.find('['); open != std::string_view::npos;
         open = rest.find('[', open)) {
        const std::size_t close = rest.find(']', open);
        arguments.push_back(std::string(rest.substr(open + 1, close - open - 1)));
        if (close == std::string_view::npos) break;
        open = close;
    }
    return arguments;
}

} // namespace

std::string ListLine(std::string_view line) {
    const std::string trimmed = Trim(line);
    const std::string norm = NormText(trimmed);
    const bool control = trimmed.starts_with('_') || trimmed.starts_with('~') ||
                         norm.find("for ") != std::string::npos ||
                         norm.find("next ") != std::string::npos;
    return control ? trimmed : std::string(kStatementIndent) + trimmed;
}

std::vector<std::string> LoadActions(std::string_view stored) {
    std::vector<std::string> lines;
    if (Trim(stored).empty()) return lines;
    const std::string statements = ReplaceAll(stored, "action:", "");
    for (const std::string_view field : Split(statements, '`'))
        if (!Skipped(Trim(field))) lines.push_back(ListLine(field));
    return lines;
}

std::string GenActionString(const std::vector<std::string> &lines) {
    std::string text;
    for (const std::string &line : lines) text += line + "`";
    return text;
}

std::string SavedActions(const std::vector<std::string> &lines) {
    return "action:" + ReplaceAll(ReplaceAll(GenActionString(lines), "_$", "$"), ":", ";");
}

std::vector<std::string> PasteLines(std::string_view clipboard) {
    return TextLines(clipboard, [](const std::string &line) {
        const std::string trimmed = Trim(line);
        const bool asIs = trimmed.starts_with('_') || trimmed.starts_with('~');
        return asIs ? trimmed : std::string(kStatementIndent) + trimmed;
    });
}

std::string CopyLines(const std::vector<std::string> &lines) {
    std::string text;
    for (const std::string &line : lines) text += line + "\n";
    return text;
}

std::string ActionsText(const std::vector<std::string> &lines) {
    return CopyLines(lines);
}

std::vector<std::string> ActionsFromText(std::string_view text) {
    return TextLines(text, [](const std::string &line) {
        return line.starts_with(' ') ? line : ListLine(line);
    });
}

std::string ActionCaption(const ProjectModel &model, const SequencePlace &place) {
    switch (place.kind) {
    case SequencePlace::Kind::Element: {
        const int row = ElementRowByName(model, place.name);
        const std::string name = row ? model.Element(row)[kNameColumn] : place.name;
        return "Assign Actions [" + place.tool + " -> " + name + "]";
    }
    case SequencePlace::Kind::Qlob:
        return "Assign Actions [ " + QlobName(place.name) + " ]";
    case SequencePlace::Kind::ToolSub:
        return "Assign Actions [ " + ToolTag(place.tool) + ":" + NormText(place.name) + " ]";
    case SequencePlace::Kind::MainLoad:
        break;
    }
    return "Assign Actions [ main-load ]";
}

std::string StoredActions(const ProjectModel &model, const SequencePlace &place) {
    switch (place.kind) {
    case SequencePlace::Kind::Element: {
        const int row = ElementRowByName(model, place.name);
        return row ? PropertyValue(model.Element(row), "action").value_or("") : std::string();
    }
    case SequencePlace::Kind::Qlob: {
        const int slot = FindQlobByName(model, place.name);
        if (!slot) return {};
        const std::string record = Trim(model.QlobTable[slot]);
        const std::size_t blank = record.find(' ');
        return blank == std::string::npos ? std::string() : record.substr(blank + 1);
    }
    case SequencePlace::Kind::ToolSub:
        return ToolSubSequence(model, place.tool, place.name);
    case SequencePlace::Kind::MainLoad:
        break;
    }
    return model.settings.mymainsubload;
}

Outcome StoreActions(ProjectModel &model, const SequencePlace &place,
                     const std::vector<std::string> &lines) {
    const std::string text = SavedActions(lines);
    switch (place.kind) {
    case SequencePlace::Kind::Element:
        return SetElementProperty(model, {place.name}, "action", text);
    case SequencePlace::Kind::Qlob:
        return SetQlob(model, place.name, text);
    case SequencePlace::Kind::ToolSub:
        return SetToolSub(model, place.tool, place.name, text);
    case SequencePlace::Kind::MainLoad:
        break;
    }
    return SetMainLoad(model, text);
}

namespace {

// The arguments in brackets, up to a list's "not used", which ends the statement.
std::string ArgumentsText(const std::vector<ArgumentInput> &arguments) {
    std::string text;
    for (const ArgumentInput &argument : arguments) {
        std::string value;
        if (argument.list) {
            value = CutAtParen(Trim(argument.text));
            if (NormTextContains(value, "not used")) break;
        } else {
            // A text box keeps its whole text: an expression or an array index typed there
            // stays; only the colon, which would end the field in the file, is changed.
            value = Trim(ReplaceAll(argument.text, ":", ";"));
        }
        text += " [" + value + "]";
    }
    return text;
}

std::string ConditionText(std::string_view condition) {
    const std::string trimmed = Trim(condition);
    if (trimmed.empty() || NormText(trimmed) == "none") return {};
    return " {" + trimmed + "}";
}

std::string ArgumentText(const Composition &composition, std::size_t i) {
    return i < composition.arguments.size() ? Trim(composition.arguments[i].text) : std::string();
}

// The sanitised tag of a jump, which its label line carries too.
std::string JumpTag(const Composition &composition) {
    return UpperCase(Trim(StripPunctuation(ArgumentText(composition, 0))));
}

std::string Statement(const Composition &composition) {
    std::string statement;
    if (composition.target && !Trim(*composition.target).empty())
        statement = CutAtParen(*composition.target) + " = ";
    statement += UpperCase(Trim(composition.function)) + ArgumentsText(composition.arguments);
    return statement + ConditionText(composition.condition);
}

} // namespace

std::string ComposedStatement(const Composition &composition) {
    if (IsLoop(composition.function))
        return std::string(kLoopStart) + ArgumentText(composition, 0) + " TO " +
               ArgumentText(composition, 1);
    if (IsGoto(composition.function))
        return UpperCase("_GOTO [" + JumpTag(composition) + "]" +
                         ConditionText(composition.condition));
    return Statement(composition);
}

Composed AddAccion(const Composition &composition) {
    if (IsGoto(composition.function) && ArgumentText(composition, 0).empty())
        return {{}, words::kGotoNeedsTag};
    const std::string statement = ComposedStatement(composition);
    if (IsGoto(composition.function)) return {{statement, "~" + JumpTag(composition)}, {}};
    if (IsLoop(composition.function)) return {{statement, std::string(kLoopEnd)}, {}};
    return {{std::string(kStatementIndent) + statement}, {}};
}

std::optional<LoadedLine> GetFunctionIndex(std::string_view text) {
    std::string line = Trim(text);
    LoadedLine loaded;
    const std::size_t brace = line.find('{');
    if (brace != std::string::npos && line.ends_with('}')) {
        loaded.condition = Trim(ReplaceAll(ReplaceAll(line.substr(brace + 1), "{", ""), "}", ""));
        line = Trim(line.substr(0, brace));
    }
    if (NormText(line).starts_with("for ")) {
        const std::size_t equals = line.find('=');
        const std::size_t to = NormText(line).find(" to ");
        if (equals == std::string::npos || to == std::string::npos || to < equals) return {};
        loaded.entry = FindCatalogueEntry("_FOR");
        loaded.arguments = {Trim(line.substr(equals + 1, to - equals - 1)), Trim(line.substr(to + 4))};
        return loaded;
    }
    // "target = FUNCTION [a] [b]": the target stands before the first " = " ahead of a bracket.
    const std::size_t equals = line.find(" = ");
    if (equals != std::string::npos && equals < line.find('[')) {
        loaded.target = Trim(line.substr(0, equals));
        line = Trim(line.substr(equals + 3));
    }
    const std::size_t blank = line.find_first_of(" [");
    loaded.entry = FindCatalogueEntry(line.substr(0, blank));
    if (!loaded.entry) return {};
    if (blank != std::string::npos) loaded.arguments = BracketArguments(line.substr(blank));
    return loaded;
}

constexpr double kLongestConditionLoop = 500;

BuiltConditions BuildConditions(const ConditionForm &form) {
    const std::string left = Trim(form.left), op = Trim(form.op), right = Trim(form.right);
    if (left.empty() || op.empty() || right.empty()) return {{}, words::kFieldsIncomplete};
    BuiltConditions built{{left + " " + op + " " + right}, {}};
    if (!form.loop) return built;
    const double from = std::floor(Val(right)) + 1, to = std::floor(Val(form.loopTo));
    if (to - from >= kLongestConditionLoop) return {{}, words::kLoopTooLong};
    for (double n = from; n <= to; ++n)
        built.conditions.push_back(left + " " + op + " " + IntText(static_cast<std::int32_t>(n)));
    return built;
}

std::vector<std::string> VariableNames(const ProjectModel &model) {
    std::vector<std::string> names;
    for (const Variable &variable : model.VariableTable)
        if (!IsBlank(variable.name)) names.push_back(Trim(variable.name));
    return names;
}

std::vector<std::string> LoadList6(const ProjectModel &model) {
    std::vector<std::string> offered;
    for (const std::string &name : VariableNames(model)) {
        if (name.find('(') == std::string::npos) offered.push_back("_" + name);
        else if (name.find("(1)") != std::string::npos)
            offered.push_back("_" + ReplaceAll(name, "(1)", "(?)"));
    }
    return offered;
}

namespace {

// Calls take with each element's row, in row order.
template <typename Take> void EachElement(const ProjectModel &model, Take take) {
    for (int row = 1; row < static_cast<int>(model.ElementTable.size()); ++row)
        if (!IsBlank(model.Element(row)[kNameColumn]) && !IsBlank(model.Element(row)[kToolColumn]))
            take(model.Element(row));
}

} // namespace

std::vector<std::string> ToolElementNames(const ProjectModel &model, std::string_view tool) {
    std::vector<std::string> names;
    const std::string tag = ToolTag(tool);
    EachElement(model, [&](const ElementRow &row) {
        if (RowOfTool(row, tag)) names.push_back(Trim(row[kNameColumn]));
    });
    return names;
}

std::vector<std::string> LoadAllELE(const ProjectModel &model) {
    std::vector<std::string> names;
    EachElement(model, [&](const ElementRow &row) {
        names.push_back(Trim(row[kNameColumn]) + " (" +
                        PropertyValue(row, "caption").value_or("") + ")");
    });
    return names;
}

std::vector<std::string> ElementsOfKind(const ProjectModel &model, ElementKind kind) {
    std::vector<std::string> names;
    EachElement(model, [&](const ElementRow &row) {
        if (KindOfName(NormText(row[kNameColumn])) == kind) names.push_back(Trim(row[kNameColumn]));
    });
    return names;
}

std::vector<std::string> QlobNames(const ProjectModel &model) {
    std::vector<std::string> names;
    for (const std::string &record : model.QlobTable)
        if (!IsBlank(record)) names.push_back(FieldBy(Trim(record), 1, " "));
    return names;
}

std::vector<std::string> LoadServerProps(const ProjectModel &model) {
    std::vector<std::string> names;
    for (const std::string &field : ServerFields(model)) names.push_back(LowerCase(FieldName(field)));
    return names;
}

} // namespace orrery
