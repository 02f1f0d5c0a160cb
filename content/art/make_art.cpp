// Draws the demo game's pictures into an application folder: make_art <application folder>.
// Every picture comes from a fixed seed, so two builds write the same files.
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>
#include <cstdio>
#include <optional>
#include <random>
#include <vector>

namespace {

using Rng = std::mt19937;

// Taken from the raw generator rather than a distribution, whose results differ between
// standard libraries.
int Roll(Rng &rng, int lo, int hi) {
    return lo + int(rng() % unsigned(hi - lo + 1));
}
bool Chance(Rng &rng, int percent) {
    return Roll(rng, 0, 99) < percent;
}

QColor Mix(const QColor &a, const QColor &b, double t) {
    auto lerp = [t](int x, int y) { return int(std::lround(x + (y - x) * t)); };
    return QColor(lerp(a.red(), b.red()), lerp(a.green(), b.green()), lerp(a.blue(), b.blue()));
}

QColor Alpha(QColor c, int alpha) {
    c.setAlpha(alpha);
    return c;
}

const QColor kBlack(3, 5, 10);
const QColor kBorder(0, 64, 128);
const QColor kCyan(60, 200, 235);
const QColor kTeal(40, 190, 165);
const QColor kAmber(255, 196, 120);
const QColor kRed(255, 70, 60);

QImage Canvas(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(kBlack);
    return image;
}

void Glow(QPainter &p, QPointF centre, double radius, const QColor &colour) {
    QRadialGradient g(centre, radius);
    g.setColorAt(0, colour);
    g.setColorAt(1, Alpha(colour, 0));
    p.fillRect(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), g);
}

// Darker edges draw the eye to the middle; strength is the corners' alpha.
void Vignette(QPainter &p, QSize size, int strength) {
    QRadialGradient g(QPointF(size.width() / 2.0, size.height() / 2.0), size.width() * 0.72);
    g.setColorAt(0.45, QColor(0, 0, 0, 0));
    g.setColorAt(1, QColor(0, 0, 0, strength));
    p.fillRect(QRect(QPoint(0, 0), size), g);
}

// --- Main menu background: the city at night, the data centre in front ------------------

const int kHorizon = 600;

void DrawNightSky(QPainter &p, Rng &rng) {
    QLinearGradient sky(0, 0, 0, kHorizon);
    sky.setColorAt(0, QColor(1, 2, 6));
    sky.setColorAt(0.55, QColor(5, 12, 28));
    sky.setColorAt(1, QColor(14, 36, 68));
    p.fillRect(0, 0, 1024, kHorizon, sky);
    for (int i = 0; i < 90; ++i) {
        int y = Roll(rng, 0, 330);
        int level = Roll(rng, 40, 120) * (340 - y) / 340;
        p.fillRect(Roll(rng, 0, 1023), y, 1, 1, QColor(level, level + 10, level + 30));
    }
    Glow(p, QPointF(840, 120), 60, QColor(120, 170, 220, 40));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(150, 180, 210, 70));
    p.drawEllipse(QPointF(840, 120), 15, 15);
    p.setBrush(QColor(3, 6, 14, 150));
    p.drawEllipse(QPointF(846, 116), 14, 14);
}

// Tall towers at the edges and low roofs in the middle keep the menu's ground calm.
int SkylineTop(Rng &rng, int x, int low, int high) {
    double edge = std::pow(std::abs(x - 512) / 512.0, 1.6);
    int height = low + int((high - low) * edge * Roll(rng, 55, 100) / 100.0);
    return kHorizon - height;
}

void DrawWindows(QPainter &p, Rng &rng, QRect body, int cell, int litPercent, int brightness) {
    for (int y = body.top() + cell; y < body.bottom() - cell; y += cell + 2)
        for (int x = body.left() + 3; x < body.right() - 3; x += cell) {
            if (!Chance(rng, litPercent)) continue;
            const QColor &lamp = Chance(rng, 70) ? kAmber : kCyan;
            p.fillRect(x, y, cell / 2, cell / 2 + 1,
                       Alpha(lamp, brightness * Roll(rng, 50, 100) / 100));
        }
}

