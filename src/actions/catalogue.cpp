// The action catalogue as a table, and the kinds and lists the editor derives from it.
#include "actions/catalogue.h"

#include "foundation/text.h"

#include <algorithm>

namespace orrery {

namespace {

using enum ActionKind;

// The functions in list order; the group changes where the list has a separator.
// clang-format off
constexpr CatalogueEntry kCatalogue[] = {
    {1, "RETURN_COMPLEX", Value, {":VALUE"}},
    {1, "RETURN_ASK", Value, {":QUESTION", ":ANSWER-OPTION-1", ":ANSWER-OPTION-2",
                              ":EXIT-ON-NO+CANCEL+CLOSE"}},
    {1, "RETURN_INSTR", Value, {":SOURCE-STRING", ":SUB-STRING"}},
    {1, "RETURN_MID", Value, {":SOURCE-STRING", ":INT-START-POS", ":INT-LENGTH"}},
    {1, "RETURN_LENGTH", Value, {":STRING"}},
    {1, "RETURN_RANDOM", Value, {":MIN-NUMBER", ":MAX-NUMBER"}},
    {1, "RETURN_REVERSE", Value, {":VALUE"}},
    {1, "RETURN_TIMEFORMAT", Value, {":STRING"}},
    {2, "RETURN_IP", Value, {":HOSTNAME-OR-IP"}},
    {2, "RETURN_HOSTNAME", Value, {":HOSTNAME-OR-IP"}},
    {2, "RETURN_SERVER_EXISTS", Value, {":SERVER", ":EXIT-IF-FALSE", ":QLOB-IF-FALSE"}},
    {2, "RETURN_IMAGE", Value, {":IMAGE"}},
    {2, "RETURN_SERVER_PROPERTY", Value, {":HOSTNAME-OR-IP", ":SERVER-PROPERTY"}},
    {2, "RETURN_RANDOM_IP", Value, {}},
    {2, "RETURN_RANDOM_IP_EXISTING", Value, {}},
    {3, "RETURN_ASC", Value, {":CHARACTER"}},
    {3, "RETURN_CHR", Value, {":ASCII-VALUE"}},
    {3, "RETURN_RANDOM_CHAR", Value, {":HOW-MANY-CHARS"}},
    {3, "RETURN_LCASE", Value, {":TEXT"}},
    {3, "RETURN_UCASE", Value, {":TEXT"}},
    {4, "RETURN_FILENEW", Value, {}},
    {4, "RETURN_FILEDATA", Value, {":FILENAME"}},
    {4, "CREATE_FILE", Command, {":FILENAME", ":DATA"}},
    {5, "_FOR", Control, {":START-VAL", ":STOP-VAL"}},
    {5, "_GOTO", Control, {":TAG"}},
    {5, "CREATE_VARIABLE", Command, {":VARNAME", ":VALUE"}},
    {5, "QLOB", Command, {":QLOB"}},
    {5, "QLOB_COUNTER", Command, {":QLOB-FINALE", ":QLOB-INTERVAL", ":START-VARIABLE",
                                  ":SPEED-MS*10", ":AUDIO"}},
    {5, "QLOB_COUNTER_KILL", Command, {":QLOB", ":RUN-ANOTHER-QLOB?"}},
    {6, "AUTHORIZE", Command, {":VARIABLE-TO-CHARGE", ":COST", ":QLOB-IF-DENIED"}},
    {6, "OPEN", Command, {":TOOL"}},
    {6, "CLOSE", Command, {":TOOL"}},
    {6, "EXIT_SEQUENCE", Command, {":QLOB"}},
    {7, "CLOSE_DISABLE", Command, {":TOOL"}},
    {7, "CLOSE_ENABLE", Command, {":TOOL"}},
    {7, "CONSOLE_PRINT", Command, {":CONSOLE", ":TEXT", ":COLOR"}},
    {7, "ELEMENT_BACKCOLOR", Command, {":TOOL", ":ELEMENT", ":COLOR"}},
    {7, "ELEMENT_FORECOLOR", Command, {":TOOL", ":ELEMENT", ":COLOR"}},
    {7, "ELEMENT_HIDE", Command, {":TOOL", ":ELEMENT"}},
    {7, "ELEMENT_SHOW", Command, {":TOOL", ":ELEMENT"}},
    {7, "FLASH_ON", Command, {":TOOL", ":ELEMENT", ":INTERVAL"}},
    {7, "FLASH_OFF", Command, {":TOOL", ":ELEMENT"}},
    {7, "LIST_ADD", Command, {":LIST", ":TEXT"}},
    {7, "LIST_REMOVE", Command, {":LIST", ":TEXT"}},
    {7, "LIST_CLEAR", Command, {":LIST"}},
    {8, "MENU_LOCK_OFF", Command, {":TOOL"}},
    {8, "MENU_LOCK_ON", Command, {":TOOL"}},
    {9, "MESSAGE", Command, {":TITLE", ":TEXT"}},
    {9, "MOVE", Command, {":TOOL", ":LEFT", ":TOP", ":REVERSE-LEFT", ":REVERSE-TOP"}},
    {10, "PLAY_MUSIC", Command, {":AUDIO"}},
    {10, "PLAY_SOUND", Command, {":AUDIO"}},
    {11, "RESET_ELEMENT", Command, {":TOOL", ":ELEMENT"}},
    {11, "RESET_TOOL", Command, {":TOOL", ":ELEMENT-EXCEPTION1", ":ELEMENT-EXCEPTION2"}},
    {12, "SET_BACKGROUND_IMAGE", Command, {":FILE"}},
    {12, "SET_BACKGROUND_IMAGE_RESET", Command, {}},
    {12, "SET_FOCUS", Command, {":TOOL", ":ELEMENT"}},
    {12, "TOOL_BACKCOLOR", Command, {":TOOL", ":COLOR"}},
    {12, "WAIT", Command, {":NUMBER-OF-MILLISECONDS"}},
    {12, "WINDOW_DISABLE_MOVE", Command, {":TOOL"}},
    {12, "WINDOW_ENABLE_MOVE", Command, {":TOOL"}},
    {13, "EXIT_GAME", Command, {}},
    {13, "Z_WIDTH_LESS", Command, {":TOOL"}},
};
// clang-format on

static_assert(std::size(kCatalogue) == 62);

enum class Test { Equals, Contains };
using enum Test;

struct KindRule {
    Test test;
    std::string_view word;
    ParamKind kind;
};

// The first rule that holds for the normalised label decides; "operator" and "boolean" are
// tested though no entry uses them.
constexpr KindRule kKindRules[] = {
    {Equals, "tool", ParamKind::Tool},
    {Contains, "qlob", ParamKind::Qlob},
    {Contains, "exit-on", ParamKind::ExitOn},
    {Contains, "variable", ParamKind::Variable},
    {Equals, "console", ParamKind::Console},
    {Contains, "element", ParamKind::Element},
    {Equals, "list", ParamKind::List},
    {Equals, "boolean", ParamKind::Boolean},
    {Contains, "reverse", ParamKind::Boolean},
    {Equals, "color", ParamKind::Color},
    {Equals, "file", ParamKind::File},
    {Equals, "audio", ParamKind::Audio},
    {Equals, "operator", ParamKind::Operator},
    {Equals, "server-property", ParamKind::ServerProperty},
    {Equals, "image", ParamKind::Image},
};

constexpr std::string_view kExitOnChoices[] = {"Disabled", "Enabled"};
constexpr std::string_view kBooleanChoices[] = {"false", "true"};
constexpr std::string_view kOperatorChoices[] = {"AND", "NOT USED", "+", "-", "*", "/", "NOT USED"};

constexpr std::string_view kSpecialVariables[] = {
    "These work with the RETURN_COMPLEX function, and others.",
    "$playername - will be replaced with the current players name",
    "$randomname - will be replaced with a random name (first and last names)",
    "$randomshortname - will be replaced with a random name (one name only)",
    "$realip - will be replaced with a random ip that DOES exist as a target",
    "$randomip - will be replaced with a random ip that doesn't really exist",
    "$randomshortword - will be replaced with a random short length word",
    "$randomsaverageword - will be replaced with a random average length word",
    "$randomlongword - will be replaced with a random long length word",
    "$random2 - a random number between 1 and 2",
    "$random4 - a random number between 1 and 4",
    "also works for 9, 25, 100, and 1000",
    "(?) - will be replaced with the array index of the clicked item (complex)",
};

constexpr std::string_view kLineBreak = "\r\n";

} // namespace

std::size_t CatalogueEntry::ParamCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(labels, [](std::string_view label) { return !label.empty(); }));
}

