// The Problems panel.
#include "editor/qt/problemspanel.h"

#include "widgets/look.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QStyle>
#include <QTreeWidget>
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

ProblemsPanel::ProblemsPanel(QWidget *parent)
    : QWidget(parent), m_summary(new QLabel), m_list(new QTreeWidget) {
    setObjectName("Problems");
    m_summary->setObjectName("lblProblems");
    m_list->setObjectName("lstProblems");
    m_list->setHeaderLabels({QString(), tr("Line"), tr("Where"), tr("Problem")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setWordWrap(false);
    m_list->header()->setStretchLastSection(true);
    m_list->header()->setSectionResizeMode(kSeverity, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(kLine, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(kWhere, QHeaderView::Interactive);
    m_list->header()->resizeSection(kWhere, 220);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(m_summary);
    layout->addWidget(m_list);
    connect(m_list, &QTreeWidget::itemActivated, this, &ProblemsPanel::Open);
    ShowFindings({});
}

void ProblemsPanel::ShowFindings(std::vector<Finding> findings) {
    QTreeWidgetItem *picked = m_list->currentItem();
    const int pickedRow = picked ? m_list->indexOfTopLevelItem(picked) : -1;
    std::optional<Finding> kept;
    if (pickedRow >= 0 && pickedRow < static_cast<int>(m_findings.size()))
        kept = m_findings[pickedRow];
    m_findings = std::move(findings);

    const auto errors = std::count_if(m_findings.begin(), m_findings.end(), [](const Finding &f) {
        return f.severity == Severity::Error;
    });
    const auto warnings = static_cast<qsizetype>(m_findings.size()) - errors;
    m_summary->setText(m_findings.empty()
                           ? tr("No problems found.")
                           : tr("%1, %2. Double-click one to open it.")
                                 .arg(Count(errors, "error", "errors"),
                                      Count(warnings, "warning", "warnings")));

    const QIcon errorIcon = style()->standardIcon(QStyle::SP_MessageBoxCritical);
    const QIcon warningIcon = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    m_list->setUpdatesEnabled(false);
    m_list->clear();
    QList<QTreeWidgetItem *> items;
    items.reserve(static_cast<qsizetype>(m_findings.size()));
    QTreeWidgetItem *again = nullptr;
    for (const Finding &finding : m_findings) {
        auto *item = new QTreeWidgetItem;
        const bool error = finding.severity == Severity::Error;
        item->setIcon(kSeverity, error ? errorIcon : warningIcon);
        item->setToolTip(kSeverity, error ? tr("error") : tr("warning"));
        if (finding.line > 0) item->setText(kLine, QString::number(finding.line));
        item->setTextAlignment(kLine, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(kWhere, PlaceText(finding.place));
        item->setText(kMessage, Text(finding.message));
        item->setToolTip(kMessage, Text(finding.message));
        if (kept && !again && kept->code == finding.code && kept->message == finding.message)
            again = item;
        items.push_back(item);
    }
    m_list->addTopLevelItems(items);
    if (again) m_list->setCurrentItem(again);
    m_list->setUpdatesEnabled(true);
}

void ProblemsPanel::Open(QTreeWidgetItem *item) {
    const int row = m_list->indexOfTopLevelItem(item);
    if (row >= 0 && row < static_cast<int>(m_findings.size()))
        emit openRequested(m_findings[row].place);
}

} // namespace orrery
