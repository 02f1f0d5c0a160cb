// The editor's small help viewer: a list of topics and the text of the one picked.
#pragma once

#include <QWidget>

class QListWidget;
class QPlainTextEdit;

namespace orrery {

class HelpViewer : public QWidget {
    Q_OBJECT
public:
    explicit HelpViewer(QWidget *parent = nullptr);

    // Shows the topic of that row of the list.
    void ShowTopic(int row);

private:
    QListWidget *m_list;
    QPlainTextEdit *m_text;
};

} // namespace orrery
