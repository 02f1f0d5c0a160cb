// A tool drawn with no game behind it: the views take their controls, pictures and console lines
// from a host of their own, show them where the controls say, and hand the input back to it.
#include "guitest.h"
#include "widgets/elementviews.h"
#include "widgets/look.h"
#include "widgets/picturecache.h"
#include "widgets/toolview.h"
#include "widgets/viewhost.h"

#include <QImage>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <map>

namespace orrery::test {
namespace {

constexpr std::int32_t Rgb(int r, int g, int b) {
    return r | (g << 8) | (b << 16);
}

// A preview's host: a handful of controls in tool 1, and the input written down.
class PreviewHost final : public ViewHost {
public:
    std::filesystem::path resources;
    ProjectSettings projectSettings;
    ToolBox tool{"preview", true, 600, 450, 7200, 5400, Rgb(32, 40, 52), 1};
    ToolChrome dress{1, "Preview", "preview", true};
    std::map<int, ElementControl> controls;
    std::vector<QonsoleScreenLine> lines;
    std::vector<std::string> events;

    std::filesystem::path resourceFolder() const override { return resources; }
    const ProjectSettings &settings() const override { return projectSettings; }
    const ToolBox &box(int) const override { return tool; }
    const ToolChrome *chrome(int) const override { return &dress; }
    std::vector<std::pair<int, const ElementControl *>> elements(int) const override {
        std::vector<std::pair<int, const ElementControl *>> all;
        for (const auto &[row, control] : controls) all.emplace_back(row, &control);
        return all;
    }
    std::vector<QonsoleScreenLine> qonsoleLines(int) const override { return lines; }
    bool hasKeys(int) const override { return false; }
    bool hasAction(int) const override { return true; }
    bool movable(int) const override { return true; }

    void pressed(int row, bool) override { Note("pressed", row); }
    void clicked(int row) override { Note("clicked", row); }
    void doubleClicked(int row) override { Note("doubleClicked", row); }
    void rightClicked(int row, const QPoint &) override { Note("rightClicked", row); }
    void listPressed(int row, int index) override {
        Note("listPressed " + std::to_string(index), row);
    }
    void textEdited(int row, const std::string &text) override { Note("textEdited " + text, row); }
    void selectionChanged(int, std::size_t, std::size_t) override {}
    void focused(int) override {}
    void hovered() override {}
    void toolPressed(int box) override { Note("toolPressed", box); }
    void toolMoved(int, std::int32_t, std::int32_t) override {}
    void toolDropped(int) override {}
    void toolClosed(int box) override { Note("toolClosed", box); }

private:
    void Note(const std::string &what, int n) { events.push_back(what + " " + std::to_string(n)); }
};

ElementControl Control(const char *tag, ElementKind kind, std::int32_t left, std::int32_t top,
                       std::int32_t width, std::int32_t height) {
    ElementControl control;
    control.tag = tag;
    control.kind = kind;
    control.box = 1;
    control.left = left;
    control.top = top;
    control.width = width;
    control.height = height;
    control.foreColor = Rgb(255, 220, 0);
    control.backColor = Rgb(0, 0, 96);
    return control;
}

class Preview : public ::testing::Test {
protected:
    Preview() {
        host.resources = dir.path();
        host.projectSettings.mytoolstitleleft = 120;
        host.projectSettings.mytoolsexitreverseleft = 375;
        host.projectSettings.mytoolsmforecolor = Rgb(230, 230, 230);
        std::filesystem::create_directories(dir.path() / "uimages");
        QImage chip(16, 16, QImage::Format_RGB32);
        chip.fill(QColor(200, 30, 30));
        chip.save(QString::fromStdString((dir.path() / "uimages" / "chip.png").string()));

        auto &c = host.controls;
        c[1] = Control("labelname", ElementKind::Label, 300, 600, 2400, 300);
        c[1].caption = "Target";
        c[1].backStyle = 1;
        c[2] = Control("buttongo", ElementKind::Button, 3000, 600, 1500, 450);
        c[2].caption = "Connect";
        c[3] = Control("texthost", ElementKind::Text, 300, 1200, 4200, 330);
        c[3].text = "10.0.0.7";
        c[4] = Control("listports", ElementKind::List, 300, 1800, 2400, 1500);
        c[4].items = {"21 ftp", "22 ssh", "80 http"};
        c[4].listIndex = 1;
        c[5] = Control("imagechip", ElementKind::Image, 3000, 1800, 900, 900);
        c[5].picture = "CHIP.PNG"; // pictures are matched without regard to case
        c[6] = Control("qonsolelog", ElementKind::Qonsole, 300, 3600, 6600, 1500);
        c[6].backColor = Rgb(0, 0, 0);
        host.lines = {{"> scan 10.0.0.7", std::nullopt, 0}, {"3 ports open", Rgb(0, 255, 0), 225}};

        desk.resize(1000, 800);
        tool = new ToolView(host, 1, &desk);
        tool->sync();
        desk.show();
    }
    template <typename T = QWidget> T *Element(const char *tag) {
        return tool->findChild<T *>(tag);
    }
    // Whether some pixel of the widget as drawn comes near the colour: text is smoothed.
    static bool Shows(QWidget *widget, const QColor &colour) {
        const QImage image = widget->grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                if (std::abs(c.red() - colour.red()) + std::abs(c.green() - colour.green()) +
                        std::abs(c.blue() - colour.blue()) <
                    60)
                    return true;
            }
        return false;
    }

