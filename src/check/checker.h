// The checker's parts: where each record stands in the project file, the project's names
// indexed once, the findings as they are made, and the walk over a sequence.
#pragma once

#include "actions/statement.h"
#include "actions/substitution.h"
#include "check/check.h"
#include "project/model.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orrery::check {

using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;

// The findings as they are made; Sorted gives them in the order of the file's lines.
class Findings {
public:
    void Add(Severity severity, std::string_view code, std::string message, FindingPlace place,
             int line);
    void Error(std::string_view code, std::string message, FindingPlace place, int line) {
        Add(Severity::Error, code, std::move(message), std::move(place), line);
    }
    void Warning(std::string_view code, std::string message, FindingPlace place, int line) {
        Add(Severity::Warning, code, std::move(message), std::move(place), line);
    }
    std::vector<Finding> Sorted() &&;

private:
    std::vector<Finding> m_findings;
};

// A place in the project: what is at fault, by kind and name.
FindingPlace PlaceOf(FindingPlace::Kind kind, std::string name = {}, std::string key = {},
                     int number = 0);

// A word of the project as a message quotes it.
std::string Quoted(std::string_view word);

// Where the records of a project file stand, read with the reader's key rules. Lines count
// from 1; 0 where the file has none. Slots follow the reader's choice of a free slot.
struct FileLines {
    TextMap<int> settings;     // a scalar key in name form: the last line that set it
    std::vector<int> elements; // by row: the "[newel]:" line
    // The property keys whose lines a finding may point at; "action" stands for every key
    // that holds the word, as the reader takes it.
    static constexpr std::array<std::string_view, 4> kElementKeys = {"atool", "action", "datafield",
                                                                     "commandlist"};
    std::vector<std::array<int, kElementKeys.size()>> elementKeys; // by row: the last line of each
    std::vector<int> qlobs, variables, toolSubs, customServers, dynamics, toolNames;
    std::vector<int> menuImages; // by the menu's image, from 0: its "menuimagetag:" line

    int Setting(std::string_view key) const;
    int Element(int row) const;
    int ElementKey(int row, std::string_view key) const; // the [newel] line when none, or for
                                                         // a key not in kElementKeys
};

// Reads the file text, plain or scrambled, noting where each record stands; a line the reader
// will cut (more fields than its key takes) or pass over (an unknown key) is a finding.
FileLines ReadFileLines(std::string_view fileText, Findings &findings);

// The names a project's statements may use, each found with one lookup.
struct ProjectIndex {
    const ProjectModel *model = nullptr;
    TextSet toolNames;       // name forms of the tools
    TextSet toolTags;        // the same without blanks, as panels and menu entries are keyed
    TextMap<int> elements;   // name form: the first row
    TextMap<int> qlobPrefix; // every beginning of a qlob's name form: the first slot it begins
    std::vector<std::string> qlobNames; // by slot: the name form, "" for a free slot
    TextMap<int> variables;             // declared name form: the first slot
    TextSet variableStems;              // "$slot" of every declared "$slot(...)"
    TextSet dispatchNames;
    // Media by folder below Res (uimages, mp3, toolstyle): the file names lower-cased. Unset
    // when the application folder has no Res: media are then not looked for.
    std::optional<std::array<TextSet, 3>> media;

    bool ToolExists(std::string_view name) const;
    int ElementRow(std::string_view name) const; // 0 when none
    bool Declared(std::string_view name) const;  // a declared name form, or the stem of one
};

enum class MediaFolder { Pictures, Music, ToolStyle };
inline constexpr std::array<std::string_view, 3> kMediaFolders = {"uimages", "mp3", "toolstyle"};

ProjectIndex BuildIndex(const ProjectModel &model, const AppPaths *paths);
// Unset when media are not looked for; else whether the folder holds the file, case aside.
std::optional<bool> MediaExists(const ProjectIndex &index, MediaFolder folder,
                                std::string_view file);

// Where a sequence or a statement stands.
struct Site {
    FindingPlace place;
    int line = 0;
    bool queued = false; // put on the gun: each statement is walked alone
};

// What the walks learn of variables, judged once every sequence has been read: a name is
// known when declared, created by CREATE_VARIABLE, or the target of a value function.
struct VariableUse {
    std::string name;      // in name form; a computed index leaves the stem, "$slot"
    std::string written;   // as the text holds it
    bool assigned = false; // the target of a value function
    Site site;
};

// The walk over sequences and statements, with what it must judge at the end.
class SequenceChecker {
public:
    SequenceChecker(const ProjectIndex &index, Findings &findings)
        : m_index(index), m_findings(findings) {}

    // A stored sequence: labels, jumps, the loop, conditions and each statement.
    void CheckSequence(std::string_view stored, const Site &site);
    // One statement that the run-time hands to the dispatcher whole (a menu entry, a console
    // command): a condition does nothing there, and nor do the sequence's line forms.
    void CheckDirectStatement(std::string_view statement, const Site &site,
                              bool argumentsAppended = false);
    // One line of a sequence whose labels are given; inLoop follows the loop from line to line.
    void CheckLine(std::string line, const TextSet &labels, bool &inLoop, const Site &site);
    // A CREATE_VARIABLE among the lines: the name it makes is known from then on; with a site,
    // making one that is declared already is a finding there.
    void NoteCreated(std::string_view line, const Site *site = nullptr);
    // The variables read and written, judged against those declared and created.
    void JudgeVariables();

private:
    void CheckQueued(std::string_view stored, const Site &site);
    void CheckLoop(const std::string &line, const Site &site);
    void CheckCall(const std::string &line, bool inLoop, bool argumentsAppended, const Site &site);
    void CheckArguments(const StatementParts &parts, std::string_view function,
                        bool argumentsAppended, const Site &site);
    void CheckArgument(std::string_view function, std::string_view label, const std::string &arg,
                       const Site &site);
    void CheckTarget(const std::string &target, std::string_view function, const Site &site);
    void NoteReads(std::string_view text, bool substituted, bool inLoop, const Site &site);
    void CheckQlob(std::string_view function, const std::string &name, const Site &site);

    const ProjectIndex &m_index;
    Findings &m_findings;
    TextSet m_created;
    std::vector<VariableUse> m_uses;
};

} // namespace orrery::check
