// The action editor's form.
#include "editor/qt/actioneditor.h"

#include "check/check.h"
#include "editor/pictures.h"
#include "editor/qt/conditiondialog.h"
#include "editor/qt/elementpicker.h"
#include "editor/qt/shellparts.h"
#include "editor/sequences.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/elementprops.h"
#include "widgets/look.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace orrery {

namespace {

const QColor kGood(38, 140, 62);
const QColor kError(196, 40, 40);
const QColor kWarning(196, 120, 0);

QPushButton *Button(const QString &caption, const QString &name) {
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

QStringList Texts(const std::vector<std::string> &items) {
    QStringList texts;
    for (const std::string &item : items) texts << ToQString(item);
    return texts;
}

// A parameter's label for the author: "[:START-VAL]" as "START-VAL".
QString LabelText(std::string_view label) {
    return ToQString(StripBrackets(ReplaceAll(label, ":", "")));
}

// Sets the text of a list input: the entry of that text, or the text typed where it can be.
void SetListText(QComboBox *list, const QString &text) {
    const int found = list->findText(text);
    if (found >= 0) list->setCurrentIndex(found);
    else if (list->isEditable()) list->setCurrentText(text);
}

} // namespace

ActionEditor::ActionEditor(EditorContext context, SequencePlace place, QWidget *parent)
    : QDialog(parent), m_context(std::move(context)), m_place(std::move(place)) {
    setObjectName("frmAction");
    setWindowTitle(ToQString(ActionCaption(model(), m_place)));
    setSizeGripEnabled(true);

    auto *split = new QSplitter(Qt::Horizontal);
    split->setObjectName("ActionSplit");
    split->addWidget(MakeFunctions());
    split->addWidget(MakeComposer());
    split->addWidget(MakeSequence());
    split->setStretchFactor(1, 1);
    split->setStretchFactor(2, 1);
    split->setChildrenCollapsible(false);
    split->setSizes({340, 410, 410});

    auto *save = Button(tr("Save and close..."), "Command2");
    auto *cancel = Button(tr("Cancel"), "Command1");
    save->setDefault(false);
    save->setAutoDefault(false);
    cancel->setAutoDefault(false);
    auto *bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(save);
    bottom->addWidget(cancel);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(10, 10, 10, 10);
    column->addWidget(split, 1);
    column->addLayout(bottom);

    connect(save, &QPushButton::clicked, this, &ActionEditor::Save);
    connect(cancel, &QPushButton::clicked, this, &ActionEditor::reject);

    SetLines(LoadActions(StoredActions(model(), m_place)));
    FillFunctions();
    ChooseFunction(nullptr);
    resize(1180, 640);
}

ProjectModel &ActionEditor::model() const {
    return m_context.session->model();
}

QWidget *ActionEditor::MakeFunctions() {
    auto *box = new QGroupBox(tr("Function List"));
    auto *column = new QVBoxLayout(box);
    auto *filters = new QHBoxLayout;
    m_filter = new QButtonGroup(box);
    const char *captions[] = {"All", "Returns", "Non-returns"};
    for (int i = 0; i < 3; ++i) {
        auto *option = new QRadioButton(tr(captions[i]));
        option->setObjectName(QString("Option%1").arg(i + 1));
        m_filter->addButton(option, i);
        filters->addWidget(option);
    }
    filters->addStretch(1);
    m_filter->button(0)->setChecked(true);
    m_functions = new QListWidget;
    m_functions->setObjectName("List1");
    m_functions->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    column->addLayout(filters);
    column->addWidget(m_functions, 1);
    connect(m_filter, &QButtonGroup::idClicked, this, [this] { FillFunctions(); });
    connect(m_functions, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) {
        const std::string text = FromQString(item->text());
        // A new statement starts without the condition of the line last shown.
        m_conditions->setCurrentIndex(0);
        ChooseFunction(FindCatalogueEntry(text.substr(0, text.find(' '))));
    });
    box->setMinimumWidth(300);
    return box;
}

