// The RETURN family: each computes a text and delivers it to a variable or an element.
#pragma once

#include <cstddef>
#include <string>

namespace orrery {

struct Game;
struct Statement;

// Where a value goes: a variable of the target's name, else the first element of that name,
// by the kind its name says. A target found nowhere drops the value.
struct Delivery {
    bool lineBreaks = false; // "//" is a line break for labels and text boxes
    bool listAdds = false;   // a list gets a new item, rather than selecting one
};
// A longer value is not delivered: the target keeps what it had. It stops a text that doubles
// at every turn of a loop long before it fills the memory.
inline constexpr std::size_t kMaxDeliveredLength = 65535;
void DeliverResult(Game &game, const std::string &value, const std::string &target,
                   Delivery delivery = {});

// The handlers of the dispatch table; each returns "" or "cancel".
std::string Return(Game &game, Statement &st);
std::string ReturnComplex(Game &game, Statement &st);
std::string ReturnAsk(Game &game, Statement &st);
std::string ReturnServerExists(Game &game, Statement &st);
std::string ReturnImage(Game &game, Statement &st);
std::string ReturnFileNew(Game &game, Statement &st);
std::string ReturnFileData(Game &game, Statement &st);
std::string CreateFile(Game &game, Statement &st);
std::string ReturnRandom(Game &game, Statement &st);
std::string ReturnInstr(Game &game, Statement &st);
std::string ReturnMid(Game &game, Statement &st);
std::string ReturnRandomChar(Game &game, Statement &st);
std::string ReturnRandomIp(Game &game, Statement &st);
std::string ReturnAsc(Game &game, Statement &st);
std::string ReturnChr(Game &game, Statement &st);
std::string ReturnLength(Game &game, Statement &st);
std::string ReturnUcase(Game &game, Statement &st);
std::string ReturnLcase(Game &game, Statement &st);
std::string ReturnRandomIpExisting(Game &game, Statement &st);
std::string ReturnIp(Game &game, Statement &st);
std::string ReturnHostname(Game &game, Statement &st);
std::string ReturnTimeformat(Game &game, Statement &st);
std::string ReturnServerProperty(Game &game, Statement &st);
std::string ReturnReverse(Game &game, Statement &st);

} // namespace orrery
