// The property panel on Qt's offscreen platform, over the demo game: edits of several elements
// as one step, values that differ shown as such, the font, colour, picture and list dialogs,
// refusals in words; and a screenshot of the panel with a label selected.
#include "editor/qt/propertyeditors.h"
#include "editor/qt/propertypanel.h"
#include "editor/qt/sequenceedit.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"
#include "widgets/look.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// The demo game with a tool of test elements; the panel's steps kept for undo, its refusals
// kept instead of shown.
struct PanelGui : ::testing::Test {
    test::TempDir dir;
    fs::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    std::vector<Change> steps;
    std::vector<Message> refusals;
    std::unique_ptr<PropertyPanel> panel;

    void SetUp() override {
        ASSERT_FALSE(session.Open("Night Shift"));
        ProjectModel &m = session.model();
        ASSERT_TRUE(session.Apply(AddTool(m, "Bench")));
        const std::pair<ElementKind, const char *> elements[] = {
            {ElementKind::Label, "status"}, {ElementKind::Label, "target"},
            {ElementKind::Button, "probe"}, {ElementKind::Image, "logo"},
            {ElementKind::List, "hosts"},   {ElementKind::Qonsole, "shell"}};
        for (const auto &[kind, name] : elements)
            ASSERT_TRUE(session.Apply(AddElement(m, "Bench", kind, name, {240, 360})));
        panel = std::make_unique<PropertyPanel>(
            EditorContext{&session, [this](Outcome outcome) {
                              if (outcome.refusal) refusals.push_back(*outcome.refusal);
                              const bool kept = session.Apply(outcome);
                              if (kept) steps.push_back(std::move(outcome.change));
                              return kept;
                          }});
        panel->resize(340, 900);
        panel->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
    }
    template <typename T> T *Find(const char *name) {
        T *found = panel->findChild<T *>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    std::string Cell(const char *element, const char *key) {
        const ProjectModel &m = session.model();
        return PropertyValue(m.Element(ElementRowByName(m, element)), key).value_or("<none>");
    }
    void Type(QWidget *widget, const QString &text) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(widget, text);
    }
    void Undo() {
        steps.back().Undo(session.model());
        steps.pop_back();
        panel->Reload();
    }
};

TEST_F(PanelGui, TheKindsSelectedDecideTheRows) {
    const struct {
        std::vector<std::string> names;
        std::vector<const char *> shown, hidden;
    } rows[] = {
        {{"labelstatus"},
         {"atool", "caption", "alignment", "fontname", "fontsize", "fontbold", "forecolor",
          "backstyle", "left", "width", "action"},
         {"label", "backcolor2", "tag", "datafield", "text"}},
        {{"labelstatus", "buttonprobe"},
         {"caption", "alignment", "forecolor", "backcolor"},
         {"backstyle", "backcolor2", "tag"}},
        {{"labelstatus", "imagelogo"}, {"atool", "left", "action"}, {"caption", "fontname"}},
        {{"imagelogo"}, {"datafield", "datafieldBrowse"}, {"fontname", "forecolor"}},
        {{"qonsoleshell", "listhosts"}, {"fontname", "alignment"}, {"commandlist", "listitems"}},
    };
    for (const auto &row : rows) {
        panel->ShowElements(row.names);
        QApplication::processEvents();
        for (const char *key : row.shown)
            EXPECT_NE(panel->findChild<QWidget *>(key), nullptr) << key << " of " << row.names[0];
        for (const char *key : row.hidden)
            EXPECT_EQ(panel->findChild<QWidget *>(key), nullptr) << key << " of " << row.names[0];
    }
    panel->ShowElements({"labelnothing"});
    EXPECT_TRUE(panel->elements().empty());
    EXPECT_TRUE(Find<QLabel>("lblNothing")->isVisible());
}

