// The Problems panel.
#include "editor/qt/problemspanel.h"

#include "widgets/look.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QStyle>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

namespace orrery {

namespace {

QString Text(const std::string &text) {
    return ToQString(text);
}

QString Count(qsizetype n, const char *one, const char *many) {
    return QStringLiteral("%1 %2").arg(n).arg(n == 1 ? QObject::tr(one) : QObject::tr(many));
}

QString PlaceName(const FindingPlace &place) {
    using K = FindingPlace::Kind;
    switch (place.kind) {
    case K::Project:
        return {};
    case K::Setting:
    case K::Menu:
        return Text(place.name);
    case K::Element:
        return place.key.empty() ? Text(place.name)
                                 : QObject::tr("%1, %2").arg(Text(place.name), Text(place.key));
    case K::Qlob:
        return QObject::tr("qlob %1").arg(Text(place.name));
    case K::ToolSub:
        return QObject::tr("tool sub %1").arg(Text(place.name));
    case K::MainLoad:
        return QObject::tr("start-up");
    case K::Variable:
        return QObject::tr("variable %1").arg(Text(place.name));
    case K::CustomServer:
        return QObject::tr("custom server %1").arg(place.number);
    case K::Dynamic:
        return QObject::tr("dynamic %1").arg(place.number);
    case K::Help:
        return QObject::tr("help topic %1").arg(Text(place.name));
    }
    return {};
}

} // namespace

QString PlaceText(const FindingPlace &place) {
    const QString name = PlaceName(place);
    if (place.statement < 1) return name;
    return QObject::tr("%1, statement %2").arg(name).arg(place.statement);
}

void FindingModel::SetFindings(std::vector<Finding> findings) {
    beginResetModel();
    m_findings = std::move(findings);
    endResetModel();
}

int FindingModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_findings.size());
}

int FindingModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant FindingModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const Finding &finding = m_findings[static_cast<std::size_t>(index.row())];
    const bool error = finding.severity == Severity::Error;
    switch (index.column()) {
    case kSeverity:
        if (role == Qt::DecorationRole) {
            static const QIcon errorIcon =
                QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical);
            static const QIcon warningIcon =
                QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
            return error ? errorIcon : warningIcon;
        }
        if (role == Qt::ToolTipRole) return error ? tr("error") : tr("warning");
        break;
    case kLine:
        if (role == Qt::DisplayRole && finding.line > 0) return finding.line;
        if (role == Qt::TextAlignmentRole) return int(Qt::AlignRight | Qt::AlignVCenter);
        break;
    case kWhere:
        if (role == Qt::DisplayRole) return PlaceText(finding.place);
        break;
    case kMessage:
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return Text(finding.message);
        break;
    }
    return {};
}

QVariant FindingModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
    case kLine:
        return tr("Line");
    case kWhere:
        return tr("Where");
    case kMessage:
        return tr("Problem");
    default:
        return {};
    }
}

ProblemsPanel::ProblemsPanel(QWidget *parent)
    : QWidget(parent), m_summary(new QLabel), m_view(new QTreeView), m_model(new FindingModel(this)) {
    setObjectName("Problems");
    m_summary->setObjectName("lblProblems");
    m_view->setObjectName("lstProblems");
    m_view->setModel(m_model);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(false);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(true);
    header->setSectionResizeMode(FindingModel::kSeverity, QHeaderView::Fixed);
    header->resizeSection(FindingModel::kSeverity, 28);
    header->resizeSection(FindingModel::kLine, 56);
    header->resizeSection(FindingModel::kWhere, 240);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(m_summary);
    layout->addWidget(m_view);
    connect(m_view, &QTreeView::activated, this, [this](const QModelIndex &index) {
        if (index.isValid() && index.row() < m_model->rowCount())
            emit openRequested(findings()[static_cast<std::size_t>(index.row())].place);
    });
    ShowFindings({});
}

void ProblemsPanel::ShowFindings(std::vector<Finding> findings) {
    const QModelIndex picked = m_view->currentIndex();
    std::optional<Finding> kept;
    if (picked.isValid() && picked.row() < m_model->rowCount())
        kept = this->findings()[static_cast<std::size_t>(picked.row())];
    m_model->SetFindings(std::move(findings));

    const auto &shown = this->findings();
    const auto errors = std::count_if(shown.begin(), shown.end(), [](const Finding &f) {
        return f.severity == Severity::Error;
    });
    const auto warnings = static_cast<qsizetype>(shown.size()) - errors;
    m_summary->setText(shown.empty()
                           ? tr("No problems found.")
                           : tr("%1, %2. Double-click one to open it.")
                                 .arg(Count(errors, "error", "errors"),
                                      Count(warnings, "warning", "warnings")));
    if (!kept) return;
    const auto again = std::find_if(shown.begin(), shown.end(), [&](const Finding &f) {
        return f.code == kept->code && f.message == kept->message;
    });
    if (again != shown.end())
        m_view->setCurrentIndex(m_model->index(static_cast<int>(again - shown.begin()), 0));
}

} // namespace orrery
