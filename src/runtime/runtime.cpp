// The run-time from start to end.
#include "runtime/runtime.h"

#include "desk/mainmenu.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "platform/browser.h"
#include "runtime/desktopwindow.h"
#include "runtime/menuwindow.h"
#include "runtime/splash.h"
#include "session/qt/creditswindow.h"
#include "session/qt/optionsdialog.h"
#include "session/qt/profiledialog.h"
#include "session/qt/scoredialog.h"
#include "widgets/look.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>
#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {
// The product's website, which the menu's Website item opens.
constexpr const char *kWebsite = "https://orrery-kit.org/";
} // namespace

Runtime::Runtime(AppPaths paths, PreferenceStore preferences, QObject *parent)
    : QObject(parent), m_paths(std::move(paths)), m_preferences(std::move(preferences)),
      m_host(m_paths, m_preferences), m_session(m_paths, m_host, ProcessRandom()) {}

Runtime::~Runtime() {
    delete m_desktop;
    delete m_menu;
    delete m_splash;
}

fs::path Runtime::FindRoot(const fs::path &program) {
    std::error_code error;
    const fs::path folder = program.parent_path();
    if (fs::exists(folder / "Data" / "pname.dat", error)) return folder;
    if (fs::exists(folder.parent_path() / "Data" / "pname.dat", error)) return folder.parent_path();
    return folder;
}

std::string Runtime::gameName() const {
    if (!m_gameName.empty()) return m_gameName;
    return Trim(ReplaceAll(ReadTextFile(m_paths.ProjectNameFile()), "\r\n", ""));
}

void Runtime::start() {
    m_splash = new SplashWindow(ToQString(gameName()));
    connect(m_splash, &SplashWindow::finished, this, &Runtime::showMenu);
    m_splash->show();
}

void Runtime::showMenu() {
    // The screen, in pixels; a narrow one is asked about first.
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QSize pixels = m_windowSize.isValid() ? m_windowSize : screen ? screen->size() : QSize(1024, 768);
    if (!m_quiet && AsksLowResolution(pixels.width())) {
        const auto answer = QMessageBox::information(
            nullptr, ToQString(kLowResolutionTitle),
            ToQString(ReplaceAll(LowResolutionQuestion(pixels.width(), pixels.height()), "\r\n", "\n")),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        // The display mode is the desktop's to choose here: Yes goes on like No.
        if (answer == QMessageBox::Cancel) return exit();
    }
    InstallFonts(m_paths.FontsPath());
    const std::string name = gameName();
    HostScreen host;
    host.widthTwips = Twips(pixels.width());
    host.heightTwips = Twips(pixels.height());
    m_session.OpenProject(name, host);
    m_host.SetProjectName(name);
    std::error_code ignored;
    fs::create_directories(m_paths.SavedPath(), ignored);

    m_menu = new MenuWindow(m_paths, m_session.project());
    connect(m_menu, &MenuWindow::newGameRequested, this, [this] { openProfiles(false); });
    connect(m_menu, &MenuWindow::loadGameRequested, this, [this] { openProfiles(true); });
    connect(m_menu, &MenuWindow::optionsRequested, this, &Runtime::openOptions);
    connect(m_menu, &MenuWindow::scoresRequested, this, &Runtime::openScores);
    connect(m_menu, &MenuWindow::creditsRequested, this, &Runtime::openCredits);
    connect(m_menu, &MenuWindow::websiteRequested, this, &Runtime::openWebsite);
    connect(m_menu, &MenuWindow::exitRequested, this, &Runtime::exit);
    present(m_menu);
    if (m_splash) m_splash->deleteLater();
}

void Runtime::present(QWidget *window) {
    if (m_windowSize.isValid()) {
        window->resize(m_windowSize);
        window->show();
    } else {
        window->showFullScreen();
    }
    window->activateWindow();
    window->raise();
}

void Runtime::openProfiles(bool loadMode) {
    ProfileDialog dialog(m_paths, loadMode,
                         [this](ProfileOption option, const std::string &name) {
                             return option == ProfileOption::New ? m_session.NewGame(name)
                                                                 : m_session.LoadGame(name);
                         },
                         m_menu);
    if (dialog.exec() == QDialog::Accepted && m_session.Playing()) openDesktop();
}

void Runtime::openDesktop() {
    m_desktop = new DesktopWindow(m_session, m_host);
    connect(m_desktop, &DesktopWindow::leaveRequested, this, &Runtime::leaveDesktop);
    present(m_desktop);
    m_desktop->setFocus();
    if (m_menu) m_menu->hide();
    m_desktop->enter();
}

void Runtime::leaveDesktop() {
    ProfileResult saved;
    m_session.EndIfAsked(saved);
    if (m_desktop) m_desktop->deleteLater();
    m_desktop = nullptr;
    if (m_quitting) return exit();
    if (m_menu) present(m_menu);
}

void Runtime::quit() {
    if (m_quitting) return;
    m_quitting = true;
    // Windows over the desktop or the menu are closed as their Cancel would.
    for (int guard = 0; guard < 16; ++guard) {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal) break;
        modal->close();
    }
    // A game in play leaves as Escape leaves it, saving the profile; then the menu goes.
    if (m_desktop && m_desktop->playing()) return m_desktop->requestLeave();
    if (!m_desktop) exit();
}

void Runtime::openOptions() {
    OptionsDialog dialog(m_paths, m_preferences, m_session.projectName(), [](bool) {}, m_menu);
    dialog.exec();
}

void Runtime::openScores() {
    ScoreDialog dialog(m_paths, m_menu);
    dialog.exec();
}

void Runtime::openCredits() {
    auto *credits = new CreditsWindow(m_session.project(), m_paths);
    credits->setAttribute(Qt::WA_DeleteOnClose);
    credits->setWindowModality(Qt::ApplicationModal);
    present(credits);
}

void Runtime::openWebsite() {
    // The page opens through the desktop's own service, and choosing it quits the game; when
    // nothing can open it, the game says nothing and goes on.
    const auto url = BrowserUrl(kWebsite);
    if (!url || !QDesktopServices::openUrl(QUrl(QString::fromStdString(*url)))) return;
    exit();
}

void Runtime::exit() {
    if (m_desktop) {
        m_desktop->deleteLater();
        m_desktop = nullptr;
    }
    if (m_menu) m_menu->deleteLater();
    m_menu = nullptr;
    emit finished();
}

} // namespace orrery
