// The tool editor's pages on a new project: each page's round trip to the model through its
// real widgets, its questions and messages in the system's words, and a reload after an undo.
#include "actions/catalogue.h"
#include "editor/qt/helppage.h"
#include "editor/qt/qlobpage.h"
#include "editor/qt/shellparts.h"
#include "editor/qt/sidemenupage.h"
#include "editor/qt/startuppage.h"
#include "editor/qt/toolsubpage.h"
#include "editor/qt/variablepage.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/text.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "gui/guitest.h"
#include "project/elementprops.h"
#include "widgets/look.h"

#include <QCheckBox>
#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <memory>

namespace orrery {
namespace {

struct Seen {
    std::string title;
    std::string text;
};

// A new project, and a context whose steps are kept here so that a test can undo them.
struct Pages : ::testing::Test {
    test::TempDir dir;
    std::filesystem::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    std::vector<Change> made;
    EditorContext context{&session, [this](Outcome outcome) {
                              if (outcome.refused()) {
                                  ShowMessage(nullptr, *outcome.refusal);
                                  return false;
                              }
                              if (session.Apply(outcome)) made.push_back(std::move(outcome.change));
                              for (const Message &note : outcome.notes) ShowMessage(nullptr, note);
                              return true;
                          }};
    std::unique_ptr<EditorPage> page;

    void SetUp() override { ASSERT_FALSE(session.Create({"Page Test", "Ada", "", "", ""})); }
    ProjectModel &model() { return session.model(); }