// One tower: a body, sometimes a narrower top storey, lit windows, a beacon on the tallest.
void DrawTower(QPainter &p, Rng &rng, QRect r, QColor body, int litPercent, int brightness) {
    if (r.width() > 36 && Chance(rng, 45)) {
        int inset = r.width() / 4, rise = Roll(rng, 14, 40);
        QRect top(r.left() + inset, r.top() - rise, r.width() - 2 * inset, rise);
        p.fillRect(top, body);
        DrawWindows(p, rng, top.adjusted(0, 0, 0, 6), 5, litPercent, brightness);
        r.setTop(r.top() - rise);
    }
    p.fillRect(r.left(), r.top(), r.width(), 1, Mix(body, kCyan, 0.18));
    if (kHorizon - r.top() > 240 && Chance(rng, 60)) {
        p.fillRect(r.center().x(), r.top() - 24, 1, 24, body);
        Glow(p, QPointF(r.center().x() + 0.5, r.top() - 24), 5, kRed);
    }
}

void DrawSkylineLayer(QPainter &p, Rng &rng, int low, int high, QColor body, int litPercent,
                      int brightness) {
    for (int x = -20; x < 1044;) {
        int width = Roll(rng, 24, 70);
        QRect r(x, SkylineTop(rng, x + width / 2, low, high), width, 0);
        r.setBottom(kHorizon);
        p.fillRect(r, body);
        DrawWindows(p, rng, r, width > 45 ? 6 : 5, litPercent, brightness);
        DrawTower(p, rng, r, body, litPercent, brightness);
        x += width + Roll(rng, -6, 4);
    }
}

// A long low hall with rows of server lights, the one building the story is about.
void DrawDataCentre(QPainter &p, Rng &rng) {
    QRect hall(352, 548, 320, kHorizon - 548);
    Glow(p, QPointF(512, 575), 260, Alpha(kTeal, 45));
    p.fillRect(hall, QColor(8, 14, 24));
    p.fillRect(hall.left(), hall.top(), hall.width(), 2, QColor(28, 88, 118));
    for (int x = hall.left() + 16; x < hall.right() - 30; x += 56)
        p.fillRect(x, hall.top() - 8, 30, 8, QColor(12, 20, 32));
    for (int row = 0; row < 3; ++row) {
        p.fillRect(hall.left() + 6, hall.top() + 12 + row * 11, hall.width() - 12, 6,
                   Alpha(kCyan, 14));
        for (int x = hall.left() + 8; x < hall.right() - 6; x += 5) {
            if (!Chance(rng, 55)) continue;
            const QColor &led = Chance(rng, 85) ? kCyan : QColor(90, 240, 140);
            p.fillRect(x, hall.top() + 14 + row * 11, 2, 2, Alpha(led, Roll(rng, 90, 230)));
        }
    }
}

// The wet ground mirrors the city faintly, under a grid that runs to the horizon.
void DrawGround(QPainter &p, const QImage &city) {
    const int depth = 768 - kHorizon;
    p.drawImage(0, kHorizon, city.copy(0, kHorizon - depth, 1024, depth).mirrored(false, true));
    QLinearGradient ground(0, kHorizon, 0, 768);
    ground.setColorAt(0, QColor(8, 20, 38, 190));
    ground.setColorAt(0.5, QColor(3, 7, 14, 235));
    ground.setColorAt(1, QColor(2, 4, 8, 250));
    p.fillRect(0, kHorizon, 1024, depth, ground);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Alpha(kCyan, 34), 1));
    for (int i = -24; i <= 24; ++i)
        p.drawLine(QPointF(512 + i * 12, kHorizon), QPointF(512 + i * 110, 768));
    for (double t = 0.02; t < 1; t *= 1.45)
        p.drawLine(QPointF(0, kHorizon + depth * t), QPointF(1024, kHorizon + depth * t));
    p.fillRect(0, kHorizon, 1024, 1, Alpha(kCyan, 70));
}

