// The RETURN family and DeliverResult.
#include "actions/values.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "network/generator.h"
#include "network/randomfiles.h"

namespace orrery {

namespace {

struct Head {
    std::string target;
    std::array<std::string, 5> args; // from index 1
};

// The common head: the target in name form with its index substituted (or, for a few rows,
// fully expanded), and each argument trimmed and expanded.
Head TakeHead(Game &game, const Statement &st, int argCount, bool expandTarget = false) {
    Head head;
    head.target = NormText(StripBrackets(st.target));
    if (HasParens(head.target) && InStr(head.target, "($"))
        head.target = expandTarget ? ExpandSpecials(game, head.target)
                                   : SubstituteVariables(game, head.target);
    for (int i = 1; i <= argCount; ++i)
        head.args[static_cast<std::size_t>(i)] = ExpandSpecials(game, Trim(BracketArg(st.rest, i)));
    return head;
}

// Whether the text holds a sign of arithmetic: a search for each sign, where find_first_of
// would ask the set once for every byte, which a long text feels.
bool HasOperator(std::string_view text) {
    constexpr std::string_view kSigns = "*-/+";
    return std::any_of(kSigns.begin(), kSigns.end(),
                       [text](char sign) { return text.find(sign) != std::string_view::npos; });
}

// The first element row of that name, up to the rows' gap; 0 when none.
int TargetRow(const Game &game, const std::string &target) {
    return FindElementRow(game.project, target, RowWalk::UpToGap);
}

void DeliverToControl(ElementControl &control, const std::string &target, std::string value,
                      Delivery delivery) {
    if (InStr(target, "button")) {
        control.caption = value;
    } else if (InStr(target, "label")) {
        control.caption = delivery.lineBreaks ? ReplaceAll(value, "//", "\r\n") : value;
    } else if (InStr(target, "text")) {
        control.text = delivery.lineBreaks ? ReplaceAll(value, "//", "\r\n") : value;
    } else if (InStr(target, "list")) {
        if (delivery.listAdds) {
            control.items.push_back(value);
            return;
        }
        // A list's text selects the item that has it.
        for (std::size_t i = 0; i < control.items.size(); ++i) {
            if (control.items[i] != value) continue;
            control.listIndex = static_cast<int>(i);
            control.text = value;
            return;
        }
    }
}

std::string Delivered(Game &game, const std::string &value, const std::string &target) {
    DeliverResult(game, value, target);
    return {};
}

std::string TwoDigits(int value) {
    const std::string digits = IntText(std::abs(value));
    return (value < 0 ? "-" : "") + std::string(digits.size() < 2 ? 1 : 0, '0') + digits;
}

// The tail of the image and file functions: a picture for an image that has the file.
void DeliverFile(Game &game, const std::string &value, const std::string &target, Delivery delivery) {
    if (SetVariable(game, target, value)) return;
    const int row = TargetRow(game, target);
    if (!row) return;
    const auto file = SafeComponent(value);
    const bool exists = game.paths && file && FileExists(game.paths->ResPath() / "uimages" / *file);
    ElementControl *control = game.desk.Control(row);
    if (InStr(target, "image")) {
        if (exists && control) control->picture = value;
        return;
    }
    if (control) DeliverToControl(*control, target, value, delivery);
}

int FirstFreeFile(const Game &game) { return FirstFreeSlot(game.files, FileTable::kSize); }

} // namespace

void DeliverResult(Game &game, const std::string &value, const std::string &target, Delivery delivery) {
    if (value.size() > kMaxDeliveredLength) return;
    if (SetVariable(game, target, value)) return;
    const int row = TargetRow(game, target);
    if (ElementControl *control = row ? game.desk.Control(row) : nullptr)
        DeliverToControl(*control, target, value, delivery);
}

std::string ReturnComplex(Game &game, Statement &st) {
    std::string value = StripBrackets(st.rest);
    std::string target = NormText(StripBrackets(st.target));
    value = ExpandSpecials(game, value);
    target = ResolveIndexedName(game, target);
    if (HasOperator(value)) {
        const std::size_t p = FirstOperatorPos(value);
        const bool arithmetic = (p > 0 && IsNumeric(value.substr(0, p - 1))) || Val(value) < 0;
        // A division by zero leaves the expression's text as the value.
        if (arithmetic)
            if (const auto result = EvalChain(value)) value = Trim(NumberText(*result));
    }
    value = SubstituteVariables(game, value);
    DeliverResult(game, value, target, {.lineBreaks = true, .listAdds = true});
    return {};
}

std::string Return(Game &game, Statement &st) {
    std::string value = StripBrackets(st.rest);
    std::string target = NormText(StripBrackets(st.target));
    if (std::string variable = GetVariable(game, value); !variable.empty()) {
        value = variable;
    } else {
        value = ExpandSpecials(game, value);
        target = ResolveIndexedName(game, target);
        if (const int row = TargetRow(game, NormText(value)))
            if (const ElementControl *control = game.desk.Control(row))
                value = InStr(value, "text") || InStr(value, "list") ? control->text : control->caption;
    }
    return Delivered(game, value, target);
}

std::string ReturnAsk(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 3);
    const std::string enabled = NormText(BracketArg(st.rest, 4));
    const std::string answer = game.host.Ask(head.args[1], head.args[2], head.args[3]);
    const std::string norm = NormText(answer);
    if (enabled == "enabled" && (norm == "close" || norm == "cancel" || norm == "no"))
        return std::string(kCancel);
    return Delivered(game, Trim(answer), head.target);
}

