// The project wizard's panels; what creating and opening do is the session's.
#include "editor/qt/wizard.h"

#include "editor/qt/shellparts.h"
#include "editor/session.h"
#include "widgets/look.h"

#include <QButtonGroup>
#include <QDesktopServices>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedLayout>
#include <QUrl>
#include <QVBoxLayout>

namespace orrery {

namespace {

QLineEdit *Field(const char *name, int maxLength = 200) {
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setMaxLength(maxLength);
    return field;
}

QPushButton *Button(const QString &caption, const char *name) {
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

QUrl LocalFile(const std::filesystem::path &path) {
    return QUrl::fromLocalFile(QString::fromStdString(path.string()));
}

} // namespace

ProjectWizard::ProjectWizard(EditorSession &session, Mode mode, QWidget *parent)
    : QWidget(parent), m_session(session), m_mode(mode) {
    setObjectName("frmWizard");
    setWindowTitle(mode == Mode::Start ? tr("Project Wizard") : tr("Project Settings"));
    m_boxNew = NewBox();
    m_boxes = new QStackedLayout;
    m_boxes->addWidget(m_boxNew);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 14);
    column->setSpacing(12);
    if (mode == Mode::Start) {
        m_boxLoad = LoadBox();
        m_boxes->addWidget(m_boxLoad);
        column->addWidget(Switches());
    }
    column->addLayout(m_boxes);
    setMinimumWidth(460);
    ShowNew();
}

QWidget *ProjectWizard::Switches() {
    auto *row = new QWidget;
    m_showNew = Button(tr("New Project"), "cmdShowNew");
    m_showLoad = Button(tr("Load Project"), "cmdShowLoad");
    auto *group = new QButtonGroup(row);
    for (QPushButton *button : {m_showNew, m_showLoad}) {
        button->setCheckable(true);
        group->addButton(button);
    }
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_showNew);
    layout->addWidget(m_showLoad);
    layout->addStretch();
    connect(m_showNew, &QPushButton::clicked, this, &ProjectWizard::ShowNew);
    connect(m_showLoad, &QPushButton::clicked, this, &ProjectWizard::ShowLoad);
    return row;
}

QWidget *ProjectWizard::NewBox() {
    auto *box = new QWidget;
    box->setObjectName("boxnew");
    m_name = Field("txtProjectName", 100);
    m_author = Field("txtAuthor");
    m_website = Field("txtWebsite");
    m_email = Field("txtEmail");
    m_description = Field("txtDescription", 2000);
    m_description->setPlaceholderText(tr("Write /crlf/ for a line break"));
    auto *form = new QFormLayout;
    form->addRow(tr("Project Name"), m_name);
    form->addRow(tr("Author"), m_author);
    form->addRow(tr("Website"), m_website);
    form->addRow(tr("Email"), m_email);
    form->addRow(tr("Description"), m_description);
    auto *create = Button(m_mode == Mode::Start ? tr("Create Project") : tr("Save Settings"), "cmdCreate");
    create->setDefault(true);
    connect(create, &QPushButton::clicked, this, &ProjectWizard::Create);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(create);
    // The button keeps to the bottom, where the load panel has its own.
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(form);
    column->addStretch();
    column->addLayout(buttons);
    // The folder is named after the project; a new name is made by renaming it.
    if (m_mode == Mode::Settings) {
        m_name->setEnabled(false);
        m_name->setToolTip(tr("See Help, Change Project Name."));
    }
    return box;
}

QWidget *ProjectWizard::LoadBox() {
    auto *box = new QWidget;
    box->setObjectName("boxload");
    m_list = new QListWidget;
    m_list->setObjectName("List1");
    m_list->setMinimumHeight(160);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &ProjectWizard::LoadOne);
    auto *open = Button(tr("Open Project"), "cmdLoadOne");
    auto *edit = Button(tr("Edit settings.dat"), "Command6");
    auto *folder = Button(tr("Open Data Folder"), "Command5");
    connect(open, &QPushButton::clicked, this, &ProjectWizard::LoadOne);
    connect(edit, &QPushButton::clicked, this, &ProjectWizard::EditSettingsFile);
    connect(folder, &QPushButton::clicked, this, &ProjectWizard::OpenDataFolder);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(edit);
    buttons->addWidget(folder);
    buttons->addStretch();
    buttons->addWidget(open);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
    column->addLayout(buttons);
    return box;
}

void ProjectWizard::ShowNew() {
    m_boxes->setCurrentWidget(m_boxNew);
    if (m_showNew) m_showNew->setChecked(true);
    SetFields(m_session.IsOpen() ? ProjectInfo(m_session.model()) : NewProjectInfo{});
    (m_mode == Mode::Start ? m_name : m_author)->setFocus();
}

void ProjectWizard::ShowLoad() {
    if (!m_boxLoad) return;
    m_boxes->setCurrentWidget(m_boxLoad);
    m_showLoad->setChecked(true);
    LoadProjectsList();
    m_list->setFocus();
}

void ProjectWizard::LoadProjectsList() {
    m_list->clear();
    for (const std::string &name : m_session.ProjectList()) m_list->addItem(ToQString(name));
}

void ProjectWizard::Create() {
    if (m_mode == Mode::Settings) return emit settingsSubmitted(Fields());
    if (const auto refusal = m_session.Create(Fields())) return ShowMessage(this, *refusal);
    emit projectOpened();
}

void ProjectWizard::LoadOne() {
    if (const auto refusal = m_session.Open(SelectedName())) return ShowMessage(this, *refusal);
    emit projectOpened();
}

void ProjectWizard::EditSettingsFile() {
    const FileToOpen file = m_session.SettingsFile(SelectedName());
    if (file.refusal) return ShowMessage(this, *file.refusal);
    QDesktopServices::openUrl(LocalFile(file.file));
}

void ProjectWizard::OpenDataFolder() {
    QDesktopServices::openUrl(LocalFile(m_session.paths().DataPath()));
}

NewProjectInfo ProjectWizard::Fields() const {
    return {FromQString(m_name->text()), FromQString(m_author->text()), FromQString(m_website->text()),
            FromQString(m_email->text()), FromQString(m_description->text())};
}

void ProjectWizard::SetFields(const NewProjectInfo &info) {
    m_name->setText(ToQString(info.name));
    m_author->setText(ToQString(info.author));
    m_website->setText(ToQString(info.website));
    m_email->setText(ToQString(info.email));
    m_description->setText(ToQString(info.description));
}

std::string ProjectWizard::SelectedName() const {
    const QListWidgetItem *item = m_list ? m_list->currentItem() : nullptr;
    return item && item->isSelected() ? FromQString(item->text()) : std::string();
}

} // namespace orrery
