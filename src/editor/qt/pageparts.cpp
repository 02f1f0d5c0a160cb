// The tool editor pages' common parts.
#include "editor/qt/pageparts.h"

#include "editor/session.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QSignalBlocker>

namespace orrery {

EditorPage::EditorPage(EditorContext context, QWidget *parent)
    : QWidget(parent), m_context(std::move(context)) {}

ProjectModel &EditorPage::model() {
    return m_context.session->model();
}

bool EditorPage::Apply(Outcome outcome) {
    if (!m_context.apply(std::move(outcome))) return false;
    Reload();
    return true;
}

void PageMargins(QLayout *layout) {
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
}

QGridLayout *TwoColumns(QWidget *page, int left, int right) {
    auto *grid = new QGridLayout(page);
    PageMargins(grid);
    grid->setColumnStretch(0, left);
    grid->setColumnStretch(1, right);
    return grid;
}

QPushButton *PageButton(const QString &caption, const char *name) {
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

QLabel *Caption(const QString &text) {
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

QHBoxLayout *ButtonRow(std::initializer_list<QWidget *> left,
                       std::initializer_list<QWidget *> right) {
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    for (QWidget *widget : left) row->addWidget(widget);
    row->addStretch();
    for (QWidget *widget : right) row->addWidget(widget);
    return row;
}

QString SelectedText(const QListWidget *list) {
    const QList<QListWidgetItem *> selected = list->selectedItems();
    return selected.isEmpty() ? QString() : selected.front()->text();
}

void SelectText(QListWidget *list, const QString &text) {
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
    if (!found.isEmpty()) list->setCurrentItem(found.front());
}

void ShowLine(QPlainTextEdit *edit, int line) {
    if (line < 1) return;
    const QTextBlock block = edit->document()->findBlockByNumber(line - 1);
    if (!block.isValid()) return;
    edit->setTextCursor(QTextCursor(block));
    edit->centerCursor();
    edit->setFocus();
}

void Refill(QListWidget *list, const QStringList &texts) {
    const QString selected = SelectedText(list);
    const QSignalBlocker quiet(list);
    list->clear();
    list->addItems(texts);
    if (!selected.isEmpty()) SelectText(list, selected);
}

bool Shown::Changed(std::string_view item, std::string_view value) {
    if (m_any && item == m_item && value == m_value) return false;
    m_item = item;
    m_value = value;
    m_any = true;
    return true;
}

} // namespace orrery
