// Building a form's dynamics from the project's records, describing them for the headless
// player, and the measures a program without a toolkit uses.
#include "dynamics/dynamics.h"
#include "dynamics/records.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "project/model.h"

#include <algorithm>
#include <utility>

namespace orrery {

namespace {

constexpr int kShapeSide = 600;
constexpr MenuSize kShifterField{2400, 1200};
constexpr int kBoxSide = 240;
constexpr int kBoxGap = 60;
constexpr int kShifterCell = 120; // a cell of a record that gives it no size
constexpr int kDefaultDegree = 25;

constexpr std::pair<std::string_view, DynamicKind> kKindWords[] = {
    {"image", DynamicKind::Image},       {"text", DynamicKind::Text},
    {"shape", DynamicKind::Shape},       {"boxes", DynamicKind::Boxes},
    {"textflow", DynamicKind::TextFlow}, {"shifters", DynamicKind::Shifters},
};

// A kind is known by the word its field holds, tested in the loader's order: "textflow"
// before "text".
constexpr DynamicKind kKindTests[] = {DynamicKind::Shifters, DynamicKind::TextFlow,
                                      DynamicKind::Text,     DynamicKind::Shape,
                                      DynamicKind::Image,    DynamicKind::Boxes};

MenuFont FontFields(std::string_view record, int first) {
    return {std::string(RecordField(record, first)), Val(RecordField(record, first + 1)),
            RecordFlag(record, first + 2), RecordFlag(record, first + 3),
            RecordFlag(record, first + 4)};
}

MenuSize Measure(const MenuMeasures &measures, std::string_view caption, const MenuFont &font) {
    return measures.text ? measures.text(caption, font) : MenuSize{};
}

void SizeIfUnsized(MenuRect &rect, MenuSize size) {
    if (rect.width != 0 || rect.height != 0) return;
    rect.width = size.width;
    rect.height = size.height;
}

std::int32_t Rgb(int red, int green, int blue) {
    return static_cast<std::int32_t>(red | green << 8 | blue << 16);
}

// Box k of n at full strength for the first, down to a quarter for the last, in even steps.
std::int32_t Shade(std::int32_t base, int k, int n) {
    if (n <= 1) return base;
    const ColorParts parts = SplitColor(base);
    const int whole = 4 * (n - 1);
    const int part = whole - 3 * k;
    return Rgb(parts.red * part / whole, parts.green * part / whole, parts.blue * part / whole);
}

// The boxes in a row from the dynamic's corner; a record without a size gets boxes of 240
// twips with 60 between, one with a size shares its width among them.
DynamicBoxes BuildBoxes(std::string_view record, MenuRect &rect) {
    DynamicBoxes boxes;
    boxes.baseColor = RecordColor(record, 9);
    const int count = std::clamp(RecordInt(record, 7), 0, kMaxBoxes);
    if (count == 0) return boxes;
    SizeIfUnsized(rect, {count * kBoxSide + (count - 1) * kBoxGap, kBoxSide});
    const int width = std::max(0, (rect.width - (count - 1) * kBoxGap) / count);
    for (int k = 0; k < count; ++k)
        boxes.boxes.push_back({{rect.left + k * (width + kBoxGap), rect.top, width, rect.height},
                               Shade(boxes.baseColor, k, count)});
    return boxes;
}

std::int32_t GradientColor(ColorParts from, ColorParts to, int k, int n) {
    return Rgb(from.red + k * (to.red - from.red) / n, from.green + k * (to.green - from.green) / n,
               from.blue + k * (to.blue - from.blue) / n);
}

// The crest of the wave: the last letter's colour that no other letter shows, so that one
// letter at a time carries it.
std::optional<std::int32_t> PeakColor(const std::vector<FlowLetter> &letters) {
    for (auto it = letters.rbegin(); it != letters.rend(); ++it) {
        const auto shown = std::count_if(letters.begin(), letters.end(),
                                         [&](const FlowLetter &l) { return l.color == it->color; });
        if (shown == 1) return it->color;
    }
    return std::nullopt;
}

// Letters one after another from the base point, across or down; the panel is their bounds.
DynamicFlow BuildFlow(std::string_view record, MenuRect &panel, const MenuMeasures &measures) {
    DynamicFlow flow;
    flow.startColor = RecordColor(record, 7);
    flow.endColor = RecordColor(record, 8);
    const std::string_view text = RecordField(record, 9);
    flow.font = FontFields(record, 10);
    flow.vertical = NormText(RecordField(record, 15)) == "true";
    flow.lift = RecordInt(record, 17);
    flow.baseLeft = panel.left;
    flow.baseTop = panel.top;
    const ColorParts from = SplitColor(flow.startColor);
    const ColorParts to = SplitColor(flow.endColor);
    const int n = static_cast<int>(text.size());
    panel.width = panel.height = 0;
    for (int k = 0; k < n; ++k) {
        const MenuSize size =
            Measure(measures, text.substr(static_cast<std::size_t>(k), 1), flow.font);
        MenuRect rect{panel.left, panel.top, size.width, size.height};
        if (flow.vertical) {
            rect.top += panel.height;
            panel.height += size.height;
            panel.width = std::max(panel.width, size.width);
        } else {
            rect.left += panel.width;
            panel.width += size.width;
            panel.height = std::max(panel.height, size.height);
        }
        flow.letters.push_back(
            {text[static_cast<std::size_t>(k)], GradientColor(from, to, k, n), rect});
    }
    flow.peakColor = PeakColor(flow.letters);
    return flow;
}

int ShifterDegree(std::string_view text) {
    const auto degree = ParseWholeNumber(Trim(text));
    return degree && *degree >= 1 && *degree <= 100 ? static_cast<int>(*degree) : kDefaultDegree;
}

bool ShifterBorder(std::string_view text) {
    const std::string word = NormText(text);
    return !(word.empty() || word == "0" || word == "false" || word == "none");
}

int SpedUp(int interval, std::string_view speed) {
    const std::string word = NormText(speed);
    if (word == "slow") return interval * 2;
    if (word == "fast") return interval / 2;
    return interval;
}

int CellSide(std::string_view record, int n) {
    const int side = RecordInt(record, n);
    return side > 0 ? side : kShifterCell;
}

DynamicShifters BuildShifters(std::string_view record, MenuRect &box) {
    DynamicShifters field;
    SizeIfUnsized(box, kShifterField);
    field.color1 = RecordColor(record, 8);
    field.color2 = RecordColor(record, 9);
    field.degree = ShifterDegree(RecordField(record, 11));
    field.cell = {CellSide(record, 12), CellSide(record, 13)};
    field.border = ShifterBorder(RecordField(record, 14));
    field.fadeColor = RecordColor(record, 15);
    field.columns = std::max(1, box.width / field.cell.width);
    field.rows = std::max(1, box.height / field.cell.height);
    field.lit.assign(static_cast<std::size_t>(field.Count()), 0);
    field.wasLit = field.lit;
    return field;
}

MenuRect PlacedRect(std::string_view record, const DynamicsLayout &layout) {
    const auto x = [&](int n) {
        return ScaleBy(Val(RecordField(record, n)), layout.design.width, layout.form.width);
    };
    const auto y = [&](int n) {
        return ScaleBy(Val(RecordField(record, n)), layout.design.height, layout.form.height);
    };
    return {x(3), y(4), x(5), y(6)};
}

// One record's dynamic, with its interval; the caller starts its clock.
Dynamic BuildDynamic(std::string_view record, int index, DynamicKind kind,
                     const DynamicsLayout &layout, const MenuMeasures &measures) {
    Dynamic d{index, kind, PlacedRect(record, layout), 0, false, 0, DynamicImage{}};
    switch (kind) {
    case DynamicKind::Image: {
        DynamicImage image{std::string(RecordField(record, 7))};
        if (measures.picture) SizeIfUnsized(d.rect, measures.picture(image.file));
        d.state = std::move(image);
        break;
    }
    case DynamicKind::Text: {
        DynamicText text{std::string(RecordField(record, 7)),
                         FontFields(record, 11),
                         RecordColor(record, 10),
                         RecordFlag(record, 8),
                         {}};
        SizeIfUnsized(d.rect, Measure(measures, text.caption, text.font));
        if (text.moving) d.interval = RecordInt(record, 9);
        d.state = std::move(text);
        break;
    }
    case DynamicKind::Shape: {
        DynamicShape shape{RecordColor(record, 9), RecordFlag(record, 8), {}};
        SizeIfUnsized(d.rect, {kShapeSide, kShapeSide});
        if (shape.moving) d.interval = RecordInt(record, 7);
        d.state = shape;
        break;
    }
    case DynamicKind::Boxes:
        d.state = BuildBoxes(record, d.rect);
        d.interval = RecordInt(record, 8);
        break;
    case DynamicKind::TextFlow:
        d.state = BuildFlow(record, d.rect, measures);
        d.interval = RecordInt(record, 16);
        break;
    case DynamicKind::Shifters:
        d.state = BuildShifters(record, d.rect);
        d.interval = SpedUp(RecordInt(record, 7), RecordField(record, 10));
        break;
    }
    return d;
}

} // namespace

std::string_view RecordField(std::string_view record, int n) {
    return FieldView(record, static_cast<std::int16_t>(n));
}
int RecordInt(std::string_view record, int n) {
    return RoundToInt32(Val(RecordField(record, n))).value_or(0);
}
bool RecordFlag(std::string_view record, int n) {
    return ToBoolean(RecordField(record, n)).value_or(false);
}

std::string_view DynamicKindWord(DynamicKind kind) {
    for (const auto &[word, k] : kKindWords)
        if (k == kind) return word;
    return {};
}

std::optional<DynamicKind> DynamicKindOf(std::string_view field) {
    for (DynamicKind kind : kKindTests)
        if (NormTextContains(field, DynamicKindWord(kind))) return kind;
    return std::nullopt;
}

DynamicsLayout ProjectLayout(const ProjectModel &project, MenuSize form) {
    const auto side = [](const std::string &setting) {
        return RoundToInt32(Val(setting)).value_or(0);
    };
    return {form, {side(project.settings.originwidth), side(project.settings.originheight)}};
}

FormDynamics LoadFormDynamics(const ProjectModel &project, DynamicForm which,
                              const DynamicsLayout &layout, const MenuMeasures &measures,
                              Random &random, std::int64_t now) {
    const std::string_view owner = which == DynamicForm::Menu ? "menudynamic" : "maindynamic";
    FormDynamics dynamics;
    dynamics.form = layout.form;
    dynamics.now = now;
    bool hasShifters = false; // a form holds one shifter field
    for (int index = 1; index <= DynamicTableSize(); ++index) {
        const std::string &record = project.DynamicTable[index];
        if (NormText(RecordField(record, 1)) != owner) continue;
        const auto kind = DynamicKindOf(RecordField(record, 2));
        if (kind && !(*kind == DynamicKind::Shifters && std::exchange(hasShifters, true))) {
            Dynamic &d = dynamics.dynamics.emplace_back(
                BuildDynamic(record, index, *kind, layout, measures));
            d.running = d.interval > 0;
            d.due = now + d.interval;
            // The field shows its first cells at once rather than a blank box for one interval.
            if (auto *field = std::get_if<DynamicShifters>(&d.state)) LightShifters(*field, random);
        }
        // A later shifters record builds nothing, but its lock still moves the form's field.
        ApplyQuantumLock(dynamics, project, index);
    }
    dynamics.dirty.reserve(2 * dynamics.dynamics.size() + 8);
    return dynamics;
}

int DynamicTableSize() {
    return decltype(ProjectModel::DynamicTable)::kSize;
}

std::vector<std::string> DescribeDynamics(const FormDynamics &dynamics) {
    std::vector<std::string> lines;
    for (const Dynamic &d : dynamics.dynamics) {
        const MenuRect &r = d.rect;
        lines.push_back(IntText(d.index) + " " + std::string(DynamicKindWord(d.kind)) + " " +
                        IntText(r.left) + " " + IntText(r.top) + " " + IntText(r.width) + " " +
                        IntText(r.height));
        const auto *flow = std::get_if<DynamicFlow>(&d.state);
        if (!flow) continue;
        std::string colors = "colors";
        for (const FlowLetter &letter : flow->letters) colors += " " + IntText(letter.color);
        lines.push_back(std::move(colors));
        lines.push_back("lifted " + IntText(flow->lifted));
    }
    return lines;
}

MenuMeasures
HeadlessMeasures(std::function<std::optional<MenuSize>(std::string_view file)> picture) {
    MenuMeasures measures;
    measures.text = [](std::string_view caption, const MenuFont &font) {
        const double em = font.size * 20;
        return MenuSize{RoundToInt32(static_cast<double>(caption.size()) * em / 2).value_or(0),
                        RoundToInt32(em * 1.2).value_or(0)};
    };
    measures.picture = [picture = std::move(picture)](std::string_view file) {
        return picture ? picture(file).value_or(MenuSize{}) : MenuSize{};
    };
    return measures;
}

} // namespace orrery
