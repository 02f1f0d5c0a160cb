// What a form of the editor works with: the open project, and the way it makes a step on it.
#pragma once

#include "editor/change.h"

#include <functional>

namespace orrery {

class EditorSession;

struct EditorContext {
    EditorSession *session = nullptr;
    // Makes a step: a refusal is shown in its message box, a change is kept for undo and saved,
    // then its notes are shown. False when it was refused. The frame's Apply.
    std::function<bool(Outcome)> apply;
};

} // namespace orrery
