// Timed statements: the blocking pause, counters that run qlobs while a variable counts
// down, flashing elements, and moving a tool.
#pragma once

#include <string>
#include <string_view>

namespace orrery {

struct Game;
struct Statement;

std::string Wait(Game &game, Statement &st);
std::string QlobCounter(Game &game, Statement &st);
std::string QlobCounterKill(Game &game, Statement &st);
std::string FlashOn(Game &game, Statement &st);
std::string FlashOff(Game &game, Statement &st);
std::string Move(Game &game, Statement &st);

// One tick of the counter and of the flasher of that number; nothing once it has ended.
void QlobCounterTick(Game &game, int number);
void MiscTimerTick(Game &game, int number);

// Adds a flasher of that kind and TLink index unless one with the tag runs; stops one.
void LoadATimer(Game &game, int index, std::string_view kind, std::int64_t interval);
void StopATimer(Game &game, std::string_view tag);

} // namespace orrery
