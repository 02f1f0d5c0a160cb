// The tool editor's form.
#include "editor/qt/tooleditor.h"

#include "check/check.h"

#include "editor/elements.h"
#include "editor/qt/qombodialog.h"
#include "editor/qt/helppage.h"
#include "editor/qt/propertypanel.h"
#include "editor/qt/qlobpage.h"
#include "editor/qt/shellparts.h"
#include "editor/qt/sidemenupage.h"
#include "editor/qt/startuppage.h"
#include "editor/qt/toolsubpage.h"
#include "editor/qt/variablepage.h"
#include "editor/qt/toolcanvas.h"
#include "desk/tools.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "widgets/look.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

namespace orrery {

namespace {

// The kinds an author adds, in the list's order.
constexpr ElementKind kKinds[] = {ElementKind::Button, ElementKind::Label, ElementKind::List,
                                  ElementKind::Text,   ElementKind::Image, ElementKind::Qonsole};
constexpr const char *kKindCaptions[] = {"Button", "Label", "Option List",
                                         "Text Input", "Image", "Qonsole"};

// Where a new element stands: on the grid at the left, below every element the tool has, so
// that each new one shows on its own.
Position FreeSpot(const ProjectModel &model, const std::string &tool) {
    std::int32_t below = 600;
    for (const DesignedControl &designed : BuildToolControls(model, ToolTag(tool)).controls)
        below = std::max(below, designed.control.top + designed.control.height + kNudge);
    std::int32_t top = SnapToGrid(below);
    if (top < below) top += kNudge;
    return {SnapToGrid(160), top};
}

// The picture of an align command: the edge or the size the selection takes, drawn as two
// bars of different lengths against a guide line.
QIcon AlignIcon(Align align) {
    QPixmap picture(20, 20);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QColor guide(64, 156, 255), bar(90, 96, 106);
    const auto across = [&](int y, int x, int w) { painter.fillRect(x, y, w, 5, bar); };
    const auto down = [&](int x, int y, int h) { painter.fillRect(x, y, 5, h, bar); };
    switch (align) {
    case Align::Left: painter.fillRect(2, 1, 2, 18, guide); across(4, 4, 13); across(11, 4, 8); break;
    case Align::Right: painter.fillRect(16, 1, 2, 18, guide); across(4, 3, 13); across(11, 8, 8); break;
    case Align::Top: painter.fillRect(1, 2, 18, 2, guide); down(4, 4, 13); down(11, 4, 8); break;
    case Align::Bottom: painter.fillRect(1, 16, 18, 2, guide); down(4, 3, 13); down(11, 8, 8); break;
    case Align::SameWidth:
        painter.fillRect(2, 1, 1, 18, guide); painter.fillRect(17, 1, 1, 18, guide);
        across(4, 3, 14); across(11, 3, 14); break;
    case Align::SameHeight:
        painter.fillRect(1, 2, 18, 1, guide); painter.fillRect(1, 17, 18, 1, guide);
        down(4, 3, 14); down(11, 3, 14); break;
    case Align::SpaceAcross:
        for (int x : {1, 8, 15}) down(x, 4, 12);
        painter.fillRect(0, 18, 20, 1, guide); break;
    case Align::SpaceDown:
        for (int y : {1, 8, 15}) across(y, 4, 12);
        painter.fillRect(18, 0, 1, 20, guide); break;
    }
    return QIcon(picture);
}

QPushButton *Button(const QString &caption, const char *name) {
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

} // namespace

ToolEditor::ToolEditor(EditorContext context, QWidget *parent)
    : QWidget(parent), m_context(std::move(context)), m_tabs(new QTabWidget) {
    setObjectName("frmTools");
    setWindowTitle(tr("Tools and Menus"));
    m_tabs->setObjectName("SSTab1");
    m_tabs->setDocumentMode(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    m_tabs->addTab(MakeToolsPage(), tr("Tools and Elements"));
    AddPage(new QlobPage(m_context), tr("Qlobs"));
    AddPage(new VariablePage(m_context), tr("Variables"));
    AddPage(new SideMenuPage(m_context), tr("Side Menu"));
    AddPage(new ToolSubPage(m_context), tr("Tool Subs"));
    AddPage(new StartupPage(m_context), tr("Start-up"));
    AddPage(new HelpPage(m_context), tr("Help"));
    ReloadTools();
    if (m_tools->count() > 0) m_tools->setCurrentRow(0);
    UpdateCommands();
}

void ToolEditor::AddPage(EditorPage *page, const QString &caption) {
    m_tabs->addTab(page, caption);
    m_pages.push_back(page);
}

QWidget *ToolEditor::MakeToolsPage() {
    auto *split = new QSplitter(Qt::Horizontal);
    split->setObjectName("ToolsPage");
    split->addWidget(MakeSidebar());
    split->addWidget(MakeDesignArea());
    m_properties = new PropertyPanel(m_context);
    m_properties->setMinimumWidth(260);
    m_properties->setMaximumWidth(440);
    split->addWidget(m_properties);
    connect(m_canvas, &ToolCanvas::selectionChanged, m_properties,
            [this] { m_properties->ShowElements(m_canvas->selection()); });
    split->setStretchFactor(1, 1);
    split->setCollapsible(1, false);
    split->setSizes({220, 760, 300});
    return split;
}

QWidget *ToolEditor::MakeSidebar() {
    auto *side = new QWidget;
    side->setMinimumWidth(190);
    side->setMaximumWidth(280);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(8, 8, 4, 8);

    auto *tools = new QGroupBox(tr("Tools"));
    auto *toolColumn = new QVBoxLayout(tools);
    m_tools = new QListWidget;
    m_tools->setObjectName("List1");
    toolColumn->addWidget(m_tools, 1);
    auto *addRow = new QHBoxLayout;
    m_newTool = new QLineEdit;
    m_newTool->setObjectName("txtn");
    m_newTool->setPlaceholderText(tr("New tool name"));
    QPushButton *add = Button(tr("Add"), "cmdAddTool");
    addRow->addWidget(m_newTool, 1);
    addRow->addWidget(add);
    toolColumn->addLayout(addRow);
    QPushButton *remove = Button(tr("Remove Tool"), "cmdRemoveTool");
    toolColumn->addWidget(remove);
    column->addWidget(tools, 3);

    auto *elements = new QGroupBox(tr("Elements"));
    auto *elementColumn = new QVBoxLayout(elements);
    m_kinds = new QListWidget;
    m_kinds->setObjectName("List2");
    for (const char *caption : kKindCaptions) m_kinds->addItem(tr(caption));
    m_kinds->setMaximumHeight(m_kinds->sizeHintForRow(0) * 6 + 2 * m_kinds->frameWidth() + 4);
    elementColumn->addWidget(m_kinds);
    m_array = new QCheckBox(tr("Add as an array"));
    m_array->setObjectName("Check8");
    elementColumn->addWidget(m_array);
    QPushButton *addElement = Button(tr("Add Element"), "Command7");
    elementColumn->addWidget(addElement);
    QPushButton *qombo = Button(tr("Qombo!..."), "cmdQombo");
    elementColumn->addWidget(qombo);
    column->addWidget(elements, 2);

    connect(add, &QPushButton::clicked, this, &ToolEditor::AddTool);
    connect(m_newTool, &QLineEdit::returnPressed, this, &ToolEditor::AddTool);
    connect(remove, &QPushButton::clicked, this, &ToolEditor::RemoveTool);
    connect(addElement, &QPushButton::clicked, this, &ToolEditor::AddElement);
    connect(qombo, &QPushButton::clicked, this, &ToolEditor::AddQombo);
    connect(m_tools, &QListWidget::currentRowChanged, this, &ToolEditor::ShowCurrentTool);
    return side;
}

QWidget *ToolEditor::MakeDesignArea() {
    auto *area = new QWidget;
    auto *column = new QVBoxLayout(area);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_canvas = new ToolCanvas(m_context);
    m_commands = new QToolBar;
    m_commands->setObjectName("Commands");
    struct Command {
        const char *name;
        QString tip;
        Align align;
    };
    const Command aligns[] = {
        {"align-left", tr("Align left edges"), Align::Left},
        {"align-right", tr("Align right edges"), Align::Right},
        {"align-top", tr("Align top edges"), Align::Top},
        {"align-bottom", tr("Align bottom edges"), Align::Bottom},
        {"align-same-width", tr("Make the same width"), Align::SameWidth},
        {"align-same-height", tr("Make the same height"), Align::SameHeight},
        {"space-across", tr("Space evenly across"), Align::SpaceAcross},
        {"space-down", tr("Space evenly down"), Align::SpaceDown}};
    for (const Command &command : aligns) {
        QAction *action = m_commands->addAction(AlignIcon(command.align), command.tip, m_canvas,
                                                [this, how = command.align] { m_canvas->Align(how); });
        action->setObjectName(command.name);
        action->setToolTip(command.tip + tr(", taking the first element chosen as the guide"));
        if (command.align == Align::SameHeight) m_commands->addSeparator();
    }
    m_commands->addSeparator();
    m_commands->addAction(tr("Copy Properties"), m_canvas, &ToolCanvas::CopyProperties)
        ->setObjectName("copy-properties");
    m_commands->addAction(tr("Paste Properties"), m_canvas, &ToolCanvas::PasteProperties)
        ->setObjectName("paste-properties");
    m_commands->addSeparator();
    m_commands->addAction(tr("Delete"), m_canvas, &ToolCanvas::DeleteSelected)
        ->setObjectName("delete-elements");
    column->addWidget(m_commands);
    m_canvas->addActions(m_commands->actions());

    auto *scroll = new QScrollArea;
    scroll->setObjectName("PreviewArea");
    scroll->setWidget(m_canvas);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    column->addWidget(scroll, 1);
    connect(m_canvas, &ToolCanvas::selectionChanged, this, &ToolEditor::UpdateCommands);
    return area;
}

void ToolEditor::UpdateCommands() {
    const std::size_t selected = m_canvas->selection().size();
    for (QAction *action : m_commands->actions()) {
        const QString name = action->objectName();
        if (name.startsWith("align-")) action->setEnabled(selected > 1);
        else if (name.startsWith("space-")) action->setEnabled(selected > 2);
        else if (name == "paste-properties") action->setEnabled(selected > 0 && m_canvas->HasCopiedProperties());
        else if (!name.isEmpty()) action->setEnabled(selected > 0);
    }
}

std::string ToolEditor::CurrentTool() const {
    const QListWidgetItem *item = m_tools->currentItem();
    return item ? FromQString(item->text()) : std::string();
}

std::optional<ElementKind> ToolEditor::CurrentKind() const {
    const int row = m_kinds->currentRow();
    if (row < 0 || row >= static_cast<int>(std::size(kKinds))) return std::nullopt;
    return kKinds[row];
}

void ToolEditor::Reload() {
    ReloadTools();
    m_canvas->Reload();
    m_properties->Reload();
    for (EditorPage *page : m_pages) page->Reload();
    UpdateCommands();
}

// The list of tools, the chosen one kept where it is still there.
void ToolEditor::ReloadTools() {
    if (!m_context.session || !m_context.session->IsOpen()) return;
    const QString chosen = m_tools->currentItem() ? m_tools->currentItem()->text() : QString();
    const int chosenRow = m_tools->currentRow();
    QStringList names;
    for (const std::string &name : ToolNames(m_context.session->model())) names << ToQString(name);
    QStringList shown;
    for (int i = 0; i < m_tools->count(); ++i) shown << m_tools->item(i)->text();
    if (names == shown) return;
    const QSignalBlocker quiet(m_tools);
    m_tools->clear();
    m_tools->addItems(names);
    int row = names.indexOf(chosen);
    if (row < 0 && !names.isEmpty()) row = std::clamp(chosenRow, 0, int(names.size()) - 1);
    m_tools->setCurrentRow(row);
    if (FromQString(m_tools->currentItem() ? m_tools->currentItem()->text() : QString()) !=
        m_canvas->tool())
        ShowCurrentTool();
}

void ToolEditor::ShowCurrentTool() {
    m_canvas->ShowTool(CurrentTool());
}

void ToolEditor::AddTool() {
    const std::string name = FromQString(m_newTool->text());
    if (!m_context.apply(orrery::AddTool(m_context.session->model(), name))) return;
    m_newTool->clear();
    ReloadTools();
    const auto found = m_tools->findItems(ToQString(Trim(name)), Qt::MatchExactly);
    if (!found.isEmpty()) m_tools->setCurrentItem(found.back());
}

void ToolEditor::RemoveTool() {
    const std::string tool = CurrentTool();
    if (tool.empty()) return;
    if (!Ask(this, words::kDeleteTool)) return;
    m_context.apply(orrery::RemoveTool(m_context.session->model(), tool));
}

void ToolEditor::AddElement() {
    const std::optional<ElementKind> kind = CurrentKind();
    if (!kind) return ShowMessage(this, words::kNoKindChosen);
    const std::string tool = CurrentTool();
    if (tool.empty()) return ShowMessage(this, words::kNoToolChosen);
    if (m_array->isChecked()) return AddArray(tool, *kind);
    ProjectModel &model = m_context.session->model();
    // A name too short or in use is refused, and asked for again.
    for (;;) {
        bool ok = false;
        const QString typed = QInputDialog::getText(this, windowTitle(),
                                                    ToQString(words::kElementNamePrompt),
                                                    QLineEdit::Normal, QString(), &ok);
        if (!ok || NormText(FromQString(typed)).empty()) return;
        const std::string name = FromQString(typed);
        Outcome outcome = orrery::AddElement(model, tool, *kind, name, FreeSpot(model, tool));
        if (outcome.refused() && (*outcome.refusal == words::kElementNameInvalid ||
                                  *outcome.refusal == words::kElementNameExists)) {
            ShowMessage(this, *outcome.refusal);
            continue;
        }
        if (m_context.apply(std::move(outcome))) {
            m_canvas->Reload();
            m_canvas->Select({std::string(KindWord(*kind)) + CleanElementName(name)});
        }
        return;
    }
}

void ToolEditor::AddArray(const std::string &tool, ElementKind kind) {
    bool ok = false;
    const QString count =
        QInputDialog::getText(this, ToQString(words::kArrayPromptTitle),
                              ToQString(words::kArrayPrompt), QLineEdit::Normal, QString(), &ok);
    if (!ok) return;
    ProjectModel &model = m_context.session->model();
    m_context.apply(orrery::AddArray(model, tool, kind, FromQString(count), ProcessRandom(), {},
                                     FreeSpot(model, tool)));
}

void ToolEditor::AddQombo() {
    const std::string tool = CurrentTool();
    if (tool.empty()) return ShowMessage(this, words::kNoToolChosen);
    QomboDialog dialog(m_context, tool, this);
    if (dialog.exec() == QDialog::Accepted) m_canvas->Reload();
}

bool ToolEditor::ShowPlace(const FindingPlace &place) {
    if (place.kind == FindingPlace::Kind::Element) {
        const ProjectModel &model = m_context.session->model();
        const int row = ElementRowByName(model, place.name);
        if (!row) return false;
        const std::string tag = ToolTag(PropertyValue(model.Element(row), "atool").value_or(""));
        for (int i = 0; i < m_tools->count(); ++i)
            if (ToolTag(FromQString(m_tools->item(i)->text())) == tag) m_tools->setCurrentRow(i);
        m_tabs->setCurrentIndex(0);
        m_canvas->Select({NormText(place.name)});
        return true;
    }
    for (EditorPage *page : m_pages)
        if (page->ShowItem(place)) {
            m_tabs->setCurrentWidget(page);
            return true;
        }
    return false;
}

} // namespace orrery
