// The simulation's generation and save.
#include "editor/qt/simulationdialog.h"

#include "editor/session.h"
#include "foundation/random.h"
#include "network/directory.h"
#include "network/generator.h"
#include "widgets/look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <atomic>
#include <thread>

namespace orrery {

// What the generating thread works on: its own copy of the project, so that a save on the
// editor's timer can't change the model under it, and its own random numbers.
struct SimulationDialog::Work {
    ProjectModel model;
    AppPaths paths;
    std::uint64_t seed;
    std::thread thread;
};

SimulationDialog::SimulationDialog(EditorSession &session, QWidget *parent)
    : QDialog(parent), m_session(session), m_list(new QListWidget), m_progress(new QProgressBar),
      m_start(new QPushButton(QStringLiteral("Start Simulation"))),
      m_close(new QPushButton(tr("Close"))) {
    setObjectName("zRunSim");
    setWindowTitle(tr("Run Simulation"));
    m_list->setObjectName("List1");
    m_list->setUniformItemSizes(true);
    m_progress->setObjectName("progress");
    m_progress->setRange(0, kOctets);
    m_progress->setValue(0);
    m_progress->setOrientation(Qt::Vertical);
    m_start->setObjectName("Command1");
    m_close->setObjectName("cmdClose");
    m_close->hide();
    auto *wait = new QLabel(QStringLiteral("Please wait for data to be generated..."));
    wait->setObjectName("Label1");
    auto *restart = new QLabel(QStringLiteral("RESTART COMPLETE APPLICATION IF PROBLEMS EXIST IN SIMULATION"));
    restart->setObjectName("Label2");
    restart->setWordWrap(true);
    auto *work = new QHBoxLayout;
    work->addWidget(m_list, 1);
    work->addWidget(m_progress);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_start);
    buttons->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(wait);
    layout->addLayout(work, 1);
    layout->addWidget(restart);
    layout->addLayout(buttons);
    connect(m_start, &QPushButton::clicked, this, &SimulationDialog::Start);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    resize(520, 380);
}

SimulationDialog::~SimulationDialog() {
    if (m_work && m_work->thread.joinable()) m_work->thread.join();
}

void SimulationDialog::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    // The dialog starts itself as soon as it is up.
    QTimer::singleShot(5, this, [this] {
        if (!m_started) Start();
    });
}

// Closing while the world is written waits for it: a world half written is worse than a wait.
void SimulationDialog::reject() {
    if (m_work && m_work->thread.joinable()) return;
    QDialog::reject();
}

void SimulationDialog::Say(const QString &line) {
    m_list->addItem(line);
    m_list->setCurrentRow(m_list->count() - 1);
}

void SimulationDialog::Start() {
    if (m_started || !m_session.IsOpen()) return;
    m_started = true;
    m_start->hide();
    m_work = std::make_shared<Work>(
        Work{m_session.model(), m_session.paths(), static_cast<std::uint64_t>(ProcessRandom().Below(1 << 30)), {}});
    // The dialog waits for the thread before it goes, so what the thread posts to it finds it.
    SimulationDialog *self = this;
    Work *work = m_work.get();
    work->thread = std::thread([self, work] {
        WordBank words;
        Random random(work->seed);
        int octet = 0;
        const GenerateResult result =
            GenerateWorld(work->paths, work->model, words, random, [&](const std::string &line) {
                ++octet;
                QMetaObject::invokeMethod(
                    self, [self, line = ToQString(line), octet] {
                        self->Say(line);
                        self->m_progress->setValue(octet);
                    },
                    Qt::QueuedConnection);
            });
        QMetaObject::invokeMethod(
            self,
            [self, done = result.done, error = ToQString(result.error)] {
                self->Generated(done, error);
            },
            Qt::QueuedConnection);
    });
}

void SimulationDialog::Generated(bool done, const QString &error) {
    if (m_work && m_work->thread.joinable()) m_work->thread.join();
    m_progress->setValue(kOctets);
    if (!done) {
        Say(tr("The world could not be written: %1").arg(error));
        m_close->show();
        return;
    }
    // A project from a distribution's scrambled file is never written back.
    m_session.Autosave();
    if (!m_session.Status().empty()) {
        Say(ToQString(m_session.Status()));
        m_close->show();
        return;
    }
    accept();
}

} // namespace orrery
