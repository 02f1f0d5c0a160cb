// The project checker: every place the run-time takes statements, names or files from.
#include "check/check.h"

#include "actions/sequence.h"
#include "check/checker.h"
#include "editor/sequences.h"
#include "editor/text.h"
#include "foundation/convert.h"
#include "foundation/paths.h"
#include "foundation/text.h"
#include "project/elementprops.h"
#include "project/keytable.h"
#include "project/model.h"

#include <algorithm>

namespace orrery {

namespace check {

void Findings::Add(Severity severity, std::string_view code, std::string message,
                   FindingPlace place, int line) {
    Finding &finding = m_findings.emplace_back();
    finding.severity = severity;
    finding.code = code;
    finding.message = std::move(message);
    finding.place = std::move(place);
    finding.line = line;
}

std::vector<Finding> Findings::Sorted() && {
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const Finding &a, const Finding &b) { return a.line < b.line; });
    return std::move(m_findings);
}

FindingPlace PlaceOf(FindingPlace::Kind kind, std::string name, std::string key, int number) {
    FindingPlace place;
    place.kind = kind;
    place.name = std::move(name);
    place.key = std::move(key);
    place.number = number;
    return place;
}

std::string Quoted(std::string_view word) {
    return "\"" + std::string(word) + "\"";
}

