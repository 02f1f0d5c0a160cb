// A step on the undo stack: the core's change, undone and redone through the session, which
// saves after each.
#pragma once

#include "editor/change.h"

#include <QUndoCommand>

namespace orrery {

class EditorSession;

class ChangeCommand : public QUndoCommand {
public:
    // The change has been made already; the push's first redo leaves it be.
    ChangeCommand(EditorSession &session, Change change);

    void undo() override;
    void redo() override;

private:
    EditorSession &m_session;
    Change m_change;
    bool m_made = true;
};

} // namespace orrery
