// The tool editor on Qt's offscreen platform: a tool built from nothing with the mouse and the
// keyboard, every gesture one step that undoes; the preview drawn as the run-time draws the tool.
#include "editor/elements.h"
#include "editor/qt/editorframe.h"
#include "editor/qt/hub.h"
#include "editor/qt/toolcanvas.h"
#include "editor/qt/tooleditor.h"
#include "editor/session.h"
#include "editor/words.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"
#include "foundation/preferences.h"
#include "foundation/random.h"
#include "runtime/desktopwindow.h"
#include "runtime/qthost.h"
#include "session/playsession.h"
#include "actions/game.h"
#include "desk/tools.h"
#include "widgets/toolview.h"

#include <QAction>
#include <QCheckBox>
#include <QColorDialog>
#include <QFontDialog>
#include <QToolButton>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// The demo project open in the editor's frame, the tool editor showing.
struct ToolEditorGui : ::testing::Test {
    test::TempDir dir;
    fs::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    EditorFrame frame{session};
    ToolEditor *editor = nullptr;

    void SetUp() override {
        frame.resize(1280, 860);
        frame.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
        frame.Start("Night Shift");
        QTest::mouseClick(frame.hub()->findChild<QPushButton *>("Command6"), Qt::LeftButton);
        editor = frame.tools();
        ASSERT_NE(editor, nullptr);
        QApplication::processEvents();
    }
    template <typename T> T *Find(const char *name) { return editor->findChild<T *>(name); }
    ToolCanvas *Canvas() { return editor->canvas(); }
    void ChooseTool(const QString &name) {
        auto *list = Find<QListWidget>("List1");
        const auto found = list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        list->setCurrentItem(found[0]);
    }
    std::string Cell(const char *element, const char *key) {
        const int row = ElementRowByName(session.model(), element);
        return row ? PropertyValue(session.model().Element(row), key).value_or("") : "<gone>";
    }
    QPoint CentreOf(const std::string &element) { return Canvas()->ElementRect(element).center(); }
    void AddTool(const QString &name) {
        QTest::keyClicks(Find<QLineEdit>("txtn"), name);
        QTest::mouseClick(Find<QPushButton>("cmdAddTool"), Qt::LeftButton);
    }
    // Answers the input boxes that come while it acts, in order, and says Yes to the
    // questions and OK to the messages, keeping their texts.
    void Answering(std::vector<QString> answers, const std::function<void()> &act) {
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            QWidget *window = QApplication::activeModalWidget();
            if (auto *input = qobject_cast<QInputDialog *>(window)) {
                input->setTextValue(answers.empty() ? QString() : answers.front());
                if (!answers.empty()) answers.erase(answers.begin());
                input->accept();
            } else if (auto *box = qobject_cast<QMessageBox *>(window)) {
                told.push_back(box->text().toStdString());
                if (QAbstractButton *yes = box->button(QMessageBox::Yes)) yes->click();
                else box->accept();
            }
        });
        poll.start(10);
        act();
    }
    void AddElement(int kind, std::vector<QString> answers) {
        Find<QListWidget>("List2")->setCurrentRow(kind);
        Answering(std::move(answers),
                  [this] { QTest::mouseClick(Find<QPushButton>("Command7"), Qt::LeftButton); });
    }
    void Drag(QPoint from, QPoint by, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(Canvas(), Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) {
            const QPointF at = QPointF(from + by * step / 4);
            QMouseEvent move(QEvent::MouseMove, at, Canvas()->mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, keys);
            QApplication::sendEvent(Canvas(), &move);
        }
        QTest::mouseRelease(Canvas(), Qt::LeftButton, {}, from + by);
    }
    std::string FileBytes() {
        return ReadFileBytes(*session.paths().ProjectFile("Night Shift")).value_or("");
    }
    std::vector<std::string> told; // the message boxes' texts
    void Shoot(const char *name) {
        QApplication::processEvents();
        test::Shot(&frame, name);
    }
};

TEST_F(ToolEditorGui, ShowsTheDemoToolWithASelection) {
    ChooseTool("Cracker");
    ASSERT_FALSE(Canvas()->selection().empty() && Canvas()->host().elements(1).empty());
    const auto elements = Canvas()->host().elements(1);
    ASSERT_GE(elements.size(), 2u);
    QTest::mouseClick(Canvas(), Qt::LeftButton, {}, CentreOf(elements[0].second->tag.c_str()));
    QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::ControlModifier,
                      CentreOf(elements[1].second->tag.c_str()));
    EXPECT_EQ(Canvas()->selection().size(), 2u);
    Shoot("tool_editor.png");
}