void ActionEditor::FillFunctions() {
    static constexpr CatalogueFilter kFilters[] = {CatalogueFilter::All, CatalogueFilter::Returns,
                                                   CatalogueFilter::NonReturns};
    m_functions->clear();
    for (const std::string &text : CatalogueItems(kFilters[std::max(0, m_filter->checkedId())])) {
        auto *item = new QListWidgetItem(ToQString(text), m_functions);
        // A separator between two groups is a thin gap that can't be chosen.
        if (text.empty()) {
            item->setFlags(Qt::NoItemFlags);
            item->setSizeHint(QSize(0, 6));
        }
    }
}

QWidget *ActionEditor::MakeComposer() {
    auto *box = new QGroupBox(tr("Compose"));
    auto *grid = new QGridLayout(box);
    grid->setColumnStretch(1, 1);
    grid->setVerticalSpacing(8);

    m_name = new QLabel;
    m_name->setObjectName("lf");
    QFont bold = m_name->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.15);
    m_name->setFont(bold);
    grid->addWidget(new QLabel(tr("Function")), 0, 0);
    grid->addWidget(m_name, 0, 1);

    m_targetRow = new QWidget;
    m_targetRow->setObjectName("Picture1");
    m_target = new QComboBox;
    m_target->setObjectName("lst0");
    m_target->setEditable(true);
    auto *newVar = Button(tr("New Var"), "Command9");
    auto *targetLine = new QHBoxLayout(m_targetRow);
    targetLine->setContentsMargins(0, 0, 0, 0);
    targetLine->addWidget(new QLabel(tr("Put the value in")));
    targetLine->addWidget(m_target, 1);
    targetLine->addWidget(newVar);
    grid->addWidget(m_targetRow, 1, 0, 1, 2);
    connect(newVar, &QPushButton::clicked, this, &ActionEditor::NewVariable);
    connect(m_target, &QComboBox::currentTextChanged, this, &ActionEditor::UpdateVerdict);

    for (int i = 1; i <= static_cast<int>(kMaxParams); ++i) {
        MakeParam(i);
        grid->addWidget(m_params[i].label, i + 1, 0);
        grid->addWidget(m_params[i].row, i + 1, 1);
    }

    m_conditions = new QComboBox;
    m_conditions->setObjectName("lcon");
    m_conditions->addItem(tr("None"));
    auto *addCondition = Button(tr("Add Condition..."), "Command6");
    auto *conditionLine = new QHBoxLayout;
    conditionLine->addWidget(m_conditions, 1);
    conditionLine->addWidget(addCondition);
    grid->addWidget(new QLabel(tr("Condition")), 7, 0);
    grid->addLayout(conditionLine, 7, 1);
    connect(addCondition, &QPushButton::clicked, this, &ActionEditor::AddCondition);
    connect(m_conditions, &QComboBox::currentTextChanged, this, &ActionEditor::UpdateVerdict);

    m_verdict = new QLabel;
    m_verdict->setObjectName("lblVerdict");
    m_verdict->setWordWrap(true);
    m_verdict->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_verdict->setMinimumHeight(40);
    m_verdict->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(m_verdict, 8, 0, 1, 2);
    grid->setRowStretch(9, 1);

    auto *assign = Button(tr("Assign Command"), "Command3");
    auto *special = Button(tr("View Special Vars"), "Command7");
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(special);
    buttons->addStretch(1);
    buttons->addWidget(assign);
    grid->addLayout(buttons, 10, 0, 1, 2);
    connect(assign, &QPushButton::clicked, this, &ActionEditor::AssignCommand);
    connect(special, &QPushButton::clicked, this, [this] {
        ShowMessage(this, {std::string(kSpecialVariablesCaption), SpecialVariablesText()});
    });
    box->setMinimumWidth(380);
    return box;
}

