// Undo and redo of a recorded change.
#include "editor/change.h"

namespace orrery {

void Change::Undo(ProjectModel &model) const {
    for (auto write = m_writes.rbegin(); write != m_writes.rend(); ++write) write->undo(model);
}

void Change::Redo(ProjectModel &model) const {
    for (const Write &write : m_writes) write.redo(model);
}

void Change::Append(Change &&later) {
    for (Write &write : later.m_writes) m_writes.push_back(std::move(write));
    later.m_writes.clear();
}

void Change::Record(std::function<void(ProjectModel &)> redo,
                    std::function<void(ProjectModel &)> undo) {
    m_writes.push_back({std::move(redo), std::move(undo)});
}

} // namespace orrery
