// The tool editor's page of qlobs: the list, a new one by name, removal, and a qlob's
// statements edited one a line.
#pragma once

#include "editor/qt/pageparts.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace orrery {

class SequenceEdit;

class QlobPage : public EditorPage {
    Q_OBJECT
public:
    explicit QlobPage(EditorContext context, QWidget *parent = nullptr);
    void Reload() override;
    bool ShowItem(const FindingPlace &place) override;

    // Asks for a name and adds an empty qlob under it.
    void NewQlob();
    // Asks first, then removes the selected qlob.
    void RemoveQlob();
    // Stores the edit box's lines as the selected qlob's statements.
    void SaveManualEdits();
    void ShowSpecialVars();
    // The action editor on the selected qlob; its save is one step.
    void AssignActions();

private:
    void ShowSelected();

    QListWidget *m_list;
    QLineEdit *m_name;
    SequenceEdit *m_statements;
    QPushButton *m_remove;
    QPushButton *m_save;
    QPushButton *m_assign;
    Shown m_shown;
};

} // namespace orrery
