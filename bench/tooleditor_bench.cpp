// Benchmarks of the tool editor's preview on Qt's offscreen platform, each beside a floor taken
// in the same run: the first display of a tool of 150 elements in the preview beside its first
// opening on the run-time's desktop; a frame of a drag of 50 elements beside a repaint of the
// same preview with no move, and beside the whole preview drawn; select-all and a nudge of a
// tool of 1,499 elements, saved and shown again, beside the save alone.
#include "desk/tools.h"
#include "editor/elements.h"
#include "editor/qt/editorframe.h"
#include "editor/qt/toolcanvas.h"
#include "editor/qt/tooleditor.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "foundation/convert.h"
#include "foundation/preferences.h"
#include "foundation/random.h"
#include "largest_project.h"
#include "onscreen.h"
#include "project/saver.h"
#include "ratios.h"
#include "runtime/desktopwindow.h"
#include "runtime/qthost.h"
#include "session/playsession.h"
#include "widgets/look.h"
#include "widgets/toolview.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollArea>
#include <QUndoStack>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace orrery {
namespace {

constexpr const char *kBenchTool = "Bench";
constexpr const char *kBenchTag = "bench";
constexpr int kGridColumns = 8;
constexpr int kGridElements = 148; // and two consoles: 150
constexpr int kToolElements = kGridElements + 2;
constexpr int kDragged = 50;
constexpr const char *kLargestName = "Nudge Game";
constexpr const char *kLargestTool = "Connector Tool 1";

// One element of the bench tool as the editor adds it: its kind, its name and its place, and
// the properties set on it after.
struct Planned {
    ElementKind kind;
    std::string name;
    Position at;
    std::vector<std::pair<std::string, std::string>> properties;
};

// Grid cell i: labels plain and opaque, buttons, text boxes full and empty, lists and
// pictures, one of each in every eight.
Planned GridElement(int i) {
    const std::string n = IntText(i);
    const Position at{120 + (i % kGridColumns) * 1350, 480 + (i / kGridColumns) * 510};
    const std::string name = "cell" + std::string(n.size() < 3 ? 3 - n.size() : 0, '0') + n;
    switch (i % 8) {
    case 1:
    case 6:
        return {ElementKind::Button, name, at, {{"caption", "Scan " + n}}};
    case 2:
        return {ElementKind::Text, name, at, {{"text", "host" + n + ".example"}}};
    case 5:
        return {ElementKind::Text, name, at, {}};
    case 4:
        return {ElementKind::List, name, at, {{"listitems", "alpha//beta//gamma//delta//epsilon"}}};
    case 3:
        return {ElementKind::Label, name, at, {{"backstyle", "1"}, {"caption", "Port " + n}}};
    case 7:
        return {ElementKind::Image, name, at, {{"datafield", "locked.bmp"}}};
    default:
        return {ElementKind::Label,
                name,
                at,
                {{"caption", "Node " + n}, {"alignment", IntText(i % 3)}}};
    }
}

// The bench tool made with the editor's own operations, as one step: 148 elements in a grid
// and two consoles beside it, a large one and a small one.
Outcome AddBenchTool(ProjectModel &model) {
    Transaction t(model, "Bench");
    if (auto refusal = t.Take(AddTool(model, kBenchTool))) return t.Refuse(*refusal);
    std::vector<Planned> plan;
    for (int i = 0; i < kGridElements; ++i) {
        plan.push_back(GridElement(i));
        plan.back().properties.insert(plan.back().properties.end(),
                                      {{"width", "1260"}, {"height", "420"}});
    }
    const std::int32_t consoleLeft = 120 + kGridColumns * 1350 + 120;
    plan.push_back({ElementKind::Qonsole,
                    "cell148",
                    {consoleLeft, 480},
                    {{"width", "7200"}, {"height", "7200"}}});
    plan.push_back({ElementKind::Qonsole,
                    "cell149",
                    {consoleLeft, 7800},
                    {{"width", "7200"}, {"height", "1800"}}});
    for (const Planned &p : plan) {
        if (auto refusal = t.Take(AddElement(model, kBenchTool, p.kind, p.name, p.at)))
            return t.Refuse(*refusal);
        const std::string stored = std::string(KindWord(p.kind)) + p.name;
        for (const auto &[key, value] : p.properties)
            if (auto refusal = t.Take(SetElementProperty(model, {stored}, key, value)))
                return t.Refuse(*refusal);
    }
    return t.Commit();
}

// The largest project, every one of its rows an element of its first tool; the kinds without
// a view become labels. A tool shows its rows up to 1,495, so select-all takes that many.
ProjectModel LargestTool() {
    ProjectModel model = MakeLargestModel(kLargestName);
    for (int row = 1; row <= kElementRows; ++row) {
        ElementRow &e = model.Element(row);
        e[kToolColumn] = std::string("atool:") + kLargestTool;
        if (e[kKindColumn].starts_with("frame:")) e[kKindColumn] = "label:" + IntText(row);
    }
    return model;
}

int ViewsShown(const ToolView *view, const std::vector<int> &rows) {
    int shown = 0;
    for (const int row : rows) shown += view && view->element(row);
    return shown;
}

// The application copied once, with the bench tool in the demo project and the largest tool in
// a project of its own; the demo open in the editor's session, and played on screen.
class Stage {
public:
    Stage() : m_host(m_paths, m_preferences), m_play(m_paths, m_host, m_random) {
        InstallFonts(m_paths.FontsPath());
        m_name = ProjectName(m_paths);
        if (m_session.Open(m_name)) Fail("cannot open the demo project");
        if (!m_session.Apply(AddBenchTool(m_session.model()))) Fail("cannot add the bench tool");
        ProjectModel largest = LargestTool();
        if (SaveProject(largest, m_paths, "", 1).status != SaveStatus::Saved)
            Fail("cannot save the largest project");
        m_host.SetProjectName(m_name);
        m_play.OpenProject(m_name, WindowScreen());
    }

