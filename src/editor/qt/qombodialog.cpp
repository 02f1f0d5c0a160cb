// The qombo creator's form.
#include "editor/qt/qombodialog.h"

#include "editor/session.h"
#include "editor/tools.h"
#include "foundation/convert.h"
#include "widgets/look.h"
#include "widgets/toolview.h"

#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

namespace orrery {

namespace {

const QColor kOrange(255, 136, 0);
const QColor kSurface(58, 62, 70);
// Room round the tool in Picture1, in twips: above and left of it, and beside and below it,
// where a group may go.
constexpr std::int32_t kMargin = 360;
constexpr std::int32_t kRoom = 2160;
// The most a sample takes on its panel, in pixels; a larger group is drawn smaller.
const QSize kSampleRoom(236, 104);
constexpr int kSamplePadding = 6;
constexpr int kMarkerGrip = 10;

// A group of a type drawn as the player will see it, and its size.
struct Sample {
    QPixmap picture;
    QSize footprint;
};

// Builds the group on a tool of its own in a scratch project with the open project's styles,
// and draws it with the run-time's views.
Sample MakeSample(const ProjectModel &project, const std::filesystem::path &resources, int type) {
    static constexpr std::string_view kTool = "Sample";
    static constexpr Position kAt{600, 960};
    ProjectModel scratch;
    scratch.settings = project.settings;
    AddTool(scratch, kTool);
    AddQombo(scratch, kTool, type, kAt);
    PreviewHost host;
    host.Show(scratch, resources, kTool, 0, 0);
    ToolView view(host, PreviewHost::kBox, nullptr);
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.sync();
    QRect area;
    std::int32_t right = kAt.left, bottom = kAt.top;
    for (const auto &[row, c] : host.elements(PreviewHost::kBox)) {
        area |= PxRect(c->left, c->top, c->width, c->height);
        right = std::max(right, c->left + c->width);
        bottom = std::max(bottom, c->top + c->height);
    }
    // The element views alone, on the tool's colour: the panel's border stays out of the sample.
    const QSize padded = area.size() + 2 * QSize(kSamplePadding, kSamplePadding);
    const double scale = std::min({1.0, double(kSampleRoom.width()) / padded.width(),
                                   double(kSampleRoom.height()) / padded.height()});
    QPixmap picture((QSizeF(padded) * scale).toSize());
    picture.fill(ToQColor(host.box(PreviewHost::kBox).backColor));
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    const QPoint origin = QPoint(kSamplePadding, kSamplePadding) - area.topLeft();
    for (const auto &[row, c] : host.elements(PreviewHost::kBox))
        if (ElementView *element = view.element(row))
            element->widget()->render(&painter, origin + element->widget()->pos(), QRegion(),
                                      QWidget::DrawChildren);
    return {picture, QSize(Px(right - kAt.left), Px(bottom - kAt.top))};
}

// A type's panel: a press anywhere on it chooses the type, and the chosen one is outlined.
class Card : public QFrame {
public:
    explicit Card(QRadioButton *option) : m_option(option) {
        setCursor(Qt::PointingHandCursor);
        connect(option, &QRadioButton::toggled, this, [this] { update(); });
    }

protected:
    void mousePressEvent(QMouseEvent *) override { m_option->setChecked(true); }
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool chosen = m_option->isChecked();
        const QColor edge =
            chosen ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid);
        painter.setPen(QPen(edge, chosen ? 2 : 1));
        painter.setBrush(palette().color(chosen ? QPalette::AlternateBase : QPalette::Base));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    }

private:
    QRadioButton *m_option;
};

} // namespace

