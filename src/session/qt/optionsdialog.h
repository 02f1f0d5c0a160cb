// The options window: the stored preferences "Music" and "Sound" of the project.
#pragma once

#include "foundation/preferences.h"
#include "session/qt/bardialog.h"

#include <functional>
#include <string>

class QCheckBox;

namespace orrery {

class OptionsDialog : public BarDialog {
    Q_OBJECT
public:
    // Told, after a confirm has saved, whether music is now on: the caller stops the music or
    // starts the menu's track again.
    using MusicSwitched = std::function<void(bool musicOn)>;

    OptionsDialog(const AppPaths &paths, const PreferenceStore &preferences,
                  std::string projectName, MusicSwitched musicSwitched, QWidget *parent = nullptr);

    // Writes Check1 as "Music" and Check2 as "Sound": "1" on, "0" off.
    void SaveOptions();

protected:
    void Confirm() override;

private:
    const PreferenceStore &m_preferences;
    std::string m_projectName;
    MusicSwitched m_musicSwitched;
    QCheckBox *m_music;
    QCheckBox *m_sound;
};

} // namespace orrery
