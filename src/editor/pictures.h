// Taking a picture file into the application folder's Res/uimages, where elements and menus
// name their pictures by bare file name.
#pragma once

#include "editor/change.h"
#include "foundation/paths.h"

#include <filesystem>
#include <optional>
#include <string>

namespace orrery {

// What to do when Res/uimages already holds a different picture of the same name, case aside.
enum class SameNamePicture {
    Ask,      // nothing is written; the answer says so and the front end asks kReplacePicture
    Replace,  // the new bytes go into the file that is there, under its own spelling
    KeepBoth, // the new picture takes the first free name "<stem>-2<ext>", "<stem>-3<ext>"...
};

struct PictureImport {
    std::string name; // the bare name to store, in Windows-1252; empty when refused or asking
    std::optional<Message> refusal;
    bool ask = false;           // a different picture holds the name: ask, then import again
    std::filesystem::path file; // the picture in Res/uimages; set when something was written
};

// Copies the picture file into Res/uimages and names it as an element stores it. A picture
// already there with the same bytes is taken as it is, so choosing a picture of the folder
// itself, or the same one twice, writes nothing. A file name the project file can't hold is
// refused, never altered: the author renames the file knowingly. Nothing is written outside
// Res/uimages, and a different picture of the same name is replaced only when asked to.
PictureImport ImportPicture(const AppPaths &paths, const std::filesystem::path &source,
                            SameNamePicture sameName = SameNamePicture::Ask);

} // namespace orrery
