// The hub of the editors, "Orrery Kit Menu": nine buttons, each leading to an editor.
#pragma once

#include <QWidget>

namespace orrery {

class EditorHub : public QWidget {
    Q_OBJECT
public:
    explicit EditorHub(QWidget *parent = nullptr);

signals:
    void settingsRequested();
    void toolsRequested();
    void serversRequested();
    void exitRequested();
};

} // namespace orrery
