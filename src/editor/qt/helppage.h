// The tool editor's page of the in-game help: whether the game offers it, and its topics.
#pragma once

#include "editor/qt/pageparts.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace orrery {

class HelpPage : public EditorPage {
    Q_OBJECT
public:
    explicit HelpPage(EditorContext context, QWidget *parent = nullptr);
    void Reload() override;
    bool ShowItem(const FindingPlace &place) override;

    void EnableHelp(bool on);
    // Empties the fields for a topic not yet written.
    void NewTopic();
    // Stores the fields: a new title is a new topic, a known one takes the new text.
    void SaveNewHelp();
    // Asks first, then removes the selected topic.
    void ClearHelp();

private:
    void LoadHelp();

    QCheckBox *m_enabled;
    QListWidget *m_topics;
    QLineEdit *m_title;
    QPlainTextEdit *m_text;
    QPushButton *m_remove;
    Shown m_shown;
};

} // namespace orrery
