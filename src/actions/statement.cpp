// RunStatement and its dispatch table.
#include "actions/statement.h"

#include <array>

#include "actions/commands.h"
#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/timed.h"
#include "actions/values.h"
#include "actions/variables.h"
#include "foundation/text.h"

namespace orrery {

namespace {

using Handler = std::string (*)(Game &, Statement &);

std::string Arg(const Statement &st, int index) { return BracketArg(st.rest, index); }

std::string Nothing(Game &, Statement &) { return {}; }

std::string Qlob(Game &game, Statement &st) {
    std::string name = Arg(st, 1);
    RunQlob(game, name);
    return {};
}

std::string CreateVariableRow(Game &game, Statement &st) {
    CreateVariable(game, Arg(st, 1), Arg(st, 2));
    return {};
}

struct Row {
    std::string_view name;
    Handler handler;
};

// The rows in the order of testing. Z_WIDTH_LESS has a row and nothing to do.
constexpr Row kDispatch[] = {
    {"authorize", Authorize},
    {"exit_sequence", ExitSequence},
    {"return_ask", ReturnAsk},
    {"return_server_exists", ReturnServerExists},
    {"qlob", Qlob},
    {"qlob_counter", QlobCounter},
    {"qlob_counter_kill", QlobCounterKill},
    {"message", Message},
    {"exit_game", ExitGame},
    {"return", Return},
    {"return_complex", ReturnComplex},
    {"wait", Wait},
    {"play_music", PlayMusic},
    {"play_sound", PlaySound},
    {"return_image", ReturnImage},
    {"return_filenew", ReturnFileNew},
    {"return_filedata", ReturnFileData},
    {"create_file", CreateFile},
    {"create_variable", CreateVariableRow},
    {"return_random", ReturnRandom},
    {"return_instr", ReturnInstr},
    {"return_mid", ReturnMid},
    {"return_random_char", ReturnRandomChar},
    {"return_random_ip", ReturnRandomIp},
    {"return_asc", ReturnAsc},
    {"return_chr", ReturnChr},
    {"return_length", ReturnLength},
    {"return_ucase", ReturnUcase},
    {"return_lcase", ReturnLcase},
    {"return_random_ip_existing", ReturnRandomIpExisting},
    {"return_ip", ReturnIp},
    {"return_hostname", ReturnHostname},
    {"return_timeformat", ReturnTimeformat},
    {"return_server_property", ReturnServerProperty},
    {"return_reverse", ReturnReverse},
    {"flash_on", FlashOn},
    {"flash_off", FlashOff},
    {"list_add", ListAdd},
    {"list_remove", ListRemove},
    {"list_clear", ListClear},
    {"set_focus", SetFocus},
    {"element_hide", ElementHide},
    {"element_show", ElementShow},
    {"console_print", ConsolePrint},
    {"element_backcolor", ElementBackcolor},
    {"element_forecolor", ElementForecolor},
    {"reset_element", ResetElement},
    {"reset_tool", ResetTool},
    {"tool_backcolor", ToolBackcolor},
    {"set_background_image", SetBackgroundImage},
    {"set_background_image_reset", SetBackgroundImageReset},
    {"menu_lock_on", MenuLockOn},
    {"menu_lock_off", MenuLockOff},
    {"close", Close},
    {"close_disable", CloseDisable},
    {"close_enable", CloseEnable},
    {"open", Open},
    {"window_disable_move", WindowDisableMove},
    {"window_enable_move", WindowEnableMove},
    {"z_width_less", Nothing},
    {"move", Move},
};

constexpr auto kNames = [] {
    std::array<std::string_view, std::size(kDispatch)> names{};
    for (std::size_t i = 0; i < std::size(kDispatch); ++i) names[i] = kDispatch[i].name;
    return names;
}();

} // namespace

const std::string_view *DispatchNames(std::size_t &count) {
    count = kNames.size();
    return kNames.data();
}

std::string BracketArgText(std::string_view rest) {
    std::string out = "lll";
    bool inBracket = false;
    for (const char c : rest) {
        if (c == '[') inBracket = true;
        else if (c == ']') inBracket = false;
        else out += c == ' ' && !inBracket ? '`' : c;
    }
    return ReplaceAll(ReplaceAll(out, "lll`", ""), "lll", "");
}

std::string BracketArg(std::string_view rest, int index) {
    if (index < 1 || index > 32767) return {};
    return FieldBy(BracketArgText(rest), static_cast<std::int16_t>(index), "`");
}

std::int32_t ResolveToolRef(Game &game, std::string &tool) {
    if (InStr(tool, "($") && HasParens(tool)) tool = SubstituteVariables(game, tool);
    return game.desk.GetToolIndex(tool);
}

StatementParts SplitStatement(std::string_view text) {
    std::string statement(text);
    for (std::string_view prefix : {"action:", "Action:", "ACTION:"})
        statement = ReplaceAll(statement, prefix, "");
    statement = Trim(statement);
    StatementParts parts;
    if (const auto equals = statement.find('='); equals != std::string::npos) {
        parts.target = Trim(statement.substr(0, equals));
        statement = Trim(statement.substr(equals + 1));
    }
    parts.name = statement;
    if (const auto blank = statement.find(' '); blank != std::string::npos) {
        parts.name = Trim(statement.substr(0, blank));
        parts.rest = Trim(statement.substr(blank + 1));
    }
    parts.name = NormText(parts.name);
    return parts;
}

std::string RunStatement(Game &game, std::string statement) {
    if (InStr(statement, "{") && statement.ends_with('}')) return {};
    game.host.Yield();
    StatementParts parts = SplitStatement(statement);
    Statement st{std::move(parts.target), std::move(parts.rest)};
    for (const Row &row : kDispatch)
        if (row.name == parts.name) return row.handler(game, st);
    return {};
}

} // namespace orrery
