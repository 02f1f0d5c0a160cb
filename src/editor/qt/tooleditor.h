// The tool editor: the tools and their elements on a live preview with the property panel
// beside it, and the pages for qlobs, variables, the side menu, the tools' assignments, the
// start-up sequence and the in-game help.
#pragma once

#include "editor/qt/editorcontext.h"
#include "project/elementprops.h"

#include <QWidget>
#include <optional>
#include <string>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class QToolBar;

namespace orrery {

class EditorPage;
struct FindingPlace;
class PropertyPanel;
class ToolCanvas;

class ToolEditor : public QWidget {
    Q_OBJECT
public:
    explicit ToolEditor(EditorContext context, QWidget *parent = nullptr);

    // Shows the model again after a step, its undo or its redo; what is selected stays where
    // it still exists.
    void Reload();

    // The tool list's add and remove, the remove asking first.
    void AddTool();
    void RemoveTool();
    // The add button: an element of the chosen kind on the chosen tool, its name asked for
    // until it is good or the author gives up; or, with the array box ticked, an array.
    void AddElement();
    // The qombo creator over the chosen tool.
    void AddQombo();
    // Shows what a finding is about: an element on its tool, selected, or the page of a qlob,
    // a variable, a tool's event, the start-up sequence or a help topic with it picked. False
    // when the place is none of these or is no longer there.
    bool ShowPlace(const FindingPlace &place);

    ToolCanvas *canvas() const { return m_canvas; }
    // The tool chosen in the list; empty when none is.
    std::string CurrentTool() const;
    std::optional<ElementKind> CurrentKind() const;

private:
    QWidget *MakeToolsPage();
    QWidget *MakeSidebar();
    QWidget *MakeDesignArea();
    void AddPage(EditorPage *page, const QString &caption);
    void ReloadTools();
    void ShowCurrentTool();
    void AddArray(const std::string &tool, ElementKind kind);
    void UpdateCommands();

    EditorContext m_context;
    QTabWidget *m_tabs;
    QListWidget *m_tools = nullptr;
    QLineEdit *m_newTool = nullptr;
    QListWidget *m_kinds = nullptr;
    QCheckBox *m_array = nullptr;
    QToolBar *m_commands = nullptr;
    ToolCanvas *m_canvas = nullptr;
    PropertyPanel *m_properties = nullptr;
    std::vector<EditorPage *> m_pages;
};

} // namespace orrery
