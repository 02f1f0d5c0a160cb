// What the benchmarks on screen share: a scratch copy of the built application folder, a
// settle of the event loop, and a count of the paint events delivered.
#pragma once

#include "foundation/paths.h"

#include <QObject>
#include <filesystem>
#include <string>

namespace orrery {

// A copy of the built application folder without its programs, in memory when the system
// has a folder there, with an empty Saved; removed at the end.
class AppFolder {
public:
    explicit AppFolder(const std::string &tag);
    ~AppFolder();
    AppFolder(const AppFolder &) = delete;
    AppFolder &operator=(const AppFolder &) = delete;

    const std::filesystem::path &root() const { return m_root; }
    std::filesystem::path preferences() const { return m_dir / "prefs"; }

private:
    std::filesystem::path m_dir;
    std::filesystem::path m_root;
};

// The name of the project the run-time plays, from Data/pname.dat.
std::string ProjectName(const AppPaths &paths);

// Delivers what is posted and runs the events that are waiting.
void Settle();

// Counts the paint events delivered while it is on.
class PaintCounter : public QObject {
public:
    PaintCounter();
    ~PaintCounter() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void Start() { m_on = true; }
    void Stop() { m_on = false; }
    long long paints() const { return m_paints; }

private:
    bool m_on = false;
    long long m_paints = 0;
};

} // namespace orrery
