// The tool events page.
#include "editor/qt/toolsubpage.h"

#include "check/check.h"
#include "editor/actions.h"
#include "editor/qt/actioneditor.h"
#include "editor/qt/sequenceedit.h"
#include "editor/qt/shellparts.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "project/elementprops.h"
#include "widgets/look.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

namespace orrery {

ToolSubPage::ToolSubPage(EditorContext context, QWidget *parent)
    : EditorPage(std::move(context), parent), m_tool(new QComboBox), m_subs(new QListWidget),
      m_key(new QLabel), m_statements(new SequenceEdit) {
    setObjectName("pageToolSubs");
    m_tool->setObjectName("cboTool");
    m_tool->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_subs->setObjectName("lstSubs");
    for (std::string_view sub : kToolSubs) m_subs->addItem(ToQString(sub));
    m_key->setObjectName("lblSubKey");
    m_statements->setObjectName("txtSub");
    auto *assign = PageButton(tr("Assign Commands"), "cmdAssignSub");
    auto *actions = PageButton(tr("Assign Actions..."), "cmdSubActions");

    auto *tool = new QFormLayout;
    tool->addRow(tr("Tool"), m_tool);
    QGridLayout *page = TwoColumns(this, 1, 2);
    page->addLayout(tool, 0, 0);
    page->addWidget(m_key, 0, 1);
    page->addWidget(m_subs, 1, 0);
    page->addWidget(m_statements, 1, 1);
    page->addLayout(ButtonRow({}, {actions, assign}), 2, 1);
    page->setRowStretch(1, 1);

    connect(m_tool, &QComboBox::currentIndexChanged, this, &ToolSubPage::ShowSelected);
    connect(m_subs, &QListWidget::itemSelectionChanged, this, &ToolSubPage::ShowSelected);
    connect(assign, &QPushButton::clicked, this, &ToolSubPage::OpenAnAssignments);
    connect(actions, &QPushButton::clicked, this, &ToolSubPage::AssignActions);
    Reload();
}

void ToolSubPage::Reload() {
    const QString tool = m_tool->currentText();
    {
        const QSignalBlocker quiet(m_tool);
        m_tool->clear();
        // A name beginning "-" is a divider of the side menu, not a tool.
        for (const std::string &name : ToolNames(model()))
            if (!name.starts_with('-')) m_tool->addItem(ToQString(name));
        m_tool->setCurrentIndex(std::max(0, m_tool->findText(tool)));
    }
    ShowSelected();
}

void ToolSubPage::ShowSelected() {
    const std::string tool = FromQString(m_tool->currentText());
    const std::string sub = FromQString(SelectedText(m_subs));
    // An event that has a sequence stands in bold.
    for (int row = 0; row < m_subs->count(); ++row) {
        QListWidgetItem *item = m_subs->item(row);
        QFont font = item->font();
        font.setBold(!ToolSubSequence(model(), tool, FromQString(item->text())).empty());
        item->setFont(font);
    }
    const bool picked = !tool.empty() && !sub.empty();
    const std::string key = picked ? ToolTag(tool) + ":" + sub : std::string();
    m_key->setText(picked ? tr("Statements for %1, one a line").arg(ToQString(key))
                          : tr("Pick a tool and an event."));
    const std::string sequence = picked ? ToolSubSequence(model(), tool, sub) : std::string();
    if (m_shown.Changed(key, sequence)) m_statements->setSequence(sequence);
    m_statements->setEnabled(picked);
}

void ToolSubPage::OpenAnAssignments() {
    const std::string sub = FromQString(SelectedText(m_subs));
    if (sub.empty()) return ShowMessage(this, words::kNoSubChosen);
    Apply(SetToolSub(model(), FromQString(m_tool->currentText()), sub, m_statements->sequence()));
}

bool ToolSubPage::ShowItem(const FindingPlace &place) {
    if (place.kind != FindingPlace::Kind::ToolSub) return false;
    // The place names the tool by its tag, as the assignment is keyed.
    const std::size_t colon = place.name.rfind(':');
    if (colon == std::string::npos) return false;
    const std::string tag = ToolTag(place.name.substr(0, colon));
    for (int i = 0; i < m_tool->count(); ++i)
        if (ToolTag(FromQString(m_tool->itemText(i))) == tag) m_tool->setCurrentIndex(i);
    SelectText(m_subs, ToQString(NormText(place.name.substr(colon + 1))));
    ShowSelected();
    ShowLine(m_statements, place.statement);
    return true;
}

void ToolSubPage::AssignActions() {
    const std::string sub = FromQString(SelectedText(m_subs));
    const std::string tool = FromQString(m_tool->currentText());
    if (sub.empty() || tool.empty()) return ShowMessage(this, words::kNoSubChosen);
    ActionEditor editor(context(), {SequencePlace::Kind::ToolSub, tool, sub}, this);
    if (editor.exec() == QDialog::Accepted) Reload();
}

} // namespace orrery
