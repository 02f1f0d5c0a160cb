// A project with dynamic records on a 1024 by 768 form, measured as the headless player
// measures: at 10 points a character is 100 twips wide and a line 240 high.
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
    std::map<std::string, MenuSize, std::less<>> pictures;
    Random random{7};

    FormDynamics Load(DynamicForm which = DynamicForm::Menu) {
        const MenuMeasures measures =
            HeadlessMeasures([this](std::string_view file) -> std::optional<MenuSize> {
                const auto found = pictures.find(file);
                if (found == pictures.end()) return std::nullopt;
                return found->second;
            });
        return LoadFormDynamics(project, which, ProjectLayout(project, kForm), measures, random, 0);
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