TEST_F(PanelGui, ACaptionTypedForTwoLabelsIsOneStepSettingBoth) {
    panel->ShowElements({"labelstatus", "labeltarget"});
    auto *caption = Find<QPlainTextEdit>("caption");
    EXPECT_EQ(caption->toPlainText(), "");
    EXPECT_EQ(caption->placeholderText(), "(mixed)");
    EXPECT_EQ(Find<QLabel>("lblSelection")->text(), "2 elements");

    // A caption's lines are lines here and back-quotes in the file.
    Type(caption, "Ready");
    QTest::keyClick(caption, Qt::Key_Return);
    QTest::keyClicks(caption, "now");
    EXPECT_TRUE(steps.empty()) << "nothing is stored per keystroke";
    test::LeaveField(caption);
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(Cell("labelstatus", "caption"), "Ready`now");
    EXPECT_EQ(Cell("labeltarget", "caption"), "Ready`now");
    EXPECT_EQ(caption->toPlainText(), "Ready\nnow");

    Undo();
    EXPECT_EQ(Cell("labelstatus", "caption"), "status");
    EXPECT_EQ(Cell("labeltarget", "caption"), "target");
    EXPECT_EQ(caption->placeholderText(), "(mixed)") << "shown again after the undo";

    // A typed value not yet committed goes to the elements it was typed for.
    Type(caption, "Pending");
    panel->ShowElements({"buttonprobe"});
    EXPECT_EQ(Cell("labelstatus", "caption"), "Pending");
    EXPECT_EQ(Cell("buttonprobe", "caption"), "probe");
}

TEST_F(PanelGui, ValuesThatDifferShowAsMixedAndASettingSetsThemAll) {
    panel->ShowElements({"labelstatus"});
    ASSERT_TRUE(panel->SetColour("forecolor", QColor(255, 0, 0)));
    Find<QCheckBox>("fontbold")->click();
    auto *left = Find<NumberBox>("left");
    Type(left, "600");
    QTest::keyClick(left, Qt::Key_Return);
    ASSERT_EQ(steps.size(), 3u);

    panel->ShowElements({"labelstatus", "labeltarget"});
    auto *bold = Find<QCheckBox>("fontbold");
    EXPECT_EQ(bold->checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(Find<QToolButton>("forecolor")->text(), "(mixed)");
    EXPECT_TRUE(left->mixed());
    EXPECT_EQ(left->text(), "");
    EXPECT_EQ(Find<NumberBox>("top")->text(), "360") << "a value they share shows";

    bold->click();
    EXPECT_EQ(steps.size(), 4u);
    EXPECT_EQ(Cell("labelstatus", "fontbold"), "True");
    EXPECT_EQ(Cell("labeltarget", "fontbold"), "True");
    EXPECT_EQ(bold->checkState(), Qt::Checked);

    // Arrow steps on the same property of the same elements carry one merge key.
    left->stepUp();
    left->stepUp();
    ASSERT_EQ(steps.size(), 6u);
    EXPECT_FALSE(steps[4].mergeKey().empty());
    EXPECT_EQ(steps[4].mergeKey(), steps[5].mergeKey());
    EXPECT_EQ(Cell("labeltarget", "left"), Cell("labelstatus", "left"));
}

TEST_F(PanelGui, TheFontDialogSetsFivePropertiesInOneStep) {
    panel->ShowElements({"labelstatus", "buttonprobe"});
    test::WhenModal<QFontDialog>([](QFontDialog *dialog) { dialog->accept(); });
    Find<QPushButton>("fontname")->click();
    EXPECT_TRUE(steps.empty()) << "the font as it was, in its stand-in, is no change";
    EXPECT_EQ(Cell("labelstatus", "fontname"), "Verdana");

    QFont chosen("DejaVu Serif");
    chosen.setPointSize(14);
    chosen.setBold(true);
    chosen.setUnderline(true);
    test::WhenModal<QFontDialog>([chosen](QFontDialog *dialog) {
        dialog->setCurrentFont(chosen);
        dialog->accept();
    });
    Find<QPushButton>("fontname")->click();
    ASSERT_EQ(steps.size(), 1u);
    for (const char *element : {"labelstatus", "buttonprobe"}) {
        EXPECT_EQ(Cell(element, "fontname"), "DejaVu Serif");
        EXPECT_EQ(Cell(element, "fontsize"), "14");
        EXPECT_EQ(Cell(element, "fontbold"), "True");
        EXPECT_EQ(Cell(element, "fontitalic"), "False");
        EXPECT_EQ(Cell(element, "fontunderline"), "True");
    }
    EXPECT_EQ(Find<NumberBox>("fontsize")->value(), 14);
}

TEST_F(PanelGui, AColourIsStoredRedInTheLowByte) {
    panel->ShowElements({"buttonprobe"});
    test::WhenModal<QColorDialog>([](QColorDialog *dialog) {
        dialog->setCurrentColor(QColor(0x11, 0x22, 0x33));
        dialog->accept();
    });
    Find<QToolButton>("backcolor2")->click();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(Cell("buttonprobe", "backcolor2"), "3351057"); // 0x332211
    EXPECT_EQ(Find<QToolButton>("backcolor2")->text(), "#112233");
}

TEST_F(PanelGui, APictureIsCopiedIntoUimagesAndNamedBare) {
    const fs::path picked = dir.path() / "picked" / "badge.png";
    fs::create_directories(picked.parent_path());
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString(picked.string())));
    panel->ShowElements({"imagelogo"});

    ASSERT_NE(Find<QToolButton>("datafieldBrowse"), nullptr);
    ASSERT_TRUE(panel->SetPicture(QString::fromStdString(picked.string()))); // what it picks
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(Cell("imagelogo", "datafield"), "badge.png");
    EXPECT_EQ(ReadFileBytes(root / "Res" / "uimages" / "badge.png"), ReadFileBytes(picked));
    EXPECT_FALSE(Find<QLabel>("datafieldPreview")->pixmap().isNull()) << "the picture shows";

    // Another picture of that name: asked, and kept beside the first.
    image.fill(Qt::blue);
    ASSERT_TRUE(image.save(QString::fromStdString(picked.string())));
    QString asked;
    test::WhenModal<QMessageBox>([&asked](QMessageBox *box) {
        asked = box->text();
        for (QAbstractButton *button : box->buttons())
            if (button->text() == "Keep Both") button->click();
    });
    ASSERT_TRUE(panel->SetPicture(QString::fromStdString(picked.string())));
    EXPECT_EQ(asked, ToQString(words::kReplacePicture.text));
    EXPECT_EQ(Cell("imagelogo", "datafield"), "badge-2.png");
}

