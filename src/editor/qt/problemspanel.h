// The Problems panel: what the checker finds in the open project, one line a finding, with
// its line of the project file; a double click opens what is at fault.
#pragma once

#include "check/check.h"

#include <QAbstractTableModel>
#include <QWidget>
#include <vector>

class QLabel;
class QTreeView;

namespace orrery {

// The findings as rows: a view asks only for the rows it shows, so thousands of findings cost
// no more than the few on screen.
class FindingModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { kSeverity, kLine, kWhere, kMessage, kColumns };

    using QAbstractTableModel::QAbstractTableModel;
    void SetFindings(std::vector<Finding> findings);
    const std::vector<Finding> &findings() const { return m_findings; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<Finding> m_findings;
};

class ProblemsPanel : public QWidget {
    Q_OBJECT
public:
    explicit ProblemsPanel(QWidget *parent = nullptr);

    // Shows these findings in place of the last ones; the finding picked stays picked where
    // an equal one is still there.
    void ShowFindings(std::vector<Finding> findings);
    const std::vector<Finding> &findings() const { return m_model->findings(); }
    QTreeView *view() const { return m_view; }

signals:
    // The author asks to see what a finding is about.
    void openRequested(const FindingPlace &place);

private:
    QLabel *m_summary;
    QTreeView *m_view;
    FindingModel *m_model;
};

// Where a finding stands, for a person: "labelstatus, action, statement 2", "qlob OPEN_GATE".
QString PlaceText(const FindingPlace &place);

} // namespace orrery
