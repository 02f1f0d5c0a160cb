// The substitution passes every statement argument goes through. ExpandSpecials on the full
// tables (2000 variables, 1499 loaded elements) beside the same arguments on 20 and 20, and
// beside the passes walked as plainly written, every table visited for every argument; a text
// that names every variable beside one as long that names none; and a RETURN_COMPLEX sequence
// on a project of 250 variables and 300 loaded elements beside the same sequence on empty
// tables. Before any timing, both passes must give the same texts.
#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/variables.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "network/generator.h"
#include "ratios.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// ---- The passes as plainly written: every table walked for every argument. ----

bool BlankRow(const Game &game, int row) {
    return row > kVariableRows || IsBlank(game.VariableTable[row].name);
}

std::string WalkedSubstituteVariables(Game &game, std::string_view text) {
    std::string result = ReplaceAll(text, "_$", "$");
    for (std::size_t length = 21; length >= 1; --length) {
        for (int row = 1; row <= kVariableRows; ++row) {
            if (BlankRow(game, row) && BlankRow(game, row + 1) && BlankRow(game, row + 2)) break;
            const Variable &variable = game.VariableTable[row];
            if (IsBlank(variable.name)) continue;
            const std::string name = NormText(variable.name);
            if (name.size() == length && InStr(result, name))
                result = ReplaceAll(result, name, variable.value);
        }
    }
    return result;
}

std::string WalkedElementNames(Game &game, std::string text) {
    const Desk &desk = game.desk;
    for (int i = 1; i <= kElementRows; ++i) {
        const std::string tag = NormText(desk.TLinkTag(i));
        if (tag.empty() && NormText(desk.TLinkTag(i + 1)).empty() &&
            NormText(desk.TLinkTag(i + 2)).empty())
            break;
        if (!tag.empty() && InStr(text, tag))
            text = ReplaceAll(text, tag, desk.TLinkString(i, tag));
    }
    return text;
}

std::string WalkedExpandSpecials(Game &game, std::string_view argument) {
    if (IsBlank(argument)) return {};
    // The special names are one fixed list, the same in both passes.
    std::string text = ExpandSpecialNames(game, std::string(argument));
    text = ReplaceAll(text, "_$", "$");
    if (HasParens(text)) {
        const std::size_t open = text.find('('), close = text.find(')');
        text = text.substr(0, open) + "(" + WalkedSubstituteVariables(game, ParenText(text)) + ")" +
               text.substr(close + 1);
    }
    return WalkedElementNames(game, WalkedSubstituteVariables(game, text));
}

// ---- A game with tables of a given size. ----

class QuietHost : public Host {
public:
    void Yield() override {}
    void Sleep(int) override {}
    std::string Ask(const std::string &, const std::string &, const std::string &) override {
        return {};
    }
};

// Name and word lists in a folder of the run, read once by every game.
struct WordFiles {
    fs::path root =
        fs::temp_directory_path() / ("orrery-subst-bench-" + std::to_string(::getpid()));
    WordFiles() {
        fs::create_directories(root);
        std::string names, words;
        for (int i = 0; i < kNameRows; ++i) names += "Name" + IntText(i) + "\r\n";
        for (int i = 0; i < kWordRows; ++i)
            words += std::string(static_cast<std::size_t>(3 + i % 12), char('a' + i % 26)) + "\r\n";
        WriteTextFile(root / "names.dat", names);
        WriteTextFile(root / "words.dat", words);
    }
    ~WordFiles() {
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }
};

const WordFiles &Words() {
    static const WordFiles files;
    return files;
}

// Declared names are a word and the row, from 4 to 23 characters: a few too long to be
// substituted, as in real games. Tags are a kind word, a word and the row.
std::string VariableName(int row) {
    static const char *const kStems[] = {
        "a",      "hp",       "key",          "cash",           "score",
        "target", "password", "bank-account", "firewall-level", "mission-objective"};
    return "$" + std::string(kStems[row % 10]) + "-" + IntText(row);
}

