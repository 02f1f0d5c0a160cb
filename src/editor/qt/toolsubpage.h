// The tool editor's page of tool events: for a tool and one of its events (opening, closing,
// the timed ones), the sequence assigned to it.
#pragma once

#include "editor/qt/pageparts.h"

class QComboBox;
class QLabel;
class QListWidget;

namespace orrery {

class SequenceEdit;

class ToolSubPage : public EditorPage {
    Q_OBJECT
public:
    explicit ToolSubPage(EditorContext context, QWidget *parent = nullptr);
    void Reload() override;
    bool ShowItem(const FindingPlace &place) override;

    // Assigns the edit box's statements to the picked tool and event; without an event picked,
    // says how.
    void OpenAnAssignments();
    // The action editor on the picked tool's event; its save is one step.
    void AssignActions();

private:
    void ShowSelected();

    QComboBox *m_tool;
    QListWidget *m_subs;
    QLabel *m_key;
    SequenceEdit *m_statements;
    Shown m_shown;
};

} // namespace orrery
