// The side menu page.
#include "editor/qt/sidemenupage.h"

#include "editor/session.h"
#include "editor/tools.h"
#include "project/elementprops.h"
#include "widgets/look.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orrery {

namespace {

constexpr int kSlotRole = Qt::UserRole;

int SlotOf(const QTreeWidgetItem *item) {
    return item ? item->data(SideMenuPage::kTool, kSlotRole).toInt() : 0;
}

QTreeWidgetItem *ToolItem(const ProjectSettings &settings, const std::string &name, int slot) {
    auto *item = new QTreeWidgetItem(QStringList{ToQString(name)});
    item->setData(SideMenuPage::kTool, kSlotRole, slot);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    const auto check = [](bool on) { return on ? Qt::Checked : Qt::Unchecked; };
    item->setCheckState(SideMenuPage::kExcluded, check(SideMenuExcluded(settings, name)));
    item->setCheckState(SideMenuPage::kHidden, check(SideMenuHidden(settings, name)));
    return item;
}

} // namespace

SideMenuPage::SideMenuPage(EditorContext context, QWidget *parent)
    : EditorPage(std::move(context), parent), m_list(new QTreeWidget) {
    setObjectName("pageSideMenu");
    m_list->setObjectName("lstSideMenu");
    m_list->setHeaderLabels({tr("Tool"), tr("Not in the side menu"), tr("Hidden")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(kTool, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(kExcluded, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(kHidden, QHeaderView::ResizeToContents);
    m_up = PageButton(tr("Move Up"), "cmdMoveUp");
    m_down = PageButton(tr("Move Down"), "cmdMoveDown");

    auto *page = new QVBoxLayout(this);
    PageMargins(page);
    page->addWidget(Caption(
        tr("The tools in the order of the side menu. A tool kept out of the side menu has no "
           "entry there; a hidden tool's entry is there but the player can't see it. A "
           "sequence can open either.")));
    page->addWidget(m_list, 1);
    page->addLayout(ButtonRow({m_up, m_down}));

    connect(m_list, &QTreeWidget::itemChanged, this, &SideMenuPage::Toggled);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &SideMenuPage::ShowMovers);
    connect(m_up, &QPushButton::clicked, this, &SideMenuPage::MoveItemUp);
    connect(m_down, &QPushButton::clicked, this, &SideMenuPage::MoveItemDown);
    Reload();
}

void SideMenuPage::Reload() {
    const QTreeWidgetItem *current = m_list->currentItem();
    const QString selectedName = current ? current->text(kTool) : QString();
    const int selectedSlot = SlotOf(current);
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        const ProjectModel &m = model();
        for (int slot = 1; slot <= decltype(m.ToolNameTable)::kSize; ++slot)
            if (!IsBlank(m.ToolNameTable[slot]))
                m_list->addTopLevelItem(ToolItem(m.settings, m.ToolNameTable[slot], slot));
        // The tool keeps the selection wherever it now stands; of repeated separators, the one
        // in the same slot.
        QTreeWidgetItem *again = nullptr;
        for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
            QTreeWidgetItem *item = m_list->topLevelItem(row);
            if (item->text(kTool) != selectedName) continue;
            if (!again || SlotOf(item) == selectedSlot) again = item;
        }
        if (again) m_list->setCurrentItem(again);
    }
    ShowMovers();
}

void SideMenuPage::ShowMovers() {
    const int row = m_list->currentItem() ? m_list->indexOfTopLevelItem(m_list->currentItem()) : -1;
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_list->topLevelItemCount());
}

// The step waits until the list has finished with the item it is changing, since showing the
// model again makes new items.
void SideMenuPage::Toggled(QTreeWidgetItem *item, int column) {
    if (column != kExcluded && column != kHidden) return;
    const std::string name = FromQString(item->text(kTool));
    const bool on = item->checkState(column) == Qt::Checked;
    QMetaObject::invokeMethod(
        this,
        [this, name, column, on] {
            const bool made = Apply(column == kExcluded ? ExcludeTool(model(), name, on)
                                                        : HideTool(model(), name, on));
            if (!made) Reload();
        },
        Qt::QueuedConnection);
}

void SideMenuPage::MoveItemUp() {
    Move(true);
}

void SideMenuPage::MoveItemDown() {
    Move(false);
}

void SideMenuPage::Move(bool up) {
    QTreeWidgetItem *item = m_list->currentItem();
    if (!item) return;
    const int row = m_list->indexOfTopLevelItem(item) + (up ? -1 : 1);
    if (!Apply(MoveTool(model(), SlotOf(item), up))) return;
    if (QTreeWidgetItem *moved = m_list->topLevelItem(row)) m_list->setCurrentItem(moved);
}

} // namespace orrery