// The orange box: dragged with the mouse, its size the chosen group's, its top left corner
// marked by a solid grip where the group's corner goes.
class QomboMarker : public QWidget {
public:
    explicit QomboMarker(QWidget *parent) : QWidget(parent) {
        setObjectName("p");
        setToolTip(QObject::tr("Drag the orange box to position your new super Qombo!"));
        setCursor(Qt::SizeAllCursor);
    }
    std::function<void()> pressed;
    std::function<void(QPoint)> dragged; // by so many pixels since the press
    std::function<void()> dropped;

protected:
    void mousePressEvent(QMouseEvent *event) override {
        if (event->button() != Qt::LeftButton) return;
        m_pressAt = event->globalPosition().toPoint();
        m_held = true;
        pressed();
    }
    void mouseMoveEvent(QMouseEvent *event) override {
        if (m_held) dragged(event->globalPosition().toPoint() - m_pressAt);
    }
    void mouseReleaseEvent(QMouseEvent *event) override {
        if (event->button() != Qt::LeftButton || !m_held) return;
        m_held = false;
        dropped();
    }
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
        // A light outline keeps the box in sight on dark tools and light ones alike.
        painter.setPen(QPen(QColor(255, 255, 255, 230), 3));
        painter.drawRect(box);
        painter.setPen(QPen(kOrange, 1.5));
        painter.setBrush(QColor(kOrange.red(), kOrange.green(), kOrange.blue(), 110));
        painter.drawRect(box);
        painter.setPen(QPen(Qt::white, 1));
        painter.setBrush(kOrange);
        painter.drawRect(QRectF(1.5, 1.5, kMarkerGrip, kMarkerGrip));
    }

private:
    QPoint m_pressAt;
    bool m_held = false;
};

QomboDialog::QomboDialog(EditorContext context, std::string tool, QWidget *parent)
    : QDialog(parent), m_context(std::move(context)), m_tool(std::move(tool)) {
    setObjectName("zQombo1");
    setWindowTitle(tr("Qombo!"));
    auto *question = new QLabel(tr("What type of Qombo would you like?"));
    question->setObjectName("Label1");
    QFont big = question->font();
    big.setPointSizeF(big.pointSizeF() * 1.25);
    big.setBold(true);
    question->setFont(big);

    auto *body = new QHBoxLayout;
    body->setSpacing(16);
    body->addWidget(MakeChoices());
    auto *place = new QGroupBox(tr("Position on %1").arg(ToQString(m_tool)));
    auto *placeColumn = new QVBoxLayout(place);
    placeColumn->addWidget(MakePicture(), 1);
    placeColumn->addWidget(MakePosition());
    body->addWidget(place, 1);

    m_add = new QPushButton(tr("Add Qombo!"));
    m_add->setObjectName("Command4");
    m_add->setDefault(true);
    m_cancel = new QPushButton(tr("Cancel"));
    m_cancel->setObjectName("Command2");
    connect(m_add, &QPushButton::clicked, this, &QomboDialog::Add);
    connect(m_cancel, &QPushButton::clicked, this, &QomboDialog::reject);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_add);
    buttons->addWidget(m_cancel);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(12);
    layout->addWidget(question);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);
    UpdateFootprint();
}

QomboDialog::~QomboDialog() = default;

QWidget *QomboDialog::MakeChoices() {
    auto *choices = new QWidget;
    auto *grid = new QGridLayout(choices);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(10);
    auto *group = new QButtonGroup(this);
    for (int type = 1; type <= kQomboTypes; ++type) {
        QWidget *card = MakeCard(type);
        group->addButton(m_options[static_cast<std::size_t>(type - 1)], type);
        grid->addWidget(card, (type - 1) / 2, (type - 1) % 2);
    }
    m_options[0]->setChecked(true);
    connect(group, &QButtonGroup::idToggled, this, [this](int, bool on) {
        if (on) UpdateFootprint();
    });
    auto *tip = new QLabel(tr("Choose a type, then drag the orange box over the tool to where "
                              "the group's top left corner goes. It snaps to the grid when you "
                              "let go; a position typed in the boxes is used as it stands."));
    tip->setObjectName("Tip");
    tip->setWordWrap(true);
    tip->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    tip->setContentsMargins(10, 6, 10, 6);
    tip->setForegroundRole(QPalette::PlaceholderText);
    grid->addWidget(tip, kQomboTypes / 2, 1);
    return choices;
}