QImage MenuBackground() {
    Rng rng(20240613);
    QImage image = Canvas(1024, 768);
    QPainter p(&image);
    DrawNightSky(p, rng);
    Glow(p, QPointF(512, kHorizon), 520, QColor(20, 70, 110, 60));
    DrawSkylineLayer(p, rng, 50, 300, QColor(17, 32, 56), 7, 80);
    DrawSkylineLayer(p, rng, 12, 370, QColor(5, 9, 17), 14, 200);
    DrawDataCentre(p, rng);
    DrawGround(p, image.copy());
    for (int y = 0; y < 768; y += 3) p.fillRect(0, y, 1024, 1, QColor(0, 0, 0, 40));
    Vignette(p, image.size(), 170);
    return image;
}

// --- Game desktop background: a dim map of the network, quiet behind the windows --------

// A trace runs straight along its longer axis, then turns 45 degrees into the node, as on
// a circuit board.
void DrawTrace(QPainter &p, QPointF a, QPointF b) {
    QPointF d = b - a;
    double slack = std::abs(std::abs(d.x()) - std::abs(d.y()));
    QPointF bend = std::abs(d.x()) > std::abs(d.y())
                       ? QPointF(a.x() + std::copysign(slack, d.x()), a.y())
                       : QPointF(a.x(), a.y() + std::copysign(slack, d.y()));
    QPainterPath path(a);
    path.lineTo(bend);
    path.lineTo(b);
    p.drawPath(path);
}

// Faint orbits behind the map, the kit's own mark.
void DrawOrbits(QPainter &p) {
    p.setPen(QPen(QColor(16, 30, 46), 1));
    for (double radius = 120; radius < 500; radius += 110)
        p.drawEllipse(QPointF(660, 400), radius, radius * 0.62);
}

// A jittered grid of nodes with some cells left empty, wired to right and lower neighbours.
void DrawNetwork(QPainter &p, Rng &rng) {
    const int cols = 9, rows = 7;
    std::vector<std::optional<QPointF>> nodes;
    for (int i = 0; i < cols * rows; ++i) {
        int dx = Roll(rng, -30, 30), dy = Roll(rng, -30, 30); // in order, unlike arguments
        QPointF at(60 + i % cols * 113 + dx, 50 + i / cols * 111 + dy);
        nodes.push_back(Chance(rng, 62) ? std::optional(at) : std::nullopt);
    }
    p.setPen(QPen(QColor(22, 44, 66), 1.4));
    for (int i = 0; i < cols * rows; ++i) {
        if (!nodes[i]) continue;
        if (i % cols + 1 < cols && nodes[i + 1] && Chance(rng, 60))
            DrawTrace(p, *nodes[i], *nodes[i + 1]);
        if (i + cols < cols * rows && nodes[i + cols] && Chance(rng, 40))
            DrawTrace(p, *nodes[i], *nodes[i + cols]);
    }
    for (const auto &node : nodes) {
        if (!node) continue;
        bool hub = Chance(rng, 15);
        if (hub) Glow(p, *node, 22, Alpha(kCyan, 22));
        p.setPen(QPen(hub ? QColor(40, 110, 140) : QColor(28, 58, 84), 1.4));
        p.setBrush(QColor(6, 12, 20));
        p.drawEllipse(*node, hub ? 5 : 3.5, hub ? 5 : 3.5);
    }
}

QImage DesktopBackground() {
    Rng rng(4711);
    QImage image = Canvas(1024, 768);
    QPainter p(&image);
    QRadialGradient base(QPointF(512, 384), 700);
    base.setColorAt(0, QColor(11, 20, 33));
    base.setColorAt(1, QColor(4, 7, 12));
    p.fillRect(image.rect(), base);
    for (int y = 16; y < 768; y += 32)
        for (int x = 16; x < 1024; x += 32) p.fillRect(x, y, 1, 1, QColor(20, 34, 50));
    p.setRenderHint(QPainter::Antialiasing);
    DrawOrbits(p);
    DrawNetwork(p, rng);
    Vignette(p, image.size(), 200);
    return image;
}

// --- Title bars: an end piece and a middle piece stretched between two of them ----------

