// A step on the undo stack: the core's change, undone and redone through the session, which
// saves after each.
#pragma once

#include "editor/change.h"

#include <QUndoCommand>

namespace orrery {

class EditorSession;

// The stack merges only commands of one id; a change without a merge key has none.
enum CommandId { kMergeableChange = 1 };

class ChangeCommand : public QUndoCommand {
public:
    // The change has been made already; the push's first redo leaves it be.
    ChangeCommand(EditorSession &session, Change change);

    void undo() override;
    void redo() override;
    // Steps with the same merge key (a key held down, a drag) are one step on the stack.
    int id() const override;
    bool mergeWith(const QUndoCommand *other) override;

private:
    EditorSession &m_session;
    Change m_change;
    bool m_made = true;
};

} // namespace orrery
