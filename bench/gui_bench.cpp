// Benchmarks of the run-time on screen, on Qt's offscreen platform, each beside a floor taken
// in the same run: the first opening of a tool of 150 elements drawn on the desktop beside the
// model's opening alone, the repaint of a console of 100 rows beside the bare drawing of its
// lines, and the processor time an idle desktop takes with all its timers running.
#include "actions/statement.h"
#include "desk/qonsole.h"
#include "desk/tools.h"
#include "foundation/convert.h"
#include "foundation/preferences.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "onscreen.h"
#include "platform/headless.h"
#include "ratios.h"
#include "runtime/desktopwindow.h"
#include "runtime/qthost.h"
#include "session/playsession.h"
#include "widgets/elementviews.h"
#include "widgets/look.h"
#include "widgets/toolview.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QImage>
#include <QPainter>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace orrery {
namespace {

constexpr const char *kBenchTool = "Bench";
constexpr const char *kBenchTag = "bench";
constexpr int kGridColumns = 8;
constexpr int kGridElements = 148; // and two consoles: 150
constexpr int kToolElements = kGridElements + 2;

// One element row of the bench tool: its name, kind and properties.
void SetElement(ProjectModel &project, int row, const std::string &kind, int n,
                const std::vector<std::string> &properties) {
    ElementRow &e = project.Element(row);
    e[0] = kind + "bench" + IntText(n);
    e[1] = std::string("atool:") + kBenchTag;
    e[2] = kind + ":" + IntText(row);
    int column = 3;
    for (const std::string &property : properties) {
        if (column == kActionColumn) ++column;
        e[static_cast<std::size_t>(column++)] = property;
    }
}

std::vector<std::string> Placed(std::vector<std::string> properties, int left, int top, int width,
                                int height) {
    const std::pair<const char *, int> place[] = {
        {"left:", left}, {"top:", top}, {"width:", width}, {"height:", height}};
    for (const auto &[key, value] : place) properties.push_back(key + IntText(value));
    return properties;
}

// The kind and own properties of grid cell i: three labels, two buttons, two text boxes and a
// list in every eight.
std::pair<std::string, std::vector<std::string>> GridElement(int i) {
    const std::string n = IntText(i);
    switch (i % 8) {
    case 1:
    case 6:
        return {"button", {"caption:Scan " + n}};
    case 2:
        return {"text", {"text:host" + n + ".example"}};
    case 5:
        return {"text", {}};
    case 4:
        return {"list", {"listitems:alpha//beta//gamma//delta//epsilon"}};
    case 3:
        return {"label", {"backstyle:1", "caption:Port " + n}};
    default:
        return {"label", {"caption:Node " + n, "alignment:" + IntText(i % 3)}};
    }
}

// Adds the bench tool after the project's own elements: 148 labels, buttons, text boxes and
// lists in a grid, and two consoles beside it, a large one and a small one. Returns the large
// console's row.
int AddBenchTool(ProjectModel &project) {
    project.ToolNameTable[FirstFreeSlot(project.ToolNameTable, 99)] = kBenchTool;
    int row = 1;
    while (!IsBlank(project.Element(row)[1])) ++row;
    const std::vector<std::string> font = {"fontname:Verdana", "fontsize:8", "fontbold:False",
                                           "forecolor:16777215", "backcolor:3158064"};
    for (int i = 0; i < kGridElements; ++i, ++row) {
        const int left = 120 + (i % kGridColumns) * 1350, top = 480 + (i / kGridColumns) * 510;
        auto [kind, own] = GridElement(i);
        std::vector<std::string> properties = font;
        properties.insert(properties.end(), own.begin(), own.end());
        SetElement(project, row, kind, i, Placed(properties, left, top, 1260, 420));
    }
    const int consoleLeft = 120 + kGridColumns * 1350 + 120;
    const std::vector<std::string> console = {
        "fontname:Courier New", "fontsize:10",
        "fontbold:True",        "forecolor:65280",
        "backcolor:0",          "commandlist:HELP (List the commands of this console.)"};
    SetElement(project, row, "qonsole", 1, Placed(console, consoleLeft, 480, 7200, 7200));
    SetElement(project, row + 1, "qonsole", 2, Placed(console, consoleLeft, 7800, 7200, 1800));
    return row;
}

// The application copied once, and two plays of the demo project with the bench tool: one on
// screen through the Qt host, one without any window on the headless host.
class Stage {
public:
    Stage()
        : m_host(m_paths, m_preferences), m_screen(m_paths, m_host, m_random),
          m_model(m_paths, m_headless, m_random) {
        InstallFonts(m_paths.FontsPath());
        const std::string name = ProjectName(m_paths);
        m_host.SetProjectName(name);
        for (PlaySession *session : {&m_screen, &m_model}) {
            session->OpenProject(name, WindowScreen());
            m_consoleRow = AddBenchTool(session->project());
        }
    }

