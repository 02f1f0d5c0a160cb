// Get Element.
#include "editor/qt/elementpicker.h"

#include "editor/actions.h"
#include "editor/qt/toolcanvas.h"
#include "editor/session.h"
#include "editor/words.h"
#include "widgets/look.h"

#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

namespace orrery {

namespace {

// The tool is only looked at here: a gesture that would change it is undone at once.
EditorContext LookOnly(EditorSession &session) {
    return {&session, [&session](Outcome outcome) {
                outcome.change.Undo(session.model());
                return false;
            }};
}

} // namespace

ElementPicker::ElementPicker(EditorSession &session, const std::string &tool,
                             const std::string &function, QWidget *parent)
    : QDialog(parent) {
    setObjectName("frmAction2");
    setWindowTitle(ToQString(std::string(words::kFunctionOn) + tool));

    auto *name = new QLabel(ToQString(function));
    name->setObjectName("Label2");
    QFont bold = name->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    name->setFont(bold);
    auto *how = new QLabel(ToQString(words::kPickElement));
    how->setObjectName("Label1");

    m_canvas = new ToolCanvas(LookOnly(session));
    m_canvas->setObjectName("Picture1");
    m_canvas->setToolTip(QString());
    m_canvas->ShowTool(tool);
    auto *scroll = new QScrollArea;
    scroll->setWidget(m_canvas);
    scroll->setWidgetResizable(true);

    auto *variables = new QListWidget;
    variables->setObjectName("tvar");
    for (const std::string &variable : LoadList6(session.model())) variables->addItem(ToQString(variable));
    auto *instead = new QLabel(ToQString(words::kPickVariableInstead));
    instead->setObjectName("Label3");
    instead->setWordWrap(true);
    auto *side = new QWidget;
    auto *sideColumn = new QVBoxLayout(side);
    sideColumn->setContentsMargins(0, 0, 0, 0);
    sideColumn->addWidget(instead);
    sideColumn->addWidget(variables, 1);

    auto *split = new QSplitter;
    split->addWidget(scroll);
    split->addWidget(side);
    split->setStretchFactor(0, 1);
    split->setSizes({560, 180});

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(14, 12, 14, 14);
    column->addWidget(name);
    column->addWidget(how);
    column->addWidget(split, 1);

    connect(m_canvas, &ToolCanvas::selectionChanged, this, [this] {
        if (!m_canvas->selection().empty()) Pick(m_canvas->selection().front());
    });
    connect(variables, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { Pick(FromQString(item->text())); });
    const QSize drawn = m_canvas->minimumSize();
    resize(std::clamp(drawn.width() + 240, 560, 1100), std::clamp(drawn.height() + 110, 360, 800));
}

void ElementPicker::Pick(const std::string &name) {
    m_picked = name;
    accept();
}

} // namespace orrery
