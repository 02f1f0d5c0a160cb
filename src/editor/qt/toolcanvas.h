// The tool editor's preview: the selected tool drawn by the run-time's views at the run-time's
// scale, on which the author selects elements (a click, Ctrl and a click, a rubber band), drags
// them with the grid's snap (or, with Shift, against another element's edges), nudges and
// sizes them with the arrow keys, deletes them, copies and pastes their properties and lines
// them up. Each gesture is one step of the editor.
#pragma once

#include "editor/elements.h"
#include "editor/qt/editorcontext.h"
#include "editor/qt/previewhost.h"
#include "editor/snap.h"

#include <QPoint>
#include <QRect>
#include <QWidget>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace orrery {

class ToolView;
class SelectionLayer;

class ToolCanvas : public QWidget {
    Q_OBJECT
public:
    // The commands added to it with addAction make its context menu.
    explicit ToolCanvas(EditorContext context, QWidget *parent = nullptr);
    ~ToolCanvas() override;

    // Shows the tool of that name, nothing selected; an empty name shows no tool.
    void ShowTool(const std::string &tool);
    const std::string &tool() const { return m_tool; }
    // Draws the tool again from the model, keeping what is selected and still there.
    void Reload();

    // The stored names of the selected elements; the first is the one the others line up with.
    const std::vector<std::string> &selection() const { return m_selection; }
    void Select(std::vector<std::string> names);
    void SelectAll();

    // The gestures, as the keys and the tool editor's commands call them.
    void Nudge(orrery::Nudge nudge);
    void Align(orrery::Align align);
    // Asks the question for one element or for several, then deletes.
    void DeleteSelected();
    void CopyProperties();
    void PasteProperties();
    bool HasCopiedProperties() const { return !m_copied.empty(); }

    // Where the tool's panel stands and where an element stands, in the canvas's pixels.
    QRect ToolRect() const;
    QRect ElementRect(const std::string &name) const;
    const PreviewHost &host() const { return m_host; }
    ToolView *view() const { return m_view; }

signals:
    void selectionChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    friend class SelectionLayer;
    struct Grabbed {
        int row;
        Box box; // where it stood as the drag began
    };
    // The row of the element drawn topmost at a point of the canvas; 0 for none.
    int RowAt(QPoint at) const;
    std::string NameOf(int row) const;
    QRect RowRect(int row) const;
    bool Selected(const std::string &name) const;
    // The selection's places as the drag of m_grabbed begins.
    void BeginDrag();
    void DragTo(QPoint at, bool toElements);
    void EndDrag();
    void BandTo(QPoint at);
    void Apply(Outcome outcome);
    void Fit();

    EditorContext m_context;
    PreviewHost m_host;
    ToolView *m_view = nullptr;
    std::unordered_map<std::string, int> m_rowOfTag; // the first row shown with each tag
    SelectionLayer *m_layer;
    std::string m_tool;
    std::vector<std::string> m_selection;
    std::vector<std::string> m_copied; // "key:value" cells

    // A gesture of the mouse under way.
    enum class Gesture { None, Pressed, Dragging, Band } m_gesture = Gesture::None;
    QPoint m_pressAt;
    std::string m_grabbed;                      // the element the drag holds
    std::map<std::string, Grabbed> m_dragFrom;  // the selected elements, by name
    std::vector<Box> m_others;                  // the elements not dragged, to line up with
    std::int32_t m_dx = 0, m_dy = 0;            // the drag so far, snapped, in twips
    Snapped m_guides;                           // the edges the held element rests against
    QRect m_band;
    std::vector<std::string> m_bandBase;        // the selection a Ctrl band adds to
};

} // namespace orrery