// The bar is the same in every column, so end and middle pieces meet without a seam.
QImage TitleBar(int width, QColor top, QColor bottom, QColor accent) {
    QImage image = Canvas(width, 25);
    QPainter p(&image);
    QLinearGradient steel(0, 1, 0, 22);
    steel.setColorAt(0, top);
    steel.setColorAt(0.5, Mix(top, bottom, 0.6));
    steel.setColorAt(1, bottom);
    p.fillRect(0, 0, width, 23, steel);
    p.fillRect(0, 0, width, 1, Mix(top, Qt::white, 0.22));
    p.fillRect(0, 22, width, 1, Mix(bottom, Qt::black, 0.5));
    p.fillRect(0, 23, width, 1, accent);
    p.fillRect(0, 24, width, 1, kBorder);
    return image;
}

const QColor kToolTop(46, 64, 86), kToolBottom(12, 20, 31);
const QColor kDialogTop(40, 64, 82), kDialogBottom(10, 22, 30);

// The end piece runs to where the stretched middle begins (2400 twips, 160 px) and ends in a
// lit cap; the run-time shows it mirrored at the right end, so both ends are finished.
QImage ToolEnd() {
    QImage image = TitleBar(160, kToolTop, kToolBottom, kCyan);
    QPainter p(&image);
    p.fillRect(0, 0, 2, 24, Alpha(kCyan, 200));
    p.fillRect(2, 0, 1, 24, Alpha(kCyan, 70));
    return image;
}

QImage ToolMiddle() {
    return TitleBar(8, kToolTop, kToolBottom, kCyan);
}

// A diamond rather than the tools' orbit tells the small dialogs apart.
QImage DialogEnd() {
    QImage image = TitleBar(40, kDialogTop, kDialogBottom, kTeal);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    Glow(p, QPointF(20, 11.5), 12, Alpha(kTeal, 55));
    p.translate(20, 11.5);
    p.rotate(45);
    p.setPen(QPen(Alpha(kTeal, 170), 1.2));
    p.drawRect(QRectF(-5, -5, 10, 10));
    p.setPen(Qt::NoPen);
    p.setBrush(Mix(kTeal, Qt::white, 0.25));
    p.drawRect(QRectF(-2, -2, 4, 4));
    return image;
}

QImage DialogMiddle() {
    return TitleBar(8, kDialogTop, kDialogBottom, kTeal);
}

// --- The padlock beside a locked side-menu entry, on the side menu's black -------------

QImage Padlock() {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(150, 172, 196), 1.8));
    QPainterPath shackle(QPointF(4.9, 8));
    shackle.lineTo(4.9, 5.2);
    shackle.arcTo(QRectF(4.9, 1.4, 6.2, 7.2), 180, -180);
    shackle.lineTo(11.1, 8);
    p.drawPath(shackle);
    QLinearGradient body(0, 7, 0, 15);
    body.setColorAt(0, QColor(90, 190, 225));
    body.setColorAt(1, QColor(20, 80, 130));
    p.fillRect(3, 7, 10, 8, body);
    p.fillRect(3, 7, 10, 1, QColor(170, 230, 250));
    p.fillRect(7, 9, 2, 2, Qt::black);
    p.fillRect(7, 11, 2, 2, QColor(10, 30, 50));
    return image;
}

// --- Writing them out --------------------------------------------------------------------

struct Picture {
    const char *path;
    QImage (*draw)();
};

const Picture kPictures[] = {
    {"Res/uimages/bg-default.bmp", MenuBackground},
    {"Res/uimages/vbz-def.bmp", DesktopBackground},
    {"Res/uimages/locked.bmp", Padlock},
    {"Res/toolstyle/tool-default.bmp", ToolEnd},
    {"Res/toolstyle/tool-default-s.bmp", ToolMiddle},
    {"Res/toolstyle/imleft.bmp", DialogEnd},
    {"Res/toolstyle/immid.bmp", DialogMiddle},
};

bool Save(const QDir &app, const Picture &picture) {
    QString path = app.filePath(QString::fromUtf8(picture.path));
    if (QDir().mkpath(QFileInfo(path).path()) && picture.draw().save(path, "BMP")) return true;
    std::fprintf(stderr, "make_art: %s: cannot write the picture\n", qPrintable(path));
    return false;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_art <application folder>\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QDir folder(QString::fromLocal8Bit(argv[1]));
    bool ok = true;
    for (const Picture &picture : kPictures) ok = Save(folder, picture) && ok;
    return ok ? 0 : 1;
}
