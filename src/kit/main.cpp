// The editor: orrery-kit [<app-dir> [<name>]] opens the wizard, or the named project at the hub.
#include "editor/qt/editorframe.h"
#include "editor/session.h"
#include "foundation/codepage.h"
#include "widgets/quitsignals.h"
#include "widgets/look.h"

#include <QApplication>
#include <QScreen>
#include <cstdio>

int main(int argc, char **argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Orrery Kit");
    const QStringList args = QApplication::arguments();
    if (args.size() > 3) {
        std::fprintf(stderr, "usage: orrery-kit [<app-dir> [<name>]]\n");
        return 2;
    }
    // The editor stands in its own application folder, which also carries the stock of a new tree.
    const std::filesystem::path own = QCoreApplication::applicationDirPath().toStdString();
    const orrery::AppPaths paths(args.size() > 1 ? std::filesystem::path(args[1].toStdString()) : own);
    const QSize pixels = QGuiApplication::primaryScreen()->size();
    const orrery::HostScreen screen{orrery::Twips(pixels.width()), orrery::Twips(pixels.height())};
    orrery::EditorSession session(paths, orrery::AppPaths(own), screen);
    orrery::EditorFrame frame(session);
    // Told to stop, the editor closes as its window's close button would: with a plain save.
    orrery::QuitSignals stopSignals;
    QObject::connect(&stopSignals, &orrery::QuitSignals::arrived, &frame, &QWidget::close);
    frame.showMaximized();
    frame.Start(args.size() > 2 ? orrery::Utf8ToCp1252(args[2].toStdString()) : std::string());
    return app.exec();
}
