// The hub's buttons; those whose editors aren't built yet stand disabled and say so.
#include "editor/qt/hub.h"

#include <QGridLayout>
#include <QPushButton>
#include <utility>

namespace orrery {

namespace {

// Name and caption, in reading order, three to a row; Exit closes the last row.
constexpr std::pair<const char *, const char *> kButtons[] = {
    {"Command1", "Project Settings"},
    {"Command3", "Target Servers"},
    {"Command6", "Tools and Menus"},
    {"Command4", "Menu Designer"},
    {"Command7", "Game Screen"},
    {"Command5", "Audio"},
    {"Command8", "Imagebase"},
    {"Command9", "Set Randomness Keywords"},
    {"Command2", "Exit"},
};

} // namespace

EditorHub::EditorHub(QWidget *parent) : QWidget(parent) {
    setObjectName("frmWizard2");
    setWindowTitle(QStringLiteral("Orrery Kit Menu"));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setSpacing(10);
    int place = 0;
    for (const auto &[name, caption] : kButtons) {
        auto *button = new QPushButton(QString::fromLatin1(caption));
        button->setObjectName(name);
        button->setMinimumSize(190, 48);
        grid->addWidget(button, place / 3, place % 3);
        ++place;
        if (button->objectName() == "Command1")
            connect(button, &QPushButton::clicked, this, &EditorHub::settingsRequested);
        else if (button->objectName() == "Command3")
            connect(button, &QPushButton::clicked, this, &EditorHub::serversRequested);
        else if (button->objectName() == "Command6")
            connect(button, &QPushButton::clicked, this, &EditorHub::toolsRequested);
        else if (button->objectName() == "Command2")
            connect(button, &QPushButton::clicked, this, &EditorHub::exitRequested);
        else {
            button->setEnabled(false);
            button->setToolTip(tr("This editor comes in a later version."));
        }
    }
}

} // namespace orrery
