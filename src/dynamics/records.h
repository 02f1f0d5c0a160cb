// What the loader, the ticks and the locks share inside the dynamics: field readers of a
// dynamic record, and the shifter field's pick.
#pragma once

#include <cstdint>
#include <string_view>

namespace orrery {

class Random;
struct DynamicShifters;

// Field n (from 1) of a record, untrimmed; and the same read as a whole number by Val,
// rounded, or as a boolean (false unless it says true).
std::string_view RecordField(std::string_view record, int n);
int RecordInt(std::string_view record, int n);
inline std::int32_t RecordColor(std::string_view record, int n) {
    return RecordInt(record, n);
}
bool RecordFlag(std::string_view record, int n);

int DynamicTableSize();

// A new set of lit cells; the set before becomes the one that fades.
void LightShifters(DynamicShifters &field, Random &random);

} // namespace orrery
