// RunSequence, RunQlob, conditions and the gun.
#include "actions/sequence.h"

#include <algorithm>
#include <vector>

#include "actions/game.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "foundation/convert.h"
#include "foundation/text.h"

namespace orrery {

namespace {

// The state of one walk.
struct Walk {
    std::string skipTag;
    bool skipping = false;
    bool inLoop = false;
    std::int16_t counter = 0;
    int loopLine = 0;
    std::string stopText;
};

// Whether the name form of an entry begins with prefix, without building the form: a qlob
// call then costs its name, not the text of every qlob before the one it runs.
bool NormStartsWith(std::string_view entry, std::string_view prefix) {
    const std::string_view trimmed = TrimView(entry);
    if (trimmed.size() < prefix.size()) return false;
    // Byte by byte, so that a long prefix stops at the first byte that differs.
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (LowerCase(trimmed.substr(i, 1)) != prefix.substr(i, 1)) return false;
    return true;
}

// A field of the walk, trimmed; past the end "".
std::string Field(const std::vector<std::string_view> &fields, int i) {
    return i >= 1 && i <= static_cast<int>(fields.size()) ? Trim(fields[static_cast<std::size_t>(i - 1)])
                                                          : std::string();
}

// "FOR $v = start TO stop" opens the loop. False when the line can't be read as one: the
// walk then ends, where it would once have stopped the program.
bool OpenLoop(Game &game, Walk &walk, const std::string &line, int i) {
    const auto bounds = ReadLoopBounds(line);
    if (!bounds) return false;
    walk.stopText = SubstituteVariables(game, bounds->stop);
    const auto counter = RoundToInt16(Val(SubstituteVariables(game, bounds->start)));
    if (!counter) return false;
    walk.counter = *counter;
    walk.loopLine = i;
    walk.inLoop = true;
    return true;
}

// "NEXT ": false when the counter would overflow.
bool CloseLoop(Walk &walk, int &i) {
    if (!walk.inLoop) return true;
    if (walk.counter == INT16_MAX) return false;
    ++walk.counter;
    if (Val(walk.stopText) < walk.counter) walk.inLoop = false;
    if (walk.inLoop) i = walk.loopLine;
    return true;
}

// Walks the fields; returns when the sequence ends, is cancelled or can't go on.
void WalkFields(Game &game, const std::vector<std::string_view> &fields) {
    Walk walk;
    int idle = 0;
    for (int i = 1; i <= kMaxSequenceFields; ++i) {
        if (++idle > kMaxIdleSteps || ++game.walkSteps > game.walkStepLimit) return;
        std::string line = Field(fields, i);
        game.CountWork(kStepWork + line.size());
        if (game.WorkSpent()) return;
        if (line.empty() && Field(fields, i + 1).empty()) return;
        if (IsSkippedLine(line)) continue;
        if (walk.skipping) {
            if (line.starts_with('~') && LabelTag(line) == walk.skipTag) walk.skipping = false;
            continue;
        }
        if (line.starts_with('~')) continue;
        if (std::string condition; CutCondition(line, condition) && !EvalCondition(game, condition))
            continue;
        if (auto tag = GotoTag(line)) {
            walk.skipTag = std::move(*tag);
            walk.skipping = true;
            i = 0;
            continue;
        }
        if (!walk.inLoop && OpensLoop(line)) {
            if (!OpenLoop(game, walk, line, i)) return;
            continue;
        }
        if (ClosesLoop(line)) {
            if (!CloseLoop(walk, i)) return;
            continue;
        }
        if (walk.inLoop) {
            const std::string counter = IntText(walk.counter);
            line = ReplaceAll(ReplaceAll(line, kLoopCounter, counter), kLoopCounterUpper, counter);
        }
        idle = 0;
        if (RunStatement(game, line) == kCancel) return;
    }
}

} // namespace

std::string PrepareSequence(std::string_view sequence) {
    std::string prepared = ReplaceAll(sequence, "action:", "");
    for (int pass = 0; pass < 2; ++pass) prepared = ReplaceAll(prepared, "``", "`");
    return prepared;
}

std::vector<std::string_view> SequenceFields(std::string_view sequence) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (fields.size() < kMaxSequenceFields + 1) {
        const std::size_t tick = sequence.find('`', start);
        fields.push_back(sequence.substr(start, tick == std::string_view::npos ? std::string_view::npos
                                                                                : tick - start));
        if (tick == std::string_view::npos) break;
        start = tick + 1;
    }
    return fields;
}

bool IsSkippedLine(std::string_view line) { return line.empty() || line == ":"; }

std::string LabelTag(std::string_view line) { return NormText(ReplaceAll(line, "~", "")); }

