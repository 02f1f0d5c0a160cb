// The qlobs page.
#include "editor/qt/qlobpage.h"

#include "check/check.h"

#include "actions/catalogue.h"
#include "editor/actions.h"
#include "editor/qt/actioneditor.h"
#include "editor/qt/sequenceedit.h"
#include "editor/qt/shellparts.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "widgets/look.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace orrery {

namespace {

// A qlob's record is its name, a blank, then its statements.
std::string_view RecordName(std::string_view record) {
    record = TrimView(record);
    return record.substr(0, record.find(' '));
}

std::string_view RecordStatements(std::string_view record) {
    record = TrimView(record);
    const std::size_t blank = record.find(' ');
    return blank == std::string_view::npos ? std::string_view() : record.substr(blank + 1);
}

} // namespace

QlobPage::QlobPage(EditorContext context, QWidget *parent)
    : EditorPage(std::move(context), parent), m_list(new QListWidget), m_name(new QLineEdit),
      m_statements(new SequenceEdit) {
    setObjectName("pageQlobs");
    m_list->setObjectName("qlist");
    m_name->setObjectName("elq");
    m_name->setReadOnly(true);
    m_statements->setObjectName("Text5");
    auto *add = PageButton(tr("New Qlob"), "Command31");
    m_remove = PageButton(tr("Remove"), "Command32");
    m_save = PageButton(tr("Save Manual Edits"), "Command34");
    auto *special = PageButton(tr("Show Special Vars"), "Command33");
    m_assign = PageButton(tr("Assign Actions..."), "cmdQlobActions");

    m_statements->setPlaceholderText(tr("The qlob's statements, one a line"));

    auto *name = new QFormLayout;
    name->addRow(tr("Name"), m_name);
    QGridLayout *page = TwoColumns(this, 1, 2);
    page->addWidget(Caption(tr("Qlobs")), 0, 0);
    page->addLayout(name, 0, 1);
    page->addWidget(m_list, 1, 0);
    page->addWidget(m_statements, 1, 1);
    page->addLayout(ButtonRow({add, m_remove}), 2, 0);
    page->addLayout(ButtonRow({special}, {m_assign, m_save}), 2, 1);
    page->setRowStretch(1, 1);

    connect(m_list, &QListWidget::itemSelectionChanged, this, &QlobPage::ShowSelected);
    connect(add, &QPushButton::clicked, this, &QlobPage::NewQlob);
    connect(m_remove, &QPushButton::clicked, this, &QlobPage::RemoveQlob);
    connect(m_save, &QPushButton::clicked, this, &QlobPage::SaveManualEdits);
    connect(special, &QPushButton::clicked, this, &QlobPage::ShowSpecialVars);
    connect(m_assign, &QPushButton::clicked, this, &QlobPage::AssignActions);
    Reload();
}

void QlobPage::Reload() {
    QStringList names;
    for (const std::string &record : model().QlobTable)
        if (!IsBlank(record)) names << ToQString(RecordName(record));
    Refill(m_list, names);
    ShowSelected();
}

void QlobPage::ShowSelected() {
    const std::string name = FromQString(SelectedText(m_list));
    const int slot = FindQlobByName(model(), name);
    const std::string_view statements = slot ? RecordStatements(model().QlobTable[slot]) : "";
    m_name->setText(ToQString(name));
    if (m_shown.Changed(name, statements)) m_statements->setSequence(statements);
    m_statements->setEnabled(slot != 0);
    m_remove->setEnabled(slot != 0);
    m_save->setEnabled(slot != 0);
    m_assign->setEnabled(slot != 0);
}

void QlobPage::AssignActions() {
    const std::string name = FromQString(SelectedText(m_list));
    if (name.empty()) return;
    ActionEditor editor(context(), {SequencePlace::Kind::Qlob, "", name}, this);
    if (editor.exec() == QDialog::Accepted) Reload();
}

void QlobPage::NewQlob() {
    bool ok = false;
    const QString typed = QInputDialog::getText(
        this, tr("New Qlob"), ToQString(words::kQlobNamePrompt), QLineEdit::Normal, QString(), &ok);
    if (!ok || !Apply(AddQlob(model(), FromQString(typed)))) return;
    SelectText(m_list, ToQString(QlobName(FromQString(typed))));
    m_statements->setFocus();
}

void QlobPage::RemoveQlob() {
    const std::string name = FromQString(SelectedText(m_list));
    if (name.empty() || !Ask(this, words::kRemoveQlob)) return;
    Apply(orrery::RemoveQlob(model(), name));
}

void QlobPage::SaveManualEdits() {
    const std::string name = FromQString(SelectedText(m_list));
    // A qlob read from a file in small letters is written back under its upper-case name.
    if (!name.empty() && Apply(SetQlob(model(), name, m_statements->sequence())))
        SelectText(m_list, ToQString(QlobName(name)));
}

void QlobPage::ShowSpecialVars() {
    ShowMessage(this, {std::string(kSpecialVariablesCaption), SpecialVariablesText()});
}

bool QlobPage::ShowItem(const FindingPlace &place) {
    if (place.kind != FindingPlace::Kind::Qlob) return false;
    const int slot = FindQlobByName(model(), place.name);
    if (!slot) return false;
    SelectText(m_list, ToQString(RecordName(model().QlobTable[slot])));
    ShowSelected();
    ShowLine(m_statements, place.statement);
    return true;
}

} // namespace orrery