    // A new game on a new desktop window, shown and painted after its first activation.
    DesktopWindow &EnterOnScreen() { return orrery::EnterOnScreen(m_desktop, m_screen, m_host); }
    // Ends the game on screen: its host stops ticking.
    void LeaveScreen() { orrery::LeaveScreen(m_desktop, m_screen); }
    Game &EnterModel() {
        if (!m_model.NewGame("Model").ok) Fail("cannot start a game without a window");
        m_model.EnterDesktop();
        return m_model.game();
    }

    Game &screenGame() { return m_screen.game(); }
    int consoleRow() const { return m_consoleRow; }
    const AppPaths &paths() const { return m_paths; }
    PreferenceStore &preferences() { return m_preferences; }

private:
    [[noreturn]] static void Fail(const char *why) {
        std::fprintf(stderr, "gui_bench: %s\n", why);
        std::exit(1);
    }

    AppFolder m_folder{"gui-bench"};
    AppPaths m_paths{m_folder.root()};
    PreferenceStore m_preferences{m_folder.preferences()};
    Random m_random{7};
    QtHost m_host;
    HeadlessHost m_headless;
    PlaySession m_screen;
    PlaySession m_model;
    std::unique_ptr<DesktopWindow> m_desktop;
    int m_consoleRow = 0;
};

int ElementsOnScreen(DesktopWindow &desktop) {
    ToolView *tool = desktop.toolView(kBenchTag);
    if (!tool) return 0;
    int views = 0;
    for (const int row : desktop.game().desk.TLinkRows())
        if (tool->element(row)) ++views;
    return views;
}

int ElementsLoaded(Game &game) {
    const int box = ToolOpen(game, kBenchTag);
    int controls = 0;
    for (const int row : game.desk.TLinkRows())
        if (const ElementControl *control = game.desk.Control(row);
            control && box && control->box == box)
            ++controls;
    return controls;
}

// The first opening of the tool, its views made and the whole window painted, on a desktop
// fresh from its first activation each time.
void OpenToolOnScreen(benchmark::State &state, Stage &stage) {
    PaintCounter counter;
    DesktopWindow *desktop = nullptr;
    for (auto _ : state) {
        state.PauseTiming();
        desktop = &stage.EnterOnScreen();
        counter.Start();
        state.ResumeTiming();
        OpenT(stage.screenGame(), kBenchTool);
        desktop->sync();
        desktop->repaint();
        counter.Stop();
    }
    const int shown = desktop ? ElementsOnScreen(*desktop) : 0;
    stage.LeaveScreen();
    if (shown != kToolElements) state.SkipWithError("the tool's elements are not all on screen");
    state.counters["elements"] = shown;
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
}

// The floor: the same opening on the model alone, no window anywhere.
void OpenToolModel(benchmark::State &state, Stage &stage) {
    Game *game = nullptr;
    for (auto _ : state) {
        state.PauseTiming();
        game = &stage.EnterModel();
        state.ResumeTiming();
        OpenT(*game, kBenchTool);
    }
    const int loaded = game ? ElementsLoaded(*game) : 0;
    if (loaded != kToolElements) state.SkipWithError("the tool's elements were not all loaded");
    state.counters["elements"] = loaded;
}

// The large console of the bench tool on screen with 100 rows printed, plain and coloured.
QonsoleView *ConsoleOnScreen(Stage &stage) {
    DesktopWindow &desktop = stage.EnterOnScreen();
    Game &game = stage.screenGame();
    OpenT(game, kBenchTool);
    // The panels that may stand over it go, so that only the console is painted.
    game.desk.message.visible = false;
    game.desk.help.visible = false;
    game.desk.quicklistVisible = false;
    const int row = stage.consoleRow();
    QonsoleTable &table = game.desk.consoles;
    const int column = ConsoleHistoryIndex(table, row);
    static constexpr std::int32_t kColours[] = {kQonsoleRed, kQonsoleOrange, kQonsoleBlue,
                                                kQonsoleGreen};
    for (int i = 1; i <= kQonsoleRows; ++i) {
        const std::string text = "hop " + IntText(i) + "   62.118.40." + IntText(i) + "   relay" +
                                 IntText(i) + ".halvard.com";
        if (i % 3 == 0)
            ColourPrint(table, column, text, kColours[i % 4]);
        else
            PrintQonsole(table, row, text);
    }
    desktop.sync();
    Settle();
    ToolView *tool = desktop.toolView(kBenchTag);
    ElementView *view = tool ? tool->element(row) : nullptr;
    return view ? dynamic_cast<QonsoleView *>(view->widget()) : nullptr;
}

void RepaintConsole(benchmark::State &state, Stage &stage) {
    QonsoleView *view = ConsoleOnScreen(stage);
    if (!view) return state.SkipWithError("the console is not on screen");
    PaintCounter counter;
    counter.Start();
    for (auto _ : state) view->repaint();
    counter.Stop();
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
    state.counters["lines"] =
        static_cast<double>(QonsoleScreen(stage.screenGame().desk, stage.consoleRow()).size());
    stage.LeaveScreen();
}

// The floor: the console's visible lines, ready as text and colour, drawn straight onto an
// image of the console's size.
void DrawConsoleLines(benchmark::State &state, Stage &stage) {
    QonsoleView *view = ConsoleOnScreen(stage);
    if (!view) return state.SkipWithError("the console is not on screen");
    const ElementControl &control = *stage.screenGame().desk.Control(stage.consoleRow());
    struct Line {
        QString text;
        QColor colour;
        int y;
    };
    const QFont font = view->font();
    const int ascent = QFontMetrics(font).ascent();
    std::vector<Line> lines;
    for (const QonsoleScreenLine &line : QonsoleScreen(stage.screenGame().desk, stage.consoleRow()))
        lines.push_back({ToQString(line.text), ToQColor(line.colour.value_or(control.foreColor)),
                         Px(line.top) + ascent});
    const QColor back = ToQColor(control.backColor);
    QImage image(view->size(), QImage::Format_ARGB32_Premultiplied);
    stage.LeaveScreen();
    for (auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), back);
        painter.setFont(font);
        for (const Line &line : lines) {
            painter.setPen(line.colour);
            painter.drawText(QPoint(0, line.y), line.text);
        }
    }
    state.counters["lines"] = static_cast<double>(lines.size());
}

double ProcessSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &t) {
        return static_cast<double>(t.tv_sec) + t.tv_usec / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

int RunningTimers(const Timers &timers) {
    int running = 0;
    for (const std::vector<Timer> *list : {&timers.fixed, &timers.qlob, &timers.misc})
        for (const Timer &timer : *list) running += timer.enabled && timer.interval > 0;
    return running;
}

struct IdleFigures {
    double cpuPercent = -1;
    double syncsPerSecond = 0;
    double paintsPerSecond = 0;
};

// The unchanged demo game after its first activation, its desktop's timers running with a
// counter and a flasher besides, left alone for a few seconds of wall time.
void IdleDesktop(benchmark::State &state, Stage &stage, IdleFigures &figures) {
    constexpr int kIdleMilliseconds = 3000;
    QtHost host(stage.paths(), stage.preferences());
    Random random(11);
    PlaySession session(stage.paths(), host, random);
    const std::string name = ProjectName(stage.paths());
    host.SetProjectName(name);
    session.OpenProject(name, WindowScreen());
    if (!session.NewGame("Idle").ok) return state.SkipWithError("cannot start the demo game");
    auto desktop = std::make_unique<DesktopWindow>(session, host);
    desktop->resize(kWindowSize);
    desktop->show();
    desktop->enter();
    desktop->run([](Game &game) {
        RunStatement(game, "CREATE_VARIABLE [$benchcount] [100000]");
        RunStatement(game, "QLOB_COUNTER [benchend] [showclock] [$benchcount] [50]");
        RunStatement(game, "FLASH_ON [Mail] [listinbox] [500]");
    });
    Settle();
    const int running = RunningTimers(session.game().timers);
    long long syncs = 0;
    QObject::connect(&host, &QtHost::changed, [&syncs] { ++syncs; });
    PaintCounter counter;
    for (auto _ : state) {
        QEventLoop loop;
        QTimer::singleShot(kIdleMilliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        counter.Start();
        syncs = 0;
        QElapsedTimer wall;
        wall.start();
        const double before = ProcessSeconds();
        loop.exec();
        const double used = ProcessSeconds() - before;
        const double seconds = static_cast<double>(wall.nsecsElapsed()) / 1e9;
        counter.Stop();
        figures = {100 * used / seconds, static_cast<double>(syncs) / seconds,
                   static_cast<double>(counter.paints()) / seconds};
    }
    // The desktop's seven, the demo's own counter, and the counter and flasher added here.
    if (running != 10) state.SkipWithError("the timers are not all running");
    state.counters["timers"] = running;
    state.counters["cpu_percent"] = figures.cpuPercent;
    state.counters["syncs_per_s"] = figures.syncsPerSecond;
    state.counters["paints_per_s"] = figures.paintsPerSecond;
    desktop.reset();
    session.Exit();
}

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto options = InitializeBenchmarks(argc, argv);
    if (!options) return 1;
    QApplication app(argc, argv);
    {
        Stage stage;
        IdleFigures idle;
        benchmark::RegisterBenchmark("BM_OpenToolOnScreen",
                                     [&](benchmark::State &s) { OpenToolOnScreen(s, stage); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(25);
        benchmark::RegisterBenchmark("BM_OpenToolModel",
                                     [&](benchmark::State &s) { OpenToolModel(s, stage); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(100);
        benchmark::RegisterBenchmark("BM_RepaintConsole",
                                     [&](benchmark::State &s) { RepaintConsole(s, stage); })
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.3);
        benchmark::RegisterBenchmark("BM_DrawConsoleLines",
                                     [&](benchmark::State &s) { DrawConsoleLines(s, stage); })
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.3);
        benchmark::RegisterBenchmark("BM_IdleDesktop",
                                     [&](benchmark::State &s) { IdleDesktop(s, stage, idle); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
        TimeKeepingReporter reporter(*options);
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf("\n");
        PrintRatio(reporter, "open a tool of 150 elements: on screen / model",
                   "BM_OpenToolOnScreen", "BM_OpenToolModel", 0);
        if (const auto seconds = reporter.Seconds("BM_OpenToolOnScreen"))
            std::printf("%-52s = %6.2f ms\n", "first opening of the tool on screen",
                        *seconds * 1e3);
        PrintRatio(reporter, "repaint a console of 100 rows / draw its lines", "BM_RepaintConsole",
                   "BM_DrawConsoleLines", 0);
        if (idle.cpuPercent >= 0)
            std::printf("idle desktop: %.1f%% of one core (%.1f syncs/s, %.1f paints/s)\n",
                        idle.cpuPercent, idle.syncsPerSecond, idle.paintsPerSecond);
    }
    benchmark::Shutdown();
    return 0;
}
