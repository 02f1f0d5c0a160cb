// Pictures taken into Res/uimages.
#include "editor/pictures.h"

#include "editor/text.h"
#include "editor/words.h"
#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "foundation/textfile.h"

#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {

// A file name (UTF-8, as the disk has it) as the project file can hold it: in Windows-1252,
// no colon, back-quote, back-slash or control character, no blank at either end, and no
// longer than a name may be. nullopt when it can't.
std::optional<std::string> StorableName(const std::string &utf8) {
    const std::string name = Utf8ToCp1252(utf8);
    if (Cp1252ToUtf8(name) != utf8) return std::nullopt;
    if (UnwritableName(name) || name.find('\\') != std::string::npos || Trim(name) != name ||
        !SafeComponent(name))
        return std::nullopt;
    return name;
}

// The entry of the folder that has the name, case aside: the run-time finds a picture so.
std::optional<fs::path> FileNamed(const fs::path &folder, std::string_view name) {
    const std::string wanted = LowerCase(name);
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string utf8 = it->path().filename().string();
        const std::string entry = Utf8ToCp1252(utf8);
        if (Cp1252ToUtf8(entry) == utf8 && LowerCase(entry) == wanted) return it->path();
    }
    return std::nullopt;
}

// The first "<stem>-<n><ext>" from n = 2 that no entry of the folder has.
std::optional<std::string> FreeName(const fs::path &folder, std::string_view name) {
    const fs::path path(Cp1252ToUtf8(name));
    const std::string stem = path.stem().string(), extension = path.extension().string();
    for (int n = 2; n < 10000; ++n) {
        const std::string candidate = Utf8ToCp1252(stem + "-" + IntText(n) + extension);
        if (!FileNamed(folder, candidate)) return StorableName(Cp1252ToUtf8(candidate));
    }
    return std::nullopt;
}

} // namespace

PictureImport ImportPicture(const AppPaths &paths, const fs::path &source,
                            SameNamePicture sameName) {
    PictureImport result;
    const std::string leaf = source.filename().string();
    const std::string shown = Utf8ToCp1252(leaf);
    std::optional<std::string> name = StorableName(leaf);
    if (!name) {
        result.refusal = words::UnusablePictureName(shown);
        return result;
    }
    ReadError error = ReadError::None;
    const std::optional<std::string> bytes = ReadFileBytes(source, &error);
    if (!bytes) {
        result.refusal = words::PictureUnreadable(shown, ReadErrorText(error));
        return result;
    }
    const fs::path folder = paths.ResPath() / "uimages";
    if (const std::optional<fs::path> there = FileNamed(folder, *name)) {
        const std::string thereName = Utf8ToCp1252(there->filename().string());
        if (ReadFileBytes(*there) == bytes) {
            result.name = thereName;
            return result;
        }
        if (sameName == SameNamePicture::Ask) {
            result.ask = true;
            return result;
        }
        // A second spelling of the same name beside the first would leave the run-time to
        // pick one of them: a replaced picture keeps the spelling it had.
        name = sameName == SameNamePicture::Replace ? thereName : FreeName(folder, *name);
        if (!name) {
            result.refusal = words::UnusablePictureName(shown);
            return result;
        }
    }
    std::error_code made;
    fs::create_directories(folder, made);
    const fs::path target = folder / *SafeComponent(*name);
    if (!ReplaceFileAtomically(target, *bytes)) {
        result.refusal = words::PictureNotCopied(*name);
        return result;
    }
    result.name = *name;
    result.file = target;
    return result;
}

} // namespace orrery
