// The Problems panel: what the checker finds in the open project, one line a finding, with
// its line of the project file; a double click opens what is at fault.
#pragma once

#include "check/check.h"

#include <QWidget>
#include <vector>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace orrery {

class ProblemsPanel : public QWidget {
    Q_OBJECT
public:
    enum Column { kSeverity, kLine, kWhere, kMessage };

    explicit ProblemsPanel(QWidget *parent = nullptr);

    // Shows these findings in place of the last ones; the finding picked stays picked where
    // an equal one is still there.
    void ShowFindings(std::vector<Finding> findings);
    const std::vector<Finding> &findings() const { return m_findings; }

signals:
    // The author asks to see what a finding is about.
    void openRequested(const FindingPlace &place);

private:
    void Open(QTreeWidgetItem *item);

    QLabel *m_summary;
    QTreeWidget *m_list;
    std::vector<Finding> m_findings;
};

// Where a finding stands, for a person: "labelstatus, action, statement 2", "qlob OPEN_GATE".
QString PlaceText(const FindingPlace &place);

} // namespace orrery
