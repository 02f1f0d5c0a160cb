// A tool as the player will see it, drawn from the project: its controls are designed and
// placed on a desk of the preview's own exactly as the run-time places them when the tool
// first opens, and the run-time's views draw them. The preview is not played: input does nothing.
#pragma once

#include "desk/desk.h"
#include "widgets/viewhost.h"

#include <memory>
#include <string_view>

namespace orrery {

struct ProjectModel;

class PreviewHost final : public ViewHost {
public:
    // The one toolbox of the preview.
    static constexpr int kBox = 1;

    PreviewHost();
    ~PreviewHost() override;

    // Designs the tool afresh from the project; its panel's top left corner at a place in
    // twips. A tool without elements, which the player would not see, keeps its title bar and
    // a little room to add to.
    void Show(const ProjectModel &model, const std::filesystem::path &resources,
              std::string_view toolName, std::int32_t left, std::int32_t top);
    const Desk &desk() const { return *m_desk; }
    // The control of a row shown; nullptr when the tool has none there.
    const ElementControl *control(int row) const { return m_desk->Control(row); }

    std::filesystem::path resourceFolder() const override { return m_resources; }
    const ProjectSettings &settings() const override;
    const ToolBox &box(int box) const override;
    const ToolChrome *chrome(int box) const override;
    std::vector<std::pair<int, const ElementControl *>> elements(int box) const override;
    std::vector<QonsoleScreenLine> qonsoleLines(int row) const override;
    bool hasKeys(int) const override { return false; }
    bool hasAction(int) const override { return false; }
    bool movable(int) const override { return false; }

    void pressed(int, bool) override {}
    void clicked(int) override {}
    void doubleClicked(int) override {}
    void rightClicked(int, const QPoint &) override {}
    void listPressed(int, int) override {}
    void textEdited(int, const std::string &) override {}
    void selectionChanged(int, std::size_t, std::size_t) override {}
    void focused(int) override {}
    void hovered() override {}
    void toolPressed(int) override {}
    void toolMoved(int, std::int32_t, std::int32_t) override {}
    void toolDropped(int) override {}
    void toolClosed(int) override {}

private:
    std::filesystem::path m_resources;
    std::unique_ptr<ProjectSettings> m_settings;
    std::unique_ptr<Desk> m_desk;
};

} // namespace orrery