namespace {

// The run-time sets no length of its own on an element's name: every table holds any text.
// The longest name the editor writes is taken as the limit, so a longer one came by hand.
constexpr std::size_t kLongestElementName = kLongestName;

using K = FindingPlace::Kind;

struct Context {
    const ProjectModel &model;
    const ProjectSettings &settings;
    const FileLines &lines;
    const ProjectIndex &index;
    Findings &findings;
    SequenceChecker &sequences;
};

std::string SettingText(const ProjectSettings &settings, std::string_view key) {
    const SettingKey *setting = FindSettingKey(key);
    return setting ? SettingValueText(settings, *setting) : std::string();
}

int SlotLine(const std::vector<int> &lines, int slot) {
    return slot >= 0 && slot < static_cast<int>(lines.size())
               ? lines[static_cast<std::size_t>(slot)]
               : 0;
}

void CheckMedia(const Context &cx, MediaFolder folder, std::string_view file, std::string_view what,
                const FindingPlace &place, int line) {
    if (IsBlank(file) || MediaExists(cx.index, folder, file) != false) return;
    cx.findings.Error("missing-media",
                      Quoted(Trim(file)) + " is not in Res/" +
                          std::string(kMediaFolders[static_cast<std::size_t>(folder)]) + " (" +
                          std::string(what) + "): put the file there or fix the name",
                      place, line);
}

void CheckLllName(const Context &cx, std::string_view what, std::string_view name,
                  const FindingPlace &place, int line) {
    if (!InStr(name, "lll")) return;
    cx.findings.Warning("lll-name",
                        std::string(what) + " " + Quoted(name) +
                            " holds \"lll\", which a statement's arguments lose, so none can "
                            "name it; rename it",
                        place, line);
}

void CheckCommandList(const Context &cx, std::string_view list, Site site) {
    for (std::int16_t i = 1; i <= 120; ++i) {
        const std::string record = Trim(FieldBy(list, i, "`"));
        if (record.empty()) continue;
        site.place.statement = i;
        const std::size_t equals = record.find('=');
        if (equals != std::string::npos) {
            // The player's parameters follow the statement in brackets.
            cx.sequences.CheckDirectStatement(record.substr(equals + 1, 999), site, true);
            continue;
        }
        const std::string command = NormText(record.substr(0, record.find(' ')));
        if (command != "date" && command != "help" && command != "now" && command != "time")
            cx.findings.Warning("unlinked-command",
                                "console command " + Quoted(UpperCase(command)) +
                                    " has no \"= <statement>\" behind it, so it does nothing",
                                site.place, site.line);
    }
}

void CheckElement(const Context &cx, int row) {
    const ElementRow &cells = cx.model.Element(row);
    const std::string &name = cells[kNameColumn];
    const FindingPlace place = PlaceOf(K::Element, name);
    const int line = cx.lines.Element(row);
    if (name.size() > kLongestElementName)
        cx.findings.Warning(
            "long-name",
            "element " + Quoted(name) + " has " + IntText(static_cast<int>(name.size())) +
                " characters, more than the " + IntText(static_cast<int>(kLongestElementName)) +
                " an element's name may have; shorten it",
            place, line);
    CheckLllName(cx, "element", name, place, line);
    if (const auto tool = PropertyValue(cells, "atool");
        tool && !IsBlank(*tool) && !cx.index.ToolExists(*tool))
        cx.findings.Error("missing-tool",
                          "element " + Quoted(name) + " stands on " + Quoted(Trim(*tool)) +
                              ", which is no tool of the project: add the tool or move it",
                          PlaceOf(K::Element, name, "atool"), cx.lines.ElementKey(row, "atool"));
    if (!IsBlank(cells[kActionColumn]))
        cx.sequences.CheckSequence(cells[kActionColumn], {PlaceOf(K::Element, name, "action"),
                                                          cx.lines.ElementKey(row, "action")});
    const ElementKind kind = KindOfName(name);
    if (kind == ElementKind::Image)
        if (const auto file = PropertyValue(cells, "datafield"))
            CheckMedia(cx, MediaFolder::Pictures, *file, "picture",
                       PlaceOf(K::Element, name, "datafield"),
                       cx.lines.ElementKey(row, "datafield"));
    if (kind == ElementKind::Qonsole)
        if (const auto list = PropertyValue(cells, "commandlist"))
            CheckCommandList(cx, *list,
                             {PlaceOf(K::Element, name, "commandlist"),
                              cx.lines.ElementKey(row, "commandlist")});
}

void CheckQlobs(const Context &cx) {
    for (int slot = 1; slot <= decltype(cx.model.QlobTable)::kSize; ++slot) {
        const std::string entry = Trim(cx.model.QlobTable[slot]);
        if (entry.empty()) continue;
        const std::size_t blank = entry.find(' ');
        const std::string name = entry.substr(0, blank);
        const FindingPlace place = PlaceOf(K::Qlob, name);
        const int line = SlotLine(cx.lines.qlobs, slot);
        CheckLllName(cx, "qlob", name, place, line);
        const std::string &norm = cx.index.qlobNames[static_cast<std::size_t>(slot)];
        if (const int first = cx.index.qlobPrefix.at(norm); first != slot)
            cx.findings.Warning("qlob-unreachable",
                                "qlob " + Quoted(name) + " never runs: a call of it runs " +
                                    Quoted(cx.index.qlobNames[static_cast<std::size_t>(first)]) +
                                    ", which stands before it; rename one of them",
                                place, line);
        if (blank != std::string::npos)
            cx.sequences.CheckSequence(entry.substr(blank), {place, line});
    }
}

bool IsToolEvent(std::string_view event) {
    return std::find(kToolSubs.begin(), kToolSubs.end(), event) != kToolSubs.end();
}

void CheckToolSubs(const Context &cx) {
    for (int slot = 1; slot <= decltype(cx.model.ToolSubTable)::kSize; ++slot) {
        const ToolSub &sub = cx.model.ToolSubTable[slot];
        if (IsBlank(sub.key)) continue;
        const std::string tool = Trim(FieldAt(sub.key, 1));
        const std::string event = NormText(FieldAt(sub.key, 2));
        const Site site{PlaceOf(K::ToolSub, sub.key), SlotLine(cx.lines.toolSubs, slot),
                        event.starts_with("every")};
        if (!cx.index.ToolExists(tool))
            cx.findings.Error("missing-tool",
                              Quoted(tool) + " is no tool of the project, so its " + event +
                                  " sequence never runs: fix the tool's name",
                              site.place, site.line);
        if (!IsToolEvent(event))
            cx.findings.Warning("unknown-event",
                                Quoted(event) + " is no tool event, so the sequence never runs: "
                                                "use open, close, activate or an every... event",
                                site.place, site.line);
        cx.sequences.CheckSequence(sub.sequence, site);
    }
}

// The top menu's entries: an item's command word, or else a statement.
void CheckTopMenu(const Context &cx) {
    const std::string entries = ReplaceAll(cx.settings.mytopmenu, "//", ":");
    Site site{PlaceOf(K::Menu, "mytopmenu"), cx.lines.Setting("mytopmenu")};
    for (std::int16_t i = 1; i <= 100; ++i) {
        const std::string entry = Trim(FieldAt(entries, i));
        if (!entry.starts_with('-') || entry == "-") continue;
        site.place.statement = i;
        const std::size_t equals = entry.find('=');
        if (equals == std::string::npos) {
            cx.findings.Warning("unlinked-command",
                                "top-menu item " + Quoted(entry.substr(1)) +
                                    " has no \"=\" and command behind it, so it does nothing",
                                site.place, site.line);
            continue;
        }
        const std::string command = LowerCase(Trim(entry.substr(equals + 1)));
        static const TextSet kWords = {"help", "exit", "quicklist", "cut", "copy", "paste"};
        if (!kWords.contains(command)) cx.sequences.CheckDirectStatement(command, site);
    }
}

// The main menu opens the options by words in the line's caption, not by the key that gave it.
void CheckOptionsCaption(const Context &cx) {
    const std::string caption = NormText(cx.settings.mymenustringoptions);
    if (caption.empty() || InStr(caption, "option") || InStr(caption, "conf")) return;
    cx.findings.Warning("menu-options",
                        "the options line " + Quoted(cx.settings.mymenustringoptions) +
                            " opens nothing: the menu opens the options for a caption holding "
                            "\"option\" or \"conf\"; reword it",
                        PlaceOf(K::Setting, "mymenustringoptions"),
                        cx.lines.Setting("mymenustringoptions"));
}

void CheckToolList(const Context &cx, std::string_view key, const std::string &list) {
    const int line = cx.lines.Setting(key);
    for (std::int16_t i = 1; i <= 99; ++i) {
        const std::string tool = Trim(FieldAt(list, i));
        if (!tool.empty() && !cx.index.ToolExists(tool))
            cx.findings.Error("missing-tool",
                              Quoted(tool) + " in " + std::string(key) +
                                  " is no tool of the project: remove it or fix the name",
                              PlaceOf(K::Menu, std::string(key)), line);
    }
}

struct MediaSetting {
    std::string_view key;
    MediaFolder folder;
    bool ProjectSettings::*when = nullptr; // looked for only while this is on
};

constexpr MediaSetting kMediaSettings[] = {
    {"mymenubackground", MediaFolder::Pictures},
    {"mygamebackground", MediaFolder::Pictures},
    {"mycreditsbackground", MediaFolder::Pictures},
    {"mytoolslockfile", MediaFolder::Pictures},
    {"mytoolsiconfile", MediaFolder::Pictures, &ProjectSettings::mytoolsicon},
    {"mytoolsimagebg", MediaFolder::ToolStyle},
    {"mytoolsimagestretcher", MediaFolder::ToolStyle},
    {"mymenump3track", MediaFolder::Music},
    {"mymenucreditstrack", MediaFolder::Music},
    {"myimnewgame", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimloadgame", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimoptions", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimhighscores", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimopenwebsite", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimcredits", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimhelp", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimexitgame", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimnewgames", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimloadgames", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimoptionss", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimhighscoress", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimopenwebsites", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimcreditss", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimhelps", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
    {"myimexitgames", MediaFolder::Pictures, &ProjectSettings::myimagemenu},
};

// Lists of files separated by back-quotes: the game's tracks and the image base.
void CheckFileList(const Context &cx, std::string_view key, MediaFolder folder, std::int16_t most) {
    const std::string list = SettingText(cx.settings, key);
    const int line = cx.lines.Setting(key);
    const FindingPlace place = PlaceOf(K::Setting, std::string(key));
    for (std::int16_t i = 1; i <= most; ++i) {
        const std::string file = Trim(FieldBy(list, i, "`"));
        if (file.empty()) continue;
        if (folder == MediaFolder::Music && InStr(file, "lll"))
            cx.findings.Warning("lll-name",
                                "game track " + Quoted(file) +
                                    " holds \"lll\", which the player "
                                    "drops (it looks for " +
                                    Quoted(ReplaceAll(file, "lll", "")) + "); rename the file",
                                place, line);
        CheckMedia(cx, folder, file, key, place, line);
    }
}

void CheckMediaSettings(const Context &cx) {
    for (const MediaSetting &media : kMediaSettings)
        if (!media.when || cx.settings.*media.when)
            CheckMedia(cx, media.folder, SettingText(cx.settings, media.key), media.key,
                       PlaceOf(K::Setting, std::string(media.key)), cx.lines.Setting(media.key));
    CheckFileList(cx, "mygamemp3tracks", MediaFolder::Music, 25);
    CheckFileList(cx, "myprojectimages", MediaFolder::Pictures, 250);
    for (std::size_t i = 0; i < cx.model.menuImages.size(); ++i)
        CheckMedia(cx, MediaFolder::Pictures, cx.model.menuImages[i].file, "menu image",
                   PlaceOf(K::Menu, "menuimagetag", {}, static_cast<int>(i) + 1),
                   SlotLine(cx.lines.menuImages, static_cast<int>(i)));
    for (int slot = 1; slot <= decltype(cx.model.DynamicTable)::kSize; ++slot) {
        const std::string &record = cx.model.DynamicTable[slot];
        const std::string owner = NormText(FieldAt(record, 1));
        if ((owner == "menudynamic" || owner == "maindynamic") &&
            NormText(FieldAt(record, 2)) == "image")
            CheckMedia(cx, MediaFolder::Pictures, FieldAt(record, 7), "dynamic image",
                       PlaceOf(K::Dynamic, {}, {}, slot), SlotLine(cx.lines.dynamics, slot));
    }
}

// A declared name that begins others, said once with the first of them.
void CheckVariablePrefixes(const Context &cx) {
    struct Longer {
        std::string first;
        int count = 0;
    };
    TextMap<Longer> longer; // by the shorter name
    for (const auto &[name, slot] : cx.index.variables)
        for (std::size_t length = 2; length < name.size(); ++length)
            if (cx.index.variables.contains(std::string_view(name).substr(0, length))) {
                Longer &found = longer[name.substr(0, length)];
                if (!found.count++ || slot < cx.index.variables.at(found.first)) found.first = name;
            }
    for (int slot = 1; slot <= kVariableRows; ++slot) {
        const std::string name = NormText(cx.model.VariableTable[slot].name);
        const auto found = longer.find(name);
        if (found == longer.end() || cx.index.variables.at(name) != slot) continue;
        const auto &[first, count] = found->second;
        cx.findings.Warning(
            "variable-prefix",
            name + " begins " + first +
                (count > 1 ? " and " + IntText(count - 1) + " more" : std::string()) +
                ", so a text meant for one can be read as another: rename it",
            PlaceOf(K::Variable, name), SlotLine(cx.lines.variables, slot));
    }
}

void CheckVariables(const Context &cx) {
    for (int slot = 1; slot <= kVariableRows; ++slot) {
        const Variable &variable = cx.model.VariableTable[slot];
        const std::string name = NormText(variable.name);
        if (name.empty()) continue;
        const FindingPlace place = PlaceOf(K::Variable, name);
        const int line = SlotLine(cx.lines.variables, slot);
        if (cx.index.variables.at(name) != slot)
            cx.findings.Warning("duplicate-variable",
                                name + " is declared twice, and lookups find the first: remove one",
                                place, line);
        if (name.size() > RuntimeVariables::kLongestSubstituted)
            cx.findings.Warning(
                "long-name",
                name + " has " + IntText(static_cast<int>(name.size())) +
                    " characters, and substitution replaces names of at most " +
                    IntText(static_cast<int>(RuntimeVariables::kLongestSubstituted)) +
                    ": shorten it",
                place, line);
        if (InStr(variable.name, "_") || InStr(variable.value, "_"))
            cx.findings.Warning("underscore",
                                name + " holds \"_\" in its " +
                                    (InStr(variable.name, "_") ? "name" : "value") +
                                    ", which lookups delete: write \"-\" instead",
                                place, line);
    }
    CheckVariablePrefixes(cx);
}

void CheckCustomServers(const Context &cx) {
    TextMap<int> addresses;
    for (int slot = 1; slot <= decltype(cx.model.CustomServerTable)::kSize; ++slot) {
        const std::string &record = cx.model.CustomServerTable[slot];
        if (IsBlank(record)) continue;
        const FindingPlace place = PlaceOf(K::CustomServer, {}, {}, slot);
        const int line = SlotLine(cx.lines.customServers, slot);
        const std::string first = Trim(FieldAt(record, 1));
        const std::string second = Trim(FieldAt(record, 2));
        if (!NormText(first).starts_with("ip=") || !NormText(second).starts_with("hostname=")) {
            cx.findings.Warning("server-record",
                                "custom server " + IntText(slot) +
                                    " does not begin with ip= and hostname=, which a new "
                                    "profile's directory takes its address and name from",
                                place, line);
            continue;
        }
        const std::string address = Trim(first.substr(3));
        const auto [earlier, fresh] = addresses.try_emplace(address, slot);
        if (!fresh)
            cx.findings.Warning("server-address",
                                "custom servers " + IntText(earlier->second) + " and " +
                                    IntText(slot) + " share the address " + address +
                                    ": give each its own",
                                place, line);
    }
}

} // namespace

} // namespace check