bool CutCondition(std::string &line, std::string &condition) {
    if (!InStr(line, "{") || !line.ends_with('}')) return false;
    const std::size_t open = line.find('{');
    condition = Trim(ReplaceAll(ReplaceAll(line.substr(open + 1), "{", ""), "}", ""));
    line = Trim(line.substr(0, open));
    return true;
}

std::optional<std::string> GotoTag(std::string_view line) {
    // The line is trimmed, so its name form begins with its first characters lower-cased.
    if (Trim(LowerCase(line.substr(0, 6))) != "_goto") return std::nullopt;
    const std::size_t blank = line.find(' ');
    return blank == std::string_view::npos ? std::string()
                                           : NormText(StripBrackets(line.substr(blank)));
}

bool OpensLoop(std::string_view line) { return LowerCase(line.substr(0, 4)) == "for "; }
bool ClosesLoop(std::string_view line) { return LowerCase(line.substr(0, 5)) == "next "; }

std::optional<LoopBounds> ReadLoopBounds(std::string_view line) {
    const std::size_t t = InStr(NormText(line), "to");
    const std::size_t e = InStr(line, "=");
    if (t < 2) return std::nullopt;
    LoopBounds bounds;
    bounds.to = t - 1;
    bounds.start = Trim(line.substr(std::min(e, line.size()), t - 2));
    if (const auto blank = bounds.start.find(' '); blank != std::string::npos)
        bounds.start = Trim(bounds.start.substr(0, blank));
    bounds.stop = Trim(t + 1 < line.size() ? line.substr(t + 1) : "");
    return bounds;
}

void RunSequence(Game &game, std::string sequence, int ownerRow, int mode) {
    if (mode == 1) {
        EnqueueStatements(game, sequence);
        return;
    }
    if (ownerRow < 0 || ownerRow > kElementRows || game.walkDepth >= kMaxWalkDepth) return;
    if (ownerRow > 0) {
        const std::string &name = game.project.Element(ownerRow)[kNameColumn];
        game.CurrentArrayIndex = HasParens(name) ? ParenText(name) : std::string();
    }
    sequence = PrepareSequence(sequence);
    if (game.walkDepth == 0) game.walkSteps = game.walkWork = 0;
    game.CountWork(sequence.size());
    ++game.walkDepth;
    ++game.RunningSequences;
    WalkFields(game, SequenceFields(sequence));
    --game.RunningSequences;
    --game.walkDepth;
}

void RunQlob(Game &game, std::string &name) {
    name = NormText(name);
    if (name.empty() || InStr(name, "none")) return;
    for (int slot = 1; slot <= decltype(game.project.QlobTable)::kSize; ++slot) {
        const std::string &entry = game.project.QlobTable[slot];
        if (!NormStartsWith(entry, name)) continue;
        name = Trim(entry);
        const std::size_t blank = name.find(' ');
        if (blank == std::string::npos) continue;
        name = Trim(name.substr(blank));
        RunSequence(game, name, 0, 0);
    }
}

bool EvalCondition(Game &game, std::string_view condition) {
    std::string_view op;
    for (std::string_view candidate : {"<", ">", "="})
        if (condition.find(candidate) != std::string_view::npos) op = candidate;
    if (op.empty()) return false;
    const std::size_t at = condition.find(op);
    std::string left = ResolveIndexedName(game, Trim(condition.substr(0, at)));
    std::string right = ResolveIndexedName(game, Trim(condition.substr(at + 1)));
    left = LookupValue(game, left);
    right = LookupValue(game, right);
    const auto a = ParseNumber(left), b = ParseNumber(right);
    if (op == "=") return a && b ? *a == *b : NormText(left) == NormText(right);
    if (!a || !b) return false;
    return op == "<" ? *a < *b : *a > *b;
}

void EnqueueStatements(Game &game, std::string_view sequence) {
    auto &gun = game.GunQueue;
    for (std::int16_t i = 1; i <= kGunSlots; ++i) {
        const std::string statement = Trim(FieldBy(sequence, i, "`"));
        if (statement.empty()) continue;
        if (std::find(gun.begin(), gun.end(), statement) != gun.end()) continue;
        gun[FirstFreeSlot(gun, kGunSlots)] = statement;
    }
}

void GunTick(Game &game) {
    auto &gun = game.GunQueue;
    const auto next = std::find_if(gun.begin(), gun.end(), [](const std::string &s) { return !s.empty(); });
    if (next == gun.end() || IsBlank(*next)) return;
    const std::string statement = Trim(*next);
    next->clear();
    for (int slot = 1; slot < kGunSlots; ++slot) gun[slot] = gun[slot + 1];
    gun[kGunSlots].clear();
    RunSequence(game, statement, 0, 0);
}

} // namespace orrery
