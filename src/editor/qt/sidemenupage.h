// The tool editor's page of the side menu: the tools in its order, each kept out of it or
// hidden in it, and moved up or down.
#pragma once

#include "editor/qt/pageparts.h"

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace orrery {

class SideMenuPage : public EditorPage {
    Q_OBJECT
public:
    // The list's columns.
    enum Column { kTool, kExcluded, kHidden };

    explicit SideMenuPage(EditorContext context, QWidget *parent = nullptr);
    void Reload() override;

    // Moves the selected tool one place up or down the side menu.
    void MoveItemUp();
    void MoveItemDown();

private:
    void Toggled(QTreeWidgetItem *item, int column);
    void Move(bool up);
    void ShowMovers();

    QTreeWidget *m_list;
    QPushButton *m_up;
    QPushButton *m_down;
};

} // namespace orrery