    template <typename Page> void Open() {
        page = std::make_unique<Page>(context);
        page->resize(760, 440);
        page->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(page.get()));
    }
    template <typename T> T *Find(const char *name) {
        T *found = page->findChild<T *>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void Click(const char *button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    // Clicks the button and answers the box it raises: OK, or Yes or No to a question.
    Seen ClickForBox(const char *button, QMessageBox::StandardButton answer = QMessageBox::Ok) {
        Seen seen;
        test::WhenModal<QMessageBox>([&seen, answer](QMessageBox *box) {
            seen = {FromQString(box->windowTitle()), FromQString(box->text())};
            box->button(answer)->click();
        });
        Click(button);
        return seen;
    }
    void Pick(const char *list, const QString &text) {
        const auto found = Find<QListWidget>(list)->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        Find<QListWidget>(list)->setCurrentItem(found[0]);
    }
    QString Lines(const char *edit) { return Find<QPlainTextEdit>(edit)->toPlainText(); }
    void Type(const char *field, const QString &text) {
        QTest::keyClicks(Find<QLineEdit>(field), text);
    }
    void UndoAndReload() {
        session.Undo(made.back());
        made.pop_back();
        page->Reload();
    }
    void Shoot(const char *name) {
        QApplication::processEvents();
        test::Shot(page.get(), name);
    }
};

TEST_F(Pages, QlobsAreNamedAddedEditedAndRemovedAfterTheQuestion) {
    Open<QlobPage>();
    test::WhenModal<QInputDialog>([](QInputDialog *dialog) {
        EXPECT_EQ(dialog->labelText(), ToQString(words::kQlobNamePrompt));
        dialog->setTextValue("open the gate");
        dialog->accept();
    });
    Click("Command31");
    EXPECT_EQ(Find<QLineEdit>("elq")->text(), "OPEN_THE_GATE") << "blanks as underscores";
    Find<QPlainTextEdit>("Text5")->setPlainText("SHOW_MESSAGE [x: y]\n\n  QLOB [NEXT]");
    Click("Command34");
    EXPECT_EQ(model().QlobTable[FindQlobByName(model(), "OPEN_THE_GATE")],
              "OPEN_THE_GATE SHOW_MESSAGE [x; y]`QLOB [NEXT]`");
    Shoot("editor-pages-qlobs.png");

    const Seen special = ClickForBox("Command33");
    EXPECT_EQ(special.title, kSpecialVariablesCaption);
    EXPECT_TRUE(special.text.starts_with("These work with the RETURN_COMPLEX function"));

    const Seen declined = ClickForBox("Command32", QMessageBox::No);
    EXPECT_EQ(declined.text, words::kRemoveQlob.text);
    EXPECT_NE(FindQlobByName(model(), "OPEN_THE_GATE"), 0);
    ClickForBox("Command32", QMessageBox::Yes);
    EXPECT_EQ(FindQlobByName(model(), "OPEN_THE_GATE"), 0);
    EXPECT_EQ(Find<QListWidget>("qlist")->findItems("OPEN_THE_GATE", Qt::MatchExactly).size(), 0);

    UndoAndReload();
    Pick("qlist", "OPEN_THE_GATE");
    EXPECT_EQ(Lines("Text5"), "SHOW_MESSAGE [x; y]\nQLOB [NEXT]\n");
    Find<QPlainTextEdit>("Text5")->setPlainText("typed, not saved");
    page->Reload();
    EXPECT_EQ(Lines("Text5"), "typed, not saved") << "another page's step keeps the typing";
}

TEST_F(Pages, VariablesAreAddedWithTheNoteAndRemovedAfterTheQuestion) {
    Open<VariablePage>();
    Type("Text1", "speed");
    Type("Text2", "fast_and_far");
    const Seen note = ClickForBox("cmdAddVar");
    EXPECT_EQ(note.title, words::kUnderscoresToDashes.title);
    EXPECT_EQ(note.text, words::kUnderscoresToDashes.text);
    auto *list = Find<QTreeWidget>("List3");
    ASSERT_EQ(list->selectedItems().size(), 1);
    EXPECT_EQ(list->selectedItems()[0]->text(0), "$speed");
    EXPECT_EQ(list->selectedItems()[0]->text(1), "fast-and-far");
    Shoot("editor-pages-variables.png");

    // The default value is typed where it stands, in one step.
    list->editItem(list->selectedItems()[0], 1);
    auto *editor = list->viewport()->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "slow");
    QTest::keyClick(editor, Qt::Key_Return);
    const auto speed = [this] {
        for (const Variable &variable : model().VariableTable)
            if (variable.name == "$speed") return variable.value;
        return std::string();
    };
    ASSERT_TRUE(test::WaitFor([&] { return speed() == "slow"; }));
    EXPECT_EQ(list->selectedItems().value(0)->text(1), "slow");
    UndoAndReload();
    EXPECT_EQ(speed(), "fast-and-far");

    EXPECT_EQ(ClickForBox("cmdRemoveVar", QMessageBox::Yes).text, words::kRemoveItem.text);
    EXPECT_TRUE(list->findItems("$speed", Qt::MatchExactly).isEmpty());
    UndoAndReload();
    EXPECT_EQ(list->findItems("$speed", Qt::MatchExactly).size(), 1);
}

TEST_F(Pages, TheSideMenuKeepsOutHidesAndMovesTools) {
    Open<SideMenuPage>();
    auto *list = Find<QTreeWidget>("lstSideMenu");
    const auto item = [list](const char *tool) {
        return list->findItems(tool, Qt::MatchExactly, SideMenuPage::kTool).value(0);
    };
    item("Console")->setCheckState(SideMenuPage::kHidden, Qt::Checked);
    ASSERT_TRUE(test::WaitFor([&] { return SideMenuHidden(model().settings, "Console"); }));
    item("Hyperqube")->setCheckState(SideMenuPage::kExcluded, Qt::Checked);
    ASSERT_TRUE(test::WaitFor([&] { return SideMenuExcluded(model().settings, "Hyperqube"); }));
    EXPECT_EQ(item("Console")->checkState(SideMenuPage::kHidden), Qt::Checked);

    list->setCurrentItem(item("Console"));
    Click("cmdMoveUp");
    EXPECT_EQ(ToolNames(model()).front(), "Console");
    EXPECT_EQ(list->currentItem()->text(SideMenuPage::kTool), "Console") << "the tool stays picked";
    EXPECT_FALSE(Find<QPushButton>("cmdMoveUp")->isEnabled());
    Shoot("editor-pages-sidemenu.png");

    UndoAndReload();
    EXPECT_EQ(list->topLevelItem(0)->text(SideMenuPage::kTool), "Connector");
    EXPECT_EQ(list->currentItem()->text(SideMenuPage::kTool), "Console");
}

TEST_F(Pages, AToolsEventTakesItsSequenceOnlyWithAnEventPicked) {
    Open<ToolSubPage>();
    const Seen hello = ClickForBox("cmdAssignSub");
    EXPECT_EQ(hello.title, "Hello");
    EXPECT_EQ(hello.text, words::kNoSubChosen.text);

    auto *tool = Find<QComboBox>("cboTool");
    tool->setCurrentIndex(tool->findText("Mail System"));
    Pick("lstSubs", "open");
    Find<QPlainTextEdit>("txtSub")->setPlainText("QLOB [CHECK_MAIL]\nSHOW_MESSAGE [new]");
    Click("cmdAssignSub");
    EXPECT_EQ(ToolSubSequence(model(), "Mail System", "open"),
              "QLOB [CHECK_MAIL]`SHOW_MESSAGE [new]`");
    Pick("lstSubs", "close");
    EXPECT_EQ(Lines("txtSub"), "");
    Pick("lstSubs", "open");
    page->Reload();
    EXPECT_EQ(Lines("txtSub"), "QLOB [CHECK_MAIL]\nSHOW_MESSAGE [new]\n");
    EXPECT_TRUE(Find<QListWidget>("lstSubs")->currentItem()->font().bold());
    Shoot("editor-pages-toolsubs.png");

    UndoAndReload();
    EXPECT_EQ(Lines("txtSub"), "");
}

TEST_F(Pages, TheStartupSequenceIsAssigned) {
    Open<StartupPage>();
    const std::string before = model().settings.mymainsubload;
    Find<QPlainTextEdit>("txtMainLoad")
        ->setPlainText("SET_CAPTION [labelstatus] [Ready]\nOPEN [Console]");
    Click("Command19");
    EXPECT_EQ(model().settings.mymainsubload, "SET_CAPTION [labelstatus] [Ready]`OPEN [Console]`");
    Shoot("editor-pages-startup.png");
    UndoAndReload();
    EXPECT_EQ(model().settings.mymainsubload, before);
    EXPECT_EQ(FromQString(Lines("txtMainLoad")), SequenceLines(before));
}

TEST_F(Pages, HelpIsEnabledAndATopicWrittenAndRemoved) {
    Open<HelpPage>();
    auto *enabled = Find<QCheckBox>("chelp");
    const bool was = model().settings.helpon;
    enabled->click();
    EXPECT_EQ(model().settings.helpon, !was);

    Click("cmdNewHelp");
    Type("txtHelpTitle", "Keys");
    Find<QPlainTextEdit>("txtHelpText")->setPlainText("F1: this help\n\nF9: the menu");
    Click("cmdSaveHelp");
    EXPECT_EQ(model().HelpTable[FirstFreeSlot(model().HelpTable, 0) - 1],
              "Keys:F1: this help////F9: the menu");
    EXPECT_EQ(SelectedText(Find<QListWidget>("thelp")), "Keys");
    Shoot("editor-pages-help.png");

    EXPECT_EQ(ClickForBox("cmdRemoveHelp", QMessageBox::Yes).text, words::kRemoveItem.text);
    EXPECT_TRUE(Find<QListWidget>("thelp")->findItems("Keys", Qt::MatchExactly).isEmpty());
    UndoAndReload();
    Pick("thelp", "Keys");
    EXPECT_EQ(Lines("txtHelpText"), "F1: this help\n\nF9: the menu");
    UndoAndReload();
    UndoAndReload();
    EXPECT_TRUE(Find<QListWidget>("thelp")->findItems("Keys", Qt::MatchExactly).isEmpty());
    EXPECT_EQ(enabled->isChecked(), was);
}

} // namespace
} // namespace orrery