    // A preview of its own in a scroll area, as the tool editor holds it, shown and settled
    // with no tool in it.
    std::unique_ptr<QScrollArea> NewPreview() {
        auto area = std::make_unique<QScrollArea>();
        area->setWidget(
            new ToolCanvas({&m_session, [this](Outcome o) { return m_session.Apply(o); }}));
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        area->resize(kWindowSize);
        area->show();
        Settle();
        return area;
    }

    // A new game on a new desktop window, shown and painted after its first activation.
    DesktopWindow &EnterOnScreen() { return orrery::EnterOnScreen(m_desktop, m_play, m_host); }
    void LeaveScreen() { orrery::LeaveScreen(m_desktop, m_play); }
    Game &game() { return m_play.game(); }
    const AppPaths &paths() const { return m_paths; }

private:
    [[noreturn]] static void Fail(const char *why) {
        std::fprintf(stderr, "tooleditor_bench: %s\n", why);
        std::exit(1);
    }

    AppFolder m_folder{"tooleditor-bench"};
    AppPaths m_paths{m_folder.root()};
    PreferenceStore m_preferences{m_folder.preferences()};
    std::string m_name;
    EditorSession m_session{m_paths, m_paths};
    Random m_random{7};
    QtHost m_host;
    PlaySession m_play;
    std::unique_ptr<DesktopWindow> m_desktop;
};

// From a preview with no tool to the bench tool's views made and the preview painted.
void FirstDisplayPreview(benchmark::State &state, Stage &stage) {
    PaintCounter counter;
    std::unique_ptr<QScrollArea> preview;
    ToolCanvas *canvas = nullptr;
    for (auto _ : state) {
        state.PauseTiming();
        preview = stage.NewPreview();
        canvas = static_cast<ToolCanvas *>(preview->widget());
        counter.Start();
        state.ResumeTiming();
        canvas->ShowTool(kBenchTool);
        canvas->repaint();
        QApplication::processEvents();
        counter.Stop();
    }
    const int shown = canvas ? ViewsShown(canvas->view(), canvas->host().desk().TLinkRows()) : 0;
    if (shown != kToolElements) state.SkipWithError("the tool's elements are not all previewed");
    state.counters["elements"] = shown;
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
}

// The floor: the tool's first opening on a desktop fresh from its first activation, painted
// the same way.
void FirstOpenRuntime(benchmark::State &state, Stage &stage) {
    PaintCounter counter;
    int shown = 0;
    for (auto _ : state) {
        state.PauseTiming();
        DesktopWindow &desktop = stage.EnterOnScreen();
        counter.Start();
        state.ResumeTiming();
        OpenT(stage.game(), kBenchTool);
        desktop.sync();
        desktop.repaint();
        QApplication::processEvents();
        counter.Stop();
        state.PauseTiming();
        shown = ViewsShown(desktop.toolView(kBenchTag), stage.game().desk.TLinkRows());
        state.ResumeTiming();
    }
    stage.LeaveScreen();
    if (shown != kToolElements) state.SkipWithError("the tool's elements are not all on screen");
    state.counters["elements"] = shown;
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
}

void SendMouse(QWidget *to, QEvent::Type type, QPoint at, Qt::MouseButton button,
               Qt::MouseButtons held) {
    QMouseEvent event(type, QPointF(at), to->mapToGlobal(QPointF(at)), button, held,
                      Qt::NoModifier);
    QApplication::sendEvent(to, &event);
}

// The bench tool in a preview with every third element selected and held by the mouse, the
// drag begun; it is never dropped, so the project is left as it was.
class DragStage {
public:
    explicit DragStage(Stage &stage)
        : m_preview(stage.NewPreview()), m_canvas(static_cast<ToolCanvas *>(m_preview->widget())) {
        m_canvas->ShowTool(kBenchTool);
        std::vector<std::string> chosen;
        for (const auto &[row, control] : m_canvas->host().elements(PreviewHost::kBox))
            if (static_cast<int>(chosen.size()) < kDragged && row % 3 == 0)
                chosen.push_back(control->tag);
        m_canvas->Select(chosen);
        Settle();
        m_from = m_canvas->ElementRect(chosen.front()).center();
        SendMouse(m_canvas, QEvent::MouseButtonPress, m_from, Qt::LeftButton, Qt::LeftButton);
        MoveBy(QPoint(16, 8));
        Settle();
        m_widgets = m_canvas->findChildren<QWidget *>();
    }
    void MoveBy(QPoint by) {
        SendMouse(m_canvas, QEvent::MouseMove, m_from + by, Qt::NoButton, Qt::LeftButton);
    }
    ToolCanvas &canvas() { return *m_canvas; }
    std::size_t selected() const { return m_canvas->selection().size(); }
    // Every widget of the preview: the tool's panel, the views and their parts, the marks.
    const QList<QWidget *> &widgets() const { return m_widgets; }

private:
    std::unique_ptr<QScrollArea> m_preview;
    ToolCanvas *m_canvas;
    QPoint m_from;
    QList<QWidget *> m_widgets;
};

// A frame of the drag: a move of the mouse, each to a place a grid step from the last, and
// the preview drawn.
void DragFrame(benchmark::State &state, DragStage &drag) {
    if (drag.selected() != kDragged) return state.SkipWithError("the elements are not selected");
    PaintCounter counter;
    counter.Start();
    int step = 0;
    for (auto _ : state) {
        drag.MoveBy(++step % 2 ? QPoint(32, 16) : QPoint(16, 8));
        drag.canvas().repaint();
    }
    counter.Stop();
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
}

// The floor: the same preview, mid-drag, repainted with no move. Qt leaves out what lies
// under the tool's opaque panel, which nothing has touched.
void RepaintCanvas(benchmark::State &state, DragStage &drag) {
    PaintCounter counter;
    counter.Start();
    for (auto _ : state) drag.canvas().repaint();
    counter.Stop();
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
}

// A second floor: the preview drawn whole with no move, every widget of it painted once.
void RepaintWholePreview(benchmark::State &state, DragStage &drag) {
    PaintCounter counter;
    counter.Start();
    for (auto _ : state) {
        for (QWidget *widget : drag.widgets()) widget->update();
        drag.canvas().repaint();
    }
    counter.Stop();
    state.counters["paints"] = benchmark::Counter(static_cast<double>(counter.paints()),
                                                  benchmark::Counter::kAvgIterations);
}

// The largest tool open in the tool editor of the editor's frame.
class NudgeStage {
public:
    explicit NudgeStage(const Stage &stage)
        : m_session(stage.paths(), stage.paths()), m_frame(m_session) {
        m_frame.resize(1280, 860);
        m_frame.show();
        m_frame.Start(kLargestName);
        m_frame.ShowTools();
        Settle();
    }
    ~NudgeStage() { m_frame.undoStack()->clear(); }
    ToolCanvas *canvas() const { return m_frame.tools() ? m_frame.tools()->canvas() : nullptr; }
    QUndoStack &undo() { return *m_frame.undoStack(); }
    EditorSession &session() { return m_session; }
    std::string FirstLeft() const {
        return PropertyValue(m_session.model().Element(1), "left").value_or("");
    }

private:
    EditorSession m_session;
    EditorFrame m_frame;
};

// Select-all and a nudge to the right: one step, saved, and the preview made again from the
// model and drawn. Each run's step is undone before the next.
void SelectAllAndNudge(benchmark::State &state, NudgeStage &stage) {
    ToolCanvas *canvas = stage.canvas();
    if (!canvas || canvas->tool() != kLargestTool)
        return state.SkipWithError("the tool isn't shown");
    const std::string left = stage.FirstLeft();
    for (auto _ : state) {
        const int steps = stage.undo().index();
        canvas->SelectAll();
        canvas->Nudge(Nudge::Right);
        QApplication::processEvents();
        state.PauseTiming();
        state.counters["selected"] = static_cast<double>(canvas->selection().size());
        const char *wrong = nullptr;
        if (stage.undo().count() != steps + 1 || stage.undo().index() != steps + 1)
            wrong = "the nudge wasn't exactly one undo step";
        else if (stage.FirstLeft() != IntText(std::stoi(left) + kNudge))
            wrong = "the elements didn't move";
        if (wrong) return state.SkipWithError(wrong);
        stage.undo().undo();
        Settle();
        state.ResumeTiming();
    }
    if (stage.FirstLeft() != left) state.SkipWithError("the undo didn't bring the tool back");
}

// The floor: the editor's plain save of the same project.
void SaveLargestTool(benchmark::State &state, NudgeStage &stage) {
    for (auto _ : state) {
        stage.session().Autosave();
        if (stage.session().LastSave().status != SaveStatus::Saved)
            state.SkipWithError("cannot save");
    }
}

// A frame of the drag draws most of the tool again, so its aim is the whole preview drawn; a
// repaint with no move draws little, and a nudge of every element redraws them all, which a
// save never does: those two are shown without an aim.
void Report(const TimeKeepingReporter &times) {
    PrintRatio(times, "first display of 150 elements: preview / run-time", "BM_FirstDisplayPreview",
               "BM_FirstOpenRuntime", 2);
    PrintRatio(times, "drag of 50 elements: frame / repaint", "BM_DragFrame", "BM_RepaintCanvas",
               0);
    PrintRatio(times, "drag of 50 elements: frame / whole preview drawn", "BM_DragFrame",
               "BM_RepaintWholePreview", 2);
    PrintRatio(times, "select-all and nudge of 1,499 elements / save", "BM_SelectAllAndNudge",
               "BM_SaveLargestTool", 0);
}

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto options = InitializeBenchmarks(argc, argv);
    if (!options) return 1;
    QApplication app(argc, argv);
    {
        Stage stage;
        std::unique_ptr<DragStage> drag;
        std::unique_ptr<NudgeStage> nudge;
        const auto dragging = [&]() -> DragStage & {
            if (!drag) drag = std::make_unique<DragStage>(stage);
            return *drag;
        };
        const auto nudging = [&]() -> NudgeStage & {
            if (!nudge) nudge = std::make_unique<NudgeStage>(stage);
            return *nudge;
        };
        benchmark::RegisterBenchmark("BM_FirstDisplayPreview",
                                     [&](benchmark::State &s) { FirstDisplayPreview(s, stage); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(25);
        benchmark::RegisterBenchmark("BM_FirstOpenRuntime",
                                     [&](benchmark::State &s) { FirstOpenRuntime(s, stage); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(25);
        benchmark::RegisterBenchmark("BM_DragFrame",
                                     [&](benchmark::State &s) { DragFrame(s, dragging()); })
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.5);
        benchmark::RegisterBenchmark("BM_RepaintCanvas",
                                     [&](benchmark::State &s) { RepaintCanvas(s, dragging()); })
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.5);
        benchmark::RegisterBenchmark(
            "BM_RepaintWholePreview",
            [&](benchmark::State &s) { RepaintWholePreview(s, dragging()); })
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.5);
        benchmark::RegisterBenchmark("BM_SelectAllAndNudge",
                                     [&](benchmark::State &s) { SelectAllAndNudge(s, nudging()); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(10);
        benchmark::RegisterBenchmark("BM_SaveLargestTool",
                                     [&](benchmark::State &s) { SaveLargestTool(s, nudging()); })
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.5);
        TimeKeepingReporter reporter(*options);
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf("\n");
        Report(reporter);
    }
    benchmark::Shutdown();
    return 0;
}