// The rows behind a deleted element close up: what stays selected is found by name, and
// each mark still stands over its own element.
TEST_F(ToolEditorGui, ASelectionKeepsItsElementsWhenOthersGo) {
    ChooseTool("Cracker");
    Canvas()->SelectAll();
    std::vector<std::string> selected = Canvas()->selection();
    ASSERT_GE(selected.size(), 3u);
    const std::string gone = selected.front();
    std::vector<QRect> marks;
    for (const std::string &name : selected) marks.push_back(Canvas()->ElementRect(name));
    ASSERT_TRUE(frame.Apply(DeleteElements(session.model(), {gone})));
    selected.erase(selected.begin());
    marks.erase(marks.begin());
    EXPECT_EQ(Canvas()->selection(), selected);
    EXPECT_TRUE(Canvas()->ElementRect(gone).isNull());
    for (std::size_t i = 0; i < selected.size(); ++i)
        EXPECT_EQ(Canvas()->ElementRect(selected[i]), marks[i]) << selected[i];
    // Back by undo, it is there again but not selected.
    frame.findChild<QAction *>("mnuundo")->trigger();
    EXPECT_FALSE(Canvas()->ElementRect(gone).isNull());
    EXPECT_EQ(Canvas()->selection(), selected);
}

TEST_F(ToolEditorGui, AToolBuiltFromNothingUndoesStepByStepAndPlaysAsPreviewed) {
    const std::string before = FileBytes();
    QUndoStack &undo = *frame.undoStack();
    AddTool("Probe");
    ASSERT_EQ(editor->CurrentTool(), "Probe");

    AddElement(1, {"ab", "probestatus"}); // two letters are refused, and the name is asked again
    EXPECT_EQ(told, std::vector<std::string>{words::kElementNameInvalid.text});
    EXPECT_EQ(Canvas()->selection(), std::vector<std::string>{"labelprobestatus"});
    AddElement(0, {"probego"});
    AddElement(5, {"probelog"});
    EXPECT_EQ(Cell("qonsoleprobelog", "commandlist"), words::kNewQonsoleCommands);
    Find<QCheckBox>("Check8")->setChecked(true);
    told.clear();
    AddElement(1, {"13"});
    AddElement(1, {"12"});
    Find<QCheckBox>("Check8")->setChecked(false);
    EXPECT_EQ(told, (std::vector<std::string>{words::kArrayTooBig.text, words::kArrayWarning.text}));
    EXPECT_EQ(Canvas()->host().elements(1).size(), 15u);

    // Captions, a font and a colour from the property panel, each one step.
    Canvas()->Select({"labelprobestatus"});
    auto *caption = Find<QPlainTextEdit>("caption");
    ASSERT_NE(caption, nullptr);
    caption->clear();
    QTest::keyClicks(caption, "Signal");
    test::LeaveField(caption);
    EXPECT_EQ(Cell("labelprobestatus", "caption"), "Signal");
    Canvas()->Select({"labelprobestatus", "buttonprobego"});
    QFont chosen("DejaVu Serif");
    chosen.setPointSize(12);
    chosen.setBold(true);
    test::WhenModal<QFontDialog>([chosen](QFontDialog *dialog) {
        dialog->setCurrentFont(chosen);
        dialog->accept();
    });
    const int beforeFont = undo.index();
    Find<QPushButton>("fontname")->click();
    EXPECT_EQ(undo.index(), beforeFont + 1);
    EXPECT_EQ(Cell("buttonprobego", "fontsize"), "12");
    test::WhenModal<QColorDialog>([](QColorDialog *dialog) {
        dialog->setCurrentColor(QColor(0, 255, 128));
        dialog->accept();
    });
    Find<QToolButton>("forecolor")->click();
    EXPECT_EQ(Cell("labelprobestatus", "forecolor"), "8453888"); // 0x80ff00: red in the low byte
    EXPECT_EQ(Cell("buttonprobego", "forecolor"), "8453888");
    const int built = undo.index();

    // A drag comes to rest on the grid, one step however far it went.
    Canvas()->Select({"labelprobestatus"});
    ASSERT_EQ(Cell("labelprobestatus", "left"), "160");
    Drag(CentreOf("labelprobestatus"), QPoint(37, 22)); // 555 and 330 twips
    EXPECT_EQ(Cell("labelprobestatus", "left"), "640");
    EXPECT_EQ(Cell("labelprobestatus", "top"), "880");
    EXPECT_EQ(undo.index(), built + 1);
    // With Shift, its left edge meets the button's.
    const QRect label = Canvas()->ElementRect("labelprobestatus");
    const int toButton = Canvas()->ElementRect("buttonprobego").left() - label.left();
    Drag(label.topLeft() + QPoint(2, 2), QPoint(toButton + 3, 0), Qt::ShiftModifier);
    EXPECT_EQ(Cell("labelprobestatus", "left"), Cell("buttonprobego", "left"));
    undo.undo();
    // Arrow keys nudge and Shift sizes; a run of the same nudge is one step.
    QTest::keyClick(Canvas(), Qt::Key_Right);
    QTest::keyClick(Canvas(), Qt::Key_Right);
    QTest::keyClick(Canvas(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Cell("labelprobestatus", "left"), "880");
    EXPECT_EQ(undo.index(), built + 3);

    // Properties copied from the label go onto the button; its place stays.
    const std::string buttonLeft = Cell("buttonprobego", "left");
    QTest::keyClick(Canvas(), Qt::Key_C, Qt::ControlModifier);
    QTest::mouseClick(Canvas(), Qt::LeftButton, {}, CentreOf("buttonprobego"));
    QTest::keyClick(Canvas(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Cell("buttonprobego", "height"), Cell("labelprobestatus", "height"));
    EXPECT_EQ(Cell("buttonprobego", "left"), buttonLeft);
    // Aligned with the element chosen first.
    QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::ControlModifier, CentreOf("labelprobestatus"));
    Find<QAction>("align-left")->trigger();
    EXPECT_EQ(Cell("labelprobestatus", "left"), buttonLeft);

    // A rubber band round the qonsole alone, then Delete with its question.
    const QRect log = Canvas()->ElementRect("qonsoleprobelog");
    told.clear();
    Answering({}, [&] {
        Drag(log.topLeft() - QPoint(4, 4), QPoint(log.width() + 8, log.height() + 8));
    });
    ASSERT_EQ(Canvas()->selection(), std::vector<std::string>{"qonsoleprobelog"});
    Answering({}, [&] { QTest::keyClick(Canvas(), Qt::Key_Delete); });
    EXPECT_EQ(told, std::vector<std::string>{std::string(words::kDeleteElement.text)});
    EXPECT_EQ(Cell("qonsoleprobelog", "left"), "<gone>");
    // The Edit menu's Undo brings it back.
    frame.findChild<QAction *>("mnuundo")->trigger();
    EXPECT_EQ(Cell("qonsoleprobelog", "left"), "160");
    Shoot("tool_editor_built.png");

    // Every step undoes, to the file's first byte, and redoes to its last.
    const std::string after = FileBytes();
    const int last = undo.index();
    while (undo.canUndo()) undo.undo();
    EXPECT_EQ(FileBytes(), before);
    while (undo.index() < last) undo.redo();
    EXPECT_EQ(FileBytes(), after);

    // The run-time opens the tool as the preview drew it.
    ChooseTool("Probe");
    QApplication::processEvents();
    const QImage previewed = Canvas()->view()->grab().toImage();
    PreferenceStore preferences(dir.path() / "prefs");
    Random random(5);
    QtHost host(session.paths(), preferences);
    PlaySession play(session.paths(), host, random);
    play.OpenProject("Night Shift");
    ASSERT_TRUE(play.NewGame("Cy").ok);
    DesktopWindow desktop(play, host);
    desktop.resize(1280, 800);
    desktop.show();
    desktop.enter();
    desktop.run([](Game &g) {
        g.desk.message.visible = false;
        OpenT(g, "Probe");
    });
    ToolView *played = desktop.toolView("probe");
    ASSERT_NE(played, nullptr);
    QApplication::processEvents();
    test::Shot(played, "tool_played.png");
    test::Shot(Canvas()->view(), "tool_previewed.png");
    EXPECT_EQ(played->grab().toImage(), previewed);
}

} // namespace
} // namespace orrery