std::string CatalogueEntry::Text() const {
    std::string text(name);
    for (std::size_t i = 0; i < ParamCount(); ++i) {
        text += " [";
        text += labels[i];
        text += ']';
    }
    return text;
}

std::span<const CatalogueEntry> Catalogue() {
    return kCatalogue;
}

const CatalogueEntry *FindCatalogueEntry(std::string_view name) {
    const std::string wanted = NormText(name);
    for (const CatalogueEntry &entry : kCatalogue)
        if (NormText(entry.name) == wanted) return &entry;
    return nullptr;
}

std::vector<const CatalogueEntry *> CatalogueOfKind(ActionKind kind) {
    std::vector<const CatalogueEntry *> entries;
    for (const CatalogueEntry &entry : kCatalogue)
        if (entry.kind == kind) entries.push_back(&entry);
    return entries;
}

std::vector<std::string> CatalogueItems(CatalogueFilter filter) {
    std::vector<std::string> items;
    int group = kCatalogue[0].group;
    for (const CatalogueEntry &entry : kCatalogue) {
        if (entry.group != group) items.emplace_back();
        group = entry.group;
        items.push_back(entry.Text());
    }
    if (filter == CatalogueFilter::All) return items;
    const bool returns = filter == CatalogueFilter::Returns;
    std::erase_if(items, [returns](const std::string &item) {
        return NormTextContains(item, "return") != returns;
    });
    return items;
}

ParamKind ParamKindOf(std::string_view label) {
    if (const auto colon = label.find(':'); colon != std::string_view::npos)
        label.remove_prefix(colon + 1);
    const std::string word = NormText(StripBrackets(label));
    for (const KindRule &rule : kKindRules) {
        const bool holds =
            rule.test == Equals ? word == rule.word : word.find(rule.word) != std::string::npos;
        if (holds) return rule.kind;
    }
    return ParamKind::General;
}

std::span<const std::string_view> ParamChoices(ParamKind kind) {
    switch (kind) {
    case ParamKind::ExitOn:
        return kExitOnChoices;
    case ParamKind::Boolean:
        return kBooleanChoices;
    case ParamKind::Operator:
        return kOperatorChoices;
    default:
        return {};
    }
}

std::span<const std::string_view> SpecialVariablesLines() {
    return kSpecialVariables;
}

std::string SpecialVariablesText() {
    std::string text;
    for (const std::string_view line : kSpecialVariables) {
        if (!text.empty()) text += kLineBreak;
        text += line;
        text += kLineBreak;
    }
    return text;
}

} // namespace orrery
