// The help page.
#include "editor/qt/helppage.h"

#include "check/check.h"

#include "editor/qt/shellparts.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "widgets/look.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace orrery {

namespace {

// A topic's record is "<title>:<text>", with "//" for each line break of the text.
std::string TopicTitle(std::string_view record) {
    return FieldAt(record, 1);
}

std::string TopicText(std::string_view record) {
    const std::size_t colon = record.find(':');
    return colon == std::string_view::npos ? std::string()
                                           : ReplaceAll(record.substr(colon + 1), "//", "\n");
}

const std::string *FindTopic(const ProjectModel &model, std::string_view title) {
    for (const std::string &record : model.HelpTable)
        if (!IsBlank(record) && TopicTitle(record) == title) return &record;
    return nullptr;
}

} // namespace

HelpPage::HelpPage(EditorContext context, QWidget *parent)
    : EditorPage(std::move(context), parent), m_enabled(new QCheckBox(tr("Enable in game help"))),
      m_topics(new QListWidget), m_title(new QLineEdit), m_text(new QPlainTextEdit) {
    setObjectName("pageHelp");
    m_enabled->setObjectName("chelp");
    m_topics->setObjectName("thelp");
    m_title->setObjectName("txtHelpTitle");
    m_text->setObjectName("txtHelpText");
    auto *add = PageButton(tr("New Topic"), "cmdNewHelp");
    m_remove = PageButton(tr("Remove Topic"), "cmdRemoveHelp");
    auto *save = PageButton(tr("Save Topic"), "cmdSaveHelp");

    m_text->setPlaceholderText(tr("What the player reads under the title"));

    auto *title = new QFormLayout;
    title->addRow(tr("Title"), m_title);
    QGridLayout *page = TwoColumns(this, 1, 2);
    page->addWidget(m_enabled, 0, 0, 1, 2);
    page->addWidget(Caption(tr("Topics")), 1, 0);
    page->addLayout(title, 1, 1);
    page->addWidget(m_topics, 2, 0);
    page->addWidget(m_text, 2, 1);
    page->addLayout(ButtonRow({add, m_remove}), 3, 0);
    page->addLayout(ButtonRow({}, {save}), 3, 1);
    page->setRowStretch(2, 1);

    connect(m_enabled, &QCheckBox::toggled, this, &HelpPage::EnableHelp);
    connect(m_topics, &QListWidget::itemSelectionChanged, this, &HelpPage::LoadHelp);
    connect(add, &QPushButton::clicked, this, &HelpPage::NewTopic);
    connect(m_remove, &QPushButton::clicked, this, &HelpPage::ClearHelp);
    connect(save, &QPushButton::clicked, this, &HelpPage::SaveNewHelp);
    Reload();
}

void HelpPage::Reload() {
    {
        const QSignalBlocker quiet(m_enabled);
        m_enabled->setChecked(model().settings.helpon);
    }
    QStringList titles;
    for (const std::string &record : model().HelpTable)
        if (!IsBlank(record)) titles << ToQString(TopicTitle(record));
    Refill(m_topics, titles);
    LoadHelp();
}

void HelpPage::LoadHelp() {
    const std::string title = FromQString(SelectedText(m_topics));
    m_remove->setEnabled(!title.empty());
    // A topic being written keeps its fields until it is saved.
    if (title.empty()) return;
    const std::string *record = FindTopic(model(), title);
    if (!m_shown.Changed(title, record ? *record : "")) return;
    m_title->setText(ToQString(title));
    m_text->setPlainText(ToQString(record ? TopicText(*record) : ""));
}

void HelpPage::EnableHelp(bool on) {
    if (!Apply(SetSetting(model(), "helpon", on ? "True" : "False"))) Reload();
}

void HelpPage::NewTopic() {
    m_topics->clearSelection();
    m_title->clear();
    m_text->clear();
    m_title->setFocus();
}

void HelpPage::SaveNewHelp() {
    const QString title = m_title->text().trimmed();
    if (!Apply(SetHelp(model(), FromQString(title), FromQString(m_text->toPlainText())))) return;
    SelectText(m_topics, title);
}

void HelpPage::ClearHelp() {
    const std::string title = FromQString(SelectedText(m_topics));
    if (title.empty() || !Ask(this, words::kRemoveItem)) return;
    Apply(RemoveHelp(model(), title));
}

bool HelpPage::ShowItem(const FindingPlace &place) {
    if (place.kind != FindingPlace::Kind::Help) return false;
    SelectText(m_topics, ToQString(place.name));
    LoadHelp();
    return true;
}

} // namespace orrery
