// A project with dynamic records on a 1024 by 768 form, measured without a toolkit: a
// character is 100 twips wide and a line 20 twips a point high.
#pragma once

#include "dynamics/dynamics.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "project/model.h"

#include <map>
#include <string>

namespace orrery {

inline constexpr MenuSize kForm{15360, 11520};

struct DynamicsFixture {
    ProjectModel project;
    std::map<std::string, MenuSize> pictures;
    Random random{7};

    MenuMeasures Measures() {
        MenuMeasures measures;
        measures.text = [](std::string_view caption, const MenuFont &font) {
            return MenuSize{static_cast<int>(caption.size()) * 100,
                            static_cast<int>(font.size * 20)};
        };
        measures.picture = [this](std::string_view file) {
            const auto found = pictures.find(std::string(file));
            return found == pictures.end() ? MenuSize{} : found->second;
        };
        return measures;
    }
    FormDynamics Load(DynamicForm which = DynamicForm::Menu, MenuSize form = kForm) {
        return LoadFormDynamics(project, which, ProjectLayout(project, form), Measures(), random,
                                0);
    }
    // One record on the menu as its only dynamic.
    FormDynamics LoadOne(const std::string &record) {
        project.DynamicTable[1] = record;
        return Load();
    }
};

template <typename State> State &StateOf(FormDynamics &dynamics, std::size_t n = 0) {
    return std::get<State>(dynamics.dynamics.at(n).state);
}

} // namespace orrery
