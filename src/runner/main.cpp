// The run-time: plays the game that Data/pname.dat names, from the splash to the menu's Exit.
// The editor's simulation names the application folder and the project on the command line.
#include "foundation/codepage.h"
#include "widgets/quitsignals.h"
#include "runtime/runtime.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char **argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Orrery Kit");
    QCommandLineParser options;
    options.setApplicationDescription("Plays an Orrery Kit game.");
    options.addHelpOption();
    const QCommandLineOption root("root", "The application folder (the runner's own by default).",
                                  "folder");
    const QCommandLineOption project("project", "The project to play instead of Data/pname.dat's.",
                                     "name");
    options.addOptions({root, project});
    options.process(app);

    const std::filesystem::path program(QCoreApplication::applicationFilePath().toStdString());
    const orrery::AppPaths paths(options.isSet(root)
                                     ? std::filesystem::path(options.value(root).toStdString())
                                     : orrery::Runtime::FindRoot(program));
    orrery::Runtime runtime(paths, orrery::PreferenceStore(orrery::PreferenceStore::DefaultFolder()));
    if (options.isSet(project))
        runtime.setGameName(orrery::Utf8ToCp1252(options.value(project).toStdString()));
    QObject::connect(&runtime, &orrery::Runtime::finished, &app, &QApplication::quit, Qt::QueuedConnection);
    // Told to stop, the run-time leaves a game as the player would, saving it.
    orrery::QuitSignals stopSignals;
    QObject::connect(&stopSignals, &orrery::QuitSignals::arrived, &runtime, &orrery::Runtime::quit);
    runtime.start();
    return app.exec();
}
