// Font files through fontconfig.
#include "platform/fonts.h"

#include "foundation/codepage.h"
#include "foundation/text.h"

#include <fontconfig/fontconfig.h>
#include <memory>
#include <string>

namespace orrery {

std::optional<std::filesystem::path> FindFontFile(std::string_view family) {
    const std::string wanted = Cp1252ToUtf8(Trim(family));
    if (wanted.empty() || !FcInit()) return std::nullopt;
    const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> pattern(FcPatternCreate(),
                                                                          FcPatternDestroy);
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8 *>(wanted.c_str()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> match(
        FcFontMatch(nullptr, pattern.get(), &result), FcPatternDestroy);
    if (!match) return std::nullopt;
    FcChar8 *matchedFamily = nullptr;
    FcChar8 *file = nullptr;
    if (FcPatternGetString(match.get(), FC_FAMILY, 0, &matchedFamily) != FcResultMatch ||
        FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
        return std::nullopt;
    const std::string found(reinterpret_cast<const char *>(matchedFamily));
    if (LowerCase(Utf8ToCp1252(found)) != LowerCase(Trim(family))) return std::nullopt;
    return std::filesystem::path(reinterpret_cast<const char *>(file));
}

} // namespace orrery
