// The number box, the colour button and the list dialog of the property panel.
#include "editor/qt/propertyeditors.h"

#include "widgets/look.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace orrery {

NumberBox::NumberBox(QWidget *parent) : QSpinBox(parent) {
    setKeyboardTracking(false);
    // A wheel turned over the panel scrolls it; only a box with the focus takes the wheel.
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lineEdit()->setPlaceholderText(tr("(mixed)"));
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_edited = true;
        m_mixed = false;
    });
    connect(this, &QAbstractSpinBox::editingFinished, this, &NumberBox::Flush);
}

void NumberBox::Show(std::optional<int> value) {
    m_edited = false;
    m_mixed = !value;
    const QSignalBlocker quiet(this);
    if (value) setValue(*value);
    // The text follows the value only when it changes: a mixed box that kept its value, or
    // one coming back from mixed to the same value, is told to write its text again.
    lineEdit()->setText(textFromValue(this->value()));
}

bool NumberBox::Flush() {
    if (!m_edited) return false;
    m_edited = false;
    emit committed(value(), false);
    return true;
}

QString NumberBox::textFromValue(int value) const {
    return m_mixed ? QString() : QSpinBox::textFromValue(value);
}

void NumberBox::stepBy(int steps) {
    m_mixed = false;
    m_edited = false;
    QSpinBox::stepBy(steps);
    emit committed(value(), true);
}

void NumberBox::wheelEvent(QWheelEvent *event) {
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

namespace {

QIcon Swatch(const std::optional<QColor> &colour) {
    QPixmap swatch(28, 14);
    swatch.fill(Qt::transparent);
    QPainter painter(&swatch);
    const QRect box = swatch.rect().adjusted(0, 0, -1, -1);
    if (colour) {
        painter.fillRect(box, *colour);
    } else {
        // Values that differ: a hatched box.
        painter.fillRect(box, Qt::white);
        painter.fillRect(box, QBrush(Qt::gray, Qt::BDiagPattern));
    }
    painter.setPen(QColor(0, 0, 0, 110));
    painter.drawRect(box);
    return QIcon(swatch);
}

} // namespace

ColourButton::ColourButton(QWidget *parent) : QToolButton(parent) {
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize(QSize(28, 14));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    Show(QColor(Qt::black));
}

void ColourButton::Show(std::optional<QColor> colour) {
    m_colour = colour;
    setIcon(Swatch(colour));
    setText(colour ? colour->name(QColor::HexRgb).toUpper() : tr("(mixed)"));
}

ItemListDialog::ItemListDialog(const QString &title, const QString &hint,
                               const std::vector<std::string> &items,
                               std::vector<std::string> defaults, QWidget *parent)
    : QDialog(parent), m_list(new QListWidget), m_remove(new QPushButton(tr("&Remove"))),
      m_up(new QPushButton(tr("Move &Up"))), m_down(new QPushButton(tr("Move &Down"))),
      m_defaults(std::move(defaults)) {
    setObjectName("frmItems");
    setWindowTitle(title);
    m_list->setObjectName("lstItems");
    m_list->setAlternatingRowColors(true);
    m_list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    auto *add = new QPushButton(tr("&Add"));
    add->setObjectName("cmdAdd");
    m_remove->setObjectName("cmdRemove");
    m_up->setObjectName("cmdUp");
    m_down->setObjectName("cmdDown");
    connect(add, &QPushButton::clicked, this, &ItemListDialog::Add);
    connect(m_remove, &QPushButton::clicked, this, &ItemListDialog::Remove);
    connect(m_up, &QPushButton::clicked, this, [this] { Move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { Move(1); });
    connect(m_list, &QListWidget::currentRowChanged, this, &ItemListDialog::UpdateButtons);

    auto *side = new QVBoxLayout;
    for (QPushButton *button : {add, m_remove, m_up, m_down}) side->addWidget(button);
    side->addStretch();
    if (!m_defaults.empty()) {
        auto *reset = new QPushButton(tr("De&faults"));
        reset->setObjectName("cmdDefaults");
        reset->setToolTip(tr("Put back the entries a new one starts with"));
        connect(reset, &QPushButton::clicked, this, &ItemListDialog::PutBackDefaults);
        side->addWidget(reset);
    }
    auto *middle = new QHBoxLayout;
    middle->addWidget(m_list, 1);
    middle->addLayout(side);

    auto *note = new QLabel(hint);
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(middle, 1);
    layout->addWidget(note);
    layout->addWidget(buttons);
    resize(440, 320);
    Fill(items);
}

void ItemListDialog::Fill(const std::vector<std::string> &items) {
    m_list->clear();
    for (const std::string &item : items) {
        auto *entry = new QListWidgetItem(ToQString(item), m_list);
        entry->setFlags(entry->flags() | Qt::ItemIsEditable);
    }
    m_list->setCurrentRow(m_list->count() ? 0 : -1);
    UpdateButtons();
}

std::vector<std::string> ItemListDialog::items() const {
    std::vector<std::string> entries;
    for (int i = 0; i < m_list->count(); ++i) {
        const QString text = m_list->item(i)->text().trimmed();
        if (!text.isEmpty()) entries.push_back(FromQString(text));
    }
    return entries;
}

void ItemListDialog::Add() {
    auto *entry = new QListWidgetItem(tr("New entry"));
    entry->setFlags(entry->flags() | Qt::ItemIsEditable);
    m_list->insertItem(m_list->currentRow() + 1, entry);
    m_list->setCurrentItem(entry);
    m_list->editItem(entry);
}

void ItemListDialog::Remove() {
    delete m_list->takeItem(m_list->currentRow());
    UpdateButtons();
}

void ItemListDialog::Move(int by) {
    const int from = m_list->currentRow(), to = from + by;
    if (from < 0 || to < 0 || to >= m_list->count()) return;
    m_list->insertItem(to, m_list->takeItem(from));
    m_list->setCurrentRow(to);
}

void ItemListDialog::PutBackDefaults() {
    Fill(m_defaults);
}

void ItemListDialog::UpdateButtons() {
    const int row = m_list->currentRow();
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_list->count());
}

} // namespace orrery
