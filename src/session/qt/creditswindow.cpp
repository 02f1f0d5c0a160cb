// The rolling credits.
#include "session/qt/creditswindow.h"

#include "foundation/text.h"
#include "widgets/look.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <algorithm>

namespace orrery {

namespace {

constexpr int kTickMs = 250;
constexpr std::int32_t kStepTwips = 240;
constexpr std::int32_t kGoneTwips = 600;
constexpr std::int32_t kRestartTwips = 3600;

// The credit picture, filling the window without distortion; black when there is none.
class CreditPicture : public QWidget {
public:
    CreditPicture(QPixmap picture, QWidget *parent)
        : QWidget(parent), m_picture(std::move(picture)) {
        setObjectName("boxim");
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::black);
        if (m_picture.isNull()) return;
        const QSize fitted = m_picture.size().scaled(size(), Qt::KeepAspectRatioByExpanding);
        const QRect target(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2),
                           fitted);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(target, m_picture);
    }

private:
    QPixmap m_picture;
};

// 0 left, 1 right, 2 centre, as every label of a project counts them.
Qt::Alignment CreditAlignment(std::int16_t alignment) {
    switch (alignment) {
    case 1:
        return Qt::AlignRight | Qt::AlignTop;
    case 2:
        return Qt::AlignHCenter | Qt::AlignTop;
    default:
        return Qt::AlignLeft | Qt::AlignTop;
    }
}

// The author's colour, but never dark text on the black that stands in for a missing
// picture: a new project's credits are black, meant for its light background.
QColor CreditColour(const ProjectSettings &s, bool pictured) {
    const QColor colour = ToQColor(s.mycreditsforecolor);
    return pictured || colour.lightness() >= 80 ? colour : QColor(207, 227, 224);
}

} // namespace

CreditsWindow::CreditsWindow(const ProjectModel &project, const AppPaths &paths, QWidget *parent)
    : QWidget(parent, Qt::Window), m_timer(new QTimer(this)) {
    const ProjectSettings &s = project.settings;
    setObjectName("box");
    setWindowTitle(ToQString(s.myprojectname));
    setFocusPolicy(Qt::StrongFocus);
    const QPixmap picture = LoadPicture(paths.ResPath() / "uimages", s.mycreditsbackground);
    m_picture = new CreditPicture(picture, this);

    m_text = new QLabel(m_picture);
    m_text->setObjectName("l");
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setText(ToQString(ReplaceAll(s.mycredits, "//", "\n")));
    m_text->setFont(ProjectFont(s.mycreditsfontname, s.mycreditsfontsize, s.mycreditsbold,
                                s.mycreditsitalic, s.mycreditsunderline));
    m_text->setAlignment(CreditAlignment(s.mycreditsalignment));
    QPalette palette = m_text->palette();
    palette.setColor(QPalette::WindowText, CreditColour(s, !picture.isNull()));
    m_text->setPalette(palette);
    m_text->move(0, Px(kRestartTwips));

    m_timer->setObjectName("Timer1");
    m_timer->setInterval(kTickMs);
    connect(m_timer, &QTimer::timeout, this, &CreditsWindow::Roll);
    m_timer->start();
    resize(1024, 768);
    FitText();
}

void CreditsWindow::Roll() {
    int top = m_text->y() - Px(kStepTwips);
    if (top <= -m_text->height() - Px(kGoneTwips)) top = Px(kRestartTwips);
    m_text->move(m_text->x(), top);
}

void CreditsWindow::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

void CreditsWindow::closeEvent(QCloseEvent *event) {
    m_timer->stop();
    QWidget::closeEvent(event);
    emit closed();
}

void CreditsWindow::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    FitText();
}

// The picture fills the window; the text keeps a tenth of the width free on each side and is
// as tall as its lines.
void CreditsWindow::FitText() {
    m_picture->setGeometry(rect());
    const int margin = width() / 10;
    const int textWidth = std::max(1, width() - 2 * margin);
    m_text->setGeometry(margin, m_text->y(), textWidth, m_text->heightForWidth(textWidth));
}

} // namespace orrery
