// The distribution builder's dialog.
#include "editor/qt/distributiondialog.h"

#include "editor/qt/shellparts.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/textfile.h"
#include "packaging/distribution.h"
#include "platform/fonts.h"
#include "widgets/look.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <thread>

namespace orrery {

namespace {

// The listing's texts: the box and the key each writes back to.
const QColor kMissing(196, 40, 40);

// The model holds a listing's line breaks as the file's "//" gives them back: CRLF.
QString ListingText(const std::string &value) {
    return ToQString(value).replace("\r\n", "\n").replace("//", "\n");
}

std::string ListingValue(const QString &text) {
    return FromQString(QString(text).replace('\n', "//"));
}

} // namespace

// What the building thread works on: its own copy of the project, so that the editor's timed
// save can't change it underneath, its own random numbers, and what it made.
struct DistributionDialog::Work {
    ProjectModel model;
    AppPaths paths;
    DistributionOptions options;
    Random random;
    DistributionResult result;
    std::thread thread;
};

DistributionDialog::DistributionDialog(EditorContext context, QString runner, QWidget *parent)
    : QDialog(parent), m_context(std::move(context)), m_runner(std::move(runner)),
      m_log(new QListWidget), m_progress(new QProgressBar),
      m_pad(new QCheckBox(tr("Create a PAD file (a listing for download sites)"))),
      m_clean(new QCheckBox(tr("Empty the game folder first"))),
      m_listing(new QGroupBox(tr("Listing"))), m_cost(new QLineEdit), m_keywords(new QLineEdit),
      m_short(new QLineEdit), m_medium(new QPlainTextEdit), m_long(new QPlainTextEdit),
      m_summary(new QLabel), m_build(new QPushButton(tr("Create Distribution Files"))),
      m_close(new QPushButton(tr("Close"))), m_open(new QPushButton(tr("Open Folder"))) {
    setObjectName("zDistro");
    setWindowTitle(tr("Create Distribution Files"));
    m_log->setObjectName("List1");
    m_log->setUniformItemSizes(true);
    m_log->setMinimumSize(600, 200);
    m_progress->setObjectName("progress");
    m_progress->setRange(0, 255);
    m_progress->setValue(0);
    m_pad->setObjectName("cpad");
    m_clean->setObjectName("cclean");
    m_cost->setObjectName("txtCost");
    m_cost->setPlaceholderText(tr("0.00"));
    m_keywords->setObjectName("txtKeywords");
    m_short->setObjectName("txtD45");
    m_short->setMaxLength(45);
    m_medium->setObjectName("txtD250");
    m_long->setObjectName("txtD2000");
    for (QPlainTextEdit *edit : {m_medium, m_long}) edit->setTabChangesFocus(true);
    m_medium->setMaximumHeight(70);
    m_summary->setObjectName("lblSummary");
    m_summary->setWordWrap(true);
    m_summary->setMinimumHeight(m_summary->fontMetrics().lineSpacing() * 2 + 4);
    m_build->setObjectName("Command1");
    m_build->setDefault(true);
    m_close->setObjectName("Command2");
    m_open->setObjectName("cmdOpenFolder");
    m_open->setEnabled(false);

    auto *listing = new QFormLayout(m_listing);
    listing->addRow(tr("Price"), m_cost);
    listing->addRow(tr("Keywords"), m_keywords);
    listing->addRow(tr("Short description (45)"), m_short);
    listing->addRow(tr("Description (250)"), m_medium);
    listing->addRow(tr("Long description (2000)"), m_long);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_open);
    buttons->addStretch();
    buttons->addWidget(m_build);
    buttons->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    const auto folder = m_context.session->paths().ProjectPath(m_context.session->model().settings.myprojectname);
    auto *where = new QLabel(tr("The game folder: %1. Its log:")
                                 .arg(folder ? QString::fromStdString((*folder / "Distro").string())
                                             : QString()));
    where->setWordWrap(true);
    layout->addWidget(where);
    layout->addWidget(m_log, 1);
    layout->addWidget(m_progress);
    layout->addWidget(m_summary);
    layout->addWidget(m_clean);
    layout->addWidget(m_pad);
    layout->addWidget(m_listing);
    layout->addLayout(buttons);

    connect(m_build, &QPushButton::clicked, this, &DistributionDialog::Start);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_pad, &QCheckBox::toggled, this, &DistributionDialog::ShowListing);
    connect(m_open, &QPushButton::clicked, this, [this] {
        if (m_result) QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(m_result->root.string())));
    });

    // The listing starts from the project's description and its keywords, kept in the project.
    m_context.apply(FillListing(m_context.session->model()));
    const ProjectSettings &s = m_context.session->model().settings;
    m_keywords->setText(ListingText(s.myprojectkeywords));
    m_short->setText(ListingText(s.myprojectdescriptionshort));
    m_medium->setPlainText(ListingText(s.myprojectdescriptionmedium));
    m_long->setPlainText(ListingText(s.myprojectdescriptionlong));
    ShowListing(false);
    resize(640, 460);
}

