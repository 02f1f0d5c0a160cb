// The asker: a modal question with two answers, which an action waits for.
#pragma once

#include "project/model.h"
#include "session/qt/bardialog.h"

#include <string>

namespace orrery {

class AskerDialog : public BarDialog {
    Q_OBJECT
public:
    AskerDialog(const ProjectModel &project, const AppPaths &paths, const std::string &question,
                const std::string &answer1, const std::string &answer2, QWidget *parent = nullptr);

    // The answer of the button clicked; empty until one is, and after any other close.
    const std::string &Answer() const { return m_answer; }

    // Asks and waits; the timers of other windows keep running meanwhile.
    static std::string Ask(QWidget *parent, const ProjectModel &project, const AppPaths &paths,
                           const std::string &question, const std::string &answer1,
                           const std::string &answer2);

protected:
    void Confirm() override { Choose(m_answer1); }
    void Cancel() override { Choose(m_answer2); }

private:
    void Choose(const std::string &answer);

    std::string m_answer1;
    std::string m_answer2;
    std::string m_answer;
};

} // namespace orrery
