// The run-time: plays the game that Data/pname.dat names, from the splash to the menu's Exit.
#include "widgets/quitsignals.h"
#include "runtime/runtime.h"

#include <QApplication>

int main(int argc, char **argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Orrery Kit");
    const orrery::AppPaths paths(
        orrery::Runtime::FindRoot(std::filesystem::path(QCoreApplication::applicationFilePath().toStdString())));
    orrery::Runtime runtime(paths, orrery::PreferenceStore(orrery::PreferenceStore::DefaultFolder()));
    QObject::connect(&runtime, &orrery::Runtime::finished, &app, &QApplication::quit, Qt::QueuedConnection);
    // Told to stop, the run-time leaves a game as the player would, saving it.
    orrery::QuitSignals stopSignals;
    QObject::connect(&stopSignals, &orrery::QuitSignals::arrived, &runtime, &orrery::Runtime::quit);
    runtime.start();
    return app.exec();
}
