// What a tool's views ask of whoever shows them: what to draw beside each element's control,
// and where the player's input goes. The run-time answers from the game and runs the engine on
// the input; a preview answers from a project and its controls and takes the input as a choice.
#pragma once

#include "desk/desk.h"

#include <QPoint>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace orrery {

class ViewHost {
public:
    virtual ~ViewHost() = default;

    // The folder holding the pictures' folders (uimages, toolstyle).
    virtual std::filesystem::path resourceFolder() const = 0;
    // The title bar's pictures, font and colours, and the tools' border.
    virtual const ProjectSettings &settings() const = 0;
    virtual const ToolBox &box(int box) const = 0;
    // The chrome dressing a tool; nullptr for a bare panel.
    virtual const ToolChrome *chrome(int box) const = 0;
    // The controls standing in a tool, with their rows, in the order they were loaded: a later
    // one lies over an earlier one.
    virtual std::vector<std::pair<int, const ElementControl *>> elements(int box) const = 0;
    // A console's lines as painted, and whether it has the keys.
    virtual std::vector<QonsoleScreenLine> qonsoleLines(int row) const = 0;
    virtual bool hasKeys(int row) const = 0;
    // An image with an action sinks while it is pressed.
    virtual bool hasAction(int row) const = 0;
    // Whether a tool may be dragged by its title bar.
    virtual bool movable(int box) const = 0;

    // A press on an element, before anything else; takeFocus when a text box or list takes it.
    virtual void pressed(int row, bool takeFocus) = 0;
    // A button's, an image's or a list's click, and a console's press.
    virtual void clicked(int row) = 0;
    virtual void doubleClicked(int row) = 0;
    // At a point of the screen, where a pop-up menu may show.
    virtual void rightClicked(int row, const QPoint &globalPos) = 0;
    // A press on a list at an item (-1 for none): the press and the choice in one step, so the
    // list never shows the old item in between.
    virtual void listPressed(int row, int index) = 0;
    // A text box's text as typed, with the system's line breaks; its selection from the caret.
    virtual void textEdited(int row, const std::string &text) = 0;
    virtual void selectionChanged(int row, std::size_t start, std::size_t length) = 0;
    // A text box took the keyboard focus.
    virtual void focused(int row) = 0;
    // The mouse over a tool or a label: the consoles let go of the keys.
    virtual void hovered() = 0;

    virtual void toolPressed(int box) = 0;
    // Dragged by the title bar to a place in twips; dropped when the drag ends.
    virtual void toolMoved(int box, std::int32_t left, std::int32_t top) = 0;
    virtual void toolDropped(int box) = 0;
    // The close mark was clicked.
    virtual void toolClosed(int box) = 0;
};

} // namespace orrery
