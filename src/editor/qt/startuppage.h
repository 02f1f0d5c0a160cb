// The tool editor's page of the start-up sequence, run when the game desktop has loaded.
#pragma once

#include "editor/qt/pageparts.h"

namespace orrery {

class SequenceEdit;

class StartupPage : public EditorPage {
    Q_OBJECT
public:
    explicit StartupPage(EditorContext context, QWidget *parent = nullptr);
    void Reload() override;
    bool ShowItem(const FindingPlace &place) override;

    // Stores the edit box's lines as the start-up sequence.
    void AssignStartup();

private:
    SequenceEdit *m_statements;
    Shown m_shown;
};

} // namespace orrery
