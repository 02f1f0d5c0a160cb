// The qombo creator on Qt's offscreen platform: the marker's snap on release, a typed place
// taken as it stands, Add Qombo! as one step that undoes to the byte, Cancel adding nothing.
#include "editor/qt/editorframe.h"
#include "editor/qt/hub.h"
#include "editor/qt/qombodialog.h"
#include "editor/qt/toolcanvas.h"
#include "editor/qt/tooleditor.h"
#include "editor/session.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"
#include "widgets/look.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// The demo project open, the creator over its Cracker; each step it applies is kept.
struct QomboGui : ::testing::Test {
    test::TempDir dir;
    fs::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    std::vector<Change> kept;
    std::function<void()> whileApplying;
    std::unique_ptr<QomboDialog> dialog;

    void SetUp() override {
        ASSERT_FALSE(session.Open("Night Shift"));
        EditorContext context{&session, [this](Outcome outcome) {
                                  if (whileApplying) whileApplying();
                                  if (!session.Apply(outcome)) return false;
                                  kept.push_back(std::move(outcome.change));
                                  return true;
                              }};
        dialog = std::make_unique<QomboDialog>(context, "Cracker");
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    template <typename T> T *Find(const char *name) { return dialog->findChild<T *>(name); }
    QString Shown(const char *field) { return Find<QLineEdit>(field)->text(); }
    void Type(const char *field, const QString &text) {
        Find<QLineEdit>(field)->selectAll();
        QTest::keyClicks(Find<QLineEdit>(field), text);
    }
    std::string FileBytes() {
        return ReadFileBytes(*session.paths().ProjectFile("Night Shift")).value_or("");
    }
    std::string Cell(const char *element, const char *key) {
        const int row = ElementRowByName(session.model(), element);
        return row ? PropertyValue(session.model().Element(row), key).value_or("") : "<none>";
    }
};

TEST_F(QomboGui, TheMarkerSnapsWhereTheDragEnds) {
    ASSERT_EQ(Shown("Text3"), "160");
    const std::int32_t top = Shown("Text4").toInt();
    // Left in twips where the mouse lets go, and where the marker comes to rest.
    const std::pair<std::int32_t, std::int32_t> rows[] = {{100, 40}, {40, 40}, {175, 160}};
    for (const auto &[dropped, rests] : rows) {
        QWidget *marker = Find<QWidget>("p");
        const std::int32_t from = Shown("Text3").toInt();
        const QPoint grip(4, 4), to = grip + QPoint(Px(dropped - from), 0);
        QTest::mousePress(marker, Qt::LeftButton, {}, grip);
        QTest::mouseMove(marker, to);
        EXPECT_EQ(Shown("Text3").toInt(), dropped) << "follows the mouse until let go";
        QTest::mouseRelease(marker, Qt::LeftButton, {}, to);
        EXPECT_EQ(Shown("Text3").toInt(), rests) << dropped;
        EXPECT_EQ(Shown("Text4").toInt(), top);
    }
}

TEST_F(QomboGui, AddQomboAddsTheTypeAtTheTypedPlaceAsOneStep) {
    const std::string before = FileBytes();
    const QPoint marker = dialog->MarkerRect().topLeft();
    const std::int32_t top = Shown("Text4").toInt();
    Type("Text3", "100");
    Type("Text4", "605");
    EXPECT_EQ(dialog->MarkerRect().topLeft() - marker,
              QPoint(Px(100) - Px(160), Px(605) - Px(top)));
    Find<QRadioButton>("Option2")->click();
    struct Working {
        QString caption;
        bool add, cancel;
    } working{};
    whileApplying = [&] {
        working = {Find<QPushButton>("Command4")->text(),
                   Find<QPushButton>("Command4")->isEnabled(),
                   Find<QPushButton>("Command2")->isEnabled()};
    };
    QTest::mouseClick(Find<QPushButton>("Command4"), Qt::LeftButton);
    EXPECT_EQ(working.caption, "Creating...");
    EXPECT_FALSE(working.add || working.cancel);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    // The typed place, not snapped, is the group's corner: type 2's label, text box, button.
    EXPECT_EQ(Cell("labelqombo1prompt", "left"), "100");
    EXPECT_EQ(Cell("labelqombo1prompt", "top"), "605");
    EXPECT_EQ(Cell("textqombo1input", "left"), "1660");
    EXPECT_EQ(Cell("buttonqombo1go", "caption"), "Button");
    ASSERT_EQ(kept.size(), 1u);
    session.Undo(kept[0]);
    EXPECT_EQ(FileBytes(), before);
}

TEST_F(QomboGui, CancelAddsNothing) {
    const std::string before = FileBytes();
    QTest::mouseClick(Find<QPushButton>("Command2"), Qt::LeftButton);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(kept.empty());
    EXPECT_EQ(FileBytes(), before);
}

TEST_F(QomboGui, TheFormCarriesItsWords) {
    EXPECT_EQ(dialog->objectName(), "zQombo1");
    EXPECT_EQ(dialog->windowTitle(), "Qombo!");
    for (int type = 1; type <= kQomboTypes; ++type)
        EXPECT_EQ(Find<QRadioButton>(QString("Option%1").arg(type).toLatin1())->text(),
                  QString("Qombo Type %1").arg(type));
    QStringList words;
    for (const QLabel *label : dialog->findChildren<QLabel *>()) words << label->text();
    EXPECT_TRUE(words.contains("QOMBO TYPE 5 COMING SOON!"));
    EXPECT_TRUE(words.contains("What type of Qombo would you like?"));
    EXPECT_EQ(Find<QWidget>("p")->toolTip(),
              "Drag the orange box to position your new super Qombo!");
    QApplication::processEvents();
    test::Shot(dialog.get(), "qombo_dialog.png");
}

TEST(QomboFromTheToolEditor, TheChosenToolShowsTheGroupAdded) {
    test::TempDir dir;
    EditorSession session{AppPaths(test::CopyAppFolder(dir)), AppPaths(ORRERY_APP_DIR)};
    EditorFrame frame{session};
    frame.show();
    frame.Start("Night Shift");
    QTest::mouseClick(frame.hub()->findChild<QPushButton *>("Command6"), Qt::LeftButton);
    ToolEditor *editor = frame.tools();
    ASSERT_NE(editor, nullptr);
    auto *tools = editor->findChild<QListWidget *>("List1");
    tools->setCurrentItem(tools->findItems("Cracker", Qt::MatchExactly).value(0));
    const std::size_t before = editor->canvas()->host().elements(PreviewHost::kBox).size();
    test::WhenModal<QomboDialog>([](QomboDialog *dialog) {
        dialog->findChild<QRadioButton *>("Option4")->click();
        dialog->findChild<QPushButton *>("Command4")->click();
    });
    QTest::mouseClick(editor->findChild<QPushButton *>("cmdQombo"), Qt::LeftButton);
    EXPECT_EQ(editor->canvas()->host().elements(PreviewHost::kBox).size(), before + 3);
}

} // namespace
} // namespace orrery
