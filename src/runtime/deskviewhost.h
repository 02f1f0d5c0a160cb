// The tools' views over the game: what they draw comes from the desk and the project, and the
// player's input on them runs the engine, after which the desk is shown again.
#pragma once

#include "widgets/viewhost.h"

namespace orrery {

class DeskInput;

class DeskViewHost final : public ViewHost {
public:
    explicit DeskViewHost(DeskInput &desk) : m_desk(desk) {}

    std::filesystem::path resourceFolder() const override;
    const ProjectSettings &settings() const override;
    const ToolBox &box(int box) const override;
    const ToolChrome *chrome(int box) const override;
    std::vector<std::pair<int, const ElementControl *>> elements(int box) const override;
    std::vector<QonsoleScreenLine> qonsoleLines(int row) const override;
    bool hasKeys(int row) const override;
    bool hasAction(int row) const override;
    bool movable(int box) const override;

    void pressed(int row, bool takeFocus) override;
    void clicked(int row) override;
    void doubleClicked(int row) override;
    void rightClicked(int row, const QPoint &globalPos) override;
    void listPressed(int row, int index) override;
    void textEdited(int row, const std::string &text) override;
    void selectionChanged(int row, std::size_t start, std::size_t length) override;
    void focused(int row) override;
    void hovered() override;

    void toolPressed(int box) override;
    void toolMoved(int box, std::int32_t left, std::int32_t top) override;
    void toolDropped(int box) override;
    void toolClosed(int box) override;

private:
    // The control of a row while the game runs; nullptr once it has ended or without one.
    ElementControl *control(int row) const;
    DeskInput &m_desk;
};

} // namespace orrery
