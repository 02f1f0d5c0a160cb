// Taking a picture into Res/uimages: the name as the project file can hold it, the same picture
// taken once, and a different one of the same name replaced or kept beside it only when asked.
#include "editor/pictures.h"
#include "editor/words.h"
#include "foundation/textfile.h"
#include "support/tempdir.h"

#include <fstream>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

struct Pictures : ::testing::Test {
    test::TempDir dir;
    AppPaths paths{dir.path() / "app"};
    fs::path folder = dir.path() / "app" / "Res" / "uimages";

    fs::path Source(const std::string &utf8Name, const std::string &bytes) {
        const fs::path file = dir.path() / "from" / utf8Name;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    std::string Bytes(const std::string &name) {
        return ReadFileBytes(folder / name).value_or("<none>");
    }
};

TEST_F(Pictures, ANameTheProjectFileCantHoldIsRefusedAndNothingIsWritten) {
    const char *refused[] = {"a:b.png",      "tick`s.png", "back\\slash.png",
                             " lead.png",    "trail.png ", "\xD0\xB6.png" /* a Cyrillic letter */,
                             "tab\there.png"};
    for (const char *name : refused) {
        const PictureImport import = ImportPicture(paths, Source(name, "GIF89a"));
        ASSERT_TRUE(import.refusal) << name;
        EXPECT_EQ(import.refusal->text.rfind("The picture \"", 0), 0u) << name;
        EXPECT_TRUE(import.name.empty()) << name;
    }
    EXPECT_FALSE(fs::exists(folder)) << "nothing written";
    const PictureImport missing = ImportPicture(paths, dir.path() / "nowhere.png");
    EXPECT_EQ(missing.refusal, words::PictureUnreadable("nowhere.png", "no such file"));
}

TEST_F(Pictures, APictureIsCopiedUnderItsNameInWindows1252) {
    const PictureImport logo = ImportPicture(paths, Source("logo.png", "one"));
    EXPECT_FALSE(logo.refusal);
    EXPECT_EQ(logo.name, "logo.png");
    EXPECT_EQ(logo.file, folder / "logo.png");
    EXPECT_EQ(Bytes("logo.png"), "one");

    const PictureImport accented = ImportPicture(paths, Source("caf\xC3\xA9.gif", "two"));
    EXPECT_EQ(accented.name, "caf\xE9.gif") << "stored in the project's code page";
    EXPECT_EQ(Bytes("caf\xC3\xA9.gif"), "two") << "named on disk in UTF-8";

    const PictureImport again = ImportPicture(paths, Source("LOGO.PNG", "one"));
    EXPECT_EQ(again.name, "logo.png") << "the same picture, case aside, is the one there";
    EXPECT_TRUE(again.file.empty()) << "nothing written";
    const PictureImport itself = ImportPicture(paths, folder / "logo.png");
    EXPECT_EQ(itself.name, "logo.png");
}

TEST_F(Pictures, ADifferentPictureOfTheSameNameIsReplacedOrKeptOnlyWhenAsked) {
    ASSERT_EQ(ImportPicture(paths, Source("logo.png", "old")).name, "logo.png");
    const fs::path newer = Source("Logo.png", "new");

    const PictureImport asked = ImportPicture(paths, newer);
    EXPECT_TRUE(asked.ask);
    EXPECT_TRUE(asked.name.empty());
    EXPECT_EQ(Bytes("logo.png"), "old");

    const PictureImport both = ImportPicture(paths, newer, SameNamePicture::KeepBoth);
    EXPECT_EQ(both.name, "Logo-2.png");
    EXPECT_EQ(Bytes("Logo-2.png"), "new");
    const PictureImport third =
        ImportPicture(paths, Source("logo.png", "third"), SameNamePicture::KeepBoth);
    EXPECT_EQ(third.name, "logo-3.png") << "the next free name, case aside";

    const PictureImport replaced = ImportPicture(paths, newer, SameNamePicture::Replace);
    EXPECT_EQ(replaced.name, "logo.png") << "the file there keeps its spelling";
    EXPECT_EQ(Bytes("logo.png"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 3)
        << "logo.png, Logo-2.png, logo-3.png: no second spelling of logo.png beside it";
}

} // namespace
} // namespace orrery