void ActionEditor::MakeParam(int i) {
    Param &param = m_params[i];
    const QString n = QString::number(i);
    param.label = new QLabel;
    param.label->setObjectName("lp" + n);
    param.row = new QWidget;
    param.list = new QComboBox;
    param.list->setObjectName("lst" + n);
    param.list->setMinimumContentsLength(12);
    param.text = new QLineEdit;
    param.text->setObjectName("txt" + n);
    param.swatch = new QFrame;
    param.swatch->setObjectName("pcol" + n);
    param.swatch->setFixedSize(22, 22);
    param.swatch->setFrameShape(QFrame::Box);
    param.swatch->setAutoFillBackground(true);
    param.colour = Button(tr("Colour..."), "ccol" + n);
    param.file = Button(tr("Browse..."), "cfile" + n);
    param.window = Button(tr("Get Element..."), "cwin" + n);
    auto *line = new QHBoxLayout(param.row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    for (QWidget *input : std::initializer_list<QWidget *>{param.list, param.text})
        line->addWidget(input, 1);
    for (QWidget *input :
         std::initializer_list<QWidget *>{param.swatch, param.colour, param.file, param.window})
        line->addWidget(input);
    connect(param.list, &QComboBox::currentTextChanged, this, [this, i] {
        if (m_params[i].kind == ParamKind::Tool) RefillElements();
        UpdateVerdict();
    });
    connect(param.text, &QLineEdit::textChanged, this, &ActionEditor::UpdateVerdict);
    connect(param.colour, &QPushButton::clicked, this, [this, i] { ChooseColour(m_params[i]); });
    connect(param.file, &QPushButton::clicked, this, [this, i] { ChooseFile(m_params[i]); });
    connect(param.window, &QPushButton::clicked, this, [this, i] { GetElement(m_params[i]); });
}

QWidget *ActionEditor::MakeSequence() {
    auto *box = new QGroupBox(tr("Assigned Actions"));
    auto *column = new QVBoxLayout(box);
    m_list = new QListWidget;
    m_list->setObjectName("List2");
    m_text = new QPlainTextEdit;
    m_text->setObjectName("txtActions");
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_list->setFont(fixed);
    m_text->setFont(fixed);
    m_views = new QStackedWidget;
    m_views->addWidget(m_list);
    m_views->addWidget(m_text);
    m_asText = new QCheckBox(tr("Edit as text"));
    m_asText->setObjectName("chkText");
    column->addWidget(m_asText);
    column->addWidget(m_views, 1);

    auto *up = Button(tr("Move item up"), "Command4");
    auto *down = Button(tr("Move item down"), "Command5");
    auto *remove = Button(tr("Remove item"), "cmdDel");
    auto *copy = Button(tr("Copy Commands"), "Command8");
    auto *paste = Button(tr("Paste from Clipboard"), "Command10");
    m_listOnly = {up, down, remove, paste};
    auto *grid = new QGridLayout;
    grid->addWidget(up, 0, 0);
    grid->addWidget(down, 0, 1);
    grid->addWidget(remove, 0, 2);
    grid->addWidget(copy, 1, 0);
    grid->addWidget(paste, 1, 1, 1, 2);
    column->addLayout(grid);

    connect(m_asText, &QCheckBox::toggled, this, &ActionEditor::ShowAsText);
    connect(m_list, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { LoadLine(FromQString(item->text())); });
    connect(up, &QPushButton::clicked, this, [this] { Move(-1); });
    connect(down, &QPushButton::clicked, this, [this] { Move(1); });
    connect(remove, &QPushButton::clicked, this, &ActionEditor::Remove);
    connect(copy, &QPushButton::clicked, this, &ActionEditor::Copy);
    connect(paste, &QPushButton::clicked, this, &ActionEditor::Paste);
    box->setMinimumWidth(340);
    return box;
}

std::vector<std::string> ActionEditor::lines() const {
    if (m_views->currentWidget() == m_text) return ActionsFromText(FromQString(m_text->toPlainText()));
    std::vector<std::string> lines;
    for (int row = 0; row < m_list->count(); ++row) lines.push_back(FromQString(m_list->item(row)->text()));
    return lines;
}

void ActionEditor::SetLines(const std::vector<std::string> &lines) {
    m_list->clear();
    m_list->addItems(Texts(lines));
}

void ActionEditor::ShowAsText(bool text) {
    // lines() reads the view that shows until the switch.
    if (text) m_text->setPlainText(ToQString(ActionsText(lines())));
    else SetLines(lines());
    m_views->setCurrentIndex(text ? 1 : 0);
    for (QPushButton *button : m_listOnly) button->setEnabled(!text);
    UpdateVerdict();
}

// The inputs.

void ActionEditor::ChooseFunction(const CatalogueEntry *entry) {
    m_entry = entry;
    m_name->setText(entry ? ToQString(entry->name) : tr("Choose a function from the list"));
    const bool returns = entry && NormTextContains(entry->name, "return");
    m_targetRow->setVisible(returns);
    if (returns) FillTarget();
    for (std::size_t i = 1; i <= kMaxParams; ++i) {
        Param &param = m_params[i];
        const bool shown = entry && i <= entry->ParamCount();
        param.label->setVisible(shown);
        param.row->setVisible(shown);
        if (!shown) continue;
        param.kind = ParamKindOf(entry->labels[i - 1]);
        param.label->setText(LabelText(entry->labels[i - 1]));
        FillParam(param);
    }
    RefillElements();
    UpdateVerdict();
}

bool ActionEditor::IsList(const Param &param) const {
    switch (param.kind) {
    case ParamKind::General:
    case ParamKind::Color:
    case ParamKind::File:
    case ParamKind::Audio:
    case ParamKind::Image:
        return false;
    default:
        return true;
    }
}

void ActionEditor::FillParam(Param &param) {
    const ParamKind kind = param.kind;
    const bool list = IsList(param);
    param.list->setVisible(list);
    param.text->setVisible(!list);
    param.swatch->setVisible(kind == ParamKind::Color);
    param.colour->setVisible(kind == ParamKind::Color);
    param.file->setVisible(kind == ParamKind::File || kind == ParamKind::Audio);
    param.window->setVisible(kind == ParamKind::Element || kind == ParamKind::Image);
    param.text->setReadOnly(kind == ParamKind::Color);
    param.text->clear();
    param.swatch->setPalette(QPalette());
    const QSignalBlocker quiet(param.list);
    param.list->clear();
    const std::span<const std::string_view> fixed = ParamChoices(kind);
    param.list->setEditable(fixed.empty());
    for (const std::string_view choice : fixed) param.list->addItem(ToQString(choice));
    switch (kind) {
    case ParamKind::Tool:
        for (const std::string &tool : ToolNames(model()))
            if (!tool.starts_with('-')) param.list->addItem(ToQString(tool));
        SetListText(param.list, ToQString(m_place.tool));
        break;
    case ParamKind::Qlob: param.list->addItems(Texts(QlobNames(model()))); break;
    case ParamKind::Variable: param.list->addItems(Texts(VariableNames(model()))); break;
    case ParamKind::Console: param.list->addItems(Texts(ElementsOfKind(model(), ElementKind::Qonsole))); break;
    case ParamKind::List: param.list->addItems(Texts(ElementsOfKind(model(), ElementKind::List))); break;
    case ParamKind::ServerProperty: param.list->addItems(Texts(LoadServerProps(model()))); break;
    default: break;
    }
}

void ActionEditor::FillTarget() {
    const QString typed = m_target->currentText();
    const QSignalBlocker quiet(m_target);
    m_target->clear();
    m_target->addItems(Texts(LoadList6(model())));
    m_target->addItems(Texts(ToolElementNames(model(), ChosenTool())));
    m_target->setCurrentText(typed);
}

// The tool whose elements an element input offers: the function's tool input, or the tool
// the sequence belongs to.
std::string ActionEditor::ChosenTool() const {
    if (m_entry)
        for (std::size_t i = 1; i <= m_entry->ParamCount(); ++i)
            if (m_params[i].kind == ParamKind::Tool)
                return Trim(FromQString(m_params[i].list->currentText()));
    return m_place.tool;
}

void ActionEditor::RefillElements() {
    if (!m_entry) return;
    const QStringList elements = Texts(ToolElementNames(model(), ChosenTool()));
    for (std::size_t i = 1; i <= m_entry->ParamCount(); ++i) {
        QComboBox *list = m_params[i].list;
        if (m_params[i].kind != ParamKind::Element) continue;
        const QString typed = list->currentText();
        const QSignalBlocker quiet(list);
        list->clear();
        list->addItems(elements);
        list->setCurrentText(typed);
    }
}

Composition ActionEditor::Compose() const {
    Composition composition;
    if (!m_entry) return composition;
    composition.function = std::string(m_entry->name);
    if (m_targetRow->isVisibleTo(this)) composition.target = FromQString(m_target->currentText());
    for (std::size_t i = 1; i <= m_entry->ParamCount(); ++i) {
        const Param &param = m_params[i];
        const bool list = IsList(param);
        composition.arguments.push_back(
            {list, FromQString(list ? param.list->currentText() : param.text->text())});
    }
    composition.condition = FromQString(m_conditions->currentText());
    return composition;
}

void ActionEditor::UpdateVerdict() {
    if (!m_verdict || !m_views) return; // not yet made
    if (!m_entry) return m_verdict->clear();
    const std::vector<std::string> sequence = lines();
    const std::vector<Finding> findings =
        // As it will be stored: a target picked from the list as "_$x" is saved as "$x".
        CheckStatement(model(), ReplaceAll(ComposedStatement(Compose()), "_$", "$"), sequence);
    QColor colour = kGood;
    QStringList messages;
    for (const Finding &finding : findings) {
        messages << ToQString(finding.message);
        if (finding.severity == Severity::Error) colour = kError;
        else if (colour != kError) colour = kWarning;
    }
    m_verdict->setText(findings.empty() ? ToQString(words::kNoProblems) : messages.join("\n"));
    m_verdict->setStyleSheet(QString("color: %1;").arg(colour.name()));
}

void ActionEditor::LoadLine(const std::string &line) {
    const std::optional<LoadedLine> loaded = GetFunctionIndex(line);
    if (!loaded) return;
    const QString text = ToQString(loaded->entry->Text());
    if (m_functions->findItems(text, Qt::MatchExactly).isEmpty()) {
        m_filter->button(0)->setChecked(true);
        FillFunctions();
    }
    const auto found = m_functions->findItems(text, Qt::MatchExactly);
    if (!found.isEmpty()) m_functions->setCurrentItem(found[0]);
    ChooseFunction(loaded->entry);
    m_target->setCurrentText(ToQString(loaded->target));
    for (std::size_t i = 1; i <= m_entry->ParamCount() && i <= loaded->arguments.size(); ++i) {
        const QString argument = ToQString(loaded->arguments[i - 1]);
        if (IsList(m_params[i])) SetListText(m_params[i].list, argument);
        else m_params[i].text->setText(argument);
    }
    const QString condition = ToQString(loaded->condition);
    if (condition.isEmpty()) m_conditions->setCurrentIndex(0);
    else {
        if (m_conditions->findText(condition) < 0) m_conditions->addItem(condition);
        m_conditions->setCurrentIndex(m_conditions->findText(condition));
    }
}

// The list.

void ActionEditor::AssignCommand() {
    if (!m_entry) return;
    const Composed composed = AddAccion(Compose());
    if (composed.refusal) return ShowMessage(this, *composed.refusal);
    // A loop's body goes between its two ends: the opening line stays chosen.
    const bool loop = NormText(m_entry->name) == "_for";
    InsertLines(composed.lines, loop ? 0 : static_cast<int>(composed.lines.size()) - 1);
}

void ActionEditor::InsertLines(const std::vector<std::string> &lines, int select) {
    if (m_asText->isChecked()) m_asText->setChecked(false);
    const int current = m_list->currentRow();
    int at = current >= 0 && m_list->currentItem()->isSelected() ? current + 1 : m_list->count();
    m_list->insertItems(at, Texts(lines));
    m_list->setCurrentRow(at + select);
    UpdateVerdict();
}

void ActionEditor::Move(int by) {
    const int row = m_list->currentRow();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= m_list->count()) return;
    m_list->insertItem(to, m_list->takeItem(row));
    m_list->setCurrentRow(to);
}

