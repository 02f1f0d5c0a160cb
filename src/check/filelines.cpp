// Where each record of a project file stands, found with the reader's own key rules.
#include "check/checker.h"
#include "foundation/convert.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "project/elementprops.h"
#include "project/keytable.h"

#include <algorithm>

namespace orrery::check {

namespace {

// The slots of one table as the reader fills them: each record takes the first free slot, a
// record whose text is blank leaves it free for the next, and a full table gives its last
// slot to every further record.
class SlotLines {
public:
    explicit SlotLines(std::vector<int> &lines, int size) : m_lines(lines), m_size(size) {
        m_lines.assign(static_cast<std::size_t>(size) + 1, 0);
    }
    void Take(int line, bool blank) {
        const int slot = std::min(m_next, m_size);
        m_lines[static_cast<std::size_t>(slot)] = line;
        if (!blank && m_next <= m_size) ++m_next;
    }

private:
    std::vector<int> &m_lines;
    int m_size;
    int m_next = 1;
};

// The fields a key takes from its line: the rest are cut at reading. 0 for a key that keeps
// the whole line, or whose value is not read.
int FieldsTaken(std::string_view key) {
    static const TextMap<int> kRecords = {
        {"[newel]", 3},      {"element", 4},       {"toolsub", 4},      {"mytoolcaption", 3},
        {"menuimagetag", 3}, {"menuimageleft", 3}, {"menuimagetop", 3}, {"menuimagedatafield", 4}};
    if (const auto found = kRecords.find(key); found != kRecords.end()) return found->second;
    if (const MenuLabelKey *label = FindMenuLabelKey(key)) return label->twoFields ? 4 : 3;
    if (const SettingKey *setting = FindSettingKey(key)) {
        switch (setting->code) {
        case ValueCode::HiddenTools:
        case ValueCode::ProjectName:
        case ValueCode::WrittenOnly:
            return 0;
        default:
            return 2;
        }
    }
    return 0;
}

bool KnownKey(std::string_view key) {
    static const TextSet kSettings = [] {
        TextSet names;
        for (const SettingKey &setting : SettingKeys()) names.insert(std::string(setting.name));
        return names;
    }();
    static const TextSet kRecords = {
        "[newel]",      "element",       "toolsub",      "mytoolcaption",
        "menuimagetag", "menuimageleft", "menuimagetop", "menuimagedatafield",
        "qlob",         "helpme",        "service",      "customserver",
        "quantumlock",  "menudynamic",   "maindynamic",  "variable",
        "serverfield"};
    return kRecords.contains(key) || kSettings.contains(key) || FindMenuLabelKey(key);
}

// The text after the colon that opens field n, from 1.
std::string_view FromField(std::string_view line, int n) {
    std::size_t at = 0;
    for (int i = 1; i < n && at != std::string_view::npos; ++i) {
        at = line.find(':', at);
        if (at != std::string_view::npos) ++at;
    }
    return at == std::string_view::npos ? std::string_view() : line.substr(at);
}

class Scan {
public:
    Scan(FileLines &lines, Findings &findings)
        : m_lines(lines), m_findings(findings), m_qlobs(lines.qlobs, 199),
          m_variables(lines.variables, kVariableRows), m_toolSubs(lines.toolSubs, 299),
          m_servers(lines.customServers, 500), m_dynamics(lines.dynamics, 99),
          m_toolNames(lines.toolNames, 99) {
        m_lines.elements.assign(kElementRows + 1, 0);
        m_lines.elementKeys.assign(kElementRows + 1, {});
    }

    void Line(std::string_view line, int number) {
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos) return;
        // Element properties are most of a file: they take the short way, and a key written in
        // its comparison form needs no normalising.
        const std::string_view written = line.substr(0, colon);
        if (written != "element") AssignNormText(m_key, written);
        const auto colons = static_cast<int>(std::count(line.begin(), line.end(), ':'));
        if (written == "element" || m_key == "element") {
            m_key = "element";
            ElementProperty(line, number);
            if (colons >= 4) Cut(m_key, line, 4, number);
            return;
        }
        Record(m_key, line, number);
        if (const int taken = FieldsTaken(m_key); taken && colons >= taken)
            Cut(m_key, line, taken, number);
        if (!m_key.empty() && !KnownKey(m_key))
            m_findings.Warning("unknown-key",
                               "unknown key " + Quoted(m_key) +
                                   ": the reader passes the line over; check its spelling",
                               PlaceOf(FindingPlace::Kind::Setting, m_key), number);
    }

private:
    void Record(const std::string &key, std::string_view line, int number) {
        if (key == "[newel]") {
            ++m_row;
            m_name = NormText(FieldAt(line, 3));
            if (m_row <= kElementRows) m_lines.elements[static_cast<std::size_t>(m_row)] = number;
        } else if (key == "qlob") {
            m_qlobs.Take(number, IsBlank(ReplaceAll(line, "qlob:", "")));
        } else if (key == "variable") {
            m_variables.Take(number, IsBlank(ReplaceAll(FieldView(line, 1, "="), "variable:", "")));
            if (std::count(line.begin(), line.end(), '=') > 1) EqualsCut(line, number);
        } else if (key == "toolsub") {
            m_toolSubs.Take(number, false);
        } else if (key == "customserver") {
            m_servers.Take(number, IsBlank(ReplaceAll(line, "customserver:", "")));
        } else if (key == "menudynamic" || key == "maindynamic") {
            m_dynamics.Take(number, false);
        } else if (key == "mytoolcaption") {
            m_toolNames.Take(number, IsBlank(FieldAt(line, 3)));
        } else if (key == "menuimagetag") {
            m_lines.menuImages.push_back(number);
        } else if (FindSettingKey(key)) {
            m_lines.settings[key] = number;
        }
    }

