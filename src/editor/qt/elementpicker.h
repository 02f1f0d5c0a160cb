// Get Element: the chosen tool drawn as the player will see it, on which a click picks the
// element a function's parameter names; or a variable picked from the list instead.
#pragma once

#include "editor/qt/editorcontext.h"

#include <QDialog>
#include <string>

namespace orrery {

class ToolCanvas;

class ElementPicker : public QDialog {
    Q_OBJECT
public:
    ElementPicker(EditorSession &session, const std::string &tool, const std::string &function,
                  QWidget *parent = nullptr);

    // The element clicked or the variable double-clicked; empty when nothing was picked.
    const std::string &picked() const { return m_picked; }
    ToolCanvas *canvas() const { return m_canvas; }

private:
    void Pick(const std::string &name);

    ToolCanvas *m_canvas = nullptr;
    std::string m_picked;
};

} // namespace orrery