TEST_F(PanelGui, ListItemsAndCommandsRoundTrip) {
    panel->ShowElements({"listhosts"});
    test::WhenModal<ItemListDialog>([](ItemListDialog *dialog) {
        auto *list = dialog->findChild<QListWidget *>("lstItems");
        for (const char *host : {"alpha", "beta", "gamma"}) {
            dialog->Add();
            list->currentItem()->setText(host);
        }
        list->setCurrentRow(2);
        dialog->Move(-1); // alpha, gamma, beta
        list->setCurrentRow(0);
        dialog->Remove();
        dialog->accept();
    });
    Find<QPushButton>("listitems")->click();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(Cell("listhosts", "listitems"), "gamma//beta//");
    EXPECT_EQ(Find<QPushButton>("listitems")->text(), QString("2 items  \u2026"));

    std::vector<std::string> shown;
    test::WhenModal<ItemListDialog>([&shown](ItemListDialog *dialog) {
        shown = dialog->items();
        dialog->accept();
    });
    Find<QPushButton>("listitems")->click();
    EXPECT_EQ(shown, (std::vector<std::string>{"gamma", "beta"}));
    EXPECT_EQ(steps.size(), 1u) << "the same items are no step";

    panel->ShowElements({"qonsoleshell"});
    test::WhenModal<ItemListDialog>([](ItemListDialog *dialog) {
        EXPECT_EQ(dialog->items().size(), 4u) << "a new qonsole's four commands";
        dialog->findChild<QListWidget *>("lstItems")->setCurrentRow(1);
        dialog->Remove();
        dialog->Move(1);
        dialog->accept();
    });
    Find<QPushButton>("commandlist")->click();
    EXPECT_EQ(Cell("qonsoleshell", "commandlist"),
              "DATE (Show the current date.)`TIME (Show the current time.)`NOW (Show the current "
              "time and date.)");
    test::WhenModal<ItemListDialog>([](ItemListDialog *dialog) {
        dialog->PutBackDefaults();
        dialog->accept();
    });
    Find<QPushButton>("commandlist")->click();
    EXPECT_EQ(Cell("qonsoleshell", "commandlist"), words::kNewQonsoleCommands);
}

