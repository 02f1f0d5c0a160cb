// The server editor.
#include "editor/qt/servereditor.h"

#include "editor/qt/pageparts.h"
#include "editor/qt/shellparts.h"
#include "editor/servers.h"
#include "editor/session.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "widgets/look.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace orrery {

namespace {

// The random word options of a field: the list's words and the value each stands for.
constexpr std::array<std::pair<const char *, const char *>, 4> kWordKinds{{
    {"ALL WORDS", "RANDOM:WORD"},
    {"SHORT WORDS (3-5 chars)", "RANDOM:SHORTWORD"},
    {"AVERAGE WORDS (6-9 chars)", "RANDOM:AVERAGEWORD"},
    {"LONG WORDS (10+ chars)", "RANDOM:LONGWORD"},
}};

enum Option { kText = 1, kWord, kNumber, kName, kExistingIp, kExistingHostname };

constexpr std::pair<Option, const char *> kOptions[] = {
    {kText, "Specific Text"},
    {kWord, "Random Word or Password"},
    {kNumber, "Random Number"},
    {kName, "Random Person Name"},
    {kExistingIp, "Random Existing IP"},
    {kExistingHostname, "Random Existing Hostname"},
};

constexpr const char *kEditHeading = "Edit value (dont add or remove or change : characters)";

// A box selects its whole text when it gets the focus, so a value is typed over.
class SelectOnFocus : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::FocusIn)
            if (auto *edit = qobject_cast<QLineEdit *>(watched))
                QTimer::singleShot(0, edit, &QLineEdit::selectAll);
        return false;
    }
};

// The remove question with the item under it.
bool AskToRemove(QWidget *parent, const QString &item) {
    const std::string text = std::string(words::kRemoveItem.text) + "\r\n" + FromQString(item);
    return Ask(parent, {words::kRemoveItem.title, text});
}

QString Selected(const QListWidget *list) {
    return list->currentItem() ? list->currentItem()->text() : QString();
}

} // namespace

ServerEditor::ServerEditor(EditorContext context, QWidget *parent)
    : QWidget(parent), m_context(std::move(context)), m_tabs(new QTabWidget) {
    setObjectName("frmServers");
    setWindowTitle(QStringLiteral("Servers"));
    m_tabs->setObjectName("SSTab1");
    m_tabs->addTab(MakeFieldsPage(), tr("Server Fields"));
    m_tabs->addTab(MakeServersPage(), tr("Custom Servers"));
    auto *close = new QPushButton(tr("Ok, close"));
    close->setObjectName("Command3");
    connect(close, &QPushButton::clicked, this, &ServerEditor::closeRequested);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(ButtonRow({}, {close}));
    Reload();
}

QSize ServerEditor::sizeHint() const {
    return {920, 580};
}