    void ElementProperty(std::string_view line, int number) {
        if (m_row < 1 || m_row > kElementRows) return;
        const std::string_view property = FieldView(line, 3);
        const auto &keys = FileLines::kElementKeys;
        auto found = keys.begin() + 1; // the action
        if (!IsActionKey(property)) {
            AssignNormText(m_property, property);
            found = std::find(keys.begin(), keys.end(), m_property);
        }
        if (found != keys.end())
            m_lines.elementKeys[static_cast<std::size_t>(m_row)]
                               [static_cast<std::size_t>(found - keys.begin())] = number;
    }

    FindingPlace PlaceOfLine(const std::string &key, std::string_view line) const {
        if (key == "[newel]" || key == "element")
            return PlaceOf(FindingPlace::Kind::Element, m_name,
                           key == "element" ? NormText(FieldAt(line, 3)) : std::string());
        if (key == "toolsub")
            return PlaceOf(FindingPlace::Kind::ToolSub, FieldAt(line, 2) + ":" + FieldAt(line, 3));
        if (key.starts_with("menu")) return PlaceOf(FindingPlace::Kind::Menu, key);
        return PlaceOf(FindingPlace::Kind::Setting, key);
    }

    void Cut(const std::string &key, std::string_view line, int taken, int number) {
        const std::string_view value = FromField(line, taken);
        m_findings.Warning("colon-cut",
                           "the colon in " + Quoted(value) + " cuts it to " +
                               Quoted(FieldAt(line, static_cast<std::int16_t>(taken))) +
                               " at reading: a value can't hold a colon",
                           PlaceOfLine(key, line), number);
    }

    void EqualsCut(std::string_view line, int number) {
        const std::string name = Trim(ReplaceAll(FieldView(line, 1, "="), "variable:", ""));
        const std::string_view value = line.substr(line.find('=') + 1);
        m_findings.Warning("equals-cut",
                           "the value of " + name + ", " + Quoted(value) + ", is cut to " +
                               Quoted(Trim(FieldView(line, 2, "="))) +
                               " at reading: a value can't hold \"=\"",
                           PlaceOf(FindingPlace::Kind::Variable, NormText(name)), number);
    }

    FileLines &m_lines;
    Findings &m_findings;
    SlotLines m_qlobs, m_variables, m_toolSubs, m_servers, m_dynamics, m_toolNames;
    int m_row = 0;
    std::string m_name; // the element being read
    std::string m_key, m_property;
};

int At(const std::vector<int> &lines, int index) {
    return index >= 0 && index < static_cast<int>(lines.size())
               ? lines[static_cast<std::size_t>(index)]
               : 0;
}

} // namespace

int FileLines::Setting(std::string_view key) const {
    const auto found = settings.find(key);
    return found == settings.end() ? 0 : found->second;
}

int FileLines::Element(int row) const {
    return At(elements, row);
}

int FileLines::ElementKey(int row, std::string_view key) const {
    const auto found = std::find(kElementKeys.begin(), kElementKeys.end(), key);
    if (row >= 1 && row < static_cast<int>(elementKeys.size()) && found != kElementKeys.end())
        if (const int line = elementKeys[static_cast<std::size_t>(row)]
                                        [static_cast<std::size_t>(found - kElementKeys.begin())])
            return line;
    return Element(row);
}

FileLines ReadFileLines(std::string_view fileText, Findings &findings) {
    FileLines lines;
    Scan scan(lines, findings);
    bool scrambled = false;
    int number = 0;
    std::string unscrambled;
    ForEachLine(fileText, [&](std::string_view line) {
        ++number;
        if (scrambled) {
            unscrambled = UnscrambleText(line);
            line = unscrambled;
        }
        if (line.find(':') == std::string_view::npos && NormText(line) == "[revise]")
            scrambled = true;
        scan.Line(line, number);
    });
    return lines;
}

} // namespace orrery::check
