// The help viewer's two topics and their fixed texts.
#include "editor/qt/helpviewer.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <array>

namespace orrery {

namespace {

struct Topic {
    const char *title;
    const char *text;
};

constexpr std::array<Topic, 2> kTopics{{
    {"Change Project Name",
     "Project names can be changed by exiting the application and navigation to the 'Data' "
     "directory of 'Orrery Kit' installation.\n\nThen you need to rename the folder of your "
     "project to the desired new project name. Once you restart 'Orrery Kit' application, your "
     "project will retain its new name."},
    {"Menu - Optional Buttons",
     "A game's main menu always offers New Game, Load Game, Options and Exit. Four more entries "
     "are optional: each shows only when the project switches it on in the Menu Designer.\n\n"
     "High Scores opens the scores window. A menu of text lines has no line for it: it shows "
     "as a picture of a menu made of images.\n\n"
     "Open Website opens the project's website, as Project Settings gives it, in the player's "
     "web browser.\n\n"
     "Credits shows the project's credits over the menu.\n\n"
     "Help adds an entry named Help. The game's own help is the panel of the game desktop, "
     "which F1 shows and hides.\n\n"
     "In a menu of text lines the optional entries stand between Options and Exit, in the "
     "order Open Website, Credits, Help."},
}};

} // namespace

HelpViewer::HelpViewer(QWidget *parent)
    : QWidget(parent), m_list(new QListWidget), m_text(new QPlainTextEdit) {
    setObjectName("frmHelp");
    setWindowTitle(tr("Orrery Kit Help"));
    m_list->setObjectName("List1");
    m_text->setObjectName("rt");
    m_text->setReadOnly(true);
    m_list->setFixedWidth(190);
    for (const Topic &topic : kTopics) m_list->addItem(QString::fromLatin1(topic.title));
    connect(m_list, &QListWidget::currentRowChanged, this, &HelpViewer::ShowTopic);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(10, 10, 10, 10);
    row->addWidget(m_list);
    row->addWidget(m_text, 1);
    setMinimumSize(640, 340);
    m_list->setCurrentRow(0);
}

void HelpViewer::ShowTopic(int row) {
    if (row < 0 || row >= static_cast<int>(kTopics.size())) return m_text->clear();
    m_text->setPlainText(QString::fromLatin1(kTopics[static_cast<std::size_t>(row)].text));
}

} // namespace orrery
