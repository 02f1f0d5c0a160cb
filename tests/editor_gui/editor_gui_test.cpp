// The editor's real windows on Qt's offscreen platform: the wizard to the hub, its refusals in
// their words, the list of projects, undo and redo from the Edit menu to the byte of the file,
// Exit's backup, the help viewer; and screenshots of the wizard's panels and the hub.
#include "editor/qt/editorframe.h"
#include "editor/qt/helpviewer.h"
#include "editor/qt/hub.h"
#include "editor/qt/wizard.h"
#include "editor/elements.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"

#include <QAction>
#include <QDesktopServices>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QUndoStack>
#include <QUrl>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// Keeps the addresses handed to the desktop instead of opening them.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    UrlCatcher() { QDesktopServices::setUrlHandler("file", this, "Open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler("file"); }
    QList<QUrl> urls;
public slots:
    void Open(const QUrl &url) { urls.push_back(url); }
};

struct Seen {
    QString title;
    QString text;
};

// A copy of the built application folder with the editor's frame on it, the wizard showing.
struct EditorGui : ::testing::Test {
    test::TempDir dir;
    fs::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    EditorFrame frame{session};

    void SetUp() override {
        frame.resize(1024, 720);
        frame.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
        frame.Start();
        QApplication::processEvents();
    }
    template <typename T> T *Find(const char *name) { return frame.findChild<T *>(name); }
    void Click(const char *button) {
        ASSERT_NE(Find<QPushButton>(button), nullptr) << button;
        QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
    }
    // Clicks the button and reads the message box it raises, answering it with OK.
    Seen ClickForMessage(const char *button) {
        Seen seen;
        test::WhenModal<QMessageBox>([&seen](QMessageBox *box) {
            seen = {box->windowTitle(), box->text()};
            box->accept();
        });
        Click(button);
        return seen;
    }
    void Fill(const char *field, const QString &text) {
        QLineEdit *edit = Find<QLineEdit>(field);
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    // Lets the forms that have closed go.
    void Settle() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    void CreateProject(const QString &name) {
        Fill("txtProjectName", name);
        Fill("txtAuthor", "Ada");
        Fill("txtDescription", "first/crlf/second");
        Click("cmdCreate");
        Settle();
    }
    void SelectInList(const QString &name) {
        auto *list = Find<QListWidget>("List1");
        const auto found = list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        list->setCurrentItem(found[0]);
    }
    QAction *Action(const char *name) { return Find<QAction>(name); }
    std::string FileBytes(const char *name) {
        return ReadFileBytes(*session.paths().ProjectFile(name)).value_or("");
    }
    void Shoot(const char *name) {
        QApplication::processEvents();
        test::Shot(&frame, name);
    }
};

TEST_F(EditorGui, TheWizardCreatesAProjectAndHandsOverToTheHub) {
    EXPECT_EQ(frame.windowTitle(), "Orrery Kit []");
    ASSERT_NE(frame.wizard(), nullptr);
    Fill("txtProjectName", "Deep Trace");
    Fill("txtAuthor", "Ada");
    Fill("txtWebsite", "www.deeptrace.example");
    Fill("txtEmail", "ada@deeptrace.example");
    Fill("txtDescription", "A night at the terminal./crlf/Trust no one.");
    Shoot("editor-wizard-new.png");
    Click("cmdCreate");
    Settle();

    EXPECT_EQ(frame.wizard(), nullptr);
    EXPECT_EQ(frame.findChild<ProjectWizard *>("frmWizard"), nullptr);
    ASSERT_NE(frame.hub(), nullptr);
    EXPECT_TRUE(frame.hub()->isVisible());
    EXPECT_EQ(frame.windowTitle(), "Orrery Kit [deep trace]");
    EXPECT_NE(FileBytes("Deep Trace").find("myprojectdescription:A night at the terminal.//Trust no one."),
              std::string::npos);
    Shoot("editor-hub.png");
}

TEST_F(EditorGui, CreateRefusesInTheSystemsWords) {
    const struct {
        const char *name;
        const char *author;
        const char *text;
    } rows[] = {
        {"", "Ada", "Please enter a 'Project Name' and 'Project Author'."},
        {"Deep Trace", "   ", "Please enter a 'Project Name' and 'Project Author'."},
        {"NIGHT SHIFT", "Ada", "A project with that name already exists."},
    };
    for (const auto &row : rows) {
        Fill("txtProjectName", row.name);
        Fill("txtAuthor", row.author);
        const Seen seen = ClickForMessage("cmdCreate");
        EXPECT_EQ(seen.title, "Error") << row.name;
        EXPECT_EQ(seen.text, row.text) << row.name;
        EXPECT_EQ(frame.windowTitle(), "Orrery Kit []");
        EXPECT_NE(frame.wizard(), nullptr);
    }
}

TEST_F(EditorGui, TheLoadPanelListsTheFoldersAndOpensOnlyProjects) {
    fs::create_directories(root / "Data" / "scratch");
    UrlCatcher desktop;
    Click("cmdShowLoad");
    auto *list = Find<QListWidget>("List1");
    ASSERT_TRUE(list->isVisible());
    QStringList shown;
    for (int i = 0; i < list->count(); ++i) shown << list->item(i)->text();
    EXPECT_EQ(shown, (QStringList{"night shift", "S", "scratch"}));
    Shoot("editor-wizard-load.png");

    SelectInList("S");
    const Seen s = ClickForMessage("cmdLoadOne");
    EXPECT_EQ(s.title, "Error");
    EXPECT_EQ(s.text, "Please select a project - the one you selected appears invalid.\n"
                      "(S is the servers, best to not delete it - just ignore it)");
    SelectInList("scratch");
    EXPECT_EQ(ClickForMessage("Command6").text, "Invalid project - settings.dat not found.");

    SelectInList("night shift");
    Click("Command6");
    Click("Command5");
    ASSERT_EQ(desktop.urls.size(), 2);
    EXPECT_EQ(fs::path(desktop.urls[0].toLocalFile().toStdString()),
              root / "Data" / "night shift" / "settings.dat");
    EXPECT_EQ(fs::path(desktop.urls[1].toLocalFile().toStdString()), root / "Data");

    Click("cmdLoadOne");
    Settle();
    EXPECT_EQ(frame.wizard(), nullptr);
    EXPECT_TRUE(frame.hub()->isVisible());
    EXPECT_EQ(frame.windowTitle(), "Orrery Kit [night shift]");
}

TEST_F(EditorGui, UndoAndRedoFromTheEditMenuComeBackToTheByte) {
    CreateProject("Deep Trace");
    ASSERT_NE(frame.hub(), nullptr);
    EXPECT_TRUE(Action("mnurunsim")->isEnabled());
    EXPECT_TRUE(Action("mnucreatedistro")->isEnabled());
    QAction *undo = Action("mnuundo");
    QAction *redo = Action("mnuredo");
    ASSERT_TRUE(Find<QMenu>("mnuedit")->actions().contains(undo));
    EXPECT_EQ(undo->shortcut(), QKeySequence("Ctrl+Z"));
    EXPECT_EQ(redo->shortcut(), QKeySequence("Ctrl+Shift+Z"));
    EXPECT_FALSE(undo->isEnabled());
    const std::string created = FileBytes("Deep Trace");

    Click("Command1");
    auto *page = frame.findChild<ProjectWizard *>("frmWizard");
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(Find<QLineEdit>("txtDescription")->text(), "first/crlf/second");
    EXPECT_FALSE(Find<QLineEdit>("txtProjectName")->isEnabled()) << "the name is the folder's";
    Fill("txtAuthor", "Grace");
    Shoot("editor-settings.png");
    Click("cmdCreate");
    const std::string changed = FileBytes("Deep Trace");
    EXPECT_NE(changed.find("myprojectauthor:Grace"), std::string::npos) << "saved at once";
    EXPECT_EQ(undo->text(), "Undo Change Project Settings");

    frame.Apply(AddTool(session.model(), "Scanner"));
    const std::string withTool = FileBytes("Deep Trace");
    EXPECT_EQ(undo->text(), "Undo Add Tool");
    undo->trigger();
    EXPECT_EQ(FileBytes("Deep Trace"), changed);
    EXPECT_EQ(redo->text(), "Redo Add Tool");
    undo->trigger();
    EXPECT_EQ(FileBytes("Deep Trace"), created);
    EXPECT_EQ(redo->text(), "Redo Change Project Settings");
    redo->trigger();
    redo->trigger();
    EXPECT_EQ(FileBytes("Deep Trace"), withTool);

    ASSERT_TRUE(frame.Apply(AddElement(session.model(), "Scanner", ElementKind::Button, "gate")));
    const std::string placed = FileBytes("Deep Trace");
    const std::string gate = session.model().Element(ElementRowByName(session.model(), "buttongate"))[kNameColumn];
    ASSERT_FALSE(gate.empty());
    for (int i = 0; i < 3; ++i) frame.Apply(NudgeElements(session.model(), Nudge::Right, {gate}));
    EXPECT_EQ(undo->text(), "Undo Move");
    undo->trigger();
    EXPECT_EQ(FileBytes("Deep Trace"), placed) << "three nudges the same way are one step";
}

TEST_F(EditorGui, ExitPutsABackupAsideThenSaves) {
    CreateProject("Deep Trace");
    ASSERT_NE(frame.hub(), nullptr);
    frame.Apply(AddTool(session.model(), "Scanner"));
    ASSERT_FALSE(fs::exists(root / "_autobackup"));
    Click("Command2");
    EXPECT_FALSE(frame.isVisible());

    std::vector<fs::path> backups;
    for (const auto &entry : fs::directory_iterator(root / "_autobackup")) backups.push_back(entry.path());
    ASSERT_EQ(backups.size(), 1u);
    EXPECT_EQ(backups[0].filename().string().rfind("deep trace_", 0), 0u);
    const fs::path file = *session.paths().ProjectFile("Deep Trace");
    EXPECT_EQ(ReadFileBytes(backups[0]), ReadFileBytes(file));
    EXPECT_GE(fs::last_write_time(file), fs::last_write_time(backups[0])) << "the plain save comes last";
}

TEST_F(EditorGui, TheFrameOffersWhatExistsAndSaysWhatComesLater) {
    frame.resize(1200, 800);
    QApplication::processEvents();
    const QWidget *placed = frame.wizard()->parentWidget();
    const QSize area = frame.centralWidget()->size();
    EXPECT_EQ(placed->pos(), QPoint(area.width() / 2 - placed->width() / 2,
                                    area.height() / 2 - placed->height() / 2 - 80))
        << "a form stands above the middle of the frame, placed again as the frame grows";

    EXPECT_FALSE(Action("mnucreatedistro")->isEnabled()) << "no project to build yet";
    EXPECT_FALSE(Action("mnurunsim")->isEnabled()) << "no project to play yet";
    EXPECT_EQ(Action("mnuexit")->text(), "&Exit Orrery Kit");
    EXPECT_EQ(Find<QTimer>("tmrSave")->interval(), 45000);
    EXPECT_TRUE(Find<QTimer>("tmrSave")->isActive());

    CreateProject("Deep Trace");
    ASSERT_NE(frame.hub(), nullptr);
    EXPECT_EQ(frame.hub()->windowTitle(), "Orrery Kit Menu");
    const std::pair<const char *, bool> buttons[] = {
        {"Command1", true},  {"Command2", true},  {"Command3", true}, {"Command4", false},
        {"Command5", false}, {"Command6", true},  {"Command7", false}, {"Command8", false},
        {"Command9", false}};
    for (const auto &[name, enabled] : buttons) {
        QPushButton *button = frame.hub()->findChild<QPushButton *>(name);
        ASSERT_NE(button, nullptr) << name;
        EXPECT_EQ(button->isEnabled(), enabled) << name;
        EXPECT_EQ(button->toolTip().isEmpty(), enabled) << name;
    }

    Action("mnucontents")->trigger();
    ASSERT_NE(frame.help(), nullptr);
    auto *topics = frame.help()->findChild<QListWidget *>("List1");
    ASSERT_EQ(topics->count(), 2);
    EXPECT_EQ(topics->item(1)->text(), "Menu - Optional Buttons");
    topics->setCurrentRow(1);
    topics->setCurrentRow(0);
    EXPECT_TRUE(frame.help()->findChild<QPlainTextEdit *>("rt")->toPlainText().startsWith(
        "Project names can be changed by exiting the application and navigation to the 'Data' "
        "directory of 'Orrery Kit' installation.\n\nThen you need"));
    Shoot("editor-help.png");
}

} // namespace
} // namespace orrery

#include "editor_gui_test.moc"
