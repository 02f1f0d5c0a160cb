// Sequences: walking a line of statements with its labels, jumps, loop and conditions; qlobs
// and the gun that feeds queued statements one by one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

struct Game;

inline constexpr int kMaxSequenceFields = 500;
// Walks nested deeper than this don't start: a qlob that calls itself ends here.
inline constexpr int kMaxWalkDepth = 200;
// Steps a walk may take without running a statement: a jump loop with none ends here.
inline constexpr int kMaxIdleSteps = 100000;

// The line forms of a walk, as the runner reads them; each takes a trimmed field.

// The sequence as a walk reads it: every "action:" removed, then pairs of back-quotes folded
// into one, twice.
std::string PrepareSequence(std::string_view sequence);
// Its fields at every back-quote, untrimmed, up to one past the last a walk reaches.
std::vector<std::string_view> SequenceFields(std::string_view sequence);
// True for an empty field or a lone ":", which the walk passes over.
bool IsSkippedLine(std::string_view line);
// A label's tag: a line beginning "~", without its "~" characters, in name form.
std::string LabelTag(std::string_view line);
// A line that holds "{" and ends in "}" loses its condition suffix: true, with the condition
// between the braces (every brace removed, trimmed) and the line before the first "{".
bool CutCondition(std::string &line, std::string &condition);
// The tag of a jump, "_GOTO [tag]" with or without brackets, in name form; nullopt for a line
// whose first six characters in name form, trimmed, aren't "_goto".
std::optional<std::string> GotoTag(std::string_view line);
// "FOR " and "NEXT " lines, told by their name form's beginning.
bool OpensLoop(std::string_view line);
bool ClosesLoop(std::string_view line);
// A loop's bounds as written, before substitution. The keyword is the first "to" of the line
// in name form, wherever it stands; `to` is its position from 0. nullopt when no bound can
// stand before it.
struct LoopBounds {
    std::string start;
    std::string stop;
    std::size_t to = 0;
};
std::optional<LoopBounds> ReadLoopBounds(std::string_view line);
// What a loop's counter replaces in every statement of its body, in these two spellings only.
inline constexpr std::string_view kLoopCounter = "$v";
inline constexpr std::string_view kLoopCounterUpper = "$V";

// Walks the sequence (mode 0) or puts its statements on the gun (mode 1). ownerRow is the
// element whose event runs it, or 0; such an element's name index becomes "(?)".
void RunSequence(Game &game, std::string sequence, int ownerRow, int mode);
// Runs the first qlob whose name form begins with the name's. "none" anywhere runs nothing.
void RunQlob(Game &game, std::string &name);
// "left op right" with the operator chosen by presence: "=" over ">" over "<".
bool EvalCondition(Game &game, std::string_view condition);
// Queues the first 89 fields of a sequence on the gun, dropping duplicates of queued ones.
void EnqueueStatements(Game &game, std::string_view sequence);
// One tick of the gun: the first queued statement is taken off and walked alone.
void GunTick(Game &game);

} // namespace orrery