std::string ReturnServerExists(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 3, true);
    const bool exists = game.world.ServerExists(head.args[1]);
    DeliverResult(game, exists ? "true" : "false", head.target);
    if (exists) return {};
    RunQlob(game, head.args[3]);
    return std::string(kCancel);
}

std::string ReturnImage(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    DeliverFile(game, head.args[1], head.target, {});
    return {};
}

std::string ReturnFileNew(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 0);
    const int row = FirstFreeFile(game);
    game.files[row] = GenerateRandomFile(game.files, game.project.settings.qkeywords, game.Sources());
    DeliverFile(game, game.files[row].name, head.target, {.listAdds = true});
    return {};
}

std::string ReturnFileData(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    std::string value;
    const std::string wanted = NormText(head.args[1]);
    for (const RandomFile &file : game.files)
        if (!IsBlank(file.name) && NormText(file.name) == wanted) {
            value = file.data;
            break;
        }
    DeliverFile(game, value, head.target, {.lineBreaks = true});
    return {};
}

std::string CreateFile(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 2);
    game.files[FirstFreeFile(game)] = {NormText(head.args[1]), Trim(head.args[2])};
    return {};
}

std::string ReturnRandom(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 2, true);
    const double low = Val(NormText(head.args[1]));
    const double n = Val(NormText(head.args[2])) - low + 1;
    const auto value = RoundToInt32(R(game.random, n) + low);
    return Delivered(game, value ? IntText(*value) : std::string(), head.target);
}

std::string ReturnInstr(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 2, true);
    const std::string haystack = NormText(head.args[1]);
    const std::string needle = NormText(head.args[2]);
    return Delivered(game, IntText(haystack.empty() ? 0 : static_cast<long long>(InStr(haystack, needle))),
                     head.target);
}

std::string ReturnMid(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 3);
    const auto start = RoundToInt32(Val(head.args[2]));
    const auto count = RoundToInt32(Val(head.args[3]));
    std::string value;
    if (start && count && *start >= 1 && *count >= 0 &&
        static_cast<std::size_t>(*start) <= head.args[1].size())
        value = head.args[1].substr(static_cast<std::size_t>(*start - 1), static_cast<std::size_t>(*count));
    return Delivered(game, value, head.target);
}

std::string ReturnRandomChar(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    const auto count = RoundToInt32(Val(head.args[1]));
    const auto letters = static_cast<std::size_t>(std::max(1, count.value_or(1)));
    // More letters than a delivery takes would never be delivered: none is drawn.
    if (letters > kMaxDeliveredLength) return {};
    game.CountWork(letters * kDrawWork);
    std::string value;
    value.reserve(letters);
    for (std::size_t i = 0; i < letters; ++i) value += static_cast<char>(65 + R(game.random, 26));
    return Delivered(game, value, head.target);
}

std::string ReturnRandomIp(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 0);
    return Delivered(game, RandomIp(game), head.target);
}

std::string ReturnAsc(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    const std::string text = Trim(head.args[1]);
    return Delivered(game, text.empty() ? std::string() : IntText(static_cast<unsigned char>(text[0])),
                     head.target);
}

std::string ReturnChr(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    const auto code = RoundToInt32(Val(head.args[1]));
    std::string value;
    if (code && *code >= 0 && *code <= 255) value = Trim(std::string(1, static_cast<char>(*code)));
    return Delivered(game, value, head.target);
}

std::string ReturnLength(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    return Delivered(game, IntText(static_cast<long long>(Trim(head.args[1]).size())), head.target);
}

std::string ReturnUcase(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    return Delivered(game, UpperCase(head.args[1]), head.target);
}

std::string ReturnLcase(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    return Delivered(game, LowerCase(head.args[1]), head.target);
}

std::string ReturnRandomIpExisting(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 0);
    return Delivered(game, game.world.RandomExistingIp(game.random), head.target);
}

std::string ReturnIp(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    return Delivered(game, game.world.ResolveIp(head.args[1]), head.target);
}

std::string ReturnHostname(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    return Delivered(game, game.world.ResolveHostname(head.args[1]), head.target);
}

std::string ReturnTimeformat(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 1);
    const auto seconds = RoundToInt16(Val(head.args[1]));
    std::string value;
    if (seconds) {
        if (*seconds == 0) value = "0:00";
        else if (*seconds < 60) value = "0:" + TwoDigits(*seconds);
        else value = IntText(*seconds / 60) + ":" + TwoDigits(*seconds % 60);
    }
    return Delivered(game, value, head.target);
}

std::string ReturnServerProperty(Game &game, Statement &st) {
    Head head = TakeHead(game, st, 2);
    const auto property = game.world.GetServerProperty(head.args[1], head.args[2]);
    return Delivered(game, property ? ExpandSpecials(game, *property) : std::string(), head.target);
}

std::string ReturnReverse(Game &game, Statement &st) {
    std::string value = NormText(StripBrackets(st.rest));
    const std::string target = NormText(st.target);
    if (std::string variable = GetVariable(game, value); !variable.empty()) {
        value = variable;
    } else {
        value = LookupValue(game, value);
        if (const int row = TargetRow(game, NormText(value)))
            if (const ElementControl *control = game.desk.Control(row))
                value = InStr(value, "text") || InStr(value, "list") ? control->text : control->caption;
    }
    const std::string norm = NormText(value);
    if (norm == "0") value = "1";
    else if (norm == "1") value = "0";
    else if (norm == "true") value = "false";
    else if (norm == "false") value = "true";
    else value = ReverseText(value);
    return Delivered(game, value, target);
}

} // namespace orrery