void ActionEditor::Remove() {
    if (m_list->currentRow() < 0 || !Ask(this, words::kRemoveItem)) return;
    delete m_list->takeItem(m_list->currentRow());
    UpdateVerdict();
}

void ActionEditor::Copy() {
    QGuiApplication::clipboard()->setText(ToQString(CopyLines(lines())));
}

void ActionEditor::Paste() {
    if (!Ask(this, words::kPasteCommands)) return;
    m_list->addItems(Texts(PasteLines(FromQString(QGuiApplication::clipboard()->text()))));
    UpdateVerdict();
}

void ActionEditor::NewVariable() {
    bool ok = false;
    const QString name = QInputDialog::getText(this, tr("New Var"), ToQString(words::kNewVariablePrompt),
                                               QLineEdit::Normal, QString(), &ok);
    if (!ok || name.trimmed().isEmpty()) return;
    if (!m_context.apply(AddXVar(model(), FromQString(name), "0"))) return;
    FillTarget();
    for (std::size_t i = 1; m_entry && i <= m_entry->ParamCount(); ++i)
        if (m_params[i].kind == ParamKind::Variable) {
            const QString typed = m_params[i].list->currentText();
            FillParam(m_params[i]);
            m_params[i].list->setCurrentText(typed);
        }
}

