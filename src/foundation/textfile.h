// Text files of CRLF-terminated lines, and the atomic replacement that every save goes through.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

// Creates or empties the file and writes text followed by CRLF. False when it couldn't;
// the file then stays as it was.
bool WriteTextFile(const std::filesystem::path &path, std::string_view text);
// The same at the end of the file, creating it when absent.
bool AppendTextFile(const std::filesystem::path &path, std::string_view text);
// Every line, each followed by CRLF, in one text, without the final CRLF. "" on any error.
std::string ReadTextFile(const std::filesystem::path &path);
// True when the file's length can be read: an empty file exists, a directory does not.
bool FileExists(const std::filesystem::path &path);

// Why a file gave no bytes.
enum class ReadError { None, Missing, NotAFile, Unreadable };
// "no such file", "not a regular file", "cannot be read"; "" for None.
std::string_view ReadErrorText(ReadError error);

// The raw bytes of a regular file; nullopt when it can't be read, with the reason in error.
// Only a regular file is read: a directory, a pipe or a device in its place is refused
// without waiting on it.
std::optional<std::string> ReadFileBytes(const std::filesystem::path &path,
                                         ReadError *error = nullptr);
// Writes bytes to a temporary file of its own beside the target, flushes it to disk and
// renames it over the target, so that a failed or interrupted write leaves the old file whole.
// Temporaries that earlier saves left in the folder, and that no save holds, are removed first.
bool ReplaceFileAtomically(const std::filesystem::path &path, std::string_view bytes);

// The longest file name, in bytes, that the file systems we write to take.
inline constexpr std::size_t kMaxFileNameBytes = 255;
// What a save's temporary file adds to its target's name: ".XXXXXX.saving".
inline constexpr std::size_t kTemporaryNameExtraBytes = 14;

// Splits text into lines at CRLF, a lone CR or a lone LF; a final line end adds no empty line.
std::vector<std::string_view> SplitLines(std::string_view text);

// Calls visit with each line of SplitLines(text) in turn, without building the list.
template <typename Visit> void ForEachLine(std::string_view text, Visit &&visit) {
    std::size_t start = 0;
    const std::size_t size = text.size();
    for (std::size_t i = 0; i < size; ++i) {
        const char c = text[i];
        if (c != '\r' && c != '\n') continue;
        visit(text.substr(start, i - start));
        if (c == '\r' && i + 1 < size && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < size) visit(text.substr(start));
}

} // namespace orrery
