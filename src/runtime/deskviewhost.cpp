// The tools' views over the game.
#include "runtime/deskviewhost.h"

#include "actions/game.h"
#include "desk/quicklist.h"
#include "desk/tools.h"
#include "foundation/paths.h"
#include "foundation/text.h"
#include "widgets/deskinput.h"

namespace orrery {

namespace {

// The chrome index dressing a toolbox; 0 when none does.
int ChromeOf(const Desk &desk, int box) {
    for (std::size_t c = 1; c < desk.Chrome.size(); ++c)
        if (desk.Chrome[c].box == box) return static_cast<int>(c);
    return 0;
}

} // namespace

std::filesystem::path DeskViewHost::resourceFolder() const {
    return m_desk.paths().ResPath();
}
const ProjectSettings &DeskViewHost::settings() const {
    return m_desk.game().project.settings;
}
const ToolBox &DeskViewHost::box(int box) const {
    return m_desk.game().desk.Box(box);
}

const ToolChrome *DeskViewHost::chrome(int box) const {
    const Desk &desk = m_desk.game().desk;
    const int c = ChromeOf(desk, box);
    return c ? &desk.Chrome[static_cast<std::size_t>(c)] : nullptr;
}

std::vector<std::pair<int, const ElementControl *>> DeskViewHost::elements(int box) const {
    const Desk &desk = m_desk.game().desk;
    std::vector<std::pair<int, const ElementControl *>> standing;
    for (int row : desk.TLinkRows())
        if (const ElementControl *c = desk.Control(row); c && c->box == box)
            standing.emplace_back(row, c);
    return standing;
}

std::vector<QonsoleScreenLine> DeskViewHost::qonsoleLines(int row) const {
    return QonsoleScreen(m_desk.game().desk, row);
}

bool DeskViewHost::hasKeys(int row) const {
    return m_desk.game().desk.consoles.focus == row;
}

bool DeskViewHost::hasAction(int row) const {
    return !IsBlank(m_desk.game().project.Element(row)[kActionColumn]);
}

bool DeskViewHost::movable(int box) const {
    const Desk &desk = m_desk.game().desk;
    return !InStr(desk.NoMoveList, ":" + desk.Box(box).tag + ":");
}

ElementControl *DeskViewHost::control(int row) const {
    return m_desk.playing() ? m_desk.game().desk.Control(row) : nullptr;
}

// A press: the consoles lose the keys and the element's tool comes to the front.
void DeskViewHost::pressed(int row, bool takeFocus) {
    m_desk.run([row, takeFocus](Game &game) {
        const ElementControl *c = game.desk.Control(row);
        if (!c) return;
        if (takeFocus) game.desk.focusRow = row;
        ToolPress(game, c->box);
    });
}

void DeskViewHost::clicked(int row) {
    const ElementControl *c = control(row);
    if (!c) return;
    switch (c->kind) {
    case ElementKind::Button:
        return m_desk.run([row](Game &game) { ButtonClick(game, row); });
    case ElementKind::Image:
        return m_desk.run([row](Game &game) { ImageClick(game, row); });
    case ElementKind::List:
        return m_desk.run([row](Game &game) { ListClick(game, row); });
    case ElementKind::Qonsole:
        return m_desk.run([row](Game &game) { QonsoleClick(game, row); });
    default:
        return;
    }
}

void DeskViewHost::doubleClicked(int row) {
    m_desk.run([row](Game &game) { LabelDoubleClick(game, row); });
}

// A right click on a label or a list offers its text to the quicklist's pop-up menu.
void DeskViewHost::rightClicked(int row, const QPoint &globalPos) {
    const ElementControl *c = control(row);
    if (!c) return;
    if (c->kind == ElementKind::List)
        m_desk.run([row](Game &game) { ListRightClick(game, row); });
    else
        m_desk.run([row](Game &game) { LabelRightClick(game, row); });
    m_desk.showQuickMenu(globalPos);
}

void DeskViewHost::listPressed(int row, int index) {
    m_desk.run([row, index](Game &game) {
        ElementControl *c = game.desk.Control(row);
        if (!c) return;
        game.desk.focusRow = row;
        ToolPress(game, c->box);
        if (index >= 0 && index < static_cast<int>(c->items.size())) {
            c->listIndex = index;
            c->text = c->items[static_cast<std::size_t>(index)];
        }
    });
}

// Typing changes the control in place: the engine runs no statement for it.
void DeskViewHost::textEdited(int row, const std::string &text) {
    if (ElementControl *c = control(row)) c->text = text;
}

void DeskViewHost::selectionChanged(int row, std::size_t start, std::size_t length) {
    if (ElementControl *c = control(row)) {
        c->selStart = start;
        c->selLength = length;
    }
}

void DeskViewHost::focused(int row) {
    if (m_desk.playing()) m_desk.game().desk.focusRow = row;
}

void DeskViewHost::hovered() {
    if (m_desk.playing()) m_desk.game().desk.consoles.focus = 0;
}

void DeskViewHost::toolPressed(int box) {
    m_desk.run([box](Game &game) { ToolPress(game, box); });
}

void DeskViewHost::toolMoved(int box, std::int32_t left, std::int32_t top) {
    if (!m_desk.playing()) return;
    ToolBox &moved = m_desk.game().desk.Box(box);
    moved.left = left;
    moved.top = top;
    m_desk.run([](Game &) {});
}

void DeskViewHost::toolDropped(int box) {
    m_desk.run([box](Game &game) { SetToolerSel(game, box, true); });
}

void DeskViewHost::toolClosed(int box) {
    m_desk.run([box](Game &game) {
        if (const int c = ChromeOf(game.desk, box)) UnloadBox(game, c);
    });
}

} // namespace orrery
