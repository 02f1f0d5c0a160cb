// The property panel: sections of editors made from the element property table.
#include "editor/qt/propertypanel.h"

#include "editor/pictures.h"
#include "editor/qt/actioneditor.h"
#include "editor/qt/propertyeditors.h"
#include "editor/qt/shellparts.h"
#include "editor/qt/sequenceedit.h"
#include "editor/session.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "widgets/look.h"
#include "widgets/picturecache.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QFontInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace orrery {

namespace fs = std::filesystem;
using V = PropertyValueKind;

struct PropertyPanel::Editor {
    const ElementProperty *property;
    // Shows the elements' value; nullopt when their values differ.
    std::function<void(const std::optional<std::string> &)> show;
    // Commits what the author has typed and not yet committed.
    std::function<void()> flush = [] {};
    QWidget *field = nullptr; // what the form shows; its object name is the key
};

namespace {

constexpr const char *kMixed = "(mixed)";

QString Capitalised(std::string_view label) {
    QString text = ToQString(label);
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

QString SectionTitle(PropertyGroup group) {
    switch (group) {
    case PropertyGroup::Element:
        return QObject::tr("Element");
    case PropertyGroup::Text:
        return QObject::tr("Text");
    case PropertyGroup::Layout:
        return QObject::tr("Position and size");
    case PropertyGroup::Font:
        return QObject::tr("Font");
    case PropertyGroup::Colours:
        return QObject::tr("Colours");
    case PropertyGroup::Content:
        return QObject::tr("Content");
    case PropertyGroup::Action:
        return QObject::tr("Action");
    }
    return {};
}

constexpr PropertyGroup kSections[] = {
    PropertyGroup::Element, PropertyGroup::Text,    PropertyGroup::Font,  PropertyGroup::Colours,
    PropertyGroup::Layout,  PropertyGroup::Content, PropertyGroup::Action};

ElementKind KindOfElement(const ProjectModel &model, int row) {
    return KindOfName(NormText(model.Element(row)[kNameColumn]));
}

// The properties every kind of the set has, one row a key in the table's order: the row of
// the first kind, which shares key, value and range with the others'.
std::vector<const ElementProperty *> SharedProperties(KindSet kinds) {
    std::vector<const ElementProperty *> shared;
    ElementKind first = ElementKind::Other;
    for (int k = 1; k <= static_cast<int>(ElementKind::Qonsole) && first == ElementKind::Other; ++k)
        if (HasKind(kinds, static_cast<ElementKind>(k))) first = static_cast<ElementKind>(k);
    if (first == ElementKind::Other) return shared;
    for (const ElementProperty &row : ElementProperties()) {
        if (row.value == V::KindNumber) continue;
        const bool seen =
            std::any_of(shared.begin(), shared.end(), [&](auto *p) { return p->key == row.key; });
        bool everyKind = !seen;
        for (int k = 1; everyKind && k <= static_cast<int>(ElementKind::Qonsole); ++k) {
            const auto kind = static_cast<ElementKind>(k);
            if (!HasKind(kinds, kind)) continue;
            const ElementProperty *own = FindElementProperty(row.key, kind);
            everyKind = own && HasKind(own->kinds, kind) && own->value != V::KindNumber;
        }
        if (everyKind) shared.push_back(FindElementProperty(row.key, first));
    }
    return shared;
}

// "Label", "Text box": the label of the kind's marker row.
QString KindTitle(ElementKind kind) {
    for (const ElementProperty &row : ElementProperties())
        if (row.value == V::KindNumber && HasKind(row.kinds, kind)) return Capitalised(row.label);
    return Capitalised(KindWord(kind));
}

std::int32_t Number(const std::string &value) {
    return RoundToInt32(Val(value)).value_or(0);
}

// Runs a function when a widget loses the focus.
class FocusOut : public QObject {
public:
    FocusOut(QWidget *watched, std::function<void()> action)
        : QObject(watched), m_action(std::move(action)) {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::FocusOut) m_action();
        return false;
    }

private:
    std::function<void()> m_action;
};

// Keeps the wheel for the panel's scrolling unless the widget has the focus.
class WheelGuard : public QObject {
public:
    explicit WheelGuard(QWidget *watched) : QObject(watched) {
        watched->setFocusPolicy(Qt::StrongFocus);
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

PropertyPanel::PropertyPanel(EditorContext context, QWidget *parent)
    : QWidget(parent), m_context(std::move(context)), m_title(new QLabel), m_subtitle(new QLabel),
      m_pages(new QStackedLayout), m_scroll(new QScrollArea) {
    setObjectName("PropertyPanel");
    setMinimumWidth(260);
    m_title->setObjectName("lblSelection");
    QFont bold = m_title->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.1);
    m_title->setFont(bold);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_subtitle->setObjectName("lblKinds");
    m_subtitle->setForegroundRole(QPalette::PlaceholderText);

    auto *header = new QWidget;
    header->setBackgroundRole(QPalette::Base);
    header->setAutoFillBackground(true);
    auto *headerLayout = new QVBoxLayout(header);
    headerLayout->setContentsMargins(10, 8, 10, 8);
    headerLayout->setSpacing(1);
    headerLayout->addWidget(m_title);
    headerLayout->addWidget(m_subtitle);

    auto *nothing = new QLabel(tr("No element selected.\nSelect one in the preview to see its "
                                  "properties."));
    nothing->setObjectName("lblNothing");
    nothing->setAlignment(Qt::AlignCenter);
    nothing->setWordWrap(true);
    nothing->setForegroundRole(QPalette::PlaceholderText);
    m_scroll->setObjectName("scrProperties");
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pages->addWidget(nothing);
    m_pages->addWidget(m_scroll);

    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addWidget(line);
    layout->addLayout(m_pages, 1);
    ShowElements({});
}

PropertyPanel::~PropertyPanel() = default;

void PropertyPanel::ShowElements(std::vector<std::string> names) {
    CommitPending();
    m_names.clear();
    KindSet kinds = 0;
    if (m_context.session && m_context.session->IsOpen()) {
        const ProjectModel &model = m_context.session->model();
        std::unordered_set<int> shown;
        for (const int row : ElementRowsByName(model, names)) {
            if (!row || !shown.insert(row).second) continue;
            m_names.push_back(NormText(model.Element(row)[kNameColumn]));
            kinds = static_cast<KindSet>(kinds | KindBit(KindOfElement(model, row)));
        }
    }
    if (kinds != m_kinds || m_editors.empty()) {
        m_kinds = kinds;
        Rebuild();
    }
    ShowValues();
}

void PropertyPanel::Reload() {
    // A step this panel is making shows its values itself when it is done.
    if (m_showing) return;
    ShowElements(m_names);
}

void PropertyPanel::CommitPending() {
    for (const Editor &editor : m_editors) editor.flush();
}

bool PropertyPanel::Commit(std::vector<PropertySetting> values, std::string mergeKey) {
    if (m_names.empty() || !m_context.session || !m_context.session->IsOpen()) return false;
    Outcome outcome = SetElementProperties(m_context.session->model(), m_names, values);
    if (!mergeKey.empty()) {
        for (const std::string &name : m_names) mergeKey += " " + name;
        outcome.change.setMergeKey(std::move(mergeKey));
    }
    m_showing = true;
    const bool kept = m_context.apply(std::move(outcome));
    m_showing = false;
    ShowValues();
    return kept;
}

void PropertyPanel::ShowValues() {
    m_title->setText(SelectionTitle());
    if (m_names.empty()) {
        m_subtitle->clear();
        return;
    }
    const ProjectModel &model = m_context.session->model();
    const std::vector<int> rows = ElementRowsByName(model, m_names);
    if (std::find(rows.begin(), rows.end(), 0) != rows.end()) {
        // An element has gone without a word to the panel: it is dropped once whatever runs
        // now, perhaps one of the editors, has returned.
        QMetaObject::invokeMethod(this, &PropertyPanel::Reload, Qt::QueuedConnection);
        return;
    }
    QStringList kinds;
    for (int row : rows) {
        const QString word = KindTitle(KindOfElement(model, row));
        if (!kinds.contains(word)) kinds << word;
    }
    const std::string tool = PropertyValue(model.Element(rows[0]), "atool").value_or("");
    m_subtitle->setText(m_names.size() == 1 ? tr("%1 on %2").arg(kinds[0], ToQString(tool))
                                            : kinds.join(", "));
    m_showing = true;
    for (const Editor &editor : m_editors) {
        std::optional<std::string> shared =
            PropertyValue(model.Element(rows[0]), editor.property->key).value_or("");
        for (int row : rows)
            if (PropertyValue(model.Element(row), editor.property->key).value_or("") != shared)
                shared.reset();
        editor.show(shared);
    }
    m_showing = false;
}

QString PropertyPanel::SelectionTitle() const {
    if (m_names.empty()) return tr("No selection");
    if (m_names.size() == 1) return ToQString(m_names[0]);
    return tr("%n elements", nullptr, static_cast<int>(m_names.size()));
}

void PropertyPanel::Rebuild() {
    m_editors.clear();
    if (QWidget *old = m_scroll->takeWidget()) old->deleteLater();
    auto *page = new QWidget;
    page->setObjectName("propertyForm");
    auto *form = new QFormLayout(page);
    form->setContentsMargins(10, 2, 10, 10);
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(5);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    const auto shared = SharedProperties(m_kinds);
    for (PropertyGroup group : kSections) {
        std::vector<const ElementProperty *> flags;
        bool titled = false;
        for (const ElementProperty *property : shared) {
            if (property->group != group) continue;
            if (!titled) AddSection(form, SectionTitle(group));
            titled = true;
            if (property->value == V::Boolean)
                flags.push_back(property);
            else
                AddEditor(form, *property);
        }
        if (!flags.empty()) AddStyleRow(form, flags);
    }
    m_scroll->setWidget(page);
    m_pages->setCurrentIndex(m_names.empty() ? 0 : 1);
}

void PropertyPanel::AddSection(QFormLayout *form, const QString &title) {
    auto *label = new QLabel(title.toUpper());
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 0.85);
    font.setLetterSpacing(QFont::PercentageSpacing, 106);
    label->setFont(font);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setContentsMargins(0, form->rowCount() ? 12 : 6, 0, 2);
    form->addRow(label);
}

void PropertyPanel::AddEditor(QFormLayout *form, const ElementProperty &property) {
    Editor editor;
    switch (property.value) {
    case V::ToolName:
        editor = ToolEditor(property);
        break;
    case V::Text:
        editor = TextEditor(property);
        break;
    case V::Lines:
        editor = LinesEditor(property);
        break;
    case V::FontName:
        editor = FontEditor(property);
        break;
    case V::Number:
    case V::Twips:
        editor = property.range.choices.empty() ? NumberEditor(property) : ChoiceEditor(property);
        break;
    case V::Colour:
        editor = ColourEditor(property);
        break;
    case V::ListItems:
    case V::CommandList:
        editor = ItemsEditor(property);
        break;
    case V::FileName:
        editor = PictureEditor(property);
        break;
    case V::Action:
        editor = ActionEditor(property);
        break;
    default:
        return;
    }
    if (property.value == V::Action)
        form->addRow(editor.field);
    else
        form->addRow(Capitalised(property.label), editor.field);
    m_editors.push_back(std::move(editor));
}

void PropertyPanel::AddStyleRow(QFormLayout *form,
                                const std::vector<const ElementProperty *> &flags) {
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (const ElementProperty *flag : flags) {
        Editor editor = FlagEditor(*flag);
        layout->addWidget(editor.field);
        m_editors.push_back(std::move(editor));
    }
    layout->addStretch();
    form->addRow(tr("Style"), row);
}

PropertyPanel::Editor PropertyPanel::ToolEditor(const ElementProperty &property) {
    auto *combo = new QComboBox;
    combo->setObjectName(ToQString(property.key));
    combo->setPlaceholderText(tr(kMixed));
    new WheelGuard(combo);
    connect(combo, &QComboBox::activated, this, [this, combo, &property] {
        Commit({{std::string(property.key), FromQString(combo->currentText())}});
    });
    auto show = [this, combo](const std::optional<std::string> &value) {
        combo->clear();
        for (const std::string &tool : ToolNames(m_context.session->model()))
            if (Trim(tool) != "-") combo->addItem(ToQString(Trim(tool)));
        combo->setCurrentIndex(
            value ? combo->findText(ToQString(Trim(*value)), Qt::MatchFixedString) : -1);
    };
    return {&property, show, [] {}, combo};
}

PropertyPanel::Editor PropertyPanel::TextEditor(const ElementProperty &property) {
    auto *edit = new QLineEdit;
    edit->setObjectName(ToQString(property.key));
    edit->setClearButtonEnabled(true);
    const auto flush = [this, edit, &property] {
        if (!edit->isModified()) return;
        edit->setModified(false);
        Commit({{std::string(property.key), FromQString(edit->text())}});
    };
    connect(edit, &QLineEdit::editingFinished, this, flush);
    auto show = [edit](const std::optional<std::string> &value) {
        edit->setPlaceholderText(value ? QString() : tr(kMixed));
        edit->setText(value ? ToQString(*value) : QString());
        edit->setCursorPosition(0);
    };
    return {&property, show, flush, edit};
}

// A few lines, each a line of the text; the value keeps them apart with back-quotes.
PropertyPanel::Editor PropertyPanel::LinesEditor(const ElementProperty &property) {
    auto *edit = new QPlainTextEdit;
    edit->setObjectName(ToQString(property.key));
    edit->setTabChangesFocus(true);
    edit->setFixedHeight(edit->fontMetrics().lineSpacing() * 3 + 12);
    const auto flush = [this, edit, &property] {
        if (!edit->document()->isModified()) return;
        edit->document()->setModified(false);
        Commit({{std::string(property.key),
                 FromQString(edit->toPlainText().replace('\n', '`'))}});
    };
    new FocusOut(edit, flush);
    auto show = [edit](const std::optional<std::string> &value) {
        edit->setPlaceholderText(value ? QString() : tr(kMixed));
        edit->setPlainText(value ? ToQString(*value).replace('`', '\n') : QString());
        edit->document()->setModified(false);
    };
    return {&property, show, flush, edit};
}

PropertyPanel::Editor PropertyPanel::NumberEditor(const ElementProperty &property) {
    auto *box = new NumberBox;
    box->setObjectName(ToQString(property.key));
    box->setRange(property.range.low, property.range.high);
    if (property.value == V::Twips) {
        box->setSingleStep(kTwipsPerPixel);
        box->setToolTip(tr("In twips: %1 to a pixel.").arg(kTwipsPerPixel));
    }
    connect(box, &NumberBox::committed, this, [this, &property](int value, bool stepped) {
        Commit({{std::string(property.key), IntText(value)}},
               stepped ? "step " + std::string(property.key) : std::string());
    });
    auto show = [box](const std::optional<std::string> &value) {
        box->Show(value ? std::optional<int>(Number(*value)) : std::nullopt);
    };
    return {&property, show, [box] { box->Flush(); }, box};
}

PropertyPanel::Editor PropertyPanel::ChoiceEditor(const ElementProperty &property) {
    auto *combo = new QComboBox;
    combo->setObjectName(ToQString(property.key));
    new WheelGuard(combo);
    for (std::int16_t i = 1; !FieldBy(property.range.choices, i, "|").empty(); ++i)
        combo->addItem(Capitalised(FieldBy(property.range.choices, i, "|")));
    connect(combo, &QComboBox::activated, this, [this, &property](int index) {
        Commit({{std::string(property.key), IntText(property.range.low + index)}});
    });
    auto show = [combo, &property](const std::optional<std::string> &value) {
        const int index = value ? Number(*value) - property.range.low : -1;
        // A number the table has no word for shows as itself.
        combo->setPlaceholderText(value ? ToQString(*value) : tr(kMixed));
        combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
    };
    return {&property, show, [] {}, combo};
}

PropertyPanel::Editor PropertyPanel::ColourEditor(const ElementProperty &property) {
    auto *button = new ColourButton;
    button->setObjectName(ToQString(property.key));
    connect(button, &QToolButton::clicked, this, [this, &property] { ChooseColour(property.key); });
    auto show = [button](const std::optional<std::string> &value) {
        button->Show(value ? std::optional<QColor>(ToQColor(Number(*value))) : std::nullopt);
    };
    return {&property, show, [] {}, button};
}

PropertyPanel::Editor PropertyPanel::FlagEditor(const ElementProperty &property) {
    auto *check = new QCheckBox(Capitalised(property.label));
    check->setObjectName(ToQString(property.key));
    // A click on a box that shows values differing sets them all.
    connect(check, &QCheckBox::clicked, this, [this, check, &property] {
        Commit({{std::string(property.key), BoolText(check->checkState() == Qt::Checked)}});
    });
    auto show = [check](const std::optional<std::string> &value) {
        check->setTristate(!value);
        check->setCheckState(!value                                    ? Qt::PartiallyChecked
                             : ToBoolean(Trim(*value)).value_or(false) ? Qt::Checked
                                                                       : Qt::Unchecked);
    };
    return {&property, show, [] {}, check};
}

PropertyPanel::Editor PropertyPanel::FontEditor(const ElementProperty &property) {
    auto *button = new QPushButton;
    button->setObjectName(ToQString(property.key));
    button->setToolTip(tr("Choose the font, its size and its style"));
    button->setStyleSheet("text-align: left; padding: 3px 8px;");
    connect(button, &QPushButton::clicked, this, &PropertyPanel::ChooseFont);
    auto show = [button](const std::optional<std::string> &value) {
        const QString name = value ? ToQString(Trim(*value)) : QString();
        button->setText((value ? (name.isEmpty() ? QStringLiteral("Verdana") : name) : tr(kMixed)) +
                        QStringLiteral("  \u2026"));
        QFont font = button->parentWidget() ? button->parentWidget()->font() : button->font();
        if (value) font.setFamily(name.isEmpty() ? QStringLiteral("Verdana") : name);
        button->setFont(font);
    };
    return {&property, show, [] {}, button};
}

PropertyPanel::Editor PropertyPanel::ItemsEditor(const ElementProperty &property) {
    auto *button = new QPushButton;
    button->setObjectName(ToQString(property.key));
    button->setStyleSheet("text-align: left; padding: 3px 8px;");
    connect(button, &QPushButton::clicked, this, [this, &property] { EditItems(property); });
    auto show = [button, &property](const std::optional<std::string> &value) {
        if (!value) {
            button->setText(tr(kMixed) + QStringLiteral("  \u2026"));
            return;
        }
        const auto count = PropertyItems(property.value, *value).size();
        const bool commands = property.value == V::CommandList;
        const QString one = commands ? tr("1 command") : tr("1 item");
        const QString many = commands ? tr("%1 commands") : tr("%1 items");
        button->setText((count == 1 ? one : many.arg(count)) + QStringLiteral("  \u2026"));
    };
    return {&property, show, [] {}, button};
}

PropertyPanel::Editor PropertyPanel::PictureEditor(const ElementProperty &property) {
    Editor editor = TextEditor(property);
    QWidget *edit = editor.field;
    edit->setToolTip(tr("A picture's file name in Res/uimages"));
    auto *browse = new QToolButton;
    browse->setObjectName(ToQString(property.key) + "Browse");
    browse->setText(QStringLiteral("\u2026"));
    browse->setToolTip(tr("Choose a picture file; it is copied into Res/uimages"));
    connect(browse, &QToolButton::clicked, this, &PropertyPanel::ChoosePicture);
    auto *preview = new QLabel;
    preview->setObjectName(ToQString(property.key) + "Preview");
    preview->setFixedSize(56, 56);
    preview->setAlignment(Qt::AlignCenter);
    preview->setFrameShape(QFrame::StyledPanel);
    auto *line = new QHBoxLayout;
    line->setSpacing(4);
    line->addWidget(edit, 1);
    line->addWidget(browse);
    editor.field = new QWidget;
    auto *layout = new QVBoxLayout(editor.field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(line);
    layout->addWidget(preview);
    editor.show = [this, text = editor.show, preview](const std::optional<std::string> &value) {
        text(value);
        const QPixmap picture =
            value ? LoadPicture(m_context.session->paths().ResPath() / "uimages", *value)
                  : QPixmap();
        preview->setPixmap(picture.isNull()
                               ? QPixmap()
                               : picture.scaled(preview->size() - QSize(6, 6), Qt::KeepAspectRatio,
                                                Qt::SmoothTransformation));
    };
    return editor;
}

PropertyPanel::Editor PropertyPanel::ActionEditor(const ElementProperty &property) {
    auto *field = new QWidget;
    auto *edit = new SequenceEdit;
    edit->setObjectName(ToQString(property.key));
    edit->setMinimumHeight(110);
    edit->setToolTip(tr("One statement a line"));
    auto *save = new QPushButton(tr("Save Action"));
    save->setObjectName("saveAction");
    auto *assign = new QPushButton(tr("Assign Actions..."));
    assign->setObjectName("cmdAssignActions");
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(assign);
    buttons->addWidget(save);
    auto *layout = new QVBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(edit);
    layout->addLayout(buttons);
    const auto flush = [this, edit, &property] {
        if (!edit->document()->isModified()) return;
        edit->document()->setModified(false);
        Commit({{std::string(property.key), edit->sequence()}});
    };
    connect(save, &QPushButton::clicked, this, flush);
    connect(assign, &QPushButton::clicked, this, [this, flush] {
        flush();
        AssignActions();
    });
    new FocusOut(edit, flush);
    auto show = [edit](const std::optional<std::string> &value) {
        edit->setPlaceholderText(value ? QString() : tr(kMixed));
        edit->setSequence(value ? *value : std::string());
        edit->document()->setModified(false);
    };
    return {&property, show, flush, field};
}

// The dialogs.

void PropertyPanel::AssignActions() {
    if (m_names.size() != 1) return;
    const ProjectModel &model = m_context.session->model();
    const int row = ElementRowByName(model, m_names[0]);
    if (!row) return;
    const SequencePlace place{SequencePlace::Kind::Element,
                              FieldAt(model.Element(row)[kToolColumn], 2), m_names[0]};
    orrery::ActionEditor editor(m_context, place, this);
    editor.exec();
}

namespace {

// The font the first element shows, and the name stored for it.
struct ShownFont {
    QFont font;
    std::string name;
};

ShownFont FontOf(const ElementRow &row, ElementKind kind) {
    ElementControl control;
    control.kind = kind;
    ApplyProperties(control, row, true);
    return {ProjectFont(control.fontName, control.fontSize, control.fontBold, control.fontItalic,
                        control.fontUnderline),
            control.fontName};
}

} // namespace

void PropertyPanel::ChooseFont() {
    if (m_names.empty()) return;
    const ProjectModel &model = m_context.session->model();
    const int row = ElementRowByName(model, m_names[0]);
    const ShownFont shown = FontOf(model.Element(row), KindOfElement(model, row));
    // A font the machine lacks ("Verdana") is offered as the stand-in that the game shows, so
    // that the dialog finds it with its styles; a family left so keeps the project's name.
    QFont offered = shown.font;
    offered.setFamily(QFontInfo(shown.font).family());
    QFontDialog dialog(offered, this);
    dialog.setWindowTitle(tr("Font"));
    const QString found = dialog.currentFont().family();
    if (dialog.exec() != QDialog::Accepted) return;
    QFont chosen = dialog.selectedFont();
    if (!Trim(shown.name).empty() && chosen.family() == found)
        chosen.setFamily(ToQString(Trim(shown.name)));
    SetFont(chosen);
}

bool PropertyPanel::SetFont(const QFont &font) {
    ElementControl control;
    control.fontName = FromQString(font.family());
    const double size = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * 0.75;
    control.fontSize = std::round(size);
    control.fontBold = font.bold();
    control.fontItalic = font.italic();
    control.fontUnderline = font.underline();
    std::vector<PropertySetting> values;
    for (const Editor &editor : m_editors) {
        const ElementProperty &property = *editor.property;
        if (property.group != PropertyGroup::Font || !property.write) continue;
        if (property.range.low > 0 && control.fontSize < property.range.low)
            control.fontSize = property.range.low;
        values.emplace_back(std::string(property.key), property.write(control));
    }
    return !values.empty() && Commit(std::move(values));
}

void PropertyPanel::ChooseColour(std::string_view key) {
    const auto editor = std::find_if(m_editors.begin(), m_editors.end(),
                                     [&](const Editor &e) { return e.property->key == key; });
    if (editor == m_editors.end()) return;
    auto *button = static_cast<ColourButton *>(editor->field);
    QColorDialog dialog(button->colour().value_or(Qt::black), this);
    dialog.setWindowTitle(Capitalised(editor->property->label));
    if (dialog.exec() == QDialog::Accepted) SetColour(key, dialog.selectedColor());
}

bool PropertyPanel::SetColour(std::string_view key, const QColor &colour) {
    return Commit({{std::string(key), IntText(StoredColour(colour))}});
}

void PropertyPanel::ChoosePicture() {
    static QString lastFolder = QDir::homePath();
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Choose Picture"), lastFolder,
        tr("Pictures (*.bmp *.gif *.jpg *.jpeg *.png);;All files (*)"));
    if (file.isEmpty()) return;
    lastFolder = QFileInfo(file).absolutePath();
    SetPicture(file);
}

bool PropertyPanel::SetPicture(const QString &file) {
    const auto editor = std::find_if(m_editors.begin(), m_editors.end(), [](const Editor &e) {
        return e.property->value == V::FileName;
    });
    if (editor == m_editors.end() || !m_context.session) return false;
    const AppPaths &paths = m_context.session->paths();
    const std::optional<PictureImport> chosen = ImportChosenPicture(this, paths, file);
    if (!chosen) return false;
    const PictureImport &import = *chosen;
    if (import.refusal) {
        m_context.apply(Outcome{Change(), import.refusal, {}});
        return false;
    }
    // The file stays when the step is undone, as any file put into a project's folder does.
    if (!import.file.empty()) Pictures().Forget(import.file);
    return Commit({{std::string(editor->property->key), import.name}});
}

void PropertyPanel::EditItems(const ElementProperty &property) {
    if (m_names.empty()) return;
    const ProjectModel &model = m_context.session->model();
    const std::string value =
        PropertyValue(model.Element(ElementRowByName(model, m_names[0])), property.key)
            .value_or("");
    const bool commands = property.value == V::CommandList;
    ItemListDialog dialog(
        commands ? tr("Qonsole Commands") : tr("List Items"),
        commands ? tr("Each command reads NAME (what it does). Double-click one to edit it.")
                 : tr("Double-click an item to edit it."),
        PropertyItems(property.value, value),
        commands ? PropertyItems(property.value, words::kNewQonsoleCommands)
                 : std::vector<std::string>(),
        this);
    if (dialog.exec() == QDialog::Accepted) SetItems(property.key, dialog.items());
}

bool PropertyPanel::SetItems(std::string_view key, const std::vector<std::string> &items) {
    const auto editor = std::find_if(m_editors.begin(), m_editors.end(),
                                     [&](const Editor &e) { return e.property->key == key; });
    if (editor == m_editors.end()) return false;
    // The same entries stored another way ("a//b" and "a//b//") are no change.
    const ProjectModel &model = m_context.session->model();
    const std::vector<int> rows = ElementRowsByName(model, m_names);
    const bool same = std::all_of(rows.begin(), rows.end(), [&](int row) {
        const auto value = PropertyValue(model.Element(row), key);
        return PropertyItems(editor->property->value, value.value_or("")) == items;
    });
    if (same) return false;
    return Commit({{std::string(key), ItemsProperty(editor->property->value, items)}});
}

} // namespace orrery