QWidget *QomboDialog::MakeCard(int type) {
    const auto index = static_cast<std::size_t>(type - 1);
    auto *option = new QRadioButton(tr("Qombo Type %1").arg(type));
    option->setObjectName(QString("Option%1").arg(type));
    m_options[index] = option;
    auto *card = new Card(option);
    card->setObjectName(QString("Frame%1").arg(type));
    auto *column = new QVBoxLayout(card);
    column->setContentsMargins(10, 8, 10, 10);
    column->setSpacing(6);
    column->addWidget(option);
    const Sample sample =
        MakeSample(m_context.session->model(), m_context.session->paths().ResPath(), type);
    m_footprints[index] = sample.footprint;
    auto *room = new QWidget;
    room->setFixedSize(kSampleRoom);
    auto *roomColumn = new QVBoxLayout(room);
    roomColumn->setContentsMargins(0, 0, 0, 0);
    roomColumn->addStretch(1);
    auto *picture = new QLabel;
    picture->setObjectName(QString("Sample%1").arg(type));
    picture->setPixmap(sample.picture);
    picture->setAlignment(Qt::AlignCenter);
    roomColumn->addWidget(picture);
    if (type == 5) {
        // The status line's panel has said so since before the type came.
        auto *soon = new QLabel(tr("QOMBO TYPE 5 COMING SOON!"));
        soon->setObjectName("Label5");
        soon->setAlignment(Qt::AlignCenter);
        soon->setStyleSheet(QString("color: %1; font-weight: bold;").arg(kOrange.name()));
        roomColumn->addSpacing(10);
        roomColumn->addWidget(soon);
    }
    roomColumn->addStretch(1);
    column->addWidget(room, 0, Qt::AlignHCenter);
    return card;
}

QWidget *QomboDialog::MakePicture() {
    m_host.Show(m_context.session->model(), m_context.session->paths().ResPath(), m_tool, 0, 0);
    m_picture = new QWidget;
    m_picture->setObjectName("Picture1");
    m_view = new ToolView(m_host, PreviewHost::kBox, m_picture);
    // The tool is only shown: the marker alone takes the mouse.
    m_view->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_view->move(Px(kMargin), Px(kMargin));
    m_view->sync();
    for (QWidget *child : m_view->findChildren<QWidget *>()) child->setFocusPolicy(Qt::NoFocus);

    // Room beside the tool and, where the marker starts, below it for the tallest group.
    int tallest = 0;
    for (const QSize &footprint : m_footprints) tallest = std::max(tallest, footprint.height());
    m_picture->setFixedSize(m_view->geometry().right() + Px(kRoom),
                            m_view->geometry().bottom() + tallest + Px(kMargin));

    // The marker starts on the grid under the elements already there.
    std::int32_t bottom = kTitleBarHeight;
    for (const auto &[row, c] : m_host.elements(PreviewHost::kBox))
        bottom = std::max(bottom, c->top + c->height);
    m_marker = new QomboMarker(m_picture);
    m_marker->pressed = [this] { m_dragFrom = m_at; };
    m_marker->dragged = [this](QPoint delta) { MarkerDragged(delta); };
    m_marker->dropped = [this] { MarkerDropped(); };
    m_at = {SnapToGrid(160), SnapToGrid(bottom + kNudge)};

    auto *scroll = new QScrollArea;
    scroll->setObjectName("PictureScroll");
    scroll->setWidget(m_picture);
    scroll->setAlignment(Qt::AlignCenter);
    scroll->setMinimumSize(std::clamp(m_picture->width() + 4, 420, 720),
                           std::clamp(m_picture->height() + 4, 300, 560));
    QPalette surface = scroll->palette();
    surface.setColor(QPalette::Window, kSurface);
    scroll->setPalette(surface);
    scroll->viewport()->setAutoFillBackground(true);
    m_picture->setAutoFillBackground(true);
    m_picture->setPalette(surface);
    return scroll;
}

