// Pictures kept by path until the cache is told a file changed: what is forgotten is read
// again, what is not stays as it was read, and a menu drawn after the telling shows the new one.
#include "guitest.h"
#include "widgets/menupainter.h"
#include "widgets/picturecache.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace orrery::test {
namespace {

namespace fs = std::filesystem;

const QColor kOld(200, 30, 30), kNew(30, 30, 200);

void WritePicture(const fs::path &file, const QColor &colour) {
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(colour);
    ASSERT_TRUE(picture.save(QString::fromStdString(file.string()), "PNG"));
}

QColor Colour(const QPixmap &picture) {
    return picture.isNull() ? QColor() : picture.toImage().pixelColor(0, 0);
}

TEST(PictureCache, ReadsAgainOnlyWhatIsForgotten) {
    const struct {
        const char *forgotten; // below the application folder
        QColor shown;
    } rows[] = {
        {"uimages/Chip.png", kNew},  // the file as it was found
        {"uimages/chip.png", kNew},  // as it was asked for
        {"UIMAGES", kNew},           // its folder
        {"uimages/other.png", kOld}, // another file
        {"uimage", kOld},            // a name the folder's begins with is no folder of it
    };
    for (const auto &row : rows) {
        TempDir dir;
        fs::create_directories(dir.path() / "uimages");
        WritePicture(dir.path() / "uimages" / "Chip.png", kOld);
        PictureCache cache;
        EXPECT_EQ(Colour(cache.Load(dir.path() / "uimages", "chip.png")), kOld);
        WritePicture(dir.path() / "uimages" / "Chip.png", kNew);
        EXPECT_EQ(Colour(cache.Load(dir.path() / "uimages", "chip.png")), kOld) << "read once";
        cache.Forget(dir.path() / row.forgotten);
        EXPECT_EQ(Colour(cache.Load(dir.path() / "uimages", "chip.png")), row.shown)
            << row.forgotten;
    }
}

TEST(PictureCache, AMissingPictureShowsOnceItIsWrittenAndForgotten) {
    TempDir dir;
    PictureCache cache;
    EXPECT_TRUE(cache.Load(dir.path(), "late.png").isNull());
    WritePicture(dir.path() / "late.png", kNew);
    EXPECT_TRUE(cache.Load(dir.path(), "late.png").isNull());
    cache.Clear();
    EXPECT_EQ(Colour(cache.Load(dir.path(), "late.png")), kNew);
}

// The menu keeps its background stretched; a replaced background is stretched anew.
TEST(PictureCache, AMenuDrawnAfterTheTellingShowsTheNewBackground) {
    TempDir dir;
    WritePicture(dir.path() / "back.png", kOld);
    MainMenu menu;
    menu.backgroundFile = "back.png";
    MenuPainter painter(dir.path());
    auto draw = [&] {
        QImage form(64, 48, QImage::Format_RGB32);
        QPainter onto(&form);
        painter.paint(onto, menu, form.size());
        return form.pixelColor(32, 24);
    };
    EXPECT_EQ(draw(), kOld);
    WritePicture(dir.path() / "back.png", kNew);
    Pictures().Forget(dir.path() / "back.png");
    EXPECT_EQ(draw(), kNew);
}

} // namespace
} // namespace orrery::test
