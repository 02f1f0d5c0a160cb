// The options window.
#include "session/qt/optionsdialog.h"

#include "widgets/flatbutton.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace orrery {

namespace {

// A preference is on unless it is stored as "0".
bool IsOn(const PreferenceStore &preferences, const std::string &project, const char *key) {
    return preferences.GetPref(project, key, "1") != "0";
}

QCheckBox *OptionBox(const QString &caption, const char *name, QWidget *parent) {
    auto *box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    return box;
}

} // namespace

OptionsDialog::OptionsDialog(const AppPaths &paths, const PreferenceStore &preferences,
                             std::string projectName, MusicSwitched musicSwitched, QWidget *parent)
    : BarDialog(paths, tr("Options"), parent), m_preferences(preferences),
      m_projectName(std::move(projectName)), m_musicSwitched(std::move(musicSwitched)),
      m_music(OptionBox(tr("Music"), "Check1", Body())),
      m_sound(OptionBox(tr("Sound effects"), "Check2", Body())) {
    // Check3 stands for nothing that any part of the program reads; it stays hidden and
    // unticked so that the window offers only choices that do something.
    QCheckBox *spare = OptionBox(QString(), "Check3", Body());
    spare->hide();

    m_music->setChecked(IsOn(m_preferences, m_projectName, "Music"));
    m_sound->setChecked(IsOn(m_preferences, m_projectName, "Sound"));
    ConfirmButton()->setText(tr("Save"));

    auto *column = new QVBoxLayout(Body());
    column->setContentsMargins(22, 18, 22, 12);
    column->setSpacing(12);
    column->addWidget(m_music);
    column->addWidget(m_sound);
    column->addWidget(spare);
    Body()->setMinimumWidth(280);
}

void OptionsDialog::SaveOptions() {
    m_preferences.SavePref(m_projectName, "Music", m_music->isChecked() ? "1" : "0");
    m_preferences.SavePref(m_projectName, "Sound", m_sound->isChecked() ? "1" : "0");
}

void OptionsDialog::Confirm() {
    SaveOptions();
    if (m_musicSwitched) m_musicSwitched(m_music->isChecked());
    accept();
}

} // namespace orrery