TEST_F(PanelGui, AValueTheFileCantHoldIsRefusedInWordsAndTheFieldShowsTheModel) {
    const struct {
        const char *element, *field, *typed;
        Message refusal;
    } rows[] = {
        {"buttonprobe", "tag", "Time: 6", words::kUnwritableValue},
        {"imagelogo", "datafield", "../settings.dat", words::kPictureWithPath},
    };
    for (const auto &row : rows) {
        panel->ShowElements({row.element});
        auto *edit = Find<QLineEdit>(row.field);
        const QString before = edit->text();
        Type(edit, row.typed);
        QTest::keyClick(edit, Qt::Key_Return);
        ASSERT_FALSE(refusals.empty()) << row.field;
        EXPECT_EQ(refusals.back(), row.refusal);
        EXPECT_EQ(edit->text(), before) << "the field shows what the model holds";
    }
    EXPECT_TRUE(steps.empty());
    // The number boxes hold what the table lets the editor store.
    panel->ShowElements({"labelstatus"});
    EXPECT_EQ(Find<NumberBox>("fontsize")->minimum(), 1);
    EXPECT_EQ(Find<NumberBox>("fontsize")->maximum(), 999);
    EXPECT_EQ(Find<NumberBox>("width")->minimum(), 0);
    EXPECT_EQ(Find<QComboBox>("alignment")->count(), 3);
}

TEST_F(PanelGui, TheActionIsSavedByItsButtonOrOnLeavingIt) {
    panel->ShowElements({"buttonprobe"});
    auto *action = Find<SequenceEdit>("action");
    action->setFocus();
    QTest::keyClicks(action, "PRINT [one]");
    QTest::keyClick(action, Qt::Key_Return);
    QTest::keyClicks(action, "QLOB [TWO]");
    Find<QPushButton>("saveAction")->click();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(Cell("buttonprobe", "action"), "PRINT [one]`QLOB [TWO]`");

    action->setFocus();
    action->moveCursor(QTextCursor::End);
    QTest::keyClick(action, Qt::Key_Return);
    QTest::keyClicks(action, "WAIT [1]");
    Find<QPlainTextEdit>("caption")->setFocus();
    EXPECT_EQ(steps.size(), 2u) << "leaving the box saves it";

    // The tool combo offers the tools, not the separator, and moves the element in one step.
    auto *tool = Find<QComboBox>("atool");
    EXPECT_EQ(tool->findText("-"), -1);
    EXPECT_EQ(tool->currentText(), "Bench");
    tool->setCurrentIndex(tool->findText("Console"));
    emit tool->activated(tool->currentIndex());
    EXPECT_EQ(Cell("buttonprobe", "atool"), "Console");
}

TEST_F(PanelGui, ReloadDropsElementsThatAreGoneAndTheShotShowsALabel) {
    panel->ShowElements({"labelstatus", "labeltarget"});
    ASSERT_TRUE(session.Apply(DeleteElements(session.model(), {"labeltarget"})));
    panel->Reload();
    EXPECT_EQ(panel->elements(), std::vector<std::string>{"labelstatus"});
    EXPECT_EQ(Find<QLabel>("lblSelection")->text(), "labelstatus");
    EXPECT_EQ(Find<QLabel>("lblKinds")->text(), "Label on Bench");

    ASSERT_TRUE(session.Apply(SetElementProperty(session.model(), {"labelstatus"}, "action",
                                                 "PRINT [Scanning...]`QLOB [SCAN]`")));
    panel->Reload();
    ASSERT_TRUE(panel->SetColour("backcolor", QColor(0x1e, 0x29, 0x3b)));
    ASSERT_TRUE(panel->SetColour("forecolor", QColor(0x7d, 0xd3, 0xfc)));
    panel->resize(340, 880);
    QApplication::processEvents();
    test::Shot(panel.get(), "property_panel.png");
}

} // namespace
} // namespace orrery
