// The credits: the project's credit text rolling up over its credit picture, round and round
// until the player presses Escape.
#pragma once

#include "foundation/paths.h"
#include "project/model.h"

#include <QWidget>

class QLabel;
class QTimer;

namespace orrery {

class CreditsWindow : public QWidget {
    Q_OBJECT
public:
    // A window of its own even with a parent; the caller shows it full screen and plays the
    // credit music.
    CreditsWindow(const ProjectModel &project, const AppPaths &paths, QWidget *parent = nullptr);

    // One tick of Timer1 (every 250 ms): the text rises 240 twips; once it is past the top by
    // its height and 600 twips more, it starts again 3600 twips below the picture's top.
    void Roll();

signals:
    // The window has closed: the caller brings the menu's music back.
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void FitText();

    QWidget *m_picture;
    QLabel *m_text;
    QTimer *m_timer;
};

} // namespace orrery
