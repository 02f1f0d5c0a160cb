// The start-up page.
#include "editor/qt/startuppage.h"

#include "check/check.h"
#include "editor/actions.h"
#include "editor/qt/actioneditor.h"
#include "editor/qt/sequenceedit.h"
#include "editor/sequences.h"
#include "editor/session.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orrery {

StartupPage::StartupPage(EditorContext context, QWidget *parent)
    : EditorPage(std::move(context), parent), m_statements(new SequenceEdit) {
    setObjectName("pageStartup");
    m_statements->setObjectName("txtMainLoad");
    auto *assign = PageButton(tr("Assign Startup Commands and Properties"), "Command19");
    auto *page = new QVBoxLayout(this);
    PageMargins(page);
    page->addWidget(Caption(tr("Statements run when the game desktop has loaded, one a line: "
                               "the place to set up a new game's tools and properties.")));
    page->addWidget(m_statements, 1);
    auto *actions = PageButton(tr("Assign Actions..."), "cmdStartupActions");
    page->addLayout(ButtonRow({}, {actions, assign}));
    connect(assign, &QPushButton::clicked, this, &StartupPage::AssignStartup);
    connect(actions, &QPushButton::clicked, this, [this] {
        ActionEditor editor(this->context(), {SequencePlace::Kind::MainLoad, "", ""}, this);
        if (editor.exec() == QDialog::Accepted) Reload();
    });
    Reload();
}

void StartupPage::Reload() {
    const std::string &stored = model().settings.mymainsubload;
    if (m_shown.Changed("", stored)) m_statements->setSequence(stored);
}

void StartupPage::AssignStartup() {
    Apply(SetMainLoad(model(), m_statements->sequence()));
}

bool StartupPage::ShowItem(const FindingPlace &place) {
    if (place.kind != FindingPlace::Kind::MainLoad) return false;
    ShowLine(m_statements, place.statement);
    return true;
}

} // namespace orrery
