// The condition dialog of the action editor: a left and a right side picked from the variables
// and elements or typed, an operator, and with "Loop to" one condition per number up to an end.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QCheckBox;
class QLineEdit;
class QListWidget;

namespace orrery {

struct ProjectModel;

class ConditionDialog : public QDialog {
    Q_OBJECT
public:
    explicit ConditionDialog(const ProjectModel &model, QWidget *parent = nullptr);

    // The conditions built on OK; empty after Cancel.
    const std::vector<std::string> &conditions() const { return m_conditions; }

    // OK: the conditions, or the message that a field is empty.
    void accept() override;
    void reject() override;

private:
    QListWidget *m_operators;
    QLineEdit *m_left;
    QLineEdit *m_right;
    QCheckBox *m_loop;
    QLineEdit *m_loopTo;
    std::vector<std::string> m_conditions;
};

} // namespace orrery