    TempDir dir;
    PreviewHost host;
    QWidget desk;
    ToolView *tool = nullptr;
};

TEST_F(Preview, EachControlShowsItsContentWhereItStands) {
    Shot(tool, "preview_tool.png");
    EXPECT_EQ(tool->geometry(), QRect(40, 30, 480, 360));
    for (const auto &[row, control] : host.controls) {
        QWidget *view = Element(control.tag.c_str());
        ASSERT_NE(view, nullptr) << control.tag;
        EXPECT_EQ(view->geometry(),
                  PxRect(control.left, control.top, control.width, control.height))
            << control.tag;
        EXPECT_TRUE(view->isVisible()) << control.tag;
    }
    EXPECT_EQ(Element<FlatButton>("buttongo")->text(), "Connect");
    EXPECT_EQ(Element<QPlainTextEdit>("texthost")->toPlainText(), "10.0.0.7");
    auto *list = Element<QListWidget>("listports");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(2)->text(), "80 http");
    EXPECT_EQ(list->currentRow(), 1);
    // The label's caption, the picture and the console's coloured line are painted.
    EXPECT_TRUE(Shows(Element("labelname"), QColor(255, 220, 0)));
    EXPECT_EQ(Element("imagechip")->grab().toImage().pixelColor(30, 30), QColor(200, 30, 30));
    EXPECT_TRUE(Shows(Element("qonsolelog"), QColor(0, 255, 0)));
}

TEST_F(Preview, FollowsTheHostsControls) {
    host.controls[2].caption = "Disconnect";
    host.controls[2].left = 4500;
    host.controls.erase(1);
    tool->sync();
    EXPECT_EQ(Element<FlatButton>("buttongo")->text(), "Disconnect");
    EXPECT_EQ(Element("buttongo")->x(), 300);
    EXPECT_EQ(Element("labelname"), nullptr);
}

TEST_F(Preview, InputGoesToTheHost) {
    host.events.clear(); // what showing the text box passed back
    QTest::mouseClick(Element("buttongo"), Qt::LeftButton);
    QTest::mouseDClick(Element("labelname"), Qt::LeftButton);
    auto *list = Element<QListWidget>("listports");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(2)).center());
    QTest::mouseClick(Element("imagechip"), Qt::LeftButton);
    QTest::mouseClick(tool, Qt::LeftButton, {}, tool->closeRect().center());
    const std::vector<std::string> expected = {
        "clicked 2", "doubleClicked 1", "listPressed 2 4", "clicked 4",
        "pressed 5", "clicked 5",       "toolPressed 1",   "toolClosed 1"};
    EXPECT_EQ(host.events, expected);
}

TEST_F(Preview, AReplacedPictureShowsOnceTheCacheIsTold) {
    QWidget *image = Element("imagechip");
    QImage chip(16, 16, QImage::Format_RGB32);
    chip.fill(QColor(30, 30, 200));
    chip.save(QString::fromStdString((dir.path() / "uimages" / "chip.png").string()));
    EXPECT_EQ(image->grab().toImage().pixelColor(30, 30), QColor(200, 30, 30));
    Pictures().Forget(dir.path() / "uimages" / "chip.png");
    EXPECT_EQ(image->grab().toImage().pixelColor(30, 30), QColor(30, 30, 200));
}

} // namespace
} // namespace orrery::test