QWidget *ServerEditor::MakeFieldsPage() {
    auto *page = new QWidget;
    m_fields = new QListWidget;
    m_fields->setObjectName("List1");
    auto *note = new QLabel(tr("Note: The IP and hostname variables should not be removed."));
    note->setObjectName("Label8");
    note->setWordWrap(true);
    m_removeField = PageButton(tr("Remove Field"), "Command2");
    connect(m_removeField, &QPushButton::clicked, this, &ServerEditor::RemoveField);
    connect(m_fields, &QListWidget::currentRowChanged, this,
            [this](int row) { m_removeField->setEnabled(row >= 0); });

    m_name = new QLineEdit;
    m_name->setObjectName("txtName");
    m_value = new QLineEdit;
    m_value->setObjectName("txtVal");
    m_options = new QButtonGroup(this);
    auto *options = new QVBoxLayout;
    for (const auto &[id, caption] : kOptions) {
        auto *option = new QRadioButton(tr(caption));
        option->setObjectName(QStringLiteral("Option%1").arg(id));
        m_options->addButton(option, id);
        options->addWidget(option);
    }
    m_options->button(kText)->setChecked(true);
    m_words = new QListWidget;
    m_words->setObjectName("List2");
    for (const auto &[words, value] : kWordKinds) m_words->addItem(tr(words));
    m_words->setCurrentRow(0);
    m_words->setMaximumHeight(m_words->sizeHintForRow(0) * 4 + 2 * m_words->frameWidth() + 4);
    m_low = new QSpinBox;
    m_low->setObjectName("n1");
    m_high = new QSpinBox;
    m_high->setObjectName("n2");
    for (QSpinBox *box : {m_low, m_high}) box->setRange(0, 999999999);
    m_high->setValue(100);
    m_numbers = new QWidget;
    auto *numbers = new QHBoxLayout(m_numbers);
    numbers->setContentsMargins(0, 0, 0, 0);
    numbers->addWidget(new QLabel(tr("between...")));
    numbers->addWidget(m_low);
    numbers->addWidget(new QLabel(tr("smaller")));
    numbers->addWidget(new QLabel(tr("and")));
    numbers->addWidget(m_high);
    numbers->addWidget(new QLabel(tr("larger")));
    numbers->addStretch();
    m_random = new QCheckBox(tr("Include field on random servers."));
    m_random->setObjectName("Check1");
    auto *add = PageButton(tr("Add New Field"), "Command1");
    add->setDefault(true);
    connect(add, &QPushButton::clicked, this, &ServerEditor::AddField);
    connect(m_name, &QLineEdit::returnPressed, this, &ServerEditor::AddField);
    connect(m_options, &QButtonGroup::idClicked, this, &ServerEditor::ShowOptionInputs);

    auto *form = new QFormLayout;
    form->addRow(tr("Name"), m_name);
    form->addRow(tr("Default Value (Optional)"), m_value);
    auto *fieldBox = new QGroupBox(tr("Add New Field"));
    auto *fieldLayout = new QVBoxLayout(fieldBox);
    fieldLayout->addLayout(form);
    fieldLayout->addLayout(options);
    fieldLayout->addWidget(m_words);
    fieldLayout->addWidget(m_numbers);
    fieldLayout->addWidget(m_random);
    fieldLayout->addLayout(ButtonRow({}, {add}));

    m_count = new QComboBox;
    m_count->setObjectName("Combo1");
    for (std::string_view count : kRandomServerCounts) m_count->addItem(ToQString(count));
    connect(m_count, &QComboBox::activated, this, [this] {
        Apply(SetRandomServers(m_context.session->model(), FromQString(m_count->currentText())));
    });
    auto *randomBox = new QGroupBox(tr("Add Random Servers"));
    auto *randomLayout = new QFormLayout(randomBox);
    randomLayout->addRow(tr("Random servers in the world"), m_count);

    auto *right = new QVBoxLayout;
    right->addWidget(fieldBox);
    right->addWidget(randomBox);
    right->addStretch();
    QGridLayout *grid = TwoColumns(page, 3, 2);
    grid->addWidget(Caption(tr("Fields every server has")), 0, 0);
    grid->addWidget(m_fields, 1, 0);
    grid->addWidget(note, 2, 0);
    grid->addLayout(ButtonRow({m_removeField}), 3, 0);
    grid->addLayout(right, 0, 1, 4, 1);
    grid->setRowStretch(1, 1);
    ShowOptionInputs();
    return page;
}

QWidget *ServerEditor::MakeServersPage() {
    auto *page = new QWidget;
    m_servers = new QListWidget;
    m_servers->setObjectName("clist");
    m_removeServer = PageButton(tr("Remove Server"), "Command5");
    auto *edit = PageButton(tr("Edit Server..."), "cmdEditServer");
    connect(m_removeServer, &QPushButton::clicked, this, &ServerEditor::RemoveServer);
    connect(edit, &QPushButton::clicked, this, [this] { EditServer(m_servers->currentRow()); });
    connect(m_servers, &QListWidget::itemActivated, this,
            [this](QListWidgetItem *item) { EditServer(m_servers->row(item)); });
    connect(m_servers, &QListWidget::currentRowChanged, this, [this, edit](int row) {
        m_removeServer->setEnabled(row >= 0);
        edit->setEnabled(row >= 0);
    });
    edit->setEnabled(false);

    auto *boxes = new QWidget;
    m_boxes = new QFormLayout(boxes);
    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setWidget(boxes);
    auto *add = PageButton(tr("Add Server"), "Command4");
    connect(add, &QPushButton::clicked, this, &ServerEditor::AddServer);
    auto *serverBox = new QGroupBox(tr("New custom server"));
    auto *serverLayout = new QVBoxLayout(serverBox);
    serverLayout->addWidget(scroll);
    serverLayout->addLayout(ButtonRow({}, {add}));

    QGridLayout *grid = TwoColumns(page, 3, 2);
    grid->addWidget(Caption(tr("Custom servers, each a record of its fields' values (double-click "
                               "one to edit it)")),
                    0, 0);
    grid->addWidget(m_servers, 1, 0);
    grid->addLayout(ButtonRow({m_removeServer, edit}), 2, 0);
    grid->addWidget(serverBox, 0, 1, 3, 1);
    grid->setRowStretch(1, 1);
    return page;
}

void ServerEditor::ShowOptionInputs() {
    const int option = m_options->checkedId();
    m_value->setEnabled(option == kText);
    m_words->setVisible(option == kWord);
    m_numbers->setVisible(option == kNumber);
}