std::vector<Finding> CheckProject(const ProjectModel &model, std::string_view fileText,
                                  const AppPaths &paths) {
    using namespace check;
    Findings findings;
    const FileLines lines = ReadFileLines(fileText, findings);
    const ProjectIndex index = BuildIndex(model, &paths);
    SequenceChecker sequences(index, findings);
    const Context cx{model, model.settings, lines, index, findings, sequences};
    for (int row = 1; row <= kElementRows; ++row)
        if (!IsBlank(model.Element(row)[kNameColumn])) CheckElement(cx, row);
    CheckQlobs(cx);
    CheckToolSubs(cx);
    sequences.CheckSequence(model.settings.mymainsubload, {PlaceOf(FindingPlace::Kind::MainLoad),
                                                           lines.Setting("mymainsubload")});
    CheckTopMenu(cx);
    CheckOptionsCaption(cx);
    CheckToolList(cx, "mysideexludelist", ReplaceAll(model.settings.mysideexludelist, "//", ":"));
    CheckToolList(cx, "myhiddentools", ReplaceAll(model.settings.myhiddentools, " ", ""));
    CheckMediaSettings(cx);
    CheckVariables(cx);
    CheckCustomServers(cx);
    sequences.JudgeVariables();
    return std::move(findings).Sorted();
}

std::vector<Finding> CheckStatement(const ProjectModel &model, std::string_view statement,
                                    std::span<const std::string> sequence) {
    using namespace check;
    Findings findings;
    const ProjectIndex index = BuildIndex(model, nullptr);
    SequenceChecker checker(index, findings);
    TextSet labels;
    for (const std::string &line : sequence) {
        if (const std::string_view trimmed = TrimView(line); trimmed.starts_with('~'))
            labels.insert(LabelTag(trimmed));
        checker.NoteCreated(line);
    }
    bool inLoop = false;
    checker.CheckLine(Trim(statement), labels, inLoop, {});
    checker.JudgeVariables();
    return std::move(findings).Sorted();
}

} // namespace orrery
