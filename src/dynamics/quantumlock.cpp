// Quantum locks: a dynamic put in the middle of the form or a fixed way from an edge, whatever
// size the form has, with an optional nudge.
#include "dynamics/dynamics.h"
#include "dynamics/records.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/model.h"

namespace orrery {

namespace {

constexpr std::string_view kLockSeparator = "/.\\./.\\";

int Rounded(double value) {
    return RoundToInt32(value).value_or(0);
}

// "center", a distance from the far edge after a "-", or a distance from the near edge.
double LockedAt(const std::string &part, int form, int size) {
    if (part == "center") return form / 2.0 - size / 2.0;
    if (part.find('-') != std::string::npos) return form - Val(ReplaceAll(part, "-", "")) - size;
    return Val(part);
}

// A signed number moves the place; any other word leaves it.
double Nudged(double at, const std::string &part) {
    const double by = Val(ReplaceAll(ReplaceAll(part, "-", ""), "+", ""));
    if (part.find('-') != std::string::npos) return at - by;
    if (part.find('+') != std::string::npos) return at + by;
    return at;
}

std::string Part(std::string_view pair, int n) {
    return Trim(FieldBy(pair, static_cast<std::int16_t>(n), ","));
}

// The lock text behind the separator, its slashes and the three points they leave gone; empty
// for a slot without the separator.
std::string LockText(std::string_view slot) {
    const std::size_t at = slot.find(kLockSeparator);
    if (at == std::string_view::npos) return {};
    const std::string text = ReplaceAll(ReplaceAll(slot.substr(at), "/", ""), "\\", "");
    return ReplaceAll(text, "...", "");
}

// A lock moves a flow's panel with its letters and base line.
void MoveDynamic(Dynamic &d, const MenuRect &to) {
    const int dx = to.left - d.rect.left;
    const int dy = to.top - d.rect.top;
    d.rect = to;
    auto *flow = std::get_if<DynamicFlow>(&d.state);
    if (!flow) return;
    flow->baseLeft += dx;
    flow->baseTop += dy;
    for (FlowLetter &letter : flow->letters) {
        letter.rect.left += dx;
        letter.rect.top += dy;
    }
}

// The control a lock moves: the form's one shifter field for any shifters record.
Dynamic *LockTarget(FormDynamics &dynamics, DynamicKind kind, int index) {
    for (Dynamic &d : dynamics.dynamics)
        if (kind == DynamicKind::Shifters ? d.kind == kind : d.index == index) return &d;
    return nullptr;
}

} // namespace

std::string DynamicSignature(std::string_view record) {
    std::string signature;
    for (int n = 7; n <= 13; ++n) {
        signature += TrimView(RecordField(record, n));
        signature += ':';
    }
    return ReplaceAll(signature, "::", ":");
}

MenuRect LockPosition(std::string_view lockText, MenuSize form, MenuRect control) {
    // "and" parts the position pair from the nudge pair wherever it stands.
    const std::string text = ReplaceAll(ReplaceAll(NormText(lockText), ":", ""), "and", ":");
    const std::string position = FieldAt(text, 1);
    const std::string nudge = FieldAt(text, 2);
    const double left = LockedAt(Part(position, 1), form.width, control.width);
    const double top = LockedAt(Part(position, 2), form.height, control.height);
    control.left = Rounded(Nudged(left, Part(nudge, 1)));
    control.top = Rounded(Nudged(top, Part(nudge, 2)));
    return control;
}

void ApplyQuantumLock(FormDynamics &dynamics, const ProjectModel &project, int index) {
    const std::string &record = project.DynamicTable[index];
    const auto kind = DynamicKindOf(RecordField(record, 2));
    if (!kind || *kind == DynamicKind::Boxes) return;
    Dynamic *target = LockTarget(dynamics, *kind, index);
    if (!target) return;
    const std::string signature = NormText(DynamicSignature(record));
    for (const std::string &slot : project.QuantumLockTable) {
        if (IsBlank(slot) || slot.find(signature) == std::string::npos) continue;
        MoveDynamic(*target, LockPosition(LockText(slot), dynamics.form, target->rect));
    }
}

} // namespace orrery
