// The preview's desk.
#include "editor/qt/previewhost.h"

#include "desk/qonsole.h"
#include "desk/tools.h"
#include "project/elementprops.h"
#include "project/model.h"
#include "widgets/elementviews.h"

#include <algorithm>

namespace orrery {

namespace {

// Room below the title bar of a tool that has no element yet.
constexpr std::int32_t kEmptyToolRoom = 1440;

} // namespace

PreviewHost::PreviewHost()
    : m_settings(std::make_unique<ProjectSettings>()), m_desk(std::make_unique<Desk>()) {}

PreviewHost::~PreviewHost() = default;

void PreviewHost::Show(const ProjectModel &model, const std::filesystem::path &resources,
                       std::string_view toolName, std::int32_t left, std::int32_t top) {
    m_resources = resources;
    *m_settings = model.settings;
    m_desk = std::make_unique<Desk>();
    m_desk->consoles.measure = &QtTextMeasure();
    ToolBox &box = m_desk->Box(kBox);
    box.tag = ToolTag(toolName);
    box.backColor = model.settings.mytoolsbackcolor;
    box.visible = !toolName.empty();
    const DesignedTool design = BuildToolControls(model, box.tag);
    for (const DesignedControl &designed : design.controls)
        PlaceDesignedControl(*m_desk, kBox, designed);
    SizeToolBox(box, design);
    if (design.controls.empty()) box.height = std::max(box.height, kTitleBarHeight + kEmptyToolRoom);
    box.left = left;
    box.top = top;
    m_desk->Chrome.push_back(DressTool(model.settings, kBox, box.width, std::string(toolName)));
}

const ProjectSettings &PreviewHost::settings() const {
    return *m_settings;
}

const ToolBox &PreviewHost::box(int box) const {
    return m_desk->Box(box);
}

const ToolChrome *PreviewHost::chrome(int) const {
    return m_desk->Chrome.size() > 1 ? &m_desk->Chrome[1] : nullptr;
}

std::vector<std::pair<int, const ElementControl *>> PreviewHost::elements(int) const {
    std::vector<std::pair<int, const ElementControl *>> standing;
    for (int row : m_desk->TLinkRows())
        if (const ElementControl *c = m_desk->Control(row)) standing.emplace_back(row, c);
    return standing;
}

std::vector<QonsoleScreenLine> PreviewHost::qonsoleLines(int row) const {
    return QonsoleScreen(*m_desk, row);
}

} // namespace orrery
