// The condition dialog.
#include "editor/qt/conditiondialog.h"

#include "editor/actions.h"
#include "editor/qt/shellparts.h"
#include "widgets/look.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace orrery {

namespace {

// A list of what a side can name: a click puts the entry, cut before its caption, in the field.
QListWidget *SideList(const char *name, const QStringList &entries, QLineEdit *field) {
    auto *list = new QListWidget;
    list->setObjectName(name);
    list->addItems(entries);
    list->setMinimumHeight(180);
    QObject::connect(list, &QListWidget::itemClicked, field, [field](QListWidgetItem *item) {
        const QString entry = item->text();
        field->setText(entry.left(entry.indexOf('(') < 0 ? entry.size() : entry.indexOf('(')).trimmed());
    });
    return list;
}

} // namespace

ConditionDialog::ConditionDialog(const ProjectModel &model, QWidget *parent)
    : QDialog(parent), m_operators(new QListWidget), m_left(new QLineEdit),
      m_right(new QLineEdit), m_loop(new QCheckBox(tr("Loop to"))), m_loopTo(new QLineEdit) {
    setObjectName("zAddCondition");
    setWindowTitle(tr("Add Condition"));
    m_operators->setObjectName("lb");
    m_operators->addItems({"=", "<", ">"});
    m_operators->setCurrentRow(0);
    m_operators->setFixedWidth(56);
    m_left->setObjectName("Text1");
    m_right->setObjectName("Text2");
    m_loop->setObjectName("Check1");
    m_loopTo->setObjectName("Text3");
    m_loopTo->setEnabled(false);
    m_loopTo->setMaximumWidth(80);

    QStringList entries;
    for (const std::string &name : VariableNames(model)) entries << ToQString(name);
    for (const std::string &element : LoadAllELE(model)) entries << ToQString(element);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(14, 14, 14, 14);
    grid->setHorizontalSpacing(10);
    grid->addWidget(new QLabel(tr("Left side")), 0, 0);
    grid->addWidget(new QLabel(tr("Operator")), 0, 1);
    grid->addWidget(new QLabel(tr("Right side")), 0, 2);
    grid->addWidget(m_left, 1, 0);
    grid->addWidget(m_right, 1, 2);
    grid->addWidget(SideList("List1", entries, m_left), 2, 0);
    grid->addWidget(m_operators, 1, 1, 2, 1);
    grid->addWidget(SideList("List2", entries, m_right), 2, 2);
    auto *loop = new QHBoxLayout;
    loop->addWidget(m_loop);
    loop->addWidget(m_loopTo);
    loop->addWidget(new QLabel(tr("one condition for each number after the right side, up to this")), 1);
    grid->addLayout(loop, 3, 0, 1, 3);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("Command1");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("Command2");
    grid->addWidget(buttons, 4, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);

    connect(m_loop, &QCheckBox::toggled, m_loopTo, &QLineEdit::setEnabled);
    connect(buttons, &QDialogButtonBox::accepted, this, &ConditionDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ConditionDialog::reject);
    resize(620, 380);
}

void ConditionDialog::accept() {
    const QListWidgetItem *op = m_operators->currentItem();
    const BuiltConditions built = BuildConditions(
        {FromQString(m_left->text()), op ? FromQString(op->text()) : std::string(),
         FromQString(m_right->text()), m_loop->isChecked(), FromQString(m_loopTo->text())});
    if (built.refusal) return ShowMessage(this, *built.refusal);
    m_conditions = built.conditions;
    QDialog::accept();
}

void ConditionDialog::reject() {
    m_conditions.clear();
    QDialog::reject();
}

} // namespace orrery
