// The tool editor's operations on what is not an element: user variables, qlobs, the tools'
// event assignments, the start-up sequence, the in-game help and the scalar settings.
#pragma once

#include "editor/change.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orrery {

// The events a tool's sequence can be assigned to.
inline constexpr std::array<std::string_view, 7> kToolSubs{
    "open",          "close",          "activate",      "every1second",
    "every2seconds", "every10seconds", "every60seconds"};

// A new user variable with its default value; a name without its "$" gets one. At most 250
// in the list; underscores of the value become dashes, with a note.
Outcome AddXVar(ProjectModel &model, std::string_view name, std::string_view value);
// A variable's new default value, checked as AddXVar checks it.
Outcome SetVarValue(ProjectModel &model, std::string_view name, std::string_view value);
Outcome RemoveVar(ProjectModel &model, std::string_view name);

// The name a qlob is stored under: the typed name trimmed, blanks as underscores, upper case.
std::string QlobName(std::string_view typed);
// A new, empty qlob under its QlobName.
Outcome AddQlob(ProjectModel &model, std::string_view name);
// The qlob's statements, back-quote separated: the manual edit's save. The qlob is named as
// when it was added: blanks as underscores, any case. The name is written in
// upper case; empty statements are dropped and each kept one ends in a back-quote.
Outcome SetQlob(ProjectModel &model, std::string_view name, std::string_view statements);
Outcome RemoveQlob(ProjectModel &model, std::string_view name);
// The slot of the qlob whose name (the record's first word) has that name form; 0 when none.
int FindQlobByName(const ProjectModel &model, std::string_view name);

// The sequence of a tool's event, keyed "<tool>:<event>"; an empty sequence removes the
// assignment.
Outcome SetToolSub(ProjectModel &model, std::string_view tool, std::string_view event,
                   std::string_view statements);
// The sequence assigned to a tool's event, empty when there is none.
std::string ToolSubSequence(const ProjectModel &model, std::string_view tool,
                            std::string_view event);
// The start-up sequence, run when the desktop has loaded.
Outcome SetMainLoad(ProjectModel &model, std::string_view statements);

// A help topic: a new title takes a free slot, a known one gets the new text. Line breaks of
// the text are written "//".
Outcome SetHelp(ProjectModel &model, std::string_view title, std::string_view text);
Outcome RemoveHelp(ProjectModel &model, std::string_view title);

// The listing of a distribution as its builder opens: the short, medium and long descriptions
// that are blank take the project's description, blank keywords "hacking, hackers".
Outcome FillListing(ProjectModel &model);
// A scalar setting by its key, with the value as the project file would give it.
Outcome SetSetting(ProjectModel &model, std::string_view key, std::string_view value);
// Several settings in one step.
Outcome SetSettings(ProjectModel &model,
                    const std::vector<std::pair<std::string, std::string>> &values);

} // namespace orrery
