// The server editor in the editor's frame, on the demo game: fields of each kind, custom
// servers typed in their boxes and edited as records, removal after the question, and the
// project file given back by undo.
#include "editor/qt/editorframe.h"
#include "editor/qt/hub.h"
#include "editor/qt/servereditor.h"
#include "editor/servers.h"
#include "editor/session.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"

#include <QComboBox>
#include <QCheckBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace orrery {
namespace {

struct ServerEditorGui : ::testing::Test {
    test::TempDir dir;
    std::filesystem::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};
    EditorFrame frame{session};
    ServerEditor *editor = nullptr;

    void SetUp() override {
        frame.resize(1100, 760);
        frame.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
        frame.Start("Night Shift");
        QTest::mouseClick(frame.hub()->findChild<QPushButton *>("Command3"), Qt::LeftButton);
        editor = frame.servers();
        ASSERT_NE(editor, nullptr);
    }
    template <typename T> T *Find(const QString &name) {
        T *found = editor->findChild<T *>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    void Click(const char *button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    std::string File() { return ReadFileBytes(session.File()).value_or(""); }
    std::vector<std::string> Fields() { return ServerFields(session.model()); }
};

TEST_F(ServerEditorGui, FieldsOfEachKind) {
    const std::string before = File();
    const struct {
        int option;
        const char *name;
        std::function<void(ServerEditorGui &)> set;
        const char *field;
    } rows[] = {
        {1, "motd", [](ServerEditorGui &g) { QTest::keyClicks(g.Find<QLineEdit>("txtVal"), " hi "); },
         "MOTD (hi)"},
        {2, "pass", [](ServerEditorGui &g) { g.Find<QListWidget>("List2")->setCurrentRow(3); },
         "PASS (RANDOM:LONGWORD)"},
        {3, "load",
         [](ServerEditorGui &g) {
             g.Find<QSpinBox>("n1")->setValue(5);
             g.Find<QSpinBox>("n2")->setValue(95);
         },
         "LOAD (RANDOM:5-95)"},
        {4, "owner", [](ServerEditorGui &) {}, "OWNER (RANDOM:NAME)"},
        {5, "peer", [](ServerEditorGui &g) { g.Find<QCheckBox>("Check1")->setChecked(true); },
         "PEER (RANDOM:EXISTINGIP)*"},
        {6, "mirror", [](ServerEditorGui &) {}, "MIRROR (RANDOM:EXISTINGHOSTNAME)"},
    };
    for (const auto &row : rows) {
        Find<QRadioButton>(QStringLiteral("Option%1").arg(row.option))->click();
        QTest::keyClicks(Find<QLineEdit>("txtName"), row.name);
        row.set(*this);
        Click("Command1");
        Find<QCheckBox>("Check1")->setChecked(false);
        EXPECT_EQ(Fields().back(), row.field);
        EXPECT_TRUE(Find<QLineEdit>("txtName")->text().isEmpty());
    }
    EXPECT_EQ(Find<QListWidget>("List1")->count(), 14);

    Find<QComboBox>("Combo1")->setCurrentText("500");
    emit Find<QComboBox>("Combo1")->activated(1);
    EXPECT_EQ(session.model().settings.myserversrandom, "500");
    test::Shot(editor, "editor-servers-fields.png");

    while (frame.undoStack()->canUndo()) frame.undoStack()->undo();
    EXPECT_EQ(File(), before);
    EXPECT_EQ(Find<QListWidget>("List1")->count(), 8) << "the list follows the undo";
}

TEST_F(ServerEditorGui, CustomServersAreTypedEditedAndRemoved) {
    const std::string before = File();
    Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    auto *list = Find<QListWidget>("clist");
    const int servers = list->count();
    // The boxes stand in field order: ip, hostname, admin, os...
    QTest::keyClicks(Find<QLineEdit>("t1"), "10.0.0.9");
    QTest::keyClicks(Find<QLineEdit>("t2"), "vault.example");
    QTest::keyClicks(Find<QLineEdit>("t7"), "a:b");
    Click("Command4");
    ASSERT_EQ(list->count(), servers + 1);
    EXPECT_EQ(CustomServers(session.model()).back(),
              "ip=10.0.0.9:hostname=vault.example:admin=:os=:ports=:note=:uplink=a-b:passcode=:");
    EXPECT_TRUE(Find<QLineEdit>("t1")->text().isEmpty());
    test::Shot(editor, "editor-servers-custom.png");

    test::WhenModal<QInputDialog>([](QInputDialog *box) {
        EXPECT_EQ(box->labelText(), "Edit value (dont add or remove or change : characters)");
        box->setTextValue("ip=10.0.0.10:hostname=vault.example:");
        box->accept();
    });
    Click("cmdEditServer");
    EXPECT_EQ(CustomServers(session.model()).back(), "ip=10.0.0.10:hostname=vault.example:");

    QString asked;
    test::WhenModal<QMessageBox>([&asked](QMessageBox *box) {
        asked = box->windowTitle() + "|" + box->text();
        box->button(QMessageBox::Yes)->click();
    });
    Click("Command5");
    EXPECT_EQ(asked, "Remove|Would you like to remove this item?\r\nip=10.0.0.10:hostname=vault.example:");
    EXPECT_EQ(list->count(), servers);

    while (frame.undoStack()->canUndo()) frame.undoStack()->undo();
    EXPECT_EQ(File(), before);
}

} // namespace
} // namespace orrery
