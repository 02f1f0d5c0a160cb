// The qombos: ready-made groups of elements, each added through AddEl at the given place.
#include "editor/elements.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/convert.h"
#include "foundation/text.h"

#include <array>

namespace orrery {

namespace {

// One element of a qombo: its kind, the end of its name (no end the end of another, for names
// are told apart by their ends), its caption and its place and size
// from the group's top left corner.
struct Part {
    ElementKind kind;
    std::string_view name;
    std::string_view caption;
    std::int32_t left, top, width, height;
};

using K = ElementKind;

// The seven groups an author of such games keeps building by hand.
const std::vector<Part> &Layout(int type) {
    static const std::array<std::vector<Part>, kQomboTypes> kLayouts{{
        // 1: a log-in panel.
        {{K::Label, "usercap", "User name", 0, 0, 1440, 255},
         {K::Text, "user", "", 1560, 0, 2400, 285},
         {K::Label, "passcap", "Password", 0, 480, 1440, 255},
         {K::Text, "pass", "", 1560, 480, 2400, 285},
         {K::Button, "login", "Log in", 2760, 960, 1200, 375}},
        // 2: a labelled input with its button.
        {{K::Label, "prompt", "Label", 0, 0, 1440, 255},
         {K::Text, "input", "Text", 1560, 0, 2400, 285},
         {K::Button, "go", "Button", 4080, 0, 1200, 375}},
        // 3: a console under its title.
        {{K::Label, "title", "This is a label", 0, 0, 4800, 255},
         {K::Qonsole, "console", "", 0, 360, 4800, 2400}},
        // 4: a list with the buttons that work on it.
        {{K::List, "items", "", 0, 0, 3600, 1800},
         {K::Button, "add", "Add", 3720, 0, 1200, 375},
         {K::Button, "remove", "Remove", 3720, 480, 1200, 375}},
        // 5: a status line across the tool.
        {{K::Label, "status", "New Label", 0, 0, 6000, 255}},
        // 6: a heading over a box of text.
        {{K::Label, "heading", "This is a label", 0, 0, 4800, 255},
         {K::Text, "body", "Text", 0, 360, 4800, 1800}},
        // 7: a picture with its caption.
        {{K::Image, "picture", "", 0, 0, 1440, 1440},
         {K::Label, "caption", "Label", 0, 1560, 1440, 255}},
    }};
    return kLayouts[static_cast<std::size_t>(type - 1)];
}

// A stem "qombo<n>" that no element's name ends in with any of the group's names behind it.
std::string FreeStem(const ProjectModel &model, const std::vector<Part> &parts) {
    for (int n = 1;; ++n) {
        const std::string stem = "qombo" + IntText(n);
        bool free = true;
        for (const Part &part : parts)
            free = free && !ElementNameExists(model, stem + std::string(part.name));
        if (free) return stem;
    }
}

} // namespace

Outcome AddQombo(ProjectModel &model, std::string_view tool, int type, Position at) {
    Transaction t(model, "Add Qombo");
    if (type < 1 || type > kQomboTypes) return t.Refuse({"Error", "A qombo is of type 1 to 7."});
    const std::vector<Part> &parts = Layout(type);
    const std::string stem = FreeStem(model, parts);
    for (const Part &part : parts) {
        if (auto refusal = t.Take(AddElement(model, tool, part.kind, stem + std::string(part.name),
                                             {at.left + part.left, at.top + part.top})))
            return t.Refuse(*refusal);
        const std::vector<std::string> element{std::string(KindWord(part.kind)) + stem +
                                               std::string(part.name)};
        t.Take(SetElementProperty(model, element, "width", IntText(part.width)));
        t.Take(SetElementProperty(model, element, "height", IntText(part.height)));
        if (part.kind == K::Button || part.kind == K::Label || part.kind == K::Text)
            t.Take(SetElementProperty(model, element, part.kind == K::Text ? "text" : "caption",
                                      part.caption));
    }
    return t.Commit();
}

} // namespace orrery
