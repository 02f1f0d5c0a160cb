// Sequences: walking a line of statements with its labels, jumps, loop and conditions; qlobs
// and the gun that feeds queued statements one by one.
#pragma once

#include <string>
#include <string_view>

namespace orrery {

struct Game;

inline constexpr int kMaxSequenceFields = 500;
// Walks nested deeper than this don't start: a qlob that calls itself ends here.
inline constexpr int kMaxWalkDepth = 200;
// Steps a walk may take without running a statement: a jump loop with none ends here.
inline constexpr int kMaxIdleSteps = 100000;

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
