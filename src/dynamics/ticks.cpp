// The dynamics on the clock: flows pass their colours on, texts and shapes move, boxes shift
// their shades and the shifter field flickers. A tick touches its own dynamic only and
// allocates nothing.
#include "dynamics/dynamics.h"
#include "dynamics/records.h"
#include "foundation/random.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace orrery {

namespace {

bool Ticks(const Dynamic &d) {
    return d.running && d.interval > 0;
}

// The first dynamic due by `until`; the earlier record wins a tie.
Dynamic *Earliest(FormDynamics &dynamics, std::int64_t until) {
    Dynamic *first = nullptr;
    for (Dynamic &d : dynamics.dynamics)
        if (Ticks(d) && d.due <= until && (!first || d.due < first->due)) first = &d;
    return first;
}

// One step along an axis; the heading turns first when the step would cross an edge.
int Step(int at, int size, int limit, int &heading) {
    const int next = at + heading * kDynamicStep;
    if (next < 0 || next + size > limit) heading = -heading;
    return at + heading * kDynamicStep;
}

void Move(FormDynamics &dynamics, MenuRect &rect, Heading &heading) {
    dynamics.dirty.push_back(rect);
    rect.left = Step(rect.left, rect.width, dynamics.form.width, heading.x);
    rect.top = Step(rect.top, rect.height, dynamics.form.height, heading.y);
    dynamics.dirty.push_back(rect);
}

// The colours move one box along the row, the last one's coming round to the first.
void MoveCols(DynamicBoxes &boxes) {
    if (boxes.boxes.empty()) return;
    const std::int32_t last = boxes.boxes.back().color;
    for (std::size_t k = boxes.boxes.size() - 1; k > 0; --k)
        boxes.boxes[k].color = boxes.boxes[k - 1].color;
    boxes.boxes.front().color = last;
}

// The panel with room for the letter at the crest out of line.
MenuRect FlowPaintRect(MenuRect panel, const DynamicFlow &flow) {
    int &at = flow.vertical ? panel.left : panel.top;
    int &size = flow.vertical ? panel.width : panel.height;
    at += std::min(0, flow.lift);
    size += std::abs(flow.lift);
    return panel;
}

// A letter on the base line, or lifted off it; true when it moved.
bool PlaceLetter(FlowLetter &letter, const DynamicFlow &flow, bool crest) {
    int &at = flow.vertical ? letter.rect.left : letter.rect.top;
    const int line = flow.vertical ? flow.baseLeft : flow.baseTop;
    const int target = crest ? line + flow.lift : line;
    return std::exchange(at, target) != target;
}

// Each letter but the last takes its neighbour's colour, so the wave runs towards the start;
// the last takes the first's. The loop lifts the letter now at the crest, and only it.
void FlowTick(FormDynamics &dynamics, const Dynamic &d, DynamicFlow &flow) {
    std::vector<FlowLetter> &letters = flow.letters;
    if (letters.empty()) return;
    const std::int32_t first = letters.front().color;
    bool changed = false;
    flow.lifted = 0;
    for (std::size_t i = 0; i + 1 < letters.size(); ++i) {
        FlowLetter &letter = letters[i];
        const std::int32_t color = letters[i + 1].color;
        changed |= std::exchange(letter.color, color) != color;
        const bool crest = flow.peakColor && color == *flow.peakColor;
        if (crest) flow.lifted = static_cast<int>(i) + 1;
        changed |= PlaceLetter(letter, flow, crest);
    }
    changed |= std::exchange(letters.back().color, first) != first;
    if (changed) dynamics.dirty.push_back(FlowPaintRect(d.rect, flow));
}

struct Ticker {
    FormDynamics &dynamics;
    Dynamic &d;
    Random &random;

    void operator()(DynamicImage &) {}
    void operator()(DynamicText &text) {
        if (text.moving) Move(dynamics, d.rect, text.heading);
    }
    void operator()(DynamicShape &shape) {
        if (shape.moving) Move(dynamics, d.rect, shape.heading);
    }
    void operator()(DynamicBoxes &boxes) {
        MoveCols(boxes);
        dynamics.dirty.push_back(d.rect);
    }
    void operator()(DynamicFlow &flow) { FlowTick(dynamics, d, flow); }
    void operator()(DynamicShifters &field) {
        LightShifters(field, random);
        dynamics.dirty.push_back(d.rect);
    }
};

} // namespace

// Triggera: a random number of picks up to the field's degree, each cell drawn as
// Int(Rnd * (count - 1)) + 1, from 1.
void LightShifters(DynamicShifters &field, Random &random) {
    std::swap(field.lit, field.wasLit);
    std::fill(field.lit.begin(), field.lit.end(), std::uint8_t{0});
    const int count = field.Count();
    const int most = std::max(1, count * field.degree / 100);
    const int picks = static_cast<int>(random.Unit() * most) + 1;
    for (int p = 0; p < picks; ++p) {
        const int cell = static_cast<int>(random.Unit() * (count - 1)) + 1;
        field.lit[static_cast<std::size_t>(cell - 1)] = 1;
    }
}

MenuRect ShifterCell(const DynamicShifters &field, const MenuRect &box, int i) {
    return {box.left + i % field.columns * field.cell.width,
            box.top + i / field.columns * field.cell.height, field.cell.width, field.cell.height};
}

std::int32_t ShifterCellColor(const DynamicShifters &field, int i) {
    const auto at = static_cast<std::size_t>(i);
    if (field.lit[at]) return field.color1;
    return field.wasLit[at] ? field.fadeColor : field.color2;
}

std::optional<std::int64_t> NextDynamicDue(const FormDynamics &dynamics) {
    std::optional<std::int64_t> next;
    for (const Dynamic &d : dynamics.dynamics)
        if (Ticks(d) && (!next || d.due < *next)) next = d.due;
    return next;
}

void AdvanceDynamics(FormDynamics &dynamics, std::int64_t until, Random &random) {
    for (Dynamic *d = Earliest(dynamics, until); d; d = Earliest(dynamics, until)) {
        dynamics.now = std::max(dynamics.now, d->due);
        d->due += d->interval * ((until - d->due) / d->interval + 1);
        std::visit(Ticker{dynamics, *d, random}, d->state);
    }
    dynamics.now = std::max(dynamics.now, until);
}

void ClearTFlows(FormDynamics &dynamics) {
    for (Dynamic &d : dynamics.dynamics) {
        auto *flow = std::get_if<DynamicFlow>(&d.state);
        if (!flow) continue;
        d.running = false;
        if (!flow->letters.empty()) dynamics.dirty.push_back(FlowPaintRect(d.rect, *flow));
        flow->letters.clear();
        flow->lifted = 0;
    }
}

} // namespace orrery
