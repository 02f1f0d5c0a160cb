// The variables page.
#include "editor/qt/variablepage.h"

#include "check/check.h"

#include "editor/qt/shellparts.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/words.h"
#include "widgets/look.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orrery {

namespace {

// Keeps a column from being edited in place.
class NoEditing : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget *createEditor(QWidget *, const QStyleOptionViewItem &,
                          const QModelIndex &) const override {
        return nullptr;
    }
};

void Select(QTreeWidget *list, const QString &name) {
    const QList<QTreeWidgetItem *> found = list->findItems(name, Qt::MatchFixedString);
    if (!found.isEmpty()) list->setCurrentItem(found.front());
}

} // namespace

VariablePage::VariablePage(EditorContext context, QWidget *parent)
    : EditorPage(std::move(context), parent), m_list(new QTreeWidget), m_name(new QLineEdit),
      m_value(new QLineEdit) {
    setObjectName("pageVariables");
    m_list->setObjectName("List3");
    m_list->setHeaderLabels({tr("Variable"), tr("Default value")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_name->setObjectName("Text1");
    m_name->setPlaceholderText(tr("$name"));
    m_value->setObjectName("Text2");
    auto *add = PageButton(tr("Add Variable"), "cmdAddVar");
    add->setDefault(true);
    m_remove = PageButton(tr("Remove Variable"), "cmdRemoveVar");

    auto *form = new QFormLayout;
    form->addRow(tr("Name"), m_name);
    form->addRow(tr("Default value"), m_value);
    auto *fields = new QVBoxLayout;
    fields->addLayout(form);
    fields->addLayout(ButtonRow({}, {add}));
    fields->addStretch();
    QGridLayout *page = TwoColumns(this, 3, 2);
    page->addWidget(Caption(tr("Variables with their values at the start of a game")), 0, 0);
    page->addWidget(Caption(tr("New variable")), 0, 1);
    page->addWidget(m_list, 1, 0);
    page->addLayout(fields, 1, 1);
    page->addLayout(ButtonRow({m_remove}), 2, 0);
    page->setRowStretch(1, 1);

    connect(m_list, &QTreeWidget::itemSelectionChanged, this,
            [this] { m_remove->setEnabled(!SelectedName().isEmpty()); });
    // The default value is edited where it stands; the name is the variable's identity.
    m_list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_list->setItemDelegateForColumn(0, new NoEditing(m_list));
    connect(m_list, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item, int column) {
        if (column != 1) return;
        // After the item's editor has closed: the step rebuilds the list and may show a box.
        QMetaObject::invokeMethod(
            this,
            [this, name = item->text(0), value = item->text(1)] {
                if (!Apply(SetVarValue(model(), FromQString(name), FromQString(value)))) Reload();
            },
            Qt::QueuedConnection);
    });
    connect(add, &QPushButton::clicked, this, &VariablePage::AddVariable);
    connect(m_value, &QLineEdit::returnPressed, this, &VariablePage::AddVariable);
    connect(m_remove, &QPushButton::clicked, this, &VariablePage::RemoveVariable);
    Reload();
}

void VariablePage::Reload() {
    const QString selected = SelectedName();
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Variable &variable : model().VariableTable)
            if (!IsBlank(variable.name)) {
                auto *item = new QTreeWidgetItem(
                    QStringList{ToQString(variable.name), ToQString(variable.value)});
                item->setFlags(item->flags() | Qt::ItemIsEditable);
                m_list->addTopLevelItem(item);
            }
        if (!selected.isEmpty()) Select(m_list, selected);
    }
    m_remove->setEnabled(!SelectedName().isEmpty());
}

QString VariablePage::SelectedName() const {
    const QList<QTreeWidgetItem *> selected = m_list->selectedItems();
    return selected.isEmpty() ? QString() : selected.front()->text(0);
}

void VariablePage::AddVariable() {
    QString name = m_name->text().trimmed();
    if (name.isEmpty() || !Apply(AddXVar(model(), FromQString(name), FromQString(m_value->text()))))
        return;
    if (!name.startsWith('$')) name.prepend('$');
    Select(m_list, name);
    m_name->clear();
    m_value->clear();
    m_name->setFocus();
}

void VariablePage::RemoveVariable() {
    const QString name = SelectedName();
    if (name.isEmpty() || !Ask(this, words::kRemoveItem)) return;
    Apply(RemoveVar(model(), FromQString(name)));
}

bool VariablePage::ShowItem(const FindingPlace &place) {
    if (place.kind != FindingPlace::Kind::Variable) return false;
    Select(m_list, ToQString(place.name));
    return true;
}

} // namespace orrery