std::string ElementTag(int row) {
    static const char *const kKinds[] = {"label", "text", "button", "list"};
    static const char *const kStems[] = {"status", "cmd", "go", "hosts", "log", "title"};
    return std::string(kKinds[row % 4]) + kStems[row % 6] + IntText(row);
}

struct Bench {
    ProjectModel project;
    ServerDirectory world;
    WordBank words;
    Random random{1};
    QuietHost host;
    Game game{project, world, words, random, host};

    Bench(int variables, int elements) {
        words.LoadNames(Words().root / "names.dat");
        words.LoadWords(Words().root / "words.dat");
        game.PlayerName = "Ada";
        for (int row = 1; row <= variables; ++row) {
            // Numbers for arithmetic; now and then a value that names another variable.
            std::string value =
                row % 7 == 0 ? "linked to " + VariableName(row % 5 + 1) : IntText(row * 10);
            game.VariableTable.Set(row, {VariableName(row), std::move(value)});
        }
        for (int row = 1; row <= elements; ++row) {
            project.Element(row)[0] = ElementTag(row);
            project.Element(row)[1] = "atool:t";
            ElementControl &control =
                game.desk.LoadControl(row, ElementTag(row), KindOfName(ElementTag(row)));
            control.caption = "Status " + IntText(row);
            control.text = "connect 10.0.0." + IntText(row % 250);
        }
    }
};

// Arguments as statements write them; every name belongs to the first rows, which every
// table has.
const std::vector<std::string> &Arguments() {
    static const std::vector<std::string> arguments = {
        VariableName(5) + " + 10",
        "Connecting to " + VariableName(6) + " on port " + VariableName(3) + " ...",
        "Welcome back, $playername. Your balance is " + VariableName(4) + " credits.",
        ElementTag(1),
        VariableName(8) + "(" + VariableName(2) + ")",
        "Trace at " + VariableName(9) + "% - $random100 seconds left",
        "You found $random9 files on $realip",
        "plain text that names nothing at all",
        ElementTag(2) + " was typed into the console",
        "_" + VariableName(5) + " and _" + VariableName(14) + " escaped",
        VariableName(7) + " of " + VariableName(17) + " under " + ElementTag(3),
        "$randomshortname sends " + VariableName(13) + " to " + ElementTag(11),
    };
    return arguments;
}

Bench &Tables(int variables) {
    static Bench small(20, 20);
    static Bench large(2000, kElementRows);
    static Bench complexSize(250, 300);
    static Bench empty(0, 0);
    switch (variables) {
    case 20:
        return small;
    case 2000:
        return large;
    case 250:
        return complexSize;
    default:
        return empty;
    }
}

// Both passes from the same seed must give the same text for every argument.
bool SameTexts(int variables) {
    Bench &b = Tables(variables);
    for (const std::string &argument : Arguments()) {
        b.random = Random(9);
        const std::string ours = ExpandSpecials(b.game, argument);
        b.random = Random(9);
        const std::string walked = WalkedExpandSpecials(b.game, argument);
        if (ours != walked) {
            std::fprintf(stderr,
                         "substitution_bench: %d variables: \"%s\" gives \"%s\", the walk \"%s\"\n",
                         variables, argument.c_str(), ours.c_str(), walked.c_str());
            return false;
        }
    }
    return true;
}

template <typename Pass> void RunArguments(benchmark::State &state, Pass pass) {
    Bench &b = Tables(static_cast<int>(state.range(0)));
    for (auto _ : state)
        for (const std::string &argument : Arguments())
            benchmark::DoNotOptimize(pass(b.game, argument));
    state.counters["arguments/s"] = benchmark::Counter(
        static_cast<double>(Arguments().size()), benchmark::Counter::kIsIterationInvariantRate);
}

void BM_ExpandSpecials(benchmark::State &state) {
    RunArguments(state,
                 [](Game &game, const std::string &text) { return ExpandSpecials(game, text); });
}
void BM_WalkedExpandSpecials(benchmark::State &state) {
    RunArguments(state, [](Game &game, const std::string &text) {
        return WalkedExpandSpecials(game, text);
    });
}
BENCHMARK(BM_ExpandSpecials)->Arg(20)->Arg(2000);
BENCHMARK(BM_WalkedExpandSpecials)->Arg(20)->Arg(2000);