void ServerEditor::Reload() {
    const ProjectModel &model = m_context.session->model();
    {
        const QSignalBlocker quiet(m_count);
        m_count->setCurrentIndex(m_count->findText(ToQString(Trim(model.settings.myserversrandom))));
    }
    QStringList fields;
    for (const std::string &field : ServerFields(model)) fields << ToQString(field);
    Refill(m_fields, fields);
    m_removeField->setEnabled(m_fields->currentRow() >= 0);
    QStringList servers;
    for (const std::string &server : CustomServers(model)) servers << ToQString(server);
    const int row = m_servers->currentRow();
    {
        const QSignalBlocker quiet(m_servers);
        m_servers->clear();
        m_servers->addItems(servers);
        for (int i = 0; i < m_servers->count(); ++i)
            m_servers->item(i)->setToolTip(m_servers->item(i)->text());
        m_servers->setCurrentRow(std::min(row, int(servers.size()) - 1));
    }
    m_removeServer->setEnabled(m_servers->currentRow() >= 0);
    ReloadBoxes();
}

// One box a field, kept with what is typed in them while the fields stay the same.
void ServerEditor::ReloadBoxes() {
    std::vector<std::string> names;
    for (const std::string &field : ServerFields(m_context.session->model()))
        names.push_back(FieldName(field));
    if (names == m_boxFields) return;
    while (m_boxes->rowCount() > 0) m_boxes->removeRow(0);
    m_boxEdits.clear();
    m_boxFields = names;
    if (!m_selecting) m_selecting = new SelectOnFocus(this);
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto *edit = new QLineEdit;
        edit->setObjectName(QStringLiteral("t%1").arg(i + 1));
        edit->installEventFilter(m_selecting);
        auto *caption = new QLabel(ToQString(names[i]));
        caption->setObjectName(QStringLiteral("tl%1").arg(i + 1));
        m_boxes->addRow(caption, edit);
        m_boxEdits.push_back(edit);
    }
}

bool ServerEditor::Apply(Outcome outcome) {
    if (!m_context.apply(std::move(outcome))) return false;
    Reload();
    return true;
}

void ServerEditor::AddField() {
    QString value;
    switch (m_options->checkedId()) {
    case kText:
        value = m_value->text().trimmed();
        break;
    case kWord:
        value = QString::fromLatin1(kWordKinds[std::max(0, m_words->currentRow())].second);
        break;
    case kNumber:
        // Typed the wrong way round, the range is still the range meant.
        value = QStringLiteral("RANDOM:%1-%2")
                    .arg(std::min(m_low->value(), m_high->value()))
                    .arg(std::max(m_low->value(), m_high->value()));
        break;
    case kName:
        value = QStringLiteral("RANDOM:NAME");
        break;
    case kExistingIp:
        value = QStringLiteral("RANDOM:EXISTINGIP");
        break;
    case kExistingHostname:
        value = QStringLiteral("RANDOM:EXISTINGHOSTNAME");
        break;
    }
    if (!Apply(AddServerField(m_context.session->model(), FromQString(m_name->text()),
                              FromQString(value), m_random->isChecked())))
        return;
    m_name->clear();
    m_value->clear();
    m_name->setFocus();
}

void ServerEditor::RemoveField() {
    const QString field = Selected(m_fields);
    if (field.isEmpty() || !AskToRemove(this, field)) return;
    Apply(RemoveServerField(m_context.session->model(), FieldName(FromQString(field))));
}

void ServerEditor::AddServer() {
    std::vector<std::pair<std::string, std::string>> values;
    for (std::size_t i = 0; i < m_boxEdits.size(); ++i)
        values.emplace_back(m_boxFields[i], FromQString(m_boxEdits[i]->text()));
    if (!Apply(AddCustomServer(m_context.session->model(), values))) return;
    for (QLineEdit *edit : m_boxEdits) edit->clear();
    m_servers->setCurrentRow(m_servers->count() - 1);
}

void ServerEditor::EditServer(int row) {
    if (row < 0 || row >= m_servers->count()) return;
    bool ok = false;
    const QString record = QInputDialog::getText(this, windowTitle(), tr(kEditHeading),
                                                 QLineEdit::Normal, m_servers->item(row)->text(), &ok);
    if (!ok) return;
    Apply(EditCustomServer(m_context.session->model(), row + 1, FromQString(record)));
}

void ServerEditor::RemoveServer() {
    const int row = m_servers->currentRow();
    if (row < 0 || !AskToRemove(this, m_servers->item(row)->text())) return;
    Apply(RemoveCustomServer(m_context.session->model(), row + 1));
}

} // namespace orrery
