// Create Distribution Files on the demo game: the listing kept in the project, the fonts the
// system has shipped and those it lacks asked for, the log, and the game folder with its PAD.
#include "editor/elements.h"
#include "editor/qt/distributiondialog.h"
#include "editor/qt/editorframe.h"
#include "editor/session.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"
#include "packaging/distribution.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
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

TEST(DistributionGui, TheGameFolderIsBuiltWithItsListingAndFonts) {
    test::TempDir dir;
    const fs::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    EditorFrame frame{session};
    frame.Start("Night Shift");
    ASSERT_TRUE(frame.Apply(SetElementProperty(session.model(), {"labeladdress"}, "fontname", "DejaVu Serif")));
    ASSERT_TRUE(frame.Apply(SetElementProperty(session.model(), {"textaddress"}, "fontname", "No Such Face")));
    const int before = frame.undoStack()->index();

    DistributionDialog dialog({&session, [&](Outcome outcome) { return frame.Apply(std::move(outcome)); }},
                              QString::fromStdString((root / "Data" / "runner").string()));
    EXPECT_EQ(session.model().settings.myprojectdescriptionshort,
              session.model().settings.myprojectdescription)
        << "the listing starts from the description, in the project";
    EXPECT_EQ(frame.undoStack()->index(), before + 1);
    dialog.show();
    EXPECT_FALSE(dialog.findChild<QGroupBox *>()->isVisible());
    dialog.findChild<QCheckBox *>("cpad")->setChecked(true);
    EXPECT_TRUE(dialog.findChild<QGroupBox *>()->isVisible());
    QTest::keyClicks(dialog.findChild<QLineEdit *>("txtCost"), "$5");
    auto *shortText = dialog.findChild<QLineEdit *>("txtD45");
    shortText->clear();
    QTest::keyClicks(shortText, "Stop the export before dawn.");

    QString fontsAsked;
    test::WhenModal<QMessageBox>([&fontsAsked](QMessageBox *box) {
        fontsAsked = box->windowTitle() + "|" + box->text();
        test::WhenModal<QFileDialog>([](QFileDialog *files) { files->reject(); });
        box->accept();
    });
    QTest::mouseClick(dialog.findChild<QPushButton *>("Command1"), Qt::LeftButton);
    ASSERT_TRUE(test::WaitFor([&] { return dialog.result() != nullptr; }, 60000));
    EXPECT_EQ(fontsAsked, "Fonts|It has been detected that the following fonts are required by your "
                          "project:\n\nNo Such Face\nYou will now be prompted to select the "
                          "associated font .TFF file(s) for each font.");
    const DistributionResult &built = *dialog.result();
    ASSERT_TRUE(built.done) << built.error;
    EXPECT_EQ(built.missing, std::vector<std::string>{"font No Such Face"});
    auto *log = dialog.findChild<QListWidget *>("List1");
    EXPECT_EQ(log->item(0)->text(), "Starting...");
    EXPECT_FALSE(log->findItems("Done!", Qt::MatchExactly).isEmpty());
    EXPECT_FALSE(log->findItems("Copying file (font): DejaVuSerif.ttf", Qt::MatchExactly).isEmpty());
    EXPECT_TRUE(fs::exists(built.root / "Fonts" / "DejaVuSerif.ttf"));
    EXPECT_TRUE(fs::exists(built.root / "night shift"));
    test::Shot(&dialog, "editor-distribution.png");

    // The listing went into the project, and into the PAD file beside the game folder.
    EXPECT_EQ(session.model().settings.myprojectdescriptionshort, "Stop the export before dawn.");
    const std::string pad = ReadTextFile(built.root.parent_path() / "night_shift.xml");
    EXPECT_NE(pad.find("<Char_Desc_45>Stop the export before dawn.</Char_Desc_45>"), std::string::npos);
    EXPECT_NE(pad.find("<Program_Cost_Dollars>5</Program_Cost_Dollars>"), std::string::npos);
}

} // namespace
} // namespace orrery
