// The profile screen's window; its checks and the game's start are the core's.
#include "session/qt/profiledialog.h"

#include "widgets/flatbutton.h"
#include "widgets/look.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

namespace orrery {

namespace {

QWidget *NewBox(QLineEdit *name) {
    auto *box = new QWidget;
    box->setObjectName("boxnew");
    auto *prompt = new QLabel(QObject::tr("Name your profile"), box);
    prompt->setStyleSheet(QStringLiteral("color: %1;").arg(kBarDimTextColour.name()));
    name->setObjectName("Text1");
    name->setMaxLength(60);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(prompt);
    column->addWidget(name);
    column->addStretch();
    return box;
}

QWidget *LoadBox(QListWidget *list) {
    auto *box = new QWidget;
    box->setObjectName("boxload");
    list->setObjectName("List1");
    list->setMinimumHeight(150);
    // A long name ends in an ellipsis rather than a scroll bar.
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list);
    return box;
}

} // namespace

ProfileDialog::ProfileDialog(const AppPaths &paths, bool loadMode, StartGame start, QWidget *parent)
    : BarDialog(paths, tr("New Profile"), parent), m_paths(paths), m_start(std::move(start)),
      m_new(new QRadioButton(tr("New profile"))), m_load(new QRadioButton(tr("Load profile"))),
      m_name(new QLineEdit), m_list(new HintList(tr("No saved profiles yet"))),
      m_status(new QLabel) {
    m_new->setObjectName("Option1");
    m_load->setObjectName("Option2");
    m_status->setObjectName("Label1");
    m_status->setStyleSheet(QStringLiteral("color: %1;").arg(kBarAccentColour.name()));
    m_status->setMinimumHeight(m_status->fontMetrics().height() + 4);
    m_boxNew = NewBox(m_name);
    m_boxLoad = LoadBox(m_list);
    ConfirmButton()->setText(tr("Start"));

    auto *options = new QHBoxLayout;
    options->setSpacing(18);
    options->addWidget(m_new);
    options->addWidget(m_load);
    options->addStretch();
    // One page at a time; the window keeps the size of the larger.
    m_boxes = new QStackedLayout;
    m_boxes->addWidget(m_boxNew);
    m_boxes->addWidget(m_boxLoad);
    auto *column = new QVBoxLayout(Body());
    column->setContentsMargins(18, 16, 18, 4);
    column->setSpacing(12);
    column->addLayout(options);
    column->addLayout(m_boxes);
    column->addWidget(m_status);
    Body()->setMinimumWidth(360);

    (loadMode ? m_load : m_new)->setChecked(true);
    connect(m_new, &QRadioButton::toggled, this, [this] { SetBox(); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] { ClickIt(); });
    // Enter in the name box confirms, as a player expects of a one-field form.
    connect(m_name, &QLineEdit::returnPressed, this, [this] { ClickIt(); });
    m_name->installEventFilter(this);
    m_list->installEventFilter(this);
    SetBox();
}

ProfileOption ProfileDialog::Option() const {
    return m_new->isChecked() ? ProfileOption::New : ProfileOption::Load;
}

void ProfileDialog::SetBox() {
    m_status->clear();
    if (Option() == ProfileOption::New) {
        m_boxes->setCurrentWidget(m_boxNew);
        SetCaption(tr("New Profile"));
        m_name->setFocus();
        m_name->selectAll();
        return;
    }
    m_boxes->setCurrentWidget(m_boxLoad);
    SetCaption(tr("Load Profile"));
    LoadGamesList();
    m_list->setFocus();
}

void ProfileDialog::LoadGamesList() {
    m_list->clear();
    for (const std::string &name : orrery::LoadGamesList(m_paths)) m_list->addItem(ToQString(name));
    // The first profile is chosen, so that Start starts it.
    if (m_list->count() > 0) m_list->setCurrentRow(0);
}

void ProfileDialog::ClickIt() {
    if (m_starting) return;
    const QListWidgetItem *chosen = m_list->currentItem();
    const std::string selected =
        chosen && chosen->isSelected() ? FromQString(chosen->text()) : std::string();
    const ProfileClick click =
        orrery::ClickIt(m_paths, Option(), FromQString(m_name->text()), selected);
    switch (click.next) {
    case ProfileClick::Next::Nothing:
        return;
    case ProfileClick::Next::ShowMessage:
        m_name->setText(ToQString(click.text));
        m_name->setFocus();
        m_name->selectAll();
        return;
    case ProfileClick::Next::ShowStatus:
        m_status->setText(ToQString(click.text));
        return;
    case ProfileClick::Next::StartNew:
        return Start(ProfileOption::New, click.text);
    case ProfileClick::Next::StartLoad:
        return Start(ProfileOption::Load, click.text);
    }
}

void ProfileDialog::Start(ProfileOption option, const std::string &name) {
    m_starting = true;
    ConfirmButton()->setEnabled(false);
    CancelButton()->setEnabled(false);
    m_status->setText(tr("Loading..."));
    m_status->repaint();
    QApplication::processEvents();
    const GameStart started = m_start ? m_start(option, name) : GameStart{};
    m_starting = false;
    if (started.ok) return accept();
    m_status->setText(ToQString(started.error));
    ConfirmButton()->setEnabled(true);
    CancelButton()->setEnabled(true);
}

void ProfileDialog::reject() {
    if (!m_starting) BarDialog::reject();
}

void ProfileDialog::showEvent(QShowEvent *event) {
    BarDialog::showEvent(event);
    SetBox();
}

bool ProfileDialog::eventFilter(QObject *watched, QEvent *event) {
    // Selected after the click that gave the focus has placed the cursor.
    if (watched == m_name && event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, m_name, &QLineEdit::selectAll);
    // Enter on the list of profiles confirms, as Enter in the name box does.
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            ClickIt();
            return true;
        }
    }
    return BarDialog::eventFilter(watched, event);
}

} // namespace orrery