DistributionDialog::~DistributionDialog() {
    if (m_work && m_work->thread.joinable()) m_work->thread.join();
}

bool DistributionDialog::building() const {
    return m_work && m_work->thread.joinable();
}

// A build runs to its end: the dialog stays until it has.
void DistributionDialog::reject() {
    if (building()) return;
    QDialog::reject();
}

void DistributionDialog::ShowListing(bool shown) {
    m_listing->setVisible(shown);
    adjustSize();
}

void DistributionDialog::Say(const QString &line, bool missing) {
    auto *item = new QListWidgetItem(line, m_log);
    if (missing) item->setForeground(kMissing);
    m_log->setCurrentItem(item);
}

std::map<std::string, std::filesystem::path> DistributionDialog::AskForFonts() {
    std::map<std::string, std::filesystem::path> files;
    const auto file = m_context.session->File();
    std::vector<std::string> lacking;
    for (const std::string &font : RequiredFonts(ReadFileBytes(file).value_or(""))) {
        if (auto found = FindFontFile(font))
            files[font] = *found;
        else
            lacking.push_back(font);
    }
    if (lacking.empty()) return files;
    QString list;
    for (const std::string &font : lacking) list += ToQString(font) + "\n";
    QMessageBox::information(this, tr("Fonts"),
                             tr("It has been detected that the following fonts are required by "
                                "your project:") +
                                 "\n\n" + list +
                                 tr("You will now be prompted to select the associated font .TFF "
                                    "file(s) for each font."));
    for (const std::string &font : lacking) {
        const QString chosen = QFileDialog::getOpenFileName(
            this, tr("The file of the font %1").arg(ToQString(font)), QString(),
            tr("Fonts (*.ttf *.otf *.TTF *.OTF);;All Files (*)"));
        if (!chosen.isEmpty()) files[font] = chosen.toStdString();
    }
    return files;
}

void DistributionDialog::Start() {
    if (building() || !m_context.session->IsOpen()) return;
    // The listing's texts as typed, each changed one a step.
    EditorSession &session = *m_context.session;
    if (!m_context.apply(SetSettings(
            session.model(), {{"myprojectkeywords", ListingValue(m_keywords->text())},
                              {"myprojectdescriptionshort", ListingValue(m_short->text())},
                              {"myprojectdescriptionmedium", ListingValue(m_medium->toPlainText())},
                              {"myprojectdescriptionlong", ListingValue(m_long->toPlainText())}})))
        return;

    std::map<std::string, std::filesystem::path> fonts = AskForFonts();
    m_log->clear();
    m_summary->clear();
    m_progress->setValue(0);
    m_build->setEnabled(false);
    m_close->setEnabled(false);
    m_open->setEnabled(false);
    m_result.reset();
    m_work = std::make_unique<Work>(Work{session.model(), session.paths(), {},
                                         Random(static_cast<std::uint64_t>(ProcessRandom().Below(1 << 30))),
                                         {}, {}});
    DistributionOptions &options = m_work->options;
    options.runner = m_runner.toStdString();
    options.pad = m_pad->isChecked();
    options.clean = m_clean->isChecked();
    options.cost = FromQString(m_cost->text());
    options.random = &m_work->random;
    // The dialog waits for the thread before it goes, so what the thread posts finds it.
    DistributionDialog *self = this;
    options.say = [self](const std::string &line) {
        QMetaObject::invokeMethod(self, [self, line = ToQString(line)] { self->Say(line); },
                                  Qt::QueuedConnection);
    };
    options.octet = [self](int octet) {
        QMetaObject::invokeMethod(self, [self, octet] { self->m_progress->setValue(octet); },
                                  Qt::QueuedConnection);
    };
    options.fontFile = [fonts = std::move(fonts)](const std::string &font)
        -> std::optional<std::filesystem::path> {
        const auto found = fonts.find(font);
        if (found == fonts.end()) return std::nullopt;
        return found->second;
    };
    Work *work = m_work.get();
    work->thread = std::thread([self, work] {
        work->result = BuildDistribution(work->model, work->paths, work->options);
        QMetaObject::invokeMethod(self, [self] { self->Built(); }, Qt::QueuedConnection);
    });
}

void DistributionDialog::Built() {
    m_work->thread.join();
    m_result = std::make_unique<DistributionResult>(std::move(m_work->result));
    m_build->setEnabled(true);
    m_close->setEnabled(true);
    for (const std::string &missing : m_result->missing)
        Say(tr("Not found, not shipped: %1").arg(ToQString(missing)), true);
    const QString root = QString::fromStdString(m_result->root.string());
    if (!m_result->done) {
        Say(ToQString(m_result->error), true);
        m_summary->setText(tr("The game folder could not be built."));
    } else {
        m_progress->setValue(255);
        m_open->setEnabled(true);
        m_summary->setText(m_result->missing.empty()
                               ? tr("Built in %1.").arg(root)
                               : tr("Built in %1; %2 named file(s) were not found and are not in it.")
                                     .arg(root)
                                     .arg(m_result->missing.size()));
    }
    emit finished(m_result->done);
}

} // namespace orrery
