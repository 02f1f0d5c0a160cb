// The action editor on Qt's offscreen platform: a sequence composed through its real widgets
// and saved as one step, an element picked on the drawn tool, the text view, and the pages
// that open it.
#include "editor/actions.h"
#include "editor/elements.h"
#include "editor/qt/actioneditor.h"
#include "editor/qt/conditiondialog.h"
#include "editor/qt/elementpicker.h"
#include "editor/qt/shellparts.h"
#include "editor/qt/startuppage.h"
#include "editor/qt/toolcanvas.h"
#include "editor/session.h"
#include "editor/words.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"
#include "widgets/look.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace orrery {
namespace {

constexpr const char *kProject = "Action Test";
constexpr const char *kTool = "Connector";

struct ActionEditorGui : ::testing::Test {
    test::TempDir dir;
    std::filesystem::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    std::vector<Change> made; // the steps kept, for a test to undo
    EditorContext context{&session, [this](Outcome outcome) { return Keep(std::move(outcome)); }};
    std::unique_ptr<ActionEditor> editor;
    const SequencePlace fire{SequencePlace::Kind::Element, kTool, "buttonfire"};

    void SetUp() override {
        ASSERT_FALSE(session.Create({kProject, "Ada", "", "", ""}));
        ASSERT_TRUE(context.apply(AddElement(session.model(), kTool, ElementKind::Button, "fire",
                                             {160, 600})));
        ASSERT_TRUE(context.apply(AddElement(session.model(), kTool, ElementKind::Label, "status",
                                             {1600, 600})));
        made.clear();
    }
    bool Keep(Outcome outcome) {
        if (outcome.refused()) ShowMessage(nullptr, *outcome.refusal);
        else if (session.Apply(outcome)) made.push_back(std::move(outcome.change));
        return !outcome.refused();
    }
    void Open(const SequencePlace &place) {
        editor = std::make_unique<ActionEditor>(context, place);
        editor->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(editor.get()));
    }
    template <typename T> T *Find(const char *name) {
        T *found = editor->findChild<T *>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void Click(const char *button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    void Choose(const char *function) {
        auto *list = Find<QListWidget>("List1");
        const auto found = list->findItems(function, Qt::MatchStartsWith);
        ASSERT_FALSE(found.isEmpty()) << function;
        list->scrollToItem(found[0]);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found[0]).center());
        ASSERT_NE(editor->function(), nullptr);
    }
    void Type(const char *field, const QString &text) {
        auto *edit = Find<QLineEdit>(field);
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    std::string Action() { return StoredActions(session.model(), fire); }
    std::string FileBytes() {
        return ReadFileBytes(*session.paths().ProjectFile(kProject)).value_or("");
    }
    void Shoot(QWidget *widget, const char *name) {
        QApplication::processEvents();
        test::Shot(widget, name);
    }
};

TEST_F(ActionEditorGui, ComposesAConditionAndAJumpAndSavesThemAsOneStep) {
    const std::string before = FileBytes();
    Open(fire);
    EXPECT_EQ(editor->windowTitle(), "Assign Actions [Connector -> buttonfire]");
    Choose("MESSAGE");
    Type("txt1", "Alert");
    Type("txt2", "Time: up");
    test::WhenModal<ConditionDialog>([this](ConditionDialog *dialog) {
        dialog->findChild<QLineEdit *>("Text1")->setText("$score");
        dialog->findChild<QListWidget *>("lb")->setCurrentRow(2);
        dialog->findChild<QLineEdit *>("Text2")->setText("3");
        dialog->findChild<QCheckBox *>("Check1")->setChecked(true);
        dialog->findChild<QLineEdit *>("Text3")->setText("4");
        Shoot(dialog, "action_condition.png");
        QTest::mouseClick(dialog->findChild<QPushButton *>("Command1"), Qt::LeftButton);
    });
    Click("Command6");
    auto *conditions = Find<QComboBox>("lcon");
    EXPECT_EQ(conditions->count(), 3) << "None, and one per number of the loop";
    EXPECT_EQ(conditions->currentText(), "$score > 3");
    EXPECT_EQ(Find<QLabel>("lblVerdict")->text(), ToQString(words::kNoProblems));
    Click("Command3");

    Choose("_GOTO");
    conditions->setCurrentIndex(0);
    std::string note;
    test::WhenModal<QMessageBox>([&note](QMessageBox *box) {
        note = box->windowTitle().toStdString() + ": " + box->text().toStdString();
        box->accept();
    });
    Click("Command3");
    EXPECT_EQ(note, words::kGotoNeedsTag.title + ": " + words::kGotoNeedsTag.text);
    Type("txt1", "end");
    Click("Command3");
    EXPECT_EQ(editor->lines(), (std::vector<std::string>{
                                   "     MESSAGE [Alert] [Time; up] {$score > 3}", "_GOTO [END]", "~END"}));
    Shoot(editor.get(), "action_editor.png");

    Click("Command2");
    EXPECT_EQ(editor->result(), QDialog::Accepted);
    ASSERT_EQ(made.size(), 1u) << "the save is one step";
    EXPECT_EQ(Action(), "MESSAGE [Alert] [Time; up] {$score > 3}`_GOTO [END]`~END`");
    session.Undo(made.back());
    EXPECT_EQ(FileBytes(), before);
}

TEST_F(ActionEditorGui, GetElementPicksTheElementClickedOnTheTool) {
    Open(fire);
    Choose("ELEMENT_HIDE");
    EXPECT_EQ(Find<QComboBox>("lst1")->currentText(), kTool) << "the sequence's own tool";
    ElementPicker *seen = nullptr;
    test::WhenModal<ElementPicker>([this, &seen](ElementPicker *picker) {
        seen = picker;
        EXPECT_EQ(picker->windowTitle(), "Function on Connector");
        EXPECT_EQ(picker->findChild<QLabel *>("Label2")->text(), "ELEMENT_HIDE");
        EXPECT_EQ(picker->findChild<QListWidget *>("tvar")->item(0)->text(), "_$score");
        Shoot(picker, "action_get_element.png");
        ToolCanvas *canvas = picker->canvas();
        QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->ElementRect("labelstatus").center());
    });
    Click("cwin2");
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(Find<QComboBox>("lst2")->currentText(), "labelstatus");
    EXPECT_TRUE(made.empty()) << "picking changes nothing";
    Shoot(editor.get(), "action_editor_element.png");
    Click("Command3");
    EXPECT_EQ(editor->lines().back(), "     ELEMENT_HIDE [Connector] [labelstatus]");

