// Places in the project model that a transaction writes: each a function of the model that
// returns a reference to the place, the same place every time.
#pragma once

#include "project/model.h"

namespace orrery::place {

inline auto ElementCell(int row, int column) {
    return [row, column](ProjectModel &m) -> std::string & {
        return m.Element(row)[static_cast<std::size_t>(column)];
    };
}

inline auto ElementRowAt(int row) {
    return [row](ProjectModel &m) -> ElementRow & { return m.Element(row); };
}

template <typename Type> auto Setting(Type ProjectSettings::*member) {
    return [member](ProjectModel &m) -> Type & { return m.settings.*member; };
}

template <typename Table> auto Slot(Table ProjectModel::*table, int slot) {
    return [ table, slot ](ProjectModel & m) -> auto & {
        return (m.*table)[slot];
    };
}

template <typename Type> auto Counter(Type ProjectModel::*member) {
    return [member](ProjectModel &m) -> Type & { return m.*member; };
}

} // namespace orrery::place
