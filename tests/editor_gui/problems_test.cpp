// The Problems panel in the editor's frame: a finding opens what it is about in the editor
// that edits it.
#include "check/check.h"
#include "editor/qt/editorframe.h"
#include "editor/qt/problemspanel.h"
#include "editor/qt/toolcanvas.h"
#include "editor/qt/tooleditor.h"
#include "editor/sequences.h"
#include "foundation/textfile.h"
#include "editor/session.h"
#include "gui/guitest.h"

#include <QDockWidget>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QComboBox>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace orrery {
namespace {

struct ProblemsGui : ::testing::Test {
    test::TempDir dir;
    std::filesystem::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    EditorFrame frame{session};

    void SetUp() override {
        frame.resize(1280, 860);
        frame.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
        frame.Start("Night Shift");
    }
    QAbstractItemModel *List() { return frame.problems()->view()->model(); }
    QString Cell(int row, int column) { return List()->index(row, column).data().toString(); }
    void Activate(int row) {
        const QModelIndex index = List()->index(row, FindingModel::kMessage);
        ASSERT_TRUE(index.isValid());
        emit frame.problems()->view()->activated(index);
    }
    QString CurrentTab() {
        auto *tabs = frame.tools()->findChild<QTabWidget *>("SSTab1");
        return tabs->tabText(tabs->currentIndex());
    }
};

TEST_F(ProblemsGui, AFindingOpensWhatItIsAbout) {
    using K = FindingPlace::Kind;
    std::vector<Finding> findings{
        {Severity::Error, "unknown-statement", "SHOW_MESAGE: no such statement.",
         {K::Element, "buttonconnect", "action", 0, 1}, 246},
        {Severity::Error, "missing-label", "_GOTO [gate]: no label ~gate.",
         {K::Qlob, "connect", "", 0, 3}, 485},
        {Severity::Warning, "undeclared-variable", "$x is never set.",
         {K::ToolSub, "mail:activate", "", 0, 1}, 552},
        {Severity::Warning, "variable-prefix", "$stage begins $stages.",
         {K::Variable, "$stage", "", 0, 0}, 519},
    };
    frame.problems()->ShowFindings(findings);
    EXPECT_EQ(List()->rowCount(), 4);
    EXPECT_EQ(frame.problems()->findChild<QLabel *>("lblProblems")->text().left(20),
              "2 errors, 2 warnings");
    EXPECT_EQ(Cell(0, FindingModel::kWhere), "buttonconnect, action, statement 1");
    EXPECT_EQ(Cell(0, FindingModel::kLine), "246");
    frame.findChild<QDockWidget *>("dockProblems")->show();
    test::Shot(&frame, "editor-problems.png");

    Activate(0);
    ASSERT_NE(frame.tools(), nullptr);
    EXPECT_EQ(CurrentTab(), "Tools and Elements");
    EXPECT_EQ(frame.tools()->CurrentTool(), "Connector");
    EXPECT_EQ(frame.tools()->canvas()->selection(), std::vector<std::string>{"buttonconnect"});

    Activate(1);
    EXPECT_EQ(CurrentTab(), "Qlobs");
    auto *statements = frame.tools()->findChild<QPlainTextEdit *>("Text5");
    EXPECT_EQ(statements->textCursor().blockNumber(), 2) << "the cursor on the statement";

    Activate(2);
    EXPECT_EQ(CurrentTab(), "Tool Subs");
    EXPECT_EQ(frame.tools()->findChild<QComboBox *>("cboTool")->currentText(), "Mail");
    EXPECT_EQ(frame.tools()->findChild<QListWidget *>("lstSubs")->currentItem()->text(),
              "activate");

    Activate(3);
    EXPECT_EQ(CurrentTab(), "Variables");
    EXPECT_EQ(frame.tools()->findChild<QTreeWidget *>("List3")->currentItem()->text(0), "$stage");
}

TEST_F(ProblemsGui, AStepIsCheckedAndItsUndoToo) {
    const auto errors = [this] {
        std::vector<std::string> found;
        for (const Finding &f : frame.problems()->findings())
            if (f.severity == Severity::Error) found.push_back(f.code + "@" + std::to_string(f.line));
        return found;
    };
    EXPECT_TRUE(errors().empty()) << "the demo has no errors";
    ASSERT_TRUE(frame.Apply(SetQlob(session.model(), "noroute", "SHOW_MESAGE [hi]`_GOTO [away]")));
    ASSERT_TRUE(test::WaitFor([&] { return errors().size() == 2; }));
    // Both stand on the qlob's line of the saved file.
    const std::string file = ReadFileBytes(session.File()).value_or("");
    const auto lines = SplitLines(file);
    const auto at = std::find_if(lines.begin(), lines.end(),
                                 [](std::string_view line) { return line.starts_with("qlob:NOROUTE"); });
    ASSERT_NE(at, lines.end());
    const std::string line = std::to_string(at - lines.begin() + 1);
    EXPECT_EQ(errors(), (std::vector<std::string>{"unknown-statement@" + line, "missing-label@" + line}));
    frame.undoStack()->undo();
    ASSERT_TRUE(test::WaitFor([&] { return errors().empty(); }));
}

} // namespace
} // namespace orrery
