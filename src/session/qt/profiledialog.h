// The profile screen: a new profile's name or a saved profile from the list, and the start of
// the game under it.
#pragma once

#include "session/profilescreen.h"
#include "session/qt/bardialog.h"

#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QStackedLayout;

namespace orrery {

class ProfileDialog : public BarDialog {
    Q_OBJECT
public:
    // Starts the game: a new one under the name, or the saved one of that name.
    using StartGame = std::function<GameStart(ProfileOption option, const std::string &name)>;

    ProfileDialog(const AppPaths &paths, bool loadMode, StartGame start, QWidget *parent = nullptr);

    ProfileOption Option() const;
    // Shows the panel of the chosen option; the load panel reads the saved profiles again.
    void SetBox();
    void LoadGamesList();
    // The confirm: a message in the name box, or the start of a game.
    void ClickIt();

    // Escape and ARButton2 do nothing while a game is starting.
    void reject() override;

protected:
    void Confirm() override { ClickIt(); }
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Start(ProfileOption option, const std::string &name);

    AppPaths m_paths;
    StartGame m_start;
    bool m_starting = false;
    QRadioButton *m_new;
    QRadioButton *m_load;
    QWidget *m_boxNew;
    QWidget *m_boxLoad;
    QStackedLayout *m_boxes;
    QLineEdit *m_name;
    QListWidget *m_list;
    QLabel *m_status;
};

} // namespace orrery