    // A line clicked in the list comes back into the inputs.
    Choose("OPEN");
    auto *list = Find<QListWidget>("List2");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_EQ(Find<QLabel>("lf")->text(), "ELEMENT_HIDE");
    EXPECT_EQ(Find<QComboBox>("lst2")->currentText(), "labelstatus");

    // A value function offers its target: the variables, an array by its "(?)" item.
    Choose("RETURN_COMPLEX");
    EXPECT_TRUE(Find<QWidget>("Picture1")->isVisible());
    EXPECT_EQ(Find<QComboBox>("lst0")->itemText(0), "_$score");
}

TEST_F(ActionEditorGui, TheTextViewAndTheListGoBackAndForth) {
    ASSERT_TRUE(context.apply(SetElementProperty(
        session.model(), {"buttonfire"}, "action",
        "FOR $v = 1 TO 3`WAIT [5]`NEXT $v`~TOP`$a = RETURN_COMPLEX [$a + 1]`_GOTO [TOP]`")));
    Open(fire);
    const std::vector<std::string> loaded = editor->lines();
    auto *asText = Find<QCheckBox>("chkText");
    asText->setChecked(true);
    auto *text = Find<QPlainTextEdit>("txtActions");
    EXPECT_EQ(FromQString(text->toPlainText()), ActionsText(loaded));
    asText->setChecked(false);
    EXPECT_EQ(editor->lines(), loaded);

    asText->setChecked(true);
    text->appendPlainText("OPEN [Console]");
    asText->setChecked(false);
    EXPECT_EQ(Find<QListWidget>("List2")->count(), static_cast<int>(loaded.size()) + 1);
    EXPECT_EQ(editor->lines().back(), "     OPEN [Console]");
}

TEST_F(ActionEditorGui, SixtyStatementsStaySixtyAndCancelChangesNothing) {
    std::string sixty;
    for (int i = 1; i <= 60; ++i) sixty += "WAIT [" + std::to_string(i) + "]`";
    ASSERT_TRUE(context.apply(SetElementProperty(session.model(), {"buttonfire"}, "action", sixty)));
    made.clear();
    Open(fire);
    ASSERT_EQ(editor->lines().size(), 60u);
    Choose("EXIT_GAME");
    Click("Command3");
    Click("Command1");
    EXPECT_TRUE(made.empty());
    EXPECT_EQ(Action(), sixty);

    Open(fire);
    Click("Command2");
    const std::vector<std::string> kept = LoadActions(Action());
    ASSERT_EQ(kept.size(), 60u);
    EXPECT_EQ(kept.back(), "     WAIT [60]");
}

TEST_F(ActionEditorGui, TheStartUpPageOpensItAndShowsTheSave) {
    StartupPage page(context);
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&page));
    test::WhenModal<ActionEditor>([](ActionEditor *opened) {
        EXPECT_EQ(opened->windowTitle(), "Assign Actions [ main-load ]");
        opened->ChooseFunction(FindCatalogueEntry("EXIT_GAME"));
        opened->AssignCommand();
        opened->Save();
    });
    QTest::mouseClick(page.findChild<QPushButton *>("cmdStartupActions"), Qt::LeftButton);
    EXPECT_EQ(made.size(), 1u);
    EXPECT_EQ(page.findChild<QPlainTextEdit *>("txtMainLoad")->toPlainText(), "EXIT_GAME\n");
}

} // namespace
} // namespace orrery
