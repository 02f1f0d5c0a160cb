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
#include "widgets/toolview.h"

#include <QAction>
#include <QCheckBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
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
    QPoint CentreOf(const char *element) { return Canvas()->ElementRect(element).center(); }
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

} // namespace
} // namespace orrery