// A text that names each of the full table's 2000 variables once, beside a text as long that
// names none, each name there with a "z" for its first letter: each name replaced costs a copy
// of the text, and no more.
std::string EveryName(bool named) {
    std::string text;
    for (int row = 1; row <= kVariableRows; ++row) {
        std::string name = VariableName(row);
        if (!named) name[1] = 'z';
        text += name + " ";
    }
    return text;
}

void BM_ExpandEveryName(benchmark::State &state) {
    Bench &b = Tables(2000);
    const std::string text = EveryName(state.range(0) != 0);
    for (auto _ : state) benchmark::DoNotOptimize(ExpandSpecials(b.game, text));
    state.counters["bytes"] = static_cast<double>(text.size());
}
BENCHMARK(BM_ExpandEveryName)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// A sequence of RETURN_COMPLEX statements: arithmetic that comes back to where it started,
// texts built from variables and elements, an element written.
std::string ComplexSequence() {
    const std::string score = VariableName(5), cash = VariableName(4), key = VariableName(3);
    return score + " = RETURN_COMPLEX [" + score + " + 7]`" + //
           cash + " = RETURN_COMPLEX [" + cash + " - 3]`" +   //
           VariableName(6) + " = RETURN_COMPLEX [host $random25 of " + VariableName(2) + "]`" +
           ElementTag(1) + " = RETURN_COMPLEX [Trace: " + VariableName(9) + " at " + score + "]`" +
           key + " = RETURN_COMPLEX [" + key + " * 2]`" +     //
           score + " = RETURN_COMPLEX [" + score + " - 7]`" + //
           cash + " = RETURN_COMPLEX [" + cash + " + 3]`" +   //
           key + " = RETURN_COMPLEX [" + key + " / 2]`" +     //
           VariableName(12) + " = RETURN_COMPLEX [" + ElementTag(2) + " by $playername]`" +
           VariableName(16) + " = RETURN_COMPLEX [" + VariableName(7) + " and " + VariableName(17) +
           "]";
}
constexpr int kSequenceStatements = 10;

void BM_ReturnComplexSequence(benchmark::State &state) {
    Bench &b = Tables(static_cast<int>(state.range(0)));
    const std::string sequence = ComplexSequence();
    for (auto _ : state) RunSequence(b.game, sequence, 0, 0);
    state.counters["statements/s"] =
        benchmark::Counter(kSequenceStatements, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_ReturnComplexSequence)->Arg(0)->Arg(250);

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    for (int variables : {20, 2000, 250})
        if (!SameTexts(variables)) return 1;
    std::printf("indexed and walked passes agree on %zu arguments at 20, 250 and 2000 variables\n",
                Arguments().size());
    return RunBenchmarks(argc, argv, [](const TimeKeepingReporter &times) {
        PrintRatio(times, "ExpandSpecials, 2000 and 1499 / 20 and 20", "BM_ExpandSpecials/2000",
                   "BM_ExpandSpecials/20", 3);
        PrintRatio(times, "walked / indexed (our speed), 2000 and 1499",
                   "BM_WalkedExpandSpecials/2000", "BM_ExpandSpecials/2000", 0);
        PrintRatio(times, "walked / indexed (our speed), 20 and 20",
                   "BM_WalkedExpandSpecials/20", "BM_ExpandSpecials/20", 0);
        PrintRatio(times, "a text naming all 2000 variables / naming none",
                   "BM_ExpandEveryName/1", "BM_ExpandEveryName/0", 0);
        PrintRatio(times, "RETURN_COMPLEX sequence, 250 and 300 / empty",
                   "BM_ReturnComplexSequence/250", "BM_ReturnComplexSequence/0", 0);
        if (const auto seconds = times.Seconds("BM_ReturnComplexSequence/250"))
            std::printf("RETURN_COMPLEX on 250 variables and 300 elements: %.0f statements/s\n",
                        kSequenceStatements / *seconds);
    });
}