QWidget *QomboDialog::MakePosition() {
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(0, 4, 0, 0);
    const auto field = [this, line](const QString &caption, const char *name) {
        auto *label = new QLabel(caption);
        auto *edit = new QLineEdit;
        edit->setObjectName(name);
        edit->setMaximumWidth(90);
        edit->setAlignment(Qt::AlignRight);
        label->setBuddy(edit);
        line->addWidget(label);
        line->addWidget(edit);
        connect(edit, &QLineEdit::textEdited, this, &QomboDialog::Typed);
        return edit;
    };
    m_left = field(tr("Qombo Left"), "Text3");
    line->addSpacing(12);
    m_top = field(tr("Qombo Top"), "Text4");
    auto *unit = new QLabel(tr("twips from the tool's corner"));
    unit->setForegroundRole(QPalette::PlaceholderText);
    line->addSpacing(8);
    line->addWidget(unit);
    line->addStretch(1);
    return row;
}

int QomboDialog::type() const {
    for (std::size_t i = 0; i < m_options.size(); ++i)
        if (m_options[i]->isChecked()) return static_cast<int>(i) + 1;
    return 1;
}

std::optional<Position> QomboDialog::position() const {
    const auto left = ToInt16(FromQString(m_left->text()));
    const auto top = ToInt16(FromQString(m_top->text()));
    if (!left || !top) return std::nullopt;
    return Position{*left, *top};
}

void QomboDialog::PlaceMarker(Position at) {
    m_at = at;
    m_marker->move(m_view->pos() + QPoint(Px(at.left), Px(at.top)));
    m_marker->raise();
    // A box that already reads the value keeps its text as typed.
    for (auto [edit, value] : {std::pair{m_left, at.left}, std::pair{m_top, at.top}}) {
        if (ToInt16(FromQString(edit->text())) == value) continue;
        edit->setText(QString::number(value));
        edit->setStyleSheet({});
    }
    m_add->setEnabled(true);
}

QRect QomboDialog::MarkerRect() const {
    return m_marker->geometry();
}

// The marker follows the mouse freely, kept on Picture1, and snaps when it is let go.
void QomboDialog::MarkerDragged(QPoint delta) {
    const QPoint origin = m_view->pos();
    const QPoint last =
        QPoint(m_picture->width(), m_picture->height()) - origin - QPoint(kMarkerGrip, kMarkerGrip);
    PlaceMarker(
        {std::clamp(m_dragFrom.left + Twips(delta.x()), Twips(-origin.x()), Twips(last.x())),
         std::clamp(m_dragFrom.top + Twips(delta.y()), Twips(-origin.y()), Twips(last.y()))});
}

void QomboDialog::MarkerDropped() {
    PlaceMarker({SnapToGrid(m_at.left), SnapToGrid(m_at.top)});
}

void QomboDialog::Typed() {
    const std::optional<Position> at = position();
    m_add->setEnabled(at.has_value());
    for (QLineEdit *edit : {m_left, m_top})
        edit->setStyleSheet(ToInt16(FromQString(edit->text())) ? QString()
                                                               : QString("color: #c0392b;"));
    if (at) PlaceMarker(*at);
}

void QomboDialog::UpdateFootprint() {
    const QSize size = m_footprints[static_cast<std::size_t>(type() - 1)];
    m_marker->resize(size.expandedTo(QSize(2 * kMarkerGrip, 2 * kMarkerGrip)) + QSize(2, 2));
    PlaceMarker(m_at);
}

void QomboDialog::Add() {
    const std::optional<Position> at = position();
    if (!at) return;
    m_adding = true;
    m_add->setEnabled(false);
    m_cancel->setEnabled(false);
    m_add->setText(tr("Creating..."));
    // Once, so that the caption shows before the work.
    QApplication::processEvents();
    const bool added = m_context.apply(AddQombo(m_context.session->model(), m_tool, type(), *at));
    m_adding = false;
    added ? accept() : QDialog::reject();
}

void QomboDialog::reject() {
    if (!m_adding) QDialog::reject();
}

} // namespace orrery