void ActionEditor::AddCondition() {
    ConditionDialog dialog(model(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    for (const std::string &condition : dialog.conditions()) m_conditions->addItem(ToQString(condition));
    if (!dialog.conditions().empty())
        m_conditions->setCurrentText(ToQString(dialog.conditions().front()));
}

void ActionEditor::ChooseColour(Param &param) {
    const QColor shown = param.text->text().isEmpty()
                             ? QColor(Qt::black)
                             : ToQColor(static_cast<std::int32_t>(Val(FromQString(param.text->text()))));
    const QColor chosen = QColorDialog::getColor(shown, this, param.label->text());
    if (!chosen.isValid()) return;
    param.text->setText(ToQString(IntText(StoredColour(chosen))));
    QPalette palette = param.swatch->palette();
    palette.setColor(QPalette::Window, chosen);
    param.swatch->setPalette(palette);
}

void ActionEditor::ChooseFile(Param &param) {
    const QString filter = param.kind == ParamKind::Audio
                               ? tr("Audio (*.wav *.mp3 *.mid *.midi);;All Files (*.*)")
                               : tr("All Files (*.*)");
    const QString file = QFileDialog::getOpenFileName(this, param.label->text(), QString(), filter);
    if (file.isEmpty()) return;
    const AppPaths &paths = m_context.session->paths();
    const std::optional<PictureImport> import = ImportChosenPicture(this, paths, file);
    if (!import) return;
    if (import->refusal) return ShowMessage(this, *import->refusal);
    param.text->setText(ToQString(import->name));
}

void ActionEditor::GetElement(Param &param) {
    ElementPicker picker(*m_context.session, ChosenTool(), m_entry ? std::string(m_entry->name) : "", this);
    if (picker.exec() != QDialog::Accepted || picker.picked().empty()) return;
    const QString picked = ToQString(picker.picked());
    if (IsList(param)) param.list->setCurrentText(picked);
    else param.text->setText(picked);
}

void ActionEditor::Save() {
    if (!m_context.apply(StoreActions(model(), m_place, lines()))) return;
    accept();
}

} // namespace orrery
