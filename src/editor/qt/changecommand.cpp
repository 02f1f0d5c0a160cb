// Undo and redo of a kept step.
#include "editor/qt/changecommand.h"

#include "editor/session.h"
#include "widgets/look.h"

namespace orrery {

ChangeCommand::ChangeCommand(EditorSession &session, Change change)
    : QUndoCommand(ToQString(change.name())), m_session(session), m_change(std::move(change)) {}

void ChangeCommand::undo() {
    m_session.Undo(m_change);
}

void ChangeCommand::redo() {
    if (m_made) {
        m_made = false;
        return;
    }
    m_session.Redo(m_change);
}

int ChangeCommand::id() const {
    return m_change.mergeKey().empty() ? -1 : kMergeableChange;
}

bool ChangeCommand::mergeWith(const QUndoCommand *other) {
    auto *later = dynamic_cast<const ChangeCommand *>(other);
    if (!later || later->m_change.mergeKey() != m_change.mergeKey()) return false;
    m_change.Append(Change(later->m_change));
    return true;
}

} // namespace orrery
