// The asker window.
#include "session/qt/askerdialog.h"

#include "foundation/text.h"
#include "widgets/flatbutton.h"
#include "widgets/look.h"

#include <QLabel>
#include <QVBoxLayout>

namespace orrery {

namespace {

// The question in the project's default label style, on the label's own back colour.
QLabel *QuestionLabel(const ProjectSettings &s, const std::string &question, QWidget *parent) {
    auto *label = new QLabel(ToQString(question), parent);
    label->setObjectName("Label1");
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(ProjectFont(s.mtdefstylelabelfontname, s.mtdefstylelabelfontsize,
                               s.mtdefstylelabelbold, s.mtdefstylelabelitalic,
                               s.mtdefstylelabelunderline));
    label->setStyleSheet(QStringLiteral("color: %1; background: %2; padding: 12px;")
                             .arg(ToQColor(s.mtdefstylelabelforecolor).name(),
                                  ToQColor(s.mtdefstylelabelbackcolor).name()));
    label->setMinimumWidth(320);
    label->setMaximumWidth(480);
    return label;
}

} // namespace

AskerDialog::AskerDialog(const ProjectModel &project, const AppPaths &paths,
                         const std::string &question, const std::string &answer1,
                         const std::string &answer2, QWidget *parent)
    : BarDialog(paths, QString(), parent), m_answer1(answer1), m_answer2(answer2) {
    const ProjectSettings &s = project.settings;
    const std::string title = Trim(s.myprojectname);
    SetCaption(title.empty() ? tr("Question") : ToQString(title));
    // Both answers stay on show even when empty: an empty one is still a choice.
    ConfirmButton()->setObjectName("b1");
    ConfirmButton()->setText(ToQString(answer1));
    CancelButton()->setObjectName("b2");
    CancelButton()->setText(ToQString(answer2));

    auto *column = new QVBoxLayout(Body());
    column->setContentsMargins(18, 16, 18, 8);
    column->addWidget(QuestionLabel(s, question, Body()));
}

void AskerDialog::Choose(const std::string &answer) {
    m_answer = answer;
    accept();
}

std::string AskerDialog::Ask(QWidget *parent, const ProjectModel &project, const AppPaths &paths,
                             const std::string &question, const std::string &answer1,
                             const std::string &answer2) {
    AskerDialog asker(project, paths, question, answer1, answer2, parent);
    asker.exec();
    return asker.Answer();
}

} // namespace orrery
